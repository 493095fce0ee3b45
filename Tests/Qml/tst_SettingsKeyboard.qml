import QtQuick
import QtTest
import Orvane as Orvane

/// The Settings page without a pointer, in a window too low for it.
TestCase {
    id: root

    name: "SettingsKeyboard"
    when: windowShown
    width: 1320
    height: 580
    visible: true

    property var view: null

    Component {
        id: kind
        Orvane.DashboardView {
            width: 1320
            height: 580
            reduceMotion: true
        }
    }

    function init(): void {
        desk.open(["One"]);
        desk.attachDisplays(["eDP-1", "DP-2"]);
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.settings;
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        root.view.forceActiveFocus();
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    function focused(): Item {
        return root.Window.activeFocusItem;
    }

    function focusedName(): string {
        return root.focused().Accessible.name;
    }

    /// Presses Tab until the item of this accessible name has the keyboard.
    function tabTo(name: string): void {
        for (let i = 0; i < 40 && root.focusedName() !== name; ++i)
            keyClick(Qt.Key_Tab);
        compare(root.focusedName(), name);
    }

    function test_tab_goes_through_every_control_in_reading_order(): void {
        const order = ["Open workspace on hover", "Move tasks right", "Tasks", "Move focus left", "Move focus right", "Focus", "Move notes left", "Move notes right", "Notes", "Move agenda left", "Agenda", "Card width", "Show notch on", "Restore workspace layout", "System", "Rounded", "Default focus: 25 minutes", "Export JSON backup…", "Restore backup…"];
        for (const name of order) {
            keyClick(Qt.Key_Tab);
            compare(root.focusedName(), name);
            verify(root.focused().visualFocus, name + " shows that it has the keyboard");
        }
        for (const name of order.reverse().slice(1)) {
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            compare(root.focusedName(), name);
        }
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        compare(root.focusedName(), "Settings");
    }

    function test_what_the_keyboard_reaches_is_in_view(): void {
        const scroll = root.item("settingsScroll");
        verify(scroll.contentHeight > scroll.height);
        for (let i = 0; i < 19; ++i) {
            keyClick(Qt.Key_Tab);
            const top = root.focused().mapToItem(scroll, 0, 0).y;
            verify(top >= 0 && top + root.focused().height <= scroll.height, root.focusedName());
        }
        verify(scroll.contentY > 0);
        for (let i = 0; i < 18; ++i)
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
        compare(root.focusedName(), "Open workspace on hover");
        verify(root.focused().mapToItem(scroll, 0, 0).y >= 0);
    }

    function test_a_row_that_moves_out_of_view_is_followed(): void {
        const scroll = root.item("settingsScroll");
        root.view.height = 380;
        root.tabTo("Move tasks right");
        for (let i = 0; i < 3; ++i)
            keyClick(Qt.Key_Space);
        compare(root.focusedName(), "Move tasks left");
        const inView = item => {
            const top = item.mapToItem(scroll, 0, 0).y;
            return top >= 0 && top + item.height <= scroll.height;
        };
        tryVerify(() => root.item("tasksRow").y > root.item("agendaRow").y);
        verify(inView(root.focused()));
        verify(!inView(root.item("hoverSwitch")), "the window is too low for the whole way");
    }

    function test_page_keys_scroll(): void {
        const scroll = root.item("settingsScroll");
        keyClick(Qt.Key_PageDown);
        compare(scroll.contentY, Math.min(scroll.height - 48, scroll.contentHeight - scroll.height));
        keyClick(Qt.Key_PageDown);
        compare(scroll.contentY, scroll.contentHeight - scroll.height);
        keyClick(Qt.Key_PageUp);
        keyClick(Qt.Key_PageUp);
        compare(scroll.contentY, 0);
    }

    function test_a_pressed_control_stays_under_the_pointer(): void {
        const scroll = root.item("settingsScroll");
        scroll.contentY = root.item("hoverSwitch").mapToItem(scroll.contentItem, 0, 0).y + 4;
        const before = scroll.contentY;
        mouseClick(root.item("hoverSwitch"), 18, 15);
        compare(scroll.contentY, before);
        compare(desk.storedPreferences().hoverEnabled, false);
    }

    function test_every_preference_is_changed_by_keys_alone(): void {
        root.tabTo("Open workspace on hover");
        keyClick(Qt.Key_Space);
        root.tabTo("Move tasks right");
        keyClick(Qt.Key_Space);
        root.tabTo("Notes");
        keyClick(Qt.Key_Return);
        root.tabTo("Card width");
        keyClick(Qt.Key_Right);
        root.tabTo("Show notch on");
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        root.tabTo("System");
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Right);
        root.tabTo("Rounded");
        keyClick(Qt.Key_Right);
        root.tabTo("Default focus: 25 minutes");
        keyClick(Qt.Key_PageUp);
        compare(desk.storedPreferences(), {
            hoverEnabled: false,
            cards: ["focus", "tasks", "notes", "agenda"],
            hiddenCards: ["notes"],
            cardWidth: 270,
            displayID: 1,
            appearance: "dark",
            clockStyle: "monospaced",
            defaultMinutes: 35
        });
        root.tabTo("Restore workspace layout");
        keyClick(Qt.Key_Space);
        compare(desk.storedPreferences().hiddenCards, []);
    }

    function test_escape_closes_the_list_of_displays_only(): void {
        root.tabTo("Show notch on");
        keyClick(Qt.Key_Return);
        verify(root.item("pickerList").opened);
        keyClick(Qt.Key_Escape);
        verify(!root.item("pickerList").opened);
        compare(root.focusedName(), "Show notch on");
        compare(desk.storedPreferences().displayID, 0);
    }

    function test_in_a_narrow_window_the_sections_names_stand_above(): void {
        const row = root.item("displayRow");
        compare(row.mapToItem(root.view, 0, 0).x, 196 + 32 + 232);
        root.view.width = 999;
        compare(row.mapToItem(root.view, 0, 0).x, 196 + 32);
        root.view.width = 1000;
        compare(row.mapToItem(root.view, 0, 0).x, 196 + 32 + 232);
    }

    function test_backups_wait_until_the_planner_is_open(): void {
        verify(root.item("exportBackup").enabled);
        verify(root.item("importBackup").enabled);
        root.view.destroy();
        wait(0);
        desk.begin([]);
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.settings;
        tryVerify(() => root.item("exportBackup"));
        verify(!root.item("exportBackup").enabled);
        verify(!root.item("importBackup").enabled);
        desk.model.load();
        desk.settle();
        verify(root.item("exportBackup").enabled);
    }
}
