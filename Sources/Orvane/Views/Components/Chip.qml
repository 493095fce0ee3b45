import QtQuick
import Orvane as Orvane

/// One of a few choices side by side. Whoever shows it says which one is chosen.
Orvane.BaseButton {
    id: root

    required property bool chosen
    property string symbol: ""
    property Orvane.TextStyle kind: Orvane.Type.smallMedium

    readonly property color ink: root.chosen || root.hovered ? root.theme.tones.text : root.theme.tones.second

    corner: 10
    implicitHeight: 32
    // So that assistive programs hear which one is chosen; a press does not change it by itself.
    checkable: true
    checked: root.chosen
    autoExclusive: true
    Accessible.role: Accessible.RadioButton
    onToggled: root.checked = Qt.binding(() => root.chosen)

    background: Rectangle {
        radius: root.corner
        color: root.chosen ? root.theme.tones.tint : root.down ? root.theme.tones.press : root.hovered ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        Row {
            anchors.centerIn: parent
            spacing: 6
            Orvane.Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbol !== ""
                name: root.symbol === "" ? "circle" : root.symbol
                size: 14
                color: root.ink
            }
            Orvane.Label {
                anchors.verticalCenter: parent.verticalCenter
                kind: root.kind
                text: root.text
                color: root.ink
                Accessible.ignored: true
            }
        }
    }
}
