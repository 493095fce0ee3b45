pragma ComponentBehavior: Bound

import QtQuick
import Orvane as Orvane

/// A question with its answers. Return chooses the first of `buttons`, which stands last, at the right;
/// Escape chooses `cancelIndex`. Its implicit size is what it needs; the window gives it that.
Item {
    id: root

    required property string message
    required property string informative
    required property list<string> buttons
    required property int cancelIndex
    property bool dark: true

    /// Answered with the button at `index` in `buttons`.
    signal chosen(int index)

    readonly property Orvane.Tones tones: root.dark ? Orvane.Palette.darkDashboard : Orvane.Palette.lightDashboard

    implicitWidth: 432
    implicitHeight: content.height + 48
    Accessible.role: Accessible.Dialog
    Accessible.name: root.message
    Accessible.description: root.informative
    Keys.onEscapePressed: root.chosen(root.cancelIndex)

    Rectangle {
        anchors.fill: parent
        radius: 18
        color: root.tones.raise
        border.width: 1
        border.color: root.tones.edge
    }
    Orvane.BrandMark {
        x: 24
        y: 24
        size: 40
    }
    Column {
        id: content
        x: 80
        y: 24
        width: root.width - x - 24
        Orvane.Label {
            width: parent.width
            kind: Orvane.Type.title
            text: root.message
            color: root.tones.text
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 4
        }
        Orvane.Label {
            width: parent.width
            kind: Orvane.Type.body
            text: root.informative
            color: root.tones.second
            wrapMode: Text.Wrap
        }
        Item {
            width: 1
            height: 20
        }
        Row {
            id: answers
            anchors.right: parent.right
            spacing: 12
            Repeater {
                model: root.buttons.length
                delegate: Orvane.PillButton {
                    id: answer
                    required property int index
                    /// The first button is the default and stands last.
                    readonly property int choice: root.buttons.length - 1 - answer.index
                    readonly property bool isDefault: answer.choice === 0

                    objectName: answer.text
                    theme: shared
                    text: root.buttons[answer.choice]
                    rest: answer.isDefault ? root.tones.fill : Qt.alpha(root.tones.hover, 0)
                    hover: answer.isDefault ? root.tones.fillHover : root.tones.press
                    press: answer.isDefault ? root.tones.fillPress : root.tones.press
                    ink: answer.isDefault ? root.tones.inkOnFill : root.tones.text
                    outline: answer.isDefault ? Orvane.Palette.clear : root.tones.edge
                    ringAlways: answer.isDefault 
                    focus: answer.isDefault
                    onClicked: root.chosen(answer.choice)
                    Component.onCompleted: if (answer.isDefault) answer.forceActiveFocus(Qt.OtherFocusReason)
                }
            }
        }
    }
    Orvane.PopoverLayer {
        id: layer
        anchors.fill: parent
        theme: shared
    }
    Orvane.Theme {
        id: shared
        tones: root.tones
        layer: layer
    }
}
