import QtQuick
import QtTest
import Orvane as Orvane

PanelCase {
    id: root

    name: "TasksCard"

    function rowsOnShow(): int {
        return Array.from(root.item("taskRows").contentItem.children).filter(child => child.visible && child.opacity > 0 && child instanceof Orvane.TaskRow).length;
    }

    function test_a_removed_row_is_gone_for_everybody_data(): var {
        return [0, 20, 80, 300].map(pause => ({
                    tag: "undone after " + pause + " ms",
                    pause
                }));
    }

    function test_a_removed_row_is_gone_for_everybody(data: var): void {
        root.start(["One"]);
        desk.setReduceMotion(false);
        for (let i = 0; i < 3; ++i) {
            desk.model.deleteTask(desk.model.openTasks.idAt(0));
            wait(data.pause);
            desk.model.undoDelete();
            tryVerify(() => root.rowsOnShow() === 1 && root.row(0).opacity === 1, 2000, "one row on show");
        }
        desk.model.deleteTask(desk.model.openTasks.idAt(0));
        tryVerify(() => root.rowsOnShow() === 0);
    }

    function test_typing_and_return_adds_a_task_and_empties_the_field(): void {
        root.start([]);
        desk.requestFocus();
        root.typeText("Milk");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Milk"]);
        compare(root.item("addTaskEntry").text, "");
        root.typeText("Bread");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Milk", "Bread"]);
    }

    function test_the_plus_button_adds_and_keeps_the_keyboard_in_the_field(): void {
        root.start([]);
        desk.requestFocus();
        root.typeText("Milk");
        mouseClick(root.item("addTaskButton"));
        compare(desk.openTitles(), ["Milk"]);
        verify(root.item("addTaskEntry").activeFocus);
    }

    function test_blanks_add_nothing(): void {
        root.start(["One"]);
        desk.requestFocus();
        root.typeText("   ");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["One"]);
    }

    function test_the_heading_counts_only_open_tasks(): void {
        root.start(["One", "Two"]);
        compare(root.item("tasksCard").detail, "2 LEFT");
        root.row(0).toggleRequested();
        compare(root.item("tasksCard").detail, "1 LEFT");
        desk.model.undoDelete();
        compare(root.item("tasksCard").detail, "1 LEFT");
    }

    function test_a_click_on_the_circle_completes_and_another_reopens(): void {
        root.start(["One", "Two"]);
        mouseClick(root.row(0), 15, 20);
        compare(desk.openTitles(), ["Two"]);
        compare(desk.completedTitles(), ["One"]);
        const tabs = root.item("taskStatus");
        mouseClick(tabs, tabs.width * 0.75, 18);
        compare(root.item("taskRows").count, 1);
        mouseClick(root.row(0), 15, 20);
        compare(desk.openTitles().length, 2);
        compare(root.item("emptyTasks").visible, true);
        compare(root.item("emptyTasks").title, "Room for a little win");
    }

    function test_an_empty_list_says_so_in_its_own_words(): void {
        root.start([]);
        const empty = root.item("emptyTasks");
        verify(empty.visible);
        compare(empty.title, "A little room to think");
        compare(empty.description, "What would make today a good day?");
        desk.model.addTaskTitled("One");
        verify(!empty.visible);
    }

    function test_a_double_click_renames_and_return_keeps_the_new_title(): void {
        root.start(["One", "Two"]);
        mouseDoubleClickSequence(root.row(1), 100, 20);
        verify(root.item("renameField").visible);
        root.typeText("Three");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["One", "Three"]);
        verify(!root.item("renameField").visible);
        verify(root.row(1).activeFocus, "the keyboard is on the row again");
    }

    function test_escape_while_renaming_keeps_the_old_title_and_the_panel(): void {
        root.start(["One"]);
        root.focusRow(0);
        keyClick(Qt.Key_F2);
        root.typeText("Other");
        keyClick(Qt.Key_Escape);
        compare(desk.openTitles(), ["One"]);
        verify(!root.item("renameField").visible);
        compare(desk.dismissals, 0);
        keyClick(Qt.Key_Escape);
        compare(desk.dismissals, 1);
    }

    function test_going_elsewhere_while_renaming_keeps_what_was_typed(): void {
        root.start(["One", "Two"]);
        root.focusRow(0);
        keyClick(Qt.Key_Return);
        root.typeText("First");
        mouseClick(root.row(1), 100, 20);
        compare(desk.openTitles(), ["First", "Two"]);
        verify(!root.item("renameField").visible);
    }

    function test_the_menu_moves_within_the_list_only(): void {
        root.start(["One", "Two"]);
        root.focusRow(0);
        keyClick(Qt.Key_Menu);
        const menu = root.item("taskMenu");
        const up = menu.entries.find(entry => entry.name === "up");
        const down = menu.entries.find(entry => entry.name === "down");
        compare(up.enabled, false);
        compare(down.enabled, true);
        while (menu.entries[menu.current].name !== "down")
            keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Two", "One"]);
    }

    function test_the_menu_renames_and_deletes(): void {
        root.start(["One", "Two"]);
        root.focusRow(0);
        keyClick(Qt.Key_Menu);
        keyClick(Qt.Key_Return);
        verify(root.item("renameField").visible);
        root.typeText("First");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["First", "Two"]);
        keyClick(Qt.Key_Menu);
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Space);
        compare(desk.openTitles(), ["Two"]);
    }

    function test_a_right_click_and_the_ellipsis_open_the_menu_inside_the_panel(): void {
        root.start(["One", "Two", "Three", "Four", "Five", "Six"]);
        const menu = root.item("taskMenu");
        mouseClick(root.row(5), 100, 20, Qt.RightButton);
        verify(menu.opened);
        const surface = desk.find(menu, "popoverSurface");
        const at = surface.mapToItem(root.view, 0, 0);
        verify(at.y >= 8);
        verify(at.y + surface.height <= 580 - 8, "it ends 8 above the panel's edge");
        mouseClick(root.view, 500, 300);
        verify(!menu.opened);
        mouseClick(root.row(0), root.row(0).width - 16, 20);
        verify(menu.opened);
    }

    function test_long_titles_take_two_lines_and_show_whole_in_a_tooltip(): void {
        const title = "word ".repeat(200).trim();
        root.start([title, "Short"]);
        compare(root.row(0).height, 60);
        mouseMove(root.row(0), 100, 20);
        tryVerify(() => root.item("popovers").tipText === title, 3000);
        mouseMove(root.row(1), 100, 20);
        tryCompare(root.item("popovers"), "tipText", "");
    }

    function test_arrows_work_in_a_menu_that_the_pointer_opened(): void {
        root.start(["One", "Two"]);
        mouseClick(root.row(1), 100, 20, Qt.RightButton);
        const menu = root.item("taskMenu");
        compare(menu.current, -1);
        keyClick(Qt.Key_Up);
        compare(menu.entries[menu.current].name, "delete");
        verify(menu.byKeyboard);
        keyClick(Qt.Key_Up);
        compare(menu.entries[menu.current].name, "up");
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Two", "One"]);
    }

    function test_rows_show_what_the_model_holds_after_any_commands(): void {
        root.start(["A", "B", "C", "D"]);
        const model = desk.model;
        const seed = 20260711;
        let state = seed;
        const random = count => {
            state = (state * 1103515245 + 12345) % 2147483648;
            return Math.floor(state / 65536) % count;
        };
        for (let step = 0; step < 150; ++step) {
            const open = model.openTasks;
            const id = open.count > 0 ? open.idAt(random(open.count)) : "";
            const done = model.completedTasks;
            [() => model.addTaskTitled("Task " + step), () => model.toggleTask(id), () => model.renameTask(id, "Name " + step), () => model.deleteTask(id), () => model.undoDelete(), () => model.moveTaskBy(id, random(2) ? 1 : -1), () => model.moveTaskBefore(id, open.idAt(random(open.count + 1))), () => model.toggleTask(done.idAt(0)), () => root.item("tasksCard").completed = random(4) === 0][random(9)]();
            if (step % 10 === 9)
                root.compareRows("step " + step + ", seed " + seed);
        }
        root.item("tasksCard").completed = true;
        root.compareRows("completed, seed " + seed);
    }

    /// Every row that is there shows its task.
    function compareRows(when: string): void {
        const list = root.item("taskRows");
        const completed = root.item("tasksCard").completed;
        const titles = completed ? desk.completedTitles() : desk.openTitles();
        compare(list.count, titles.length, when);
        list.forceLayout();
        for (let i = 0; i < titles.length; ++i) {
            const row = list.itemAtIndex(i);
            if (!row)
                continue;
            compare(row.title, titles[i], when);
            compare(row.complete, completed, when);
        }
    }
}
