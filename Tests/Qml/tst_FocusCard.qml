import QtQuick
import QtTest
import Orvane as Orvane

FocusCase {
    id: root

    name: "FocusCard"

    function test_a_new_card_offers_25_minutes_with_a_full_ring(): void {
        root.start(["Write the letter"]);
        compare(root.card().Accessible.name, "Focus studio");
        compare(root.card().detail, "READY");
        compare(root.dial().timeText, "25:00");
        compare(root.dial().progress, 1);
        compare(root.dial().caption, "MAKE A LITTLE SPACE");
        verify(Qt.colorEqual(root.dial().lit, Orvane.Palette.panel.ready));
        compare(root.card().mode, "countdown");
        verify(root.item("preset25").chosen);
        verify(root.item("focusSetup").visible);
        verify(!root.item("focusSession").visible);
    }

    function test_the_length_follows_the_preferred_one_until_another_is_picked(): void {
        root.start(["Write the letter"]);
        desk.setDefaultMinutes(90);
        compare(root.card().minutes, 90);
        compare(root.dial().timeText, "1:30:00");
        mouseClick(root.item("preset45"));
        compare(root.dial().timeText, "45:00");
        verify(root.item("preset45").chosen);
        desk.setDefaultMinutes(15);
        compare(root.card().minutes, 45);
    }

    function test_the_modes_are_two_tabs(): void {
        root.start(["Write the letter"]);
        const tabs = root.item("focusMode");
        compare(tabs.choices, ["25 minutes", "Count up, without a deadline"]);
        mouseClick(tabs, tabs.width * 0.75, 18);
        compare(root.card().mode, "stopwatch");
        compare(root.dial().timeText, "00:00");
        compare(root.dial().progress, 1);
        compare(root.shownText("stopwatchLine"), "Count up, without a deadline");
        verify(root.item("stopwatchLine").visible);
        verify(!root.item("preset25").visible);
        mouseClick(tabs, tabs.width * 0.25, 18);
        compare(root.dial().timeText, "25:00");
        verify(root.item("preset25").visible);
    }

    function test_nothing_starts_without_a_task(): void {
        root.start(["Write the letter"]);
        compare(root.item("taskChooser").Accessible.name, "Choose a task");
        verify(!root.startButton().enabled);
        root.card().selected = desk.idOf("Write the letter");
        compare(root.item("taskChooser").Accessible.name, "Focus task: Write the letter");
        verify(root.startButton().enabled);
    }

    function test_a_start_that_waits_for_an_answer_is_not_started_again(): void {
        root.startWith(["Write the letter"], "Write the letter");
        mouseClick(root.startButton());
        verify(desk.model.startingFocus);
        verify(!root.startButton().enabled);
        desk.settle();
        verify(root.card().active);
    }

    function test_a_countdown_shows_what_is_left(): void {
        root.startWith(["Read", "Write the letter"], "Write the letter");
        root.begin();
        compare(root.card().detail, "IN SESSION");
        compare(root.dial().caption, "REMAINING");
        compare(root.shownText("sessionTitle"), "Write the letter");
        verify(Qt.colorEqual(root.dial().lit, Orvane.Palette.panel.sage));
        desk.advance(750);
        compare(root.dial().timeText, "12:30");
        compare(root.dial().whole, 30);
        verify(!root.item("recoveredNote").visible);
        verify(root.item("focusSession").visible);
        verify(!root.item("focusSetup").visible);
    }

    function test_a_stopwatch_always_shows_a_full_ring(): void {
        root.startWith(["Write the letter"], "Write the letter");
        root.card().mode = "stopwatch";
        root.begin();
        compare(desk.model.focus.mode, "stopwatch");
        compare(root.dial().caption, "ELAPSED");
        verify(Qt.colorEqual(root.dial().lit, Orvane.Palette.panel.lilac));
        desk.advance(3948);
        compare(root.dial().timeText, "1:05:48");
        compare(root.dial().progress, 1);
    }

    function test_the_length_and_the_mode_are_those_chosen(): void {
        root.startWith(["Write the letter"], "Write the letter");
        mouseClick(root.item("preset60"));
        root.begin();
        compare(desk.model.focus.mode, "countdown");
        compare(desk.model.focus.target, 3600);
    }

    function test_a_session_pauses_and_goes_on(): void {
        root.startWith(["Write the letter"], "Write the letter");
        root.begin();
        const toggle = root.item("pauseOrResume");
        compare(toggle.text, "Pause");
        mouseClick(toggle);
        compare(toggle.text, "Resume");
        compare(root.card().detail, "PAUSED");
        compare(root.dial().caption, "TAKE A BREATH");
        verify(Qt.colorEqual(root.dial().lit, Orvane.Palette.panel.paper));
        desk.advance(60);
        compare(root.dial().timeText, "25:00");
        mouseClick(toggle);
        desk.advance(60);
        compare(root.dial().timeText, "24:00");
    }

    function test_a_finished_session_leaves_the_setup(): void {
        root.startWith(["Write the letter"], "Write the letter");
        root.begin();
        mouseClick(root.item("finishSession"));
        compare(desk.model.focus.status, "finished");
        verify(!root.card().active);
        verify(root.item("focusSetup").visible);
        compare(root.card().detail, "READY");
        compare(root.dial().timeText, "25:00");
        compare(root.card().selectedTitle, "Write the letter");
    }

    function test_a_countdown_that_runs_out_leaves_the_setup(): void {
        root.startWith(["Write the letter"], "Write the letter");
        root.begin();
        desk.advance(1501);
        verify(!root.card().active);
        verify(root.item("focusSetup").visible);
    }

    function test_a_session_found_after_a_crash_says_so_until_it_goes_on(): void {
        root.start(["Write the letter"]);
        desk.recoverFocus("Write the letter", 1500, 1135);
        compare(root.card().detail, "PAUSED");
        compare(root.dial().timeText, "06:05");
        verify(root.item("recoveredNote").visible);
        compare(root.shownText("recoveredNote"), "Restored paused. Time away wasn’t counted.");
        mouseClick(root.item("pauseOrResume"));
        verify(!root.item("recoveredNote").visible);
    }

    function test_a_session_without_a_task_asks_for_one(): void {
        root.start([]);
        desk.recoverFocus("", 1500, 10);
        compare(root.shownText("sessionTitle"), "Choose a task");
    }

    function test_a_session_planned_for_less_than_a_second_shows_its_seconds(): void {
        root.start([]);
        desk.recoverFocus("Blink", 0.5, 0.1);
        fuzzyCompare(root.card().progress, 0.4, 1e-9);
    }

    function test_a_completed_task_is_chosen_no_more(): void {
        root.startWith(["Write the letter", "Read"], "Write the letter");
        desk.model.toggleTask(desk.idOf("Write the letter"));
        compare(root.item("taskChooser").Accessible.name, "Choose a task");
        verify(!root.startButton().enabled);
        desk.model.toggleTask(desk.idOf("Write the letter"));
        verify(root.startButton().enabled);
    }

    function test_a_renamed_task_is_chosen_under_its_new_title(): void {
        root.startWith(["Write the letter"], "Write the letter");
        desk.model.renameTask(desk.idOf("Write the letter"), "Post it");
        compare(root.item("taskChooser").Accessible.name, "Focus task: Post it");
    }

    function test_without_tasks_the_first_one_can_be_added(): void {
        root.start([]);
        compare(root.item("taskChooser").Accessible.name, "Add your first task");
        verify(!root.startButton().enabled);
        mouseClick(root.item("taskChooser"));
        verify(root.item("addTaskEntry").activeFocus);
        compare(desk.settingsRequests, 0);
    }

    function test_without_the_tasks_card_the_settings_show_where_to_get_it(): void {
        root.start([]);
        desk.hideTasksCard();
        waitForRendering(root.view);
        mouseClick(root.item("taskChooser"));
        compare(desk.settingsRequests, 1);
    }

    function openMenu(row: int): var {
        mouseClick(root.row(row), 100, 20, Qt.RightButton);
        return root.item("taskMenu");
    }

    function entry(menu: var): var {
        return menu.entries.find(entry => entry.name === "focus");
    }

    function test_the_menu_of_a_task_begins_a_countdown_of_the_preferred_length(): void {
        root.start(["Read", "Write the letter"]);
        desk.setDefaultMinutes(40);
        root.card().mode = "stopwatch";
        const menu = root.openMenu(1);
        compare(menu.entries.map(entry => entry.name).slice(0, 2), ["rename", "focus"]);
        compare(root.entry(menu).text, "Focus on this");
        verify(root.entry(menu).enabled);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        desk.settle();
        compare(desk.model.focus.taskTitle, "Write the letter");
        compare(desk.model.focus.mode, "countdown");
        compare(root.dial().timeText, "40:00");
    }

    function test_no_task_is_focused_on_during_a_session_or_when_it_is_completed(): void {
        root.start(["Read", "Write the letter"]);
        desk.startFocus(0);
        const menu = root.openMenu(1);
        verify(!root.entry(menu).enabled);
        desk.pauseFocus();
        verify(!root.entry(menu).enabled);
        desk.finishFocus();
        verify(root.entry(menu).enabled);
        keyClick(Qt.Key_Escape);
        desk.model.toggleTask(desk.idOf("Read"));
        const tabs = root.item("taskStatus");
        mouseClick(tabs, tabs.width * 0.75, 18);
        verify(!root.entry(root.openMenu(0)).enabled);
    }
}
