import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "MonthView"
    when: windowShown
    width: 600
    height: 500
    visible: true

    property var button: null

    Orvane.PopoverLayer {
        id: layer
        anchors.fill: parent
        theme: shared
    }
    Orvane.Theme {
        id: shared
        tones: Orvane.Palette.darkDashboard
        layer: layer
        reduceMotion: true
    }
    Component {
        id: kind
        Orvane.DateButton {
            x: 300
            y: 20
            theme: shared
            text: chosen
            chosen: "2025-11-16"
            today: "2025-11-20"
            firstWeekday: 1
            onPicked: day => chosen = day
        }
    }

    function make(properties: var): void {
        root.button = createTemporaryObject(kind, root, properties);
        waitForRendering(root.button);
    }

    function open(properties: var): void {
        root.make(properties);
        root.button.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        verify(root.item("monthPopover").opened);
    }

    function item(name: string): Item {
        return desk.find(layer, name);
    }

    function day(key: string): Item {
        return root.item("day" + key);
    }

    function monthName(): string {
        return root.item("monthName").text;
    }

    function test_it_opens_on_the_chosen_day(): void {
        root.open({});
        compare(root.monthName(), "November 2025");
        verify(root.day("2025-11-16").visualFocus);
        verify(root.day("2025-11-16").chosen);
        verify(root.day("2025-11-20").today);
        verify(!root.day("2025-11-20").chosen);
    }

    function test_weeks_begin_as_the_calendar_says_data(): var {
        return [
            { tag: "Sunday", first: 0, column: 0, row: 3 },
            { tag: "Monday", first: 1, column: 6, row: 2 },
            { tag: "Saturday", first: 6, column: 1, row: 2 }
        ];
    }
    function test_weeks_begin_as_the_calendar_says(data: var): void {
        root.open({
            firstWeekday: data.first
        });
        // The 16th is a Sunday.
        const cell = root.day("2025-11-16");
        compare(cell.x, data.column * 34);
        compare(cell.y, data.row * 28);
    }

    function test_days_of_other_months_cannot_be_chosen(): void {
        root.open({});
        verify(!root.day("2025-10-31").enabled);
        mouseClick(root.day("2025-10-31"));
        compare(root.button.chosen, "2025-11-16");
        verify(root.item("monthPopover").opened);
    }

    function test_a_click_chooses_and_closes(): void {
        root.make({});
        mouseClick(root.button);
        mouseClick(root.day("2025-11-03"));
        compare(root.button.chosen, "2025-11-03");
        verify(!root.item("monthPopover").opened);
    }

    function test_keys_go_by_days_weeks_months_and_to_the_weeks_ends_data(): var {
        return [
            { tag: "left", key: Qt.Key_Left, day: "2025-11-15" },
            { tag: "right", key: Qt.Key_Right, day: "2025-11-17" },
            { tag: "up", key: Qt.Key_Up, day: "2025-11-09" },
            { tag: "down", key: Qt.Key_Down, day: "2025-11-23" },
            { tag: "home", key: Qt.Key_Home, day: "2025-11-10" },
            { tag: "page up", key: Qt.Key_PageUp, day: "2025-10-16" },
            { tag: "page down", key: Qt.Key_PageDown, day: "2025-12-16" }
        ];
    }
    function test_keys_go_by_days_weeks_months_and_to_the_weeks_ends(data: var): void {
        root.open({});
        keyClick(data.key);
        verify(root.day(data.day).visualFocus, data.tag);
        keyClick(Qt.Key_Return);
        compare(root.button.chosen, data.day);
        verify(root.button.visualFocus, "the keyboard is back on the button");
    }

    function test_the_end_of_the_week_may_lie_in_the_next_month(): void {
        root.open({
            chosen: "2024-02-27"
        });
        keyClick(Qt.Key_End);
        compare(root.monthName(), "March 2024");
        keyClick(Qt.Key_Space);
        compare(root.button.chosen, "2024-03-03");
    }

    function test_a_shorter_month_takes_its_last_day(): void {
        root.open({
            chosen: "2024-03-31"
        });
        keyClick(Qt.Key_PageUp);
        verify(root.day("2024-02-29").visualFocus);
        keyClick(Qt.Key_PageUp);
        verify(root.day("2024-01-29").visualFocus);
        keyClick(Qt.Key_Left, Qt.NoModifier);
        keyClick(Qt.Key_Return);
        compare(root.button.chosen, "2024-01-28");
    }

    function test_a_year_has_twelve_months_whose_days_follow_each_other(): void {
        root.open({
            chosen: "2023-12-31"
        });
        const month = root.item("monthView");
        for (let day = Date.parse("2024-01-01"); day <= Date.parse("2025-01-01"); day += 86400000) {
            keyClick(Qt.Key_Right);
            const key = new Date(day).toISOString().substring(0, 10);
            if (!root.day(key).visualFocus)
                fail("the keyboard is not on " + key);
        }
        compare(root.monthName(), "January 2025");
        compare(month.weeks, 5);
    }

    function test_past_days_are_off_where_a_least_day_is_given(): void {
        root.open({
            least: "2025-11-10"
        });
        verify(!root.day("2025-11-09").enabled);
        verify(root.day("2025-11-10").enabled);
        verify(!root.item("previousMonth").enabled);
        keyClick(Qt.Key_Up);
        verify(root.day("2025-11-10").visualFocus, "it stops at the least day");
        keyClick(Qt.Key_PageUp);
        verify(root.day("2025-11-10").visualFocus);
        mouseClick(root.item("nextMonth"));
        compare(root.monthName(), "December 2025");
        mouseClick(root.item("previousMonth"));
        compare(root.monthName(), "November 2025");
    }

    function test_escape_closes_it_and_changes_nothing(): void {
        root.open({});
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Escape);
        verify(!root.item("monthPopover").opened);
        compare(root.button.chosen, "2025-11-16");
        verify(root.button.visualFocus);
        keyClick(Qt.Key_Return);
        verify(root.day("2025-11-16").visualFocus, "it begins on the chosen day again");
    }

    function test_the_tab_key_stays_in_the_month(): void {
        root.open({});
        keyClick(Qt.Key_Tab);
        verify(root.item("previousMonth").visualFocus);
        keyClick(Qt.Key_Tab);
        verify(root.item("nextMonth").visualFocus);
        keyClick(Qt.Key_Return);
        compare(root.monthName(), "December 2025");
        keyClick(Qt.Key_Tab);
        verify(root.day("2025-12-16").visualFocus);
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        verify(root.item("nextMonth").visualFocus);
    }

    function test_days_have_full_names(): void {
        root.open({});
        compare(root.day("2025-11-16").Accessible.name, new Date(2025, 10, 16, 12).toLocaleDateString(Qt.locale(), Locale.LongFormat));
        compare(root.day("2025-11-16").Accessible.role, Accessible.Button);
        compare(root.item("monthDays").Accessible.name, "November 2025");
    }
}
