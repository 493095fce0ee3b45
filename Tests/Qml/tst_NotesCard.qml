import QtQuick
import QtTest
import Orvane as Orvane

NotesCase {
    id: root

    name: "NotesCard"

    readonly property string added: "Added to your tasks. Your note is unchanged."

    Component {
        id: cardKind
        Orvane.NotesCard {
            id: card
            width: 260
            height: 440
            theme: Orvane.Theme {
                tones: Orvane.Palette.panel
                layer: card
            }
        }
    }

    function test_typed_text_is_the_days_note_and_saved_after_a_pause(): void {
        root.startNotes("");
        root.typeText("Call Marta");
        compare(desk.model.noteText(), "Call Marta");
        compare(desk.model.saveState, "Saving…");
        compare(desk.storedNote(root.today), undefined);
        desk.advance(0.5);
        compare(desk.storedNote(root.today), "Call Marta");
        compare(desk.model.saveState, "Saved on this Mac");
    }

    function test_the_placeholder_is_there_only_while_the_note_is_empty(): void {
        root.startNotes("");
        const editor = root.item("noteEditor");
        compare(editor.placeholder, "An idea, a link, a loose end.\nLeave it here.");
        verify(root.item("notePlaceholder").visible);
        desk.compose(root.text, "に", "");
        verify(!root.item("notePlaceholder").visible, "what is being composed takes its place");
        desk.compose(root.text, "", "");
        verify(root.item("notePlaceholder").visible);
        keyClick("a");
        verify(!root.item("notePlaceholder").visible);
        keyClick(Qt.Key_Backspace);
        verify(root.item("notePlaceholder").visible);
        desk.advance(1);
        compare(desk.storedNote(root.today), "");
    }

    function test_control_return_turns_the_line_of_the_cursor_into_a_task(): void {
        root.startNotes("First line\n  Second line \nThird line");
        root.go(15);
        root.pressReturn();
        compare(desk.openTitles(), ["Tea", "Second line"]);
        compare(desk.model.notice, root.added);
        compare(desk.model.noteText(), "First line\n  Second line \nThird line");
        compare(root.text.getText(0, root.text.length), "First line\n  Second line \nThird line");
        compare(root.text.cursorPosition, 15);
        root.go(root.text.length);
        root.pressReturn();
        compare(desk.openTitles(), ["Tea", "Second line", "Third line"]);
        root.go(0);
        root.pressReturn();
        compare(desk.openTitles()[3], "First line");
        desk.settle();
        compare(desk.storedNote(root.today), "First line\n  Second line \nThird line");
    }

    function test_a_selection_counts_from_its_beginning(): void {
        root.startNotes("One\nTwo\nThree");
        root.text.select(10, 5);
        compare(root.text.cursorPosition, 5);
        root.pressReturn();
        root.text.select(1, 9);
        root.pressReturn();
        compare(desk.openTitles(), ["Tea", "Two", "One"]);
        compare(root.text.selectionStart, 1);
        compare(root.text.selectionEnd, 9);
    }

    function test_an_empty_line_becomes_no_task_and_shows_no_notice(): void {
        root.startNotes("One\n\n   \n");
        for (const position of [4, 6, 9]) {
            root.go(position);
            root.pressReturn();
        }
        compare(desk.openTitles(), ["Tea"]);
        compare(desk.model.notice, "");
        compare(desk.model.error, "");
        compare(desk.model.noteText(), "One\n\n   \n");
    }

    function test_a_line_that_is_too_long_for_a_title_is_refused_and_stays(): void {
        root.startNotes("x".repeat(1001));
        root.pressReturn();
        compare(desk.openTitles(), ["Tea"]);
        compare(desk.model.notice, "");
        compare(desk.model.error, "Task titles can contain up to 1,000 characters.");
        compare(desk.model.noteText().length, 1001);
    }

    function test_return_alone_breaks_the_line(): void {
        root.startNotes("");
        root.typeText("a");
        keyClick(Qt.Key_Return);
        root.typeText("b");
        keyClick(Qt.Key_Return, Qt.ShiftModifier);
        root.typeText("c");
        compare(desk.model.noteText(), "a\nb\nc");
        compare(desk.openTitles(), ["Tea"]);
    }

    function test_control_return_belongs_to_the_input_method_while_it_composes(): void {
        root.startNotes("One");
        root.go(3);
        desk.compose(root.text, "に", "");
        verify(root.text.inputMethodComposing);
        root.pressReturn();
        compare(desk.openTitles(), ["Tea"]);
        compare(desk.model.notice, "");
    }

    function test_composing_is_no_edit_until_it_is_finished(): void {
        root.startNotes("One");
        root.go(3);
        desk.compose(root.text, "に", "");
        desk.compose(root.text, "にほ", "");
        compare(desk.model.noteText(), "One");
        compare(desk.model.saveState, "Saved on this Mac");
        desk.compose(root.text, "", "日本");
        compare(desk.model.noteText(), "One日本");
        compare(desk.model.saveState, "Saving…");
    }

    function test_no_text_is_put_in_place_of_one_being_composed(): void {
        root.startNotes("One");
        root.go(3);
        desk.compose(root.text, "に", "");
        desk.model.updateNote("Other");
        compare(root.text.getText(0, root.text.length), "One");
        verify(root.text.inputMethodComposing);
        desk.compose(root.text, "", "");
        compare(root.text.getText(0, root.text.length), "Other");
        compare(desk.model.noteText(), "Other");
    }

    function test_what_was_composed_over_another_text_stands(): void {
        root.startNotes("One");
        root.go(3);
        desk.compose(root.text, "に", "");
        desk.model.updateNote("Other");
        desk.compose(root.text, "", "日本");
        compare(root.text.getText(0, root.text.length), desk.model.noteText());
        verify(desk.model.noteText().includes("日本"));
    }

    function test_what_is_composed_never_reaches_another_day(): void {
        root.startNotes("One");
        desk.compose(root.text, "に", "");
        desk.model.selectNoteDayBy(-1);
        compare(root.text.getText(0, root.text.length), "");
        desk.advance(1);
        compare(desk.storedNote(root.yesterday), undefined);
        compare(desk.storedNote(root.today), "One");
    }

    function test_the_buttons_go_from_day_to_day(): void {
        root.startNotes("Today's");
        compare(root.item("noteDay").text, "Tuesday, 10 March");
        mouseClick(root.item("previousNote"));
        compare(desk.model.noteDay, root.yesterday);
        compare(root.item("noteDay").text, "Monday, 9 March");
        compare(root.text.length, 0);
        for (let i = 0; i < 3; ++i)
            mouseClick(root.item("nextNote"));
        compare(desk.model.noteDay, "2026-03-12");
        verify(root.item("nextNote").enabled, "the days ahead have no end");
        mouseClick(root.item("previousNote"));
        mouseClick(root.item("previousNote"));
        compare(root.text.getText(0, root.text.length), "Today's");
    }

    function test_undo_stays_within_the_day(): void {
        root.startNotes("");
        root.typeText("today");
        desk.model.selectNoteDayBy(-1);
        root.text.forceActiveFocus();
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "");
        root.typeText("yes");
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "");
        keyClick(Qt.Key_Z, Qt.ControlModifier | Qt.ShiftModifier);
        compare(desk.model.noteText(), "yes");
        desk.model.selectNoteDayBy(1);
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "today");
        verify(!root.text.canUndo);
        verify(!root.text.canRedo);
    }

    function test_undo_and_redo_are_edits_of_the_day(): void {
        root.startNotes("");
        root.typeText("abc");
        desk.advance(1);
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "");
        desk.advance(1);
        compare(desk.storedNote(root.today), "");
    }

    function test_two_cards_show_the_same_note(): void {
        root.startNotes("One");
        const other = createTemporaryObject(cardKind, root, {
            model: desk.model
        });
        const text = desk.find(other, "noteText");
        compare(text.getText(0, text.length), "One");
        root.go(3);
        root.typeText("!");
        compare(text.getText(0, text.length), "One!");
        text.insert(0, "No. ");
        compare(root.text.getText(0, root.text.length), "No. One!");
        compare(root.text.cursorPosition, 8);
        keyClick(Qt.Key_Z, Qt.ControlModifier);
        compare(desk.model.noteText(), "One!", "the other card's edit is undone by itself");
        keyClick(Qt.Key_Z, Qt.ControlModifier | Qt.ShiftModifier);
        root.go(8);
        other.visible = false;
        root.typeText("?");
        compare(text.getText(0, text.length), "No. One!", "nobody sees it");
        other.visible = true;
        compare(text.getText(0, text.length), "No. One!?");
    }

    function test_the_model_knows_who_has_the_keyboard(): void {
        root.startNotes("");
        verify(desk.model.editingNote);
        root.item("previousNote").forceActiveFocus();
        verify(!desk.model.editingNote);
        root.text.forceActiveFocus();
        verify(desk.model.editingNote);
        desk.showOnly("tasks");
        verify(!desk.model.editingNote, "a card that is gone edits nothing");
    }
}
