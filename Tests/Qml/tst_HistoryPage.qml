import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "HistoryPage"
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

    readonly property var ordinary: ({
            tasks: [
                { title: "Evening", daysAgo: 1, hour: 18 },
                { title: "Morning", daysAgo: 1, hour: 9 },
                { title: "Today", daysAgo: 0, hour: 1 }
            ],
            sessions: [
                { title: "Read", daysAgo: 1, hour: 9, minutes: 25.9 },
                { title: "Write", daysAgo: 1, hour: 23.5, minutes: 61, status: "paused" }
            ],
            notes: [
                { text: "Call the printer", daysAgo: 1 }
            ]
        })

    function show(past: var, daysAgo: int): void {
        desk.openPast(past);
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.history;
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        waitForRendering(root.view);
        root.view.forceActiveFocus();
        if (daysAgo === 0)
            return;
        root.item("dateButton").picked(desk.day(daysAgo));
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    /// The row with this place in the list, headings counted.
    function row(index: int): Item {
        return root.item("historyView").itemAtIndex(index);
    }

    /// What the rows say, without those that are not on screen.
    function rows(): var {
        const list = root.item("historyView");
        list.forceLayout();
        const texts = [];
        for (let index = 0; index < list.count; ++index) {
            const row = root.row(index);
            texts.push(row.isTask || !row.isStop ? row.title : row.entry.Accessible.name);
        }
        return texts;
    }

    function test_a_day_shows_its_tasks_sessions_and_note(): void {
        root.show(root.ordinary, 1);
        compare(root.rows(), ["COMPLETED TASKS", "Morning", "Evening", "FOCUS SESSIONS", "Read, 25 min, finished", "Write, 30 min, paused"]);
        compare(desk.find(root.item("noteBeside"), "noteText").text, "Call the printer");
        verify(!root.item("trail").visible);
    }

    function test_it_begins_with_today_and_a_session_across_midnight_is_on_both_days(): void {
        root.show(root.ordinary, 0);
        compare(root.rows(), ["COMPLETED TASKS", "Today", "FOCUS SESSIONS", "Write, 31 min, paused"]);
    }

    function test_status_words_have_their_colours(): void {
        root.show(root.ordinary, 1);
        compare(desk.find(root.row(4), "sessionStatus").text, "finished");
        compare(desk.find(root.row(4), "sessionStatus").color, root.view.tones.third);
        compare(desk.find(root.row(5), "sessionStatus").text, "paused");
        compare(desk.find(root.row(5), "sessionStatus").color, root.view.tones.paper);
    }

    function test_an_empty_day_says_so_and_encourages(): void {
        root.show(root.ordinary, 3);
        compare(root.rows(), ["COMPLETED TASKS", "No completed tasks for this day.", "FOCUS SESSIONS", "No focus sessions for this day."]);
        verify(root.item("trail").visible);
        verify(desk.find(root.item("noteBeside"), "noNote").visible);
        verify(!desk.find(root.item("noteBeside"), "noteSheet").visible);
    }

    function test_reopen_takes_the_task_off_the_day_and_back_to_the_open_ones(): void {
        root.show(root.ordinary, 1);
        mouseClick(desk.find(root.row(1), "reopenButton"));
        compare(root.rows().slice(0, 3), ["COMPLETED TASKS", "Evening", "FOCUS SESSIONS"]);
        compare(desk.openTitles(), ["Morning"]);
        desk.settle();
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.insights;
        compare(desk.find(root.item("tasksCompleted"), "tileValue").text, "2");
    }

    function test_the_keyboard_walks_the_rows_and_reopens(): void {
        root.show(root.ordinary, 1);
        root.item("dateButton").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(root.row(1).entry.visualFocus, "the first task has the ring");
        keyClick(Qt.Key_End);
        verify(root.row(5).entry.visualFocus);
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), [], "a session cannot be reopened");
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        verify(root.row(2).entry.visualFocus, "the heading between is passed over");
        keyClick(Qt.Key_Space);
        compare(desk.openTitles(), ["Evening"]);
        tryVerify(() => root.row(3)?.entry.activeFocus, 1000, "the next row takes the keyboard");
        keyClick(Qt.Key_Home);
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Evening", "Morning"]);
    }

    function test_the_keyboard_returns_to_the_date_when_the_last_row_is_reopened(): void {
        root.show({
            tasks: [
                { title: "Only", daysAgo: 0, hour: 1 }
            ]
        }, 0);
        root.item("dateButton").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Return);
        compare(desk.openTitles(), ["Only"]);
        verify(root.item("dateButton").visualFocus);
        verify(root.item("trail").visible);
    }

    function test_a_task_completed_elsewhere_appears(): void {
        root.show({}, 0);
        const id = desk.model.addTaskTitled("Tea");
        desk.model.toggleTask(id);
        compare(root.rows().slice(0, 2), ["COMPLETED TASKS", "Tea"]);
        verify(!root.item("trail").visible);
    }

    function test_two_thousand_tasks_are_only_made_as_they_come_into_view(): void {
        const tasks = [];
        for (let i = 1; i <= 2000; ++i)
            tasks.push({ title: "Task " + i, daysAgo: 1, hour: 12 });
        root.show({
            tasks: tasks
        }, 1);
        const list = root.item("historyView");
        compare(list.count, 2003);
        verify(root.row(1));
        compare(root.row(1000), null);
        root.row(1).entry.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_End);
        compare(root.row(2000).title, "Task 2000");
        verify(root.row(2000).entry.visualFocus);
        keyClick(Qt.Key_Space);
        compare(desk.openTitles(), ["Task 2000"]);
        keyClick(Qt.Key_Home);
        verify(root.row(1).entry.visualFocus);
        verify(list.atYBeginning, "the heading is in view");
        keyClick(Qt.Key_PageDown);
        verify(root.item("historyRows").activeFocus);
        verify(list.currentIndex > 5);
    }

    function test_a_narrow_window_puts_the_note_under_the_sessions(): void {
        root.show(root.ordinary, 1);
        verify(root.item("noteBeside").visible);
        root.view.width = 1099;
        waitForRendering(root.view);
        verify(!root.item("noteBeside").visible);
        const below = root.item("noteBelow");
        verify(below.visible);
        compare(desk.find(below, "noteText").text, "Call the printer");
        const last = root.row(5);
        compare(below.mapToItem(root.view, 0, 0).y, last.mapToItem(root.view, 0, last.height + 24).y);
        root.view.height = 580;
        waitForRendering(root.view);
        const list = root.item("historyView");
        verify(list.contentHeight + list.bottomMargin > list.height, "the page scrolls");
        root.view.width = 1100;
        verify(root.item("noteBeside").visible);
    }

    function test_a_long_note_scrolls_in_its_sheet(): void {
        root.show({
            notes: [
                { text: "A line\n".repeat(100), daysAgo: 1 }
            ]
        }, 1);
        const note = root.item("noteBeside");
        const sheet = desk.find(note, "noteSheet");
        verify(sheet.mapToItem(root.view, 0, sheet.height).y <= 730 - 24);
        const scroll = desk.find(note, "noteScroll");
        verify(scroll.interactive);
        scroll.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_PageDown);
        verify(scroll.contentY > 100);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_PageUp);
        compare(scroll.contentY, 0);
    }

    function test_the_keyboard_reaches_the_note_below_and_scrolls_the_page(): void {
        root.show({ tasks: root.ordinary.tasks, notes: [{ text: "A line\n".repeat(100), daysAgo: 1 }] }, 1);
        root.view.width = 860;
        waitForRendering(root.view);
        root.row(2).entry.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        const list = root.item("historyView");
        const note = root.item("noteBelow");
        verify(note.activeFocus);
        compare(note.y, 0);
        keyClick(Qt.Key_Down);
        compare(note.y, -22);
        keyClick(Qt.Key_PageDown);
        compare(note.y, -list.height);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.row(2).entry.activeFocus);
        verify(root.row(2).y >= list.contentY, "the row is in view");
    }

    function test_the_pages_controls_have_names_and_roles(): void {
        root.show(root.ordinary, 1);
        compare(root.row(1).entry.Accessible.role, Accessible.ListItem);
        compare(root.row(1).entry.Accessible.name, "Morning");
        compare(desk.find(root.row(1), "reopenButton").Accessible.name, "Reopen Morning");
        compare(root.item("historyView").Accessible.role, Accessible.List);
        verify(root.item("dateButton").Accessible.name.startsWith("Day: "));
    }
}
