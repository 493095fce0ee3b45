import QtQuick
import QtQuick.Shapes
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

    /// Asks for the other state and stays as it is until then. Assistive programs call it also while the
    /// switch is disabled.
    function ask(): void {
        if (!root.enabled)
            return;
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

    // Paths, because rounded rectangles come out ragged where the screen's scale is no whole number.
    background: Shape {
        id: track
        property color tone: {
            const tones = root.theme.tones;
            if (!root.enabled)
                return tones.line;
            if (!root.on)
                return root.active ? tones.switchHover : tones.switchOff;
            return root.down ? tones.fillPress : root.hovered ? tones.fillHover : tones.fill;
        }
        Behavior on tone {
            ColorAnimation {
                duration: root.theme.span(Orvane.Metrics.quick)
                easing.type: Easing.OutQuad
            }
        }
        ShapePath {
            strokeWidth: 20
            strokeColor: track.tone
            fillColor: Orvane.Palette.clear
            capStyle: ShapePath.RoundCap
            startX: 10
            startY: 10
            PathLine {
                x: 26
                y: 10
            }
        }
    }
    contentItem: Item {
        Shape {
            objectName: "knob"
            x: root.on ? 18 : 2
            y: 2
            width: 16
            height: 16
            Behavior on x {
                NumberAnimation {
                    duration: root.theme.span(Orvane.Metrics.quick)
                    easing.type: Easing.OutQuad
                }
            }
            ShapePath {
                strokeColor: Orvane.Palette.clear
                fillColor: !root.enabled ? root.theme.tones.off : root.on ? root.theme.tones.inkOnFill : root.theme.tones.knob
                PathAngleArc {
                    centerX: 8
                    centerY: 8
                    radiusX: 8
                    radiusY: 8
                    sweepAngle: 360
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
