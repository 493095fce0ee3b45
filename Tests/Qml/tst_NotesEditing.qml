import QtQuick
import QtTest

NotesCase {
    id: root

    name: "NotesEditing"

    readonly property string tooLong: "This note exceeds the 5 MB limit. The last saved text has been kept."

    function test_pasted_text_is_plain(): void {
        root.startNotes("");
        desk.copy("Bold\r\nnext\rlast");
        keyClick(Qt.Key_V, Qt.ControlModifier);
        compare(desk.model.noteText(), "Bold\nnext\nlast");
        root.text.selectAll();
        keyClick(Qt.Key_C, Qt.ControlModifier);
        compare(desk.copied(), "Bold\nnext\nlast");
        keyClick(Qt.Key_X, Qt.ControlModifier);
        compare(desk.model.noteText(), "");
    }

    function test_links_stay_text(): void {
        root.startNotes("");
        desk.copy("<a href=\"https://example.org\">x</a>");
        keyClick(Qt.Key_V, Qt.ControlModifier);
        compare(desk.model.noteText(), "<a href=\"https://example.org\">x</a>");
        compare(root.text.linkAt(10, 10), "");
    }

    function test_what_a_note_cannot_hold_stays_out_data(): var {
        return [
            {
                tag: "NUL",
                text: "a\u0000b",
                kept: "ab"
            },
            {
                tag: "first half of a pair",
                text: "a\ud83cb",
                kept: "ab"
            },
            {
                tag: "second half of a pair",
                text: "a\udf31b",
                kept: "ab"
            },
            {
                tag: "halves the wrong way round",
                text: "\udf31\ud83c",
                kept: ""
            },
            {
                tag: "a half beside a pair",
                text: "\ud83c\ud83c\udf31\udf31",
                kept: "🌱"
            },
            {
                tag: "line separator",
                text: "a\u2028b",
                kept: "a\nb"
            }
        ];
    }

    function test_what_a_note_cannot_hold_stays_out(data: var): void {
        root.startNotes("12");
        root.go(1);
        desk.copy(data.text);
        keyClick(Qt.Key_V, Qt.ControlModifier);
        compare(desk.model.noteText(), "1" + data.kept + "2");
        compare(root.text.getText(0, root.text.length), "1" + data.kept + "2");
        desk.compose(root.text, "", data.text);
        compare(desk.model.noteText(), "1" + data.kept + data.kept + "2");
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "12");
    }

    function test_signs_that_look_like_others_are_kept(): void {
        const text = "non\u00a0breaking 🌱 e\u0301 \u200d\ufeff\ufffc\tend";
        root.startNotes(text);
        root.go(0);
        keyClick("a");
        compare(desk.model.noteText(), "a" + text);
        desk.model.selectNoteDayBy(-1);
        desk.model.selectNoteDayBy(1);
        root.go(0);
        keyClick("b");
        compare(desk.model.noteText(), "ba" + text);
    }

    function test_a_text_above_five_megabytes_is_refused_and_the_kept_one_comes_back(): void {
        root.startNotes("");
        desk.copy(("x".repeat(999) + "\n").repeat(5000));
        keyClick(Qt.Key_V, Qt.ControlModifier);
        compare(desk.model.error, "");
        compare(desk.model.noteText().length, 5000000);
        root.go(2500500);
        keyClick("y");
        compare(desk.model.error, root.tooLong);
        compare(root.text.length, 5000000);
        compare(root.text.getText(2500498, 2500502), "xxxx");
        compare(root.text.cursorPosition, 2500500);
        keyClick(Qt.Key_Backspace);
        compare(desk.model.noteText().length, 4999999);
        keyClick("y");
        compare(desk.model.noteText().length, 5000000);
        compare(root.text.getText(2500498, 2500501), "xyx");
        keyClick("z");
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        verify(desk.model.noteText().length < 5000000, "a refused key does not stand in the way of Undo");
        keyClick(Qt.Key_Z, Qt.ControlModifier | Qt.ShiftModifier);
        compare(desk.model.noteText().length, 5000000);
        compare(root.text.length, 5000000);
        desk.advance(1);
        compare(desk.storedNote(root.today).length, 5000000);
    }

    function test_a_text_that_is_refused_while_composing_goes_when_that_is_over(): void {
        root.startNotes("");
        desk.copy(("x".repeat(999) + "\n").repeat(5000));
        keyClick(Qt.Key_V, Qt.ControlModifier);
        root.go(10);
        desk.compose(root.text, "に", "日");
        compare(desk.model.error, root.tooLong);
        verify(root.text.inputMethodComposing);
        desk.compose(root.text, "", "");
        compare(root.text.length, 5000000);
        compare(desk.model.noteText().length, 5000000);
    }

    function test_tab_leaves_the_note_and_escape_closes_the_panel(): void {
        root.startNotes("One");
        root.item("closeWorkspace").forceActiveFocus(Qt.TabFocusReason);
        for (const name of ["previousNote", "nextNote", "noteText"]) {
            keyClick(Qt.Key_Tab);
            verify(root.item(name).activeFocus, "the keyboard reaches " + name);
        }
        keyClick(Qt.Key_Tab);
        verify(!root.text.activeFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.text.activeFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.item("nextNote").visualFocus);
        compare(desk.model.noteText(), "One");
        root.text.forceActiveFocus();
        keyClick(Qt.Key_Escape);
        compare(desk.dismissals, 1);
    }

    function test_every_part_has_a_name_and_a_role(): void {
        root.startNotes("");
        compare(root.text.Accessible.role, Accessible.EditableText);
        compare(root.text.Accessible.name, "Daily notepad");
        verify(root.text.Accessible.multiLine);
        verify(root.text.Accessible.editable);
        compare(root.item("previousNote").Accessible.name, "Previous day's note");
        compare(root.item("nextNote").Accessible.name, "Next day's note");
        root.item("previousNote").Accessible.pressAction();
        compare(desk.model.noteDay, root.yesterday);
        root.item("nextNote").Accessible.pressAction();
        compare(desk.model.noteDay, root.today);
        compare(root.item("taskHint").Accessible.name, "⌘ Return turns a line into a task");
        compare(root.item("taskHint").Accessible.description, "Ctrl+Return");
    }
}
