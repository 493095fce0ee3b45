import QtQuick
import QtTest
import Orvane as Orvane

FocusCase {
    id: root

    name: "FocusPopovers"

    function duration(): Item {
        return root.item("durationPopover");
    }

    function chooser(): Item {
        return root.item("taskChooserPopover");
    }

    function openDuration(): void {
        mouseClick(root.item("customDuration"));
        verify(root.duration().opened);
    }

    function openChooser(): void {
        mouseClick(root.item("taskChooser"));
        verify(root.chooser().opened);
        waitForRendering(root.view);
    }

    function found(): var {
        const list = root.item("foundTasks");
        const titles = [];
        for (let i = 0; i < list.count; ++i) {
            list.positionViewAtIndex(i, ListView.Contain);
            titles.push(list.itemAtIndex(i).title);
        }
        return titles;
    }

    function surface(popover: var): Item {
        return desk.find(popover, "popoverSurface");
    }

    /// Where a control stands in the layer of the popovers.
    function place(name: string): point {
        return root.item(name).mapToItem(root.item("popovers"), 0, 0);
    }

    function test_the_custom_duration_opens_below_the_presets(): void {
        root.start(["Read"]);
        root.openDuration();
        compare(root.duration().Accessible.name, "Custom focus duration");
        const box = root.surface(root.duration());
        compare(box.width, 244);
        compare(box.y, root.place("preset15").y + 32 + 4);
        compare(box.x + 122, root.place("focusCard").x + 130);
    }

    function test_the_stepper_sets_the_minutes_from_1_to_180(): void {
        root.start(["Read"]);
        root.openDuration();
        keyClick(Qt.Key_Up);
        compare(root.dial().timeText, "26:00");
        keyClick(Qt.Key_Home);
        compare(root.dial().timeText, "01:00");
        keyClick(Qt.Key_Down);
        compare(root.card().minutes, 1);
        keyClick(Qt.Key_End);
        compare(root.dial().timeText, "3:00:00");
        keyClick(Qt.Key_Up);
        compare(root.card().minutes, 180);
        mouseClick(root.item("durationDone"));
        verify(!root.duration().opened);
        compare(root.card().minutes, 180);
    }

    function test_an_own_length_marks_custom_and_a_preset_takes_over(): void {
        root.start(["Read"]);
        verify(!root.item("customDuration").chosen);
        root.openDuration();
        verify(root.item("customDuration").chosen);
        verify(!root.item("preset25").chosen);
        keyClick(Qt.Key_Escape);
        verify(root.item("preset25").chosen);
        root.openDuration();
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Escape);
        verify(root.item("customDuration").chosen);
        mouseClick(root.item("preset15"));
        verify(!root.item("customDuration").chosen);
        verify(root.item("preset15").chosen && root.item("preset15").checked);
        compare(root.dial().timeText, "15:00");
    }

    function test_a_chosen_preset_stays_chosen_when_pressed_again(): void {
        root.start(["Read"]);
        mouseClick(root.item("preset25"));
        mouseClick(root.item("preset25"));
        verify(root.item("preset25").checked);
        mouseClick(root.item("preset60"));
        verify(!root.item("preset25").checked);
        verify(root.item("preset60").checked);
    }

    function test_the_link_leads_to_the_settings(): void {
        root.start(["Read"]);
        root.openDuration();
        mouseClick(root.item("durationSettings"));
        compare(desk.settingsRequests, 1);
        verify(!root.duration().opened);
    }

    function test_the_open_tasks_can_be_chosen(): void {
        root.start(["Read", "Write the letter", "Walk"]);
        desk.model.toggleTask(desk.idOf("Read"));
        root.openChooser();
        compare(root.chooser().Accessible.name, root.question);
        compare(root.found(), ["Write the letter", "Walk"]);
        mouseClick(root.item("foundTasks").itemAtIndex(1));
        verify(!root.chooser().opened);
        compare(root.item("taskChooser").Accessible.name, "Focus task: Walk");
        root.openChooser();
        const list = root.item("foundTasks");
        verify(list.itemAtIndex(1).chosen, "it carries the check mark");
        verify(!list.itemAtIndex(0).chosen);
    }

    function test_the_list_stands_above_the_chooser_and_shrinks_with_the_search(): void {
        root.start(["One", "Two", "Three", "Four", "Five", "Six", "Seven"]);
        root.openChooser();
        const box = root.surface(root.chooser());
        const top = root.place("taskChooser").y;
        compare(root.item("foundTasks").height, 176);
        tryVerify(() => box.y + box.height === top - 4);
        root.typeText("one");
        compare(root.item("foundTasks").height, 32);
        compare(box.y + box.height, top - 4);
    }

    function test_the_search_finds_parts_of_titles_in_any_letter_case(): void {
        root.start(["Read", "Write the letter", "Bake bread"]);
        root.openChooser();
        verify(root.item("searchEntry").activeFocus, "one can type at once");
        root.typeText("REA");
        compare(root.found(), ["Read", "Bake bread"]);
        verify(!root.item("nothingFound").visible);
        root.typeText("x");
        compare(root.found(), []);
        verify(root.item("nothingFound").visible);
        compare(root.shownText("nothingFound"), "No matching tasks.");
        keyClick(Qt.Key_Return);
        verify(root.chooser().opened, "there is nothing to choose");
        keyClick(Qt.Key_Escape);
        root.openChooser();
        compare(root.item("searchEntry").text, "");
        compare(root.item("foundTasks").count, 3);
    }

    function test_return_takes_the_first_match_or_where_the_arrows_went(): void {
        root.start(["Read", "Write the letter", "Bake bread"]);
        root.openChooser();
        root.typeText("rea");
        keyClick(Qt.Key_Return);
        compare(root.card().selectedTitle, "Read");
        root.openChooser();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Enter);
        compare(root.card().selectedTitle, "Write the letter");
    }

    function test_a_press_outside_closes_and_chooses_nothing(): void {
        root.start(["Read"]);
        root.openChooser();
        mouseClick(root.view, 40, 300);
        verify(!root.chooser().opened);
        compare(root.card().selected, "");
        compare(desk.dismissals, 0);
    }

    function test_the_list_follows_edits_while_it_is_open(): void {
        root.start(["Read", "Walk"]);
        root.openChooser();
        desk.model.addTaskTitled("Bake bread");
        compare(root.found(), ["Read", "Walk", "Bake bread"]);
    }

    function test_ten_thousand_tasks_can_be_searched(): void {
        const titles = [];
        for (let i = 0; i < 10000; ++i)
            titles.push("Task " + i);
        root.start(titles);
        root.openChooser();
        compare(root.item("foundTasks").count, 10000);
        root.typeText("999");
        compare(root.found(), ["Task 999", "Task 1999", "Task 2999", "Task 3999", "Task 4999", "Task 5999", "Task 6999", "Task 7999", "Task 8999"].concat([0, 1, 2, 3, 4, 5, 6, 7, 8, 9].map(i => "Task 999" + i)));
    }

    function test_a_session_that_begins_closes_what_is_open(): void {
        root.start(["Read"]);
        root.openChooser();
        desk.startFocus(0);
        verify(!root.chooser().opened);
        desk.finishFocus();
        root.openDuration();
        desk.startFocus(0);
        verify(!root.duration().opened);
    }
}
