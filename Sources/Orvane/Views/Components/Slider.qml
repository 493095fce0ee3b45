import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// Chooses a number on a line. Shows `amount` and nothing else: whoever shows the slider changes that when
/// it asks, which it does for each step of a drag.
T.Slider {
    id: root

    required property Orvane.Theme theme
    /// Read to the user.
    required property string label
    required property real amount

    /// The user wants this amount, which lies on a step between `from` and `to`.
    signal slid(real amount)

    // What the accessibility bridge asks a value for.
    readonly property real minimumValue: root.from
    readonly property real maximumValue: root.to

    function ask(amount: real): void {
        if (!root.enabled)
            return;
        const steps = Math.round((amount - root.from) / root.stepSize);
        const wanted = Math.max(root.from, Math.min(root.from + steps * root.stepSize, root.to));
        if (wanted !== root.amount)
            root.slid(wanted);
    }

    implicitWidth: 200
    implicitHeight: 20
    // The knob's middle, not its edge, goes from one end of the line to the other.
    leftPadding: -9
    rightPadding: -9
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    snapMode: T.Slider.SnapAlways
    value: root.amount
    // Pointer, arrow keys and assistive programs change this value; only the owner changes the shown one.
    onValueChanged: {
        const wanted = root.value;
        if (wanted === root.amount)
            return;
        root.ask(wanted);
        root.value = Qt.binding(() => root.amount);
    }
    Accessible.role: Accessible.Slider
    Accessible.name: root.label
    Accessible.onIncreaseAction: root.ask(root.amount + root.stepSize)
    Accessible.onDecreaseAction: root.ask(root.amount - root.stepSize)
    Keys.onUpPressed: root.ask(root.amount + root.stepSize)
    Keys.onDownPressed: root.ask(root.amount - root.stepSize)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageUp)
            root.ask(root.amount + 5 * root.stepSize);
        else if (event.key === Qt.Key_PageDown)
            root.ask(root.amount - 5 * root.stepSize);
        else if (event.key === Qt.Key_Home)
            root.ask(root.from);
        else if (event.key === Qt.Key_End)
            root.ask(root.to);
        else
            return;
        event.accepted = true;
    }

    readonly property real middle: root.visualPosition * root.width

    background: Item {
        Rectangle {
            y: 8
            width: parent.width
            height: 4
            radius: 2
            color: root.theme.tones.tick
        }
        Rectangle {
            y: 8
            width: Math.round(root.middle)
            height: 4
            radius: 2
            color: root.enabled ? root.theme.tones.fill : root.theme.tones.off
        }
    }
    handle: Rectangle {
        objectName: "knob"
        x: Math.round(root.middle) - 9
        y: 1
        width: 18
        height: 18
        radius: 9
        color: root.pressed ? root.theme.tones.press : root.hovered ? root.theme.tones.hover : root.theme.tones.raise
        border.width: 2
        border.color: !root.enabled ? root.theme.tones.off : root.pressed ? root.theme.tones.fillPress : root.hovered ? root.theme.tones.fillHover : root.theme.tones.fill
        Orvane.FocusRing {
            theme: root.theme
            shown: root.visualFocus
            corner: 9
        }
    }
}
