import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "InsightsPage"
    when: windowShown
    width: 1320
    height: 730
    visible: true

    property var view: null

    Component {
        id: kind
        Orvane.DashboardView {
            width: 1320
            height: 730
            reduceMotion: true
        }
    }

    function show(past: var): void {
        desk.openPast(past);
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.insights;
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    function tile(name: string): string {
        return desk.find(root.item(name), "tileValue").text;
    }

    /// The columns of the chart, oldest first.
    function bars(): var {
        return root.all(root.item("weekChart"), item => item.Accessible.role === Accessible.ListItem);
    }

    function all(from: Item, wanted: var): var {
        let found = [];
        for (let i = 0; i < from.children.length; ++i) {
            const child = from.children[i];
            found = found.concat(wanted(child) ? [child] : root.all(child, wanted));
        }
        return found;
    }

    function texts(): var {
        return root.all(root.view, item => item.text !== undefined && item.Accessible.role !== Accessible.PageTab).map(item => item.text);
    }

    readonly property var ordinary: ({
            tasks: [
                { title: "Early", daysAgo: 7, hour: 23 },
                { title: "First", daysAgo: 6, hour: 0 },
                { title: "Last", daysAgo: 0, hour: 1 }
            ],
            sessions: [
                { title: "Read", daysAgo: 6, hour: 12, minutes: 90 },
                { title: "Write", daysAgo: 1, hour: 23.5, minutes: 61 }
            ]
        })

    function test_it_stands_second_in_the_sidebar(): void {
        root.show({});
        const names = root.all(root.item("sidebar"), item => item.Accessible.role === Accessible.PageTab).map(tab => tab.text);
        compare(names.slice(0, 3), ["Today", "Insights", "History"]);
    }

    function test_it_says_what_it_shows_in_the_words_agreed(): void {
        root.show(root.ordinary);
        const texts = root.texts();
        for (const text of ["A week of little wins.", "The last seven days. Only active focus time counts.", "TASKS COMPLETED", "MINUTES OF FOCUS", "A little more present", "DAYS WITH FOCUS", "Minutes", "Day", "Active minutes", "Pauses and time asleep are excluded. Work across midnight is split by local day. Reopened and deleted tasks are not counted as completed."])
            verify(texts.includes(text), text);
    }

    function test_seven_days_stand_side_by_side_with_today_last(): void {
        root.show(root.ordinary);
        const values = root.bars().map(bar => bar.value);
        compare(values, ["90", "0", "0", "0", "0", "30", "31"]);
        compare(root.bars().map(bar => bar.today), [false, false, false, false, false, false, true]);
        compare(root.tile("tasksCompleted"), "2");
        compare(root.tile("focusMinutes"), "151");
        compare(root.tile("daysWithFocus"), "3");
    }

    function test_bars_are_as_high_as_their_minutes(): void {
        root.show(root.ordinary);
        const scale = root.item("weekChart").height - 120;
        compare(root.bars()[0].barHeight, Math.round(scale * 90 / 100));
        const empty = root.bars()[1];
        verify(desk.find(empty, "stub").visible);
        verify(!desk.find(empty, "bar").visible);
        compare(desk.find(root.bars()[6], "bar").color, root.view.tones.fill);
        compare(desk.find(root.bars()[5], "bar").color, root.view.tones.barPast);
    }

    function test_a_few_seconds_of_focus_are_seen_too(): void {
        root.show({
            sessions: [
                { title: "Long", daysAgo: 1, hour: 1, minutes: 1200 },
                { title: "Short", daysAgo: 0, hour: 1, minutes: 0.1 }
            ]
        });
        compare(root.bars()[6].barHeight, 2);
        compare(root.bars()[6].value, "<1");
        verify(desk.find(root.bars()[6], "bar").visible);
    }

    function test_an_empty_week_has_a_scale_and_no_bars(): void {
        root.show({});
        compare(root.bars().map(bar => bar.value), ["0", "0", "0", "0", "0", "0", "0"]);
        verify(root.texts().includes("100"));
        compare(root.tile("tasksCompleted"), "0");
    }

    function test_midnight_moves_the_week_on_while_it_is_shown(): void {
        root.show(root.ordinary);
        const today = root.bars()[6].name;
        desk.pass(22 * 3600);
        compare(root.bars().map(bar => bar.value), ["0", "0", "0", "0", "30", "31", "0"]);
        compare(root.bars()[5].name, today);
        compare(root.tile("tasksCompleted"), "1");
        compare(root.tile("daysWithFocus"), "2");
    }

    function test_reopening_a_task_in_the_panel_takes_it_out_of_the_count(): void {
        root.show(root.ordinary);
        desk.model.toggleTask(desk.model.completedTasks.idAt(2));
        compare(root.tile("tasksCompleted"), "1");
    }

    function test_out_of_sight_it_rests_and_catches_up_afterwards(): void {
        root.show(root.ordinary);
        root.view.visible = false;
        desk.model.toggleTask(desk.model.completedTasks.idAt(2));
        compare(root.tile("tasksCompleted"), "2");
        root.view.visible = true;
        compare(root.tile("tasksCompleted"), "1");
    }

    function test_each_bar_says_its_day_and_minutes(): void {
        root.show(root.ordinary);
        const bar = root.bars()[6];
        verify(bar.Accessible.name.endsWith(": 31 min"));
        verify(bar.Accessible.name.includes("2026"));
        mouseMove(bar, bar.width / 2, bar.height / 2);
        tryCompare(root.item("popovers"), "tipText", bar.Accessible.name);
    }

    function test_the_keyboard_goes_from_day_to_day(): void {
        root.show(root.ordinary);
        root.view.forceActiveFocus();
        root.bars()[6].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Left);
        verify(root.bars()[5].visualFocus, "the ring is drawn");
        keyClick(Qt.Key_Home);
        verify(root.bars()[0].visualFocus);
        keyClick(Qt.Key_Left);
        verify(root.bars()[0].visualFocus, "it stops at the end");
        keyClick(Qt.Key_End);
        verify(root.bars()[6].visualFocus);
        tryCompare(root.item("popovers"), "tipText", root.bars()[6].words);
        keyClick(Qt.Key_Tab);
        verify(!root.item("weekChart").activeFocus, "the chart is one stop");
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.bars()[6].visualFocus);
    }

    function test_the_chart_takes_the_room_that_there_is_and_the_page_scrolls_below_that(): void {
        root.show(root.ordinary);
        compare(root.item("weekChart").height, 380);
        compare(root.item("insightsScroll").interactive, false);
        root.view.width = 860;
        root.view.height = 580;
        waitForRendering(root.view);
        compare(root.item("weekChart").height, 240);
        const page = root.item("insightsScroll");
        verify(page.interactive);
        compare(page.contentY, 0);
        root.view.forceActiveFocus();
        root.bars()[6].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_PageDown);
        compare(page.contentY, page.contentHeight - page.height);
        keyClick(Qt.Key_PageUp);
        compare(page.contentY, 0);
    }

    function test_it_waits_for_an_open_planner(): void {
        desk.begin([]);
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.insights;
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        verify(root.item("openingPlanner"));
        compare(root.item("weekChart"), null);
        desk.model.load();
        desk.settle();
        verify(root.item("weekChart"));
    }
}
