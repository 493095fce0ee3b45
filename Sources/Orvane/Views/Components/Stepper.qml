pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvane as Orvane

/// A number between two buttons that lower and raise it. Says what the user wants; whoever shows it
/// gives it the new `value`. Up, Down, PageUp, PageDown, Home and End do the same by keyboard.
FocusScope {
    id: root

    required property Orvane.Theme theme
    /// Read to the user.
    required property string label
    required property int from
    required property int to
    required property int value
    property int step: 1
    /// What is shown between the buttons.
    property string text: String(root.value)

    /// The user wants this value, which lies within the bounds.
    signal stepped(int value)

    implicitWidth: 64 + Math.max(44, Math.ceil(words.implicitWidth) + 16)
    implicitHeight: 32

    function ask(value: int): void {
        const wanted = Math.max(root.from, Math.min(value, root.to));
        if (wanted !== root.value)
            root.stepped(wanted);
    }

    component Sign: Item {
        id: sign
        required property string symbol
        required property bool hovered
        required property bool pressed
        required property bool usable

        width: 32
        height: root.height
        Rectangle {
            x: 2
            y: 2
            width: 28
            height: parent.height - 4
            radius: 8
            visible: sign.usable
            color: sign.pressed ? root.theme.tones.press : sign.hovered ? root.theme.tones.hover : Qt.alpha(root.theme.tones.hover, 0)
            Behavior on color {
                ColorAnimation {
                    duration: root.theme.span(Orvane.Metrics.quick)
                    easing.type: Easing.OutQuad
                }
            }
        }
        Orvane.Symbol {
            anchors.centerIn: parent
            name: sign.symbol
            size: 14
            color: !sign.usable ? root.theme.tones.off : sign.hovered ? root.theme.tones.text : root.theme.tones.second
        }
    }

    T.SpinBox {
        id: spin
        anchors.fill: parent
        focus: true
        focusPolicy: Qt.StrongFocus
        hoverEnabled: true
        from: root.from
        to: root.to
        stepSize: root.step
        value: root.value
        Accessible.role: Accessible.SpinBox
        Accessible.name: root.label
        Accessible.onIncreaseAction: root.ask(root.value + root.step)
        Accessible.onDecreaseAction: root.ask(root.value - root.step)
        // Buttons, keys and assistive programs change this value; only the owner changes the shown one.
        onValueChanged: {
            const wanted = spin.value;
            if (wanted === root.value)
                return;
            spin.value = Qt.binding(() => root.value);
            root.ask(wanted);
        }
        Keys.onPressed: event => {
            if (event.key === Qt.Key_PageUp)
                root.ask(root.value + 10 * root.step);
            else if (event.key === Qt.Key_PageDown)
                root.ask(root.value - 10 * root.step);
            else if (event.key === Qt.Key_Home)
                root.ask(root.from);
            else if (event.key === Qt.Key_End)
                root.ask(root.to);
            else
                return;
            event.accepted = true;
        }

        background: Rectangle {
            radius: 10
            color: Orvane.Palette.clear
            border.width: 1
            border.color: root.enabled ? root.theme.tones.edge : root.theme.tones.line
            Repeater {
                model: [32, spin.width - 33]
                delegate: Rectangle {
                    required property int modelData
                    x: modelData
                    y: 1
                    width: 1
                    height: parent.height - 2
                    color: root.theme.tones.line
                }
            }
            // The template would make a content item one more stop of the Tab key.
            Orvane.Label {
                id: words
                objectName: "stepperText"
                anchors.centerIn: parent
                kind: Orvane.Type.figure
                text: root.text
                color: root.enabled ? root.theme.tones.text : root.theme.tones.off
                Accessible.ignored: true
            }
        }
        down.indicator: Sign {
            symbol: "minus"
            hovered: spin.down.hovered
            pressed: spin.down.pressed
            usable: root.enabled && root.value > root.from
        }
        up.indicator: Sign {
            x: spin.width - width
            symbol: "plus"
            hovered: spin.up.hovered
            pressed: spin.up.pressed
            usable: root.enabled && root.value < root.to
        }
        Orvane.FocusRing {
            theme: root.theme
            shown: spin.visualFocus
            corner: 10
        }
    }
}
