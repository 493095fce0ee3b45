import QtQuick
import QtTest

PanelCase {
    id: root

    name: "TasksKeyboard"

    function test_arrows_move_between_rows_and_space_completes(): void {
        root.start(["One", "Two", "Three"]);
        root.focusRow(1);
        verify(root.row(1).visualFocus, "the ring is drawn");
        keyClick(Qt.Key_Space);
        compare(desk.openTitles(), ["One", "Three"]);
        verify(root.row(1).activeFocus, "the next row takes the keyboard");
        keyClick(Qt.Key_Up);
        verify(root.row(0).activeFocus);
    }

    function test_alt_and_arrows_move_a_task_and_say_where_it_is(): void {
        root.start(["One", "Two", "Three"]);
        root.focusRow(0);
        keyClick(Qt.Key_Down, Qt.AltModifier);
        compare(desk.openTitles(), ["Two", "One", "Three"]);
        verify(root.row(1).activeFocus, "the keyboard goes with the task");
        compare(root.row(1).Accessible.name, "One, 2 of 3");
        keyClick(Qt.Key_Down, Qt.AltModifier);
        compare(root.row(2).Accessible.name, "One, 3 of 3");
        keyClick(Qt.Key_Down, Qt.AltModifier);
        compare(desk.openTitles(), ["Two", "Three", "One"]);
        keyClick(Qt.Key_Up);
        compare(root.row(2).Accessible.name, "One");
    }

    function test_delete_removes_the_task_and_the_next_row_takes_the_keyboard(): void {
        root.start(["One", "Two"]);
        root.focusRow(0);
        keyClick(Qt.Key_Delete);
        compare(desk.openTitles(), ["Two"]);
        verify(root.row(0).activeFocus);
        keyClick(Qt.Key_Delete);
        compare(desk.openTitles(), []);
    }

    function test_the_menu_key_opens_the_rows_menu_and_escape_closes_only_it(): void {
        root.start(["One", "Two"]);
        root.focusRow(1);
        keyClick(Qt.Key_Menu);
        const menu = root.item("taskMenu");
        verify(menu.opened);
        verify(menu.activeFocus);
        keyClick(Qt.Key_Escape);
        verify(!menu.opened);
        compare(desk.dismissals, 0);
        verify(root.row(1).visualFocus, "the keyboard is back on the row, with its ring");
    }

    function test_the_tab_key_goes_through_the_card_in_reading_order(): void {
        root.start(["One", "Two"]);
        root.item("openDashboard").forceActiveFocus(Qt.TabFocusReason);
        const order = [root.item("openSettings"), root.item("closeWorkspace"), root.item("taskStatus"), root.row(0), root.item("addTaskEntry"), root.item("addTaskButton")];
        for (const stop of order) {
            keyClick(Qt.Key_Tab);
            verify(stop.activeFocus, "the keyboard reaches " + (stop.objectName || stop.title));
        }
    }

    function test_arrows_change_the_tab(): void {
        root.start(["One"]);
        root.item("taskStatus").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(root.item("tasksCard").completed, true);
        compare(root.Window.activeFocusItem.text, "Completed");
        verify(root.Window.activeFocusItem.visualFocus);
        keyClick(Qt.Key_Left);
        compare(root.item("tasksCard").completed, false);
    }

    function test_every_control_has_a_name_and_a_role(): void {
        root.start(["One"]);
        compare(root.row(0).Accessible.role, Accessible.ListItem);
        compare(root.item("taskRows").Accessible.role, Accessible.List);
        compare(root.item("addTaskButton").Accessible.name, "Add task");
        compare(root.item("taskStatus").Accessible.name, "Task status");
        compare(root.item("checkButton").Accessible.name, "Complete One");
        compare(root.item("rowMenuButton").Accessible.name, "Actions for One");
        compare(root.item("addTaskEntry").Accessible.name, "Add something to do…");
        root.row(0).toggleRequested();
        const tabs = root.item("taskStatus");
        mouseClick(tabs, tabs.width * 0.75, 18);
        tryVerify(() => desk.find(root.row(0), "checkButton").Accessible.name === "Reopen One");
    }
}
