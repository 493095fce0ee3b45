import QtQuick
import Orvane as Orvane

/// The daily note: one plain text for each day. A line of it can become a task without leaving it.
Orvane.Card {
    id: root

    required property Orvane.AppModel model

    /// Whether anybody can see the card.
    readonly property bool shown: root.visible && root.Window.visibility !== Window.Hidden
    /// Whether the editor has yet to take in what the model holds.
    property bool stale: false
    /// Whether the text that the model reports comes from this card.
    property bool giving: false

    objectName: "notesCard"
    title: qsTr("Daily notepad")
    symbol: "square.and.pencil"
    badgeColor: root.theme.tones.paperBadge

    /// The day of that key, read at noon: a date by itself would be taken for midnight in Greenwich, which
    /// is another day here.
    function nameOf(day: string): string {
        const [year, month, date] = day.split("-").map(Number);
        const noon = new Date(year, month - 1, date, 12);
        return noon.toLocaleDateString(Qt.locale(), root.narrow ? qsTr("ddd, d MMMM") : qsTr("dddd, d MMMM"));
    }

    /// Goes `days` further, with what is being composed still in the note that it was written for.
    function turn(days: int): void {
        Qt.inputMethod.commit();
        root.model.selectNoteDayBy(days);
    }

    function refresh(): void {
        if (!root.stale || !root.shown)
            return;
        root.stale = false;
        editor.replace(root.model.noteText(), root.giving);
    }

    function convert(line: string): void {
        if (root.model.addTaskTitled(line) !== "")
            root.model.notice = qsTr("Added to your tasks. Your note is unchanged.");
    }

    onShownChanged: root.refresh()
    Component.onCompleted: editor.show(root.model.noteText())
    Component.onDestruction: {
        if (editor.editing)
            root.model.editingNote = false;
    }

    Connections {
        target: root.model
        function onNoteDayChanged(): void {
            root.stale = false;
            editor.show(root.model.noteText());
        }
        function onNoteEdited(): void {
            if (root.giving)
                return;
            root.stale = true;
            root.refresh();
        }
        function onNoteReplaced(): void {
            root.stale = true;
            root.refresh();
        }
    }

    Orvane.IconButton {
        id: previous
        objectName: "previousNote"
        x: Orvane.Metrics.cardInset - 6
        y: 44
        theme: root.theme
        symbol: "chevron.left"
        symbolSize: 14
        label: qsTr("Previous day's note")
        onClicked: root.turn(-1)
    }
    Orvane.Label {
        objectName: "noteDay"
        anchors.left: previous.right
        anchors.right: next.left
        y: 48
        kind: Orvane.Type.bodyMedium
        text: root.nameOf(root.model.noteDay)
        color: root.theme.tones.text
        horizontalAlignment: Text.AlignHCenter
    }
    Orvane.IconButton {
        id: next
        objectName: "nextNote"
        x: root.width - Orvane.Metrics.cardInset + 6 - width
        y: 44
        theme: root.theme
        symbol: "chevron.right"
        symbolSize: 14
        label: qsTr("Next day's note")
        onClicked: root.turn(1)
    }
    Rectangle {
        x: Orvane.Metrics.cardInset
        y: 75
        width: root.width - 2 * x
        height: 1
        color: root.theme.tones.line
    }
    Orvane.NoteEditor {
        id: editor
        objectName: "noteEditor"
        x: 8
        y: 80
        width: root.width - 16
        height: foot.y - y
        theme: root.theme
        label: qsTr("Daily notepad")
        placeholder: qsTr("An idea, a link, a loose end.\nLeave it here.")
        onEdited: text => {
            root.giving = true;
            root.model.updateNote(text);
            root.giving = false;
        }
        onConverted: line => root.convert(line)
        onFreed: editor.replace(root.model.noteText(), false)
        onEditingChanged: root.model.editingNote = editor.editing
    }
    Rectangle {
        id: foot
        x: Orvane.Metrics.cardInset
        y: root.height - 76
        width: root.width - 2 * x
        height: 1
        color: root.theme.tones.line
    }
    Orvane.Symbol {
        objectName: "hintSymbol"
        x: Orvane.Metrics.cardInset
        y: hint.y + 1
        visible: !root.narrow
        name: "arrow.turn.down.right"
        size: 14
        color: root.theme.tones.third
    }
    Orvane.Label {
        id: hint
        objectName: "taskHint"
        x: Orvane.Metrics.cardInset + (root.narrow ? 0 : 22)
        y: foot.y + 14
        kind: Orvane.Type.small
        text: qsTr("⌘ Return turns a line into a task")
        color: root.theme.tones.second
        Accessible.description: qsTr("Ctrl+Return")

        Orvane.Tooltip {
            theme: root.theme
            text: qsTr("Ctrl+Return")
            wanted: overHint.hovered
        }
        HoverHandler {
            id: overHint
        }
    }
    Orvane.Label {
        x: hint.x
        y: hint.y + 20
        kind: Orvane.Type.small
        text: qsTr("Your original note stays here.")
        color: root.theme.tones.third
    }
}
