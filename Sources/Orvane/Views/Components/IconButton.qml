import QtQuick
import Orvane as Orvane

/// A button that shows only a symbol; `label` names it to the user.
Orvane.BaseButton {
    id: root

    required property string symbol
    property int symbolSize: 16
    property color restColor: root.theme.tones.second
    property color activeColor: root.theme.tones.text
    /// Keeps the look of a pressed button, for one whose popover is open.
    property bool held: false

    hint: root.label
    corner: 9
    implicitWidth: 28
    implicitHeight: 28

    background: Rectangle {
        radius: root.corner
        color: root.down ? root.theme.tones.edge : root.hovered || root.held ? root.theme.tones.press : Qt.alpha(root.theme.tones.press, 0)
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        Orvane.Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: root.symbolSize
            color: !root.enabled ? root.theme.tones.off : root.hovered || root.held ? root.activeColor : root.restColor
        }
    }
}
