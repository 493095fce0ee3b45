import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// One of a few choices side by side. Whoever shows them says which one is chosen.
T.RadioButton {
    id: root

    required property Orvane.Theme theme
    required property bool chosen
    /// Read to the user.
    property string label: root.text
    property string symbol: ""
    property Orvane.TextStyle kind: Orvane.Type.smallMedium

    readonly property color ink: root.chosen || root.hovered ? root.theme.tones.text : root.theme.tones.second

    implicitHeight: 32
    hoverEnabled: true
    checked: root.chosen
    // A press asks; it does not choose by itself.
    onToggled: root.checked = Qt.binding(() => root.chosen)
    // A template's own role comes before the one given here, so the template has to be of that role.
    Accessible.role: Accessible.RadioButton
    Accessible.name: root.label
    Accessible.onPressAction: root.clicked()
    Accessible.onToggleAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: 10
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
    Orvane.FocusRing {
        theme: root.theme
        shown: root.visualFocus
        corner: 10
        z: 1
    }
}
