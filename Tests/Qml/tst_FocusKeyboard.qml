import QtQuick
import QtTest
import Orvane as Orvane

FocusCase {
    id: root

    name: "FocusKeyboard"

    /// Puts the keyboard on a control of the card, as the Tab key would.
    function goTo(name: string): void {
        root.item(name).forceActiveFocus(Qt.TabFocusReason);
    }

    function focused(name: string): bool {
        const item = root.item(name);
        return item.activeFocus && item.visualFocus;
    }

    function test_the_tab_key_goes_through_the_card_in_reading_order(): void {
        root.startWith(["Read"], "Read");
        root.goTo("preset15");
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.item("focusMode").activeFocus);
        for (const name of ["preset15", "preset25", "preset45", "preset60", "customDuration", "taskChooser", "startFocus"]) {
            keyClick(Qt.Key_Tab);
            verify(root.focused(name), name);
        }
        keyClick(Qt.Key_Tab);
        verify(!root.item("focusSetup").activeFocus, "and out of it");
    }

    function test_what_is_hidden_is_left_out(): void {
        root.startWith(["Read"], "Read");
        root.item("focusMode").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(root.card().mode, "stopwatch");
        keyClick(Qt.Key_Tab);
        verify(root.focused("taskChooser"));
    }

    function test_space_and_return_choose(): void {
        root.start(["Read"]);
        root.goTo("preset45");
        keyClick(Qt.Key_Space);
        compare(root.card().minutes, 45);
        verify(root.item("preset45").checked);
        root.goTo("preset60");
        keyClick(Qt.Key_Return);
        compare(root.card().minutes, 60);
        verify(root.item("preset60").checked);
        verify(!root.item("preset45").checked);
    }

    function test_the_keyboard_goes_with_a_session(): void {
        root.startWith(["Read"], "Read");
        root.goTo("startFocus");
        keyClick(Qt.Key_Return);
        desk.settle();
        verify(root.focused("pauseOrResume"), "to the main button of the session");
        keyClick(Qt.Key_Space);
        compare(desk.model.focus.status, "paused");
        verify(root.focused("pauseOrResume"));
        keyClick(Qt.Key_Tab);
        verify(root.focused("finishSession"));
        keyClick(Qt.Key_Return);
        compare(desk.model.focus.status, "finished");
        verify(root.focused("startFocus"), "and back");
    }

    function test_a_press_moves_the_keyboard_without_a_ring(): void {
        root.startWith(["Read"], "Read");
        mouseClick(root.startButton());
        desk.settle();
        verify(root.item("pauseOrResume").activeFocus);
        verify(!root.item("pauseOrResume").visualFocus);
    }

    function test_a_session_that_ends_by_itself_takes_the_keyboard_along(): void {
        root.startWith(["Read"], "Read");
        root.begin();
        root.goTo("finishSession");
        desk.advance(1501);
        verify(root.focused("startFocus"));
    }

    function test_the_keyboard_stays_elsewhere_when_it_is_elsewhere(): void {
        root.startWith(["Read"], "Read");
        desk.requestFocus();
        desk.startFocus(0);
        verify(root.item("addTaskEntry").activeFocus);
        desk.finishFocus();
        verify(root.item("addTaskEntry").activeFocus);
    }

    function test_the_tab_key_goes_round_in_the_custom_duration(): void {
        root.start(["Read"]);
        root.goTo("customDuration");
        keyClick(Qt.Key_Return);
        const popover = root.item("durationPopover");
        verify(popover.opened);
        const stepper = root.item("durationStepper");
        verify(stepper.activeFocus);
        keyClick(Qt.Key_Tab);
        verify(root.focused("durationSettings"));
        keyClick(Qt.Key_Tab);
        verify(root.focused("durationDone"));
        keyClick(Qt.Key_Tab);
        verify(stepper.activeFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.focused("durationDone"));
        keyClick(Qt.Key_Return);
        verify(!popover.opened);
        verify(root.focused("customDuration"), "the keyboard is back where it was");
    }

    function test_the_tab_key_stays_in_the_search(): void {
        root.start(["Read"]);
        root.goTo("taskChooser");
        keyClick(Qt.Key_Space);
        verify(root.item("searchEntry").activeFocus);
        keyClick(Qt.Key_Tab);
        verify(root.item("searchEntry").activeFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.item("searchEntry").activeFocus);
    }

    function test_escape_closes_only_the_topmost_popover(): void {
        root.start(["Read"]);
        for (const [button, popover] of [["customDuration", "durationPopover"], ["taskChooser", "taskChooserPopover"]]) {
            root.goTo(button);
            keyClick(Qt.Key_Space);
            verify(root.item(popover).opened);
            keyClick(Qt.Key_Escape);
            verify(!root.item(popover).opened);
            verify(root.focused(button));
        }
        compare(desk.dismissals, 0);
        keyClick(Qt.Key_Escape);
        compare(desk.dismissals, 1);
    }

    function test_what_has_the_keyboard_is_in_view_on_a_low_panel(): void {
        root.startWith(["Read"], "Read");
        desk.showPanel(true, Qt.rect(12, 0, 650, 400), false);
        waitForRendering(root.view);
        compare(root.dial().box, 120);
        const card = root.card();
        const bottom = name => root.item(name).mapToItem(card, 0, 0).y + root.item(name).height;
        verify(bottom("startFocus") > card.height);
        root.goTo("startFocus");
        verify(bottom("startFocus") < card.height);
        root.goTo("focusMode");
        verify(root.item("focusMode").mapToItem(card, 0, 0).y >= 40);
    }

    function test_motion_is_left_out_where_it_is_reduced(): void {
        root.startWith(["Read"], "Read");
        compare(root.dial().box, 168);
        root.begin();
        compare(root.dial().box, 192);
        desk.finishFocus();
        compare(root.dial().box, 168);
        desk.setReduceMotion(false);
        root.begin();
        verify(root.dial().box < 192, "it grows");
        tryCompare(root.dial(), "box", 192);
    }

    function test_the_figures_follow_the_clock_style(): void {
        root.start(["Read"]);
        verify(!root.dial().monospaced);
        desk.setClockStyle("monospaced");
        verify(root.dial().monospaced);
        compare(root.dial().timeSize, 34);
    }
}
