import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// Turns something on or off. Shows `on` and nothing else: whoever shows the switch changes that when it
/// asks.
T.CheckBox {
    id: root

    required property Orvane.Theme theme
    /// Read to the user.
    required property string label
    required property bool on

    /// The user wants this state.
    signal switched(bool on)

    readonly property bool active: root.hovered || root.down

    /// Asks for the other state and stays as it is until then.
    function ask(): void {
        root.checked = Qt.binding(() => root.on);
        root.switched(!root.on);
    }

    implicitWidth: 36
    implicitHeight: 20
    hoverEnabled: true
    checked: root.on
    onToggled: root.ask()
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.label
    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.onPressAction: root.ask()
    Accessible.onToggleAction: root.ask()
    Keys.onReturnPressed: root.ask()
    Keys.onEnterPressed: root.ask()

    background: Rectangle {
        radius: 10
        color: {
            const tones = root.theme.tones;
            if (!root.enabled)
                return Orvane.Palette.clear;
            if (!root.on)
                return root.active ? tones.switchHover : tones.switchOff;
            return root.down ? tones.fillPress : root.hovered ? tones.fillHover : tones.fill;
        }
        border.width: root.enabled ? 0 : 1
        border.color: root.theme.tones.line
        Behavior on color {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: Item {
        Rectangle {
            objectName: "knob"
            x: root.on ? 18 : 2
            y: 2
            width: 16
            height: 16
            radius: 8
            color: !root.enabled ? root.theme.tones.off : root.on ? root.theme.tones.inkOnFill : root.theme.tones.knob
            Behavior on x {
                NumberAnimation {
                    duration: root.theme.span(Orvane.Metrics.quick)
                    easing.type: Easing.OutQuad
                }
            }
        }
    }
    Orvane.FocusRing {
        theme: root.theme
        shown: root.visualFocus
        corner: 10
    }
}
