import QtQuick
import Orvane as Orvane

/// One day of a month.
Orvane.BaseButton {
    id: root

    required property bool chosen
    required property bool today

    readonly property bool filled: root.chosen && root.enabled

    implicitWidth: 32
    implicitHeight: 28
    corner: 9
    ringInside: true
    Accessible.selectable: true
    Accessible.selected: root.chosen

    background: Rectangle {
        radius: root.corner
        color: root.filled ? (root.down ? root.theme.tones.fillPress : root.hovered ? root.theme.tones.fillHover : root.theme.tones.fill) : root.down || root.hovered ? root.theme.tones.press : Orvane.Palette.clear
        border.width: root.today && !root.filled ? 1 : 0
        border.color: root.theme.tones.control
    }
    contentItem: Orvane.Label {
        kind: root.filled ? Orvane.Type.smallBold : Orvane.Type.small
        text: root.text
        color: !root.enabled ? root.theme.tones.off : root.filled ? root.theme.tones.inkOnFill : root.theme.tones.text
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
