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

    function test_the_line_never_crosses_the_row_under_the_pointer_data(): var {
        return [0, 13, 26].map(grip => ({
                    tag: "taken " + grip + " below its top",
                    grip
                }));
    }

    function test_the_line_never_crosses_the_row_under_the_pointer(data: var): void {
        root.start(["One", "Two", "A title that is so long that it needs a second line", "Four", "Five", "Six", "Seven", "Eight"]);
        const list = root.item("taskRows");
        const line = root.item("dragLine");
        const ghost = root.item("dragRow");
        const from = root.row(1).y + 6 + data.grip;
        mousePress(list, 100, from);
        mouseMove(list, 100, from + 20);
        verify(line.visible);
        for (let y = -20; y < list.height + 20; y += 3) {
            mouseMove(list, 100, y);
            verify(line.y + line.height <= ghost.y || line.y >= ghost.y + ghost.height, "line at " + line.y + ", row at " + ghost.y + " for the pointer at " + y);
        }
        mouseRelease(list, 100, from);
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
