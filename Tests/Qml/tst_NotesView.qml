import QtQuick
import QtTest

NotesCase {
    id: root

    name: "NotesView"

    function test_a_long_note_keeps_the_cursor_in_sight(): void {
        root.startNotes(Array.from({
            length: 300
        }, (_, i) => "Line " + i).join("\n"));
        const view = root.item("noteView");
        const inSight = () => {
            const at = root.text.cursorRectangle;
            return at.y + root.text.y >= view.contentY && at.y + at.height + root.text.y <= view.contentY + view.height;
        };
        root.go(0);
        tryVerify(() => view.contentY === 0 && inSight());
        keyClick(Qt.Key_End, Qt.ControlModifier);
        verify(view.contentY > 6000);
        verify(inSight());
        keyClick(Qt.Key_PageUp);
        const there = root.text.cursorPosition;
        verify(there < root.text.length - 80, "a page is many lines");
        verify(inSight());
        keyClick(Qt.Key_PageDown, Qt.ShiftModifier);
        compare(root.text.selectionStart, there);
        verify(root.text.selectionEnd > there + 80);
        keyClick(Qt.Key_Home, Qt.ControlModifier);
        compare(view.contentY, 0);
        keyClick(Qt.Key_PageUp);
        compare(root.text.cursorPosition, 0);
        desk.model.selectNoteDayBy(-1);
        desk.model.selectNoteDayBy(1);
        compare(view.contentY, 0);
    }

    function test_looking_at_other_lines_leaves_the_caret_where_the_text_is(): void {
        root.startNotes(Array.from({
            length: 700
        }, (_, i) => "Line " + i + " with words".repeat(i % 19)).join("\n"));
        const view = root.item("noteView");
        const caret = root.item("noteCaret");
        root.go(Math.round(root.text.length / 2));
        const atRest = () => caret.y === root.text.y + root.text.cursorRectangle.y && caret.x === root.text.x + root.text.cursorRectangle.x;
        tryVerify(atRest);
        const before = caret.y;
        for (let y = view.contentY; y > 0; y -= 250) {
            view.contentY = y;
            waitForRendering(view);
        }
        verify(caret.y !== before, "the lines above were only estimated before");
        tryVerify(atRest);
        keyClick("x");
        verify(caret.y >= view.contentY && caret.y < view.contentY + view.height, "typing shows the cursor");
    }

    function test_lines_are_twenty_two_pixels_apart(): void {
        root.startNotes("One\n日本語 🌱\nשלום\nFour");
        const tops = [0, 4, 11, 16].map(position => root.text.positionToRectangle(position).y);
        compare(tops[1] - tops[0], 22);
        compare(tops[2] - tops[1], 22);
        compare(tops[3] - tops[2], 22);
        compare(root.text.positionAt(2, tops[3] + 5), 16);
        compare(root.text.positionAt(2, -50), 0);
        compare(root.text.positionAt(2, 5000), 16);
    }

    function test_each_paragraph_begins_where_its_language_is_read(): void {
        root.startNotes("One\nשלום וברכה לכולם ביום הזה ובימים הבאים\n\nFour");
        const x = position => root.text.positionToRectangle(position).x;
        compare(x(0), 0);
        compare(x(4), root.text.width);
        verify(root.text.positionToRectangle(42).y > root.text.positionToRectangle(4).y, "it has a second line");
        verify(x(42) > 0, "which begins at the right, too");
        compare(x(43), 0);
        compare(x(44), 0);
        root.go(43);
        desk.compose(root.text, "אב", "");
        verify(root.text.cursorRectangle.x > 100);
    }

    function test_a_press_below_the_text_takes_the_keyboard(): void {
        root.startNotes("One");
        root.item("previousNote").forceActiveFocus();
        mouseClick(root.item("noteView"), 100, 200);
        verify(root.text.activeFocus);
        keyClick("!");
        compare(desk.model.noteText(), "One!");
    }

    function test_dragging_selects_and_the_wheel_scrolls(): void {
        root.startNotes(Array.from({
            length: 100
        }, (_, i) => "Line " + i).join("\n"));
        const view = root.item("noteView");
        root.go(0);
        tryCompare(view, "contentY", 0);
        mousePress(view, 10, 19);
        for (let y = 24; y <= 110; y += 10)
            mouseMove(view, 60, y);
        mouseRelease(view, 60, 110);
        compare(view.contentY, 0, "a drag is no flick");
        compare(root.text.selectionStart, 0);
        verify(root.text.selectedText.length > 25);
        mouseDoubleClickSequence(view, 15, 19);
        compare(root.text.selectedText, "Line");
        tryVerify(() => {
            mouseWheel(view, 100, 100, 0, -240);
            return view.contentY > 20;
        });
        compare(root.text.selectedText, "Line", "scrolling moves no cursor");
    }

    function test_a_narrow_card_shortens_the_weekday(): void {
        root.startNotes("");
        desk.setCardWidth(230);
        compare(root.item("noteDay").text, "Tue, 10 March");
        verify(!root.item("hintSymbol").visible);
        desk.setCardWidth(260);
        compare(root.item("noteDay").text, "Tuesday, 10 March");
        verify(root.item("hintSymbol").visible);
    }
}
