import QtQuick
import QtTest

PanelCase {
    id: root

    name: "TasksDrag"

    function test_dragging_a_row_puts_it_before_another(): void {
        root.start(["One", "Two", "Three", "Four"]);
        root.drag(3, root.row(1).y + 5);
        compare(desk.openTitles(), ["One", "Four", "Two", "Three"]);
    }

    function test_dropping_below_the_last_row_puts_a_task_last(): void {
        root.start(["One", "Two", "Three"]);
        root.drag(0, root.row(2).y + 80);
        compare(desk.openTitles(), ["Two", "Three", "One"]);
    }

    function test_a_row_dropped_on_its_own_place_stays(): void {
        root.start(["One", "Two", "Three"]);
        root.drag(1, root.row(1).y + 30);
        compare(desk.openTitles(), ["One", "Two", "Three"]);
    }

    function test_completed_rows_are_not_dragged(): void {
        root.start(["One", "Two"]);
        desk.model.toggleTask(desk.model.openTasks.idAt(0));
        desk.model.toggleTask(desk.model.openTasks.idAt(0));
        const tabs = root.item("taskStatus");
        mouseClick(tabs, tabs.width * 0.75, 18);
        const before = desk.completedTitles();
        root.drag(1, root.row(0).y + 2);
        compare(desk.completedTitles(), before);
    }
}
