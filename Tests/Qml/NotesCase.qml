import QtQuick

/// The open panel with nothing but the notes card, on 10 March 2026.
PanelCase {
    id: root

    readonly property string today: "2026-03-10"
    readonly property string yesterday: "2026-03-09"

    property var text: null

    /// `note` is what the day's note holds already.
    function startNotes(note: string): void {
        root.start(["Tea"]);
        desk.showOnly("notes");
        compare(desk.model.noteDay, root.today);
        root.text = root.item("noteText");
        if (note !== "") {
            root.text.insert(0, note);
            desk.advance(1);
        }
        root.text.forceActiveFocus(Qt.TabFocusReason);
    }

    function go(position: int): void {
        root.text.cursorPosition = position;
    }

    function pressReturn(): void {
        keyClick(Qt.Key_Return, Qt.ControlModifier);
    }
}
