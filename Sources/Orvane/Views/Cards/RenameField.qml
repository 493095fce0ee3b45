import QtQuick
import Orvane as Orvane

/// The field that takes a title's place while the user renames a task.
Rectangle {
    id: root

    required property Orvane.Theme theme

    /// Return was pressed.
    signal submitted(string title)
    /// Escape was pressed.
    signal abandoned
    /// The keyboard went elsewhere.
    signal deserted(string title)

    /// Takes the keyboard with the whole of `title` selected.
    function begin(title: string): void {
        input.done = false;
        input.text = title;
        input.selectAll();
        input.forceActiveFocus(Qt.OtherFocusReason);
    }

    radius: 8
    color: root.theme.tones.card
    border.width: 2
    border.color: root.theme.tones.lilac

    Orvane.TextEntry {
        id: input
        property bool done: false

        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        theme: root.theme
        label: qsTr("Task title")
        placeholder: qsTr("Task title")
        Keys.onReturnPressed: input.leave(() => root.submitted(input.text))
        Keys.onEnterPressed: input.leave(() => root.submitted(input.text))
        Keys.onEscapePressed: input.leave(() => root.abandoned())
        onActiveFocusChanged: {
            // Another window taking the keyboard does not end the editing.
            if (!input.activeFocus && input.Window.active)
                input.leave(() => root.deserted(input.text));
        }

        function leave(say: var): void {
            if (input.done)
                return;
            input.done = true;
            say();
        }
    }
}
