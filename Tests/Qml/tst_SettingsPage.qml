import QtQuick
import QtTest
import Orvane as Orvane

/// The Settings page in its window, over preferences in memory.
TestCase {
    id: root

    name: "SettingsPage"
    when: windowShown
    width: 1320
    height: 1100
    visible: true

    property var view: null

    Component {
        id: kind
        Orvane.DashboardView {
            width: 1320
            height: 1100
            reduceMotion: true
        }
    }
    Component {
        id: panelKind
        Orvane.NotchRootView {
            width: 674
            height: 580
        }
    }

    function start(): void {
        desk.open(["One"]);
        root.show();
    }

    function show(): void {
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.settings;
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        root.view.forceActiveFocus();
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        const found = desk.find(root.view, name);
        verify(found, "there is an item " + name);
        return found;
    }

    function segment(name: string, index: int): Item {
        return desk.find(root.item(name), "segment" + index);
    }

    /// The texts below `from`, from top to bottom and from left to right.
    function texts(from: var): var {
        let found = from.visible && from.text ? [from.text] : [];
        for (let i = 0; i < from.children.length; ++i)
            found = found.concat(root.texts(from.children[i]));
        return found;
    }

    function test_it_stands_last_in_the_sidebar_and_has_its_heading(): void {
        root.start();
        const pages = root.view.pages;
        compare(pages[pages.length - 1].text, "Settings");
        compare(pages[pages.length - 1].symbol, "slider.horizontal.3");
        compare(root.texts(root.item("settingsScroll"))[0], "Your space, your way.");
    }

    function test_every_text_reads_as_it_is_given(): void {
        root.start();
        const shown = root.texts(root.item("settingsScroll"));
        for (const text of ["General", "Open workspace on hover", "Keyboard shortcut", "⌥ N · Option–N", "Tasks left unfinished stay in your To do list. Focus pauses on sleep, quit and recovery.", "Workspace", "Tasks", "Focus", "Notes", "Agenda", "Card width", "260", "Show notch on", "Built-in display, or first available", "Restore workspace layout", "Appearance & focus", "Dashboard appearance", "System", "Light", "Dark", "Clock style", "Rounded", "Monospaced", "Default focus: 25 minutes", "The notch stays dark. macOS Reduce Motion is respected.", "Your data", "Your planner stays on this Mac. No account, analytics or cloud sync.", "Export JSON backup…", "Restore backup…", "Restore validates the file and saves a copy of your current planner first."])
            verify(shown.includes(text), text);
        verify(!shown.includes("Preferred display disconnected (using fallback)"));
    }

    function test_the_shortcut_names_the_key_of_this_keyboard(): void {
        root.start();
        compare(root.item("shortcut").Accessible.description, "Alt+N");
        mouseMove(root.item("shortcut"), 10, 10);
        tryCompare(root.item("popovers"), "tipText", "Alt+N");
    }

    function test_opening_on_hover_is_switched_off_and_kept(): void {
        root.start();
        mouseClick(root.item("hoverSwitch"));
        compare(desk.storedPreferences().hoverEnabled, false);
        mouseClick(root.item("hoverSwitch"));
        compare(desk.storedPreferences().hoverEnabled, true);
    }

    function test_hiding_a_card_takes_it_out_of_the_panel(): void {
        root.start();
        const panel = createTemporaryObject(panelKind, root, {
            model: desk.model,
            state: desk.panel
        });
        desk.showPanel(true, Qt.rect(12, 0, 650, 580), false);
        verify(desk.find(panel, "tasksCard"));
        panel.y = root.height;
        mouseClick(root.item("tasksSwitch"));
        compare(desk.storedPreferences().hiddenCards, ["tasks"]);
        compare(desk.find(panel, "tasksCard"), null);
        mouseClick(root.item("tasksSwitch"));
        compare(desk.storedPreferences().hiddenCards, []);
        verify(desk.find(panel, "tasksCard"));
    }

    function test_a_card_moves_with_its_row_which_keeps_the_keyboard(): void {
        root.start();
        compare(root.item("tasksLeft").Accessible.name, "Move tasks left");
        compare(root.item("agendaRight").Accessible.name, "Move agenda right");
        verify(!root.item("tasksLeft").enabled);
        verify(!root.item("agendaRight").enabled);
        const right = root.item("tasksRight");
        right.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(desk.storedPreferences().cards, ["focus", "tasks", "notes", "agenda"]);
        tryVerify(() => root.item("tasksRow").y - root.item("focusRow").y === 48);
        verify(right.activeFocus);
        verify(right.visualFocus);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        compare(desk.storedPreferences().cards, ["focus", "notes", "agenda", "tasks"]);
        verify(!right.enabled);
        verify(root.item("tasksLeft").visualFocus, "the other button has the keyboard at the end of the way");
        keyClick(Qt.Key_Space);
        compare(desk.storedPreferences().cards, ["focus", "notes", "tasks", "agenda"]);
    }

    function test_the_cards_width_follows_a_drag_and_is_saved_at_its_end(): void {
        root.start();
        const slider = root.item("widthSlider");
        const before = desk.writes();
        mousePress(slider, 40, 10);
        for (let x = 40; x <= 200; x += 2)
            mouseMove(slider, x, 10);
        compare(desk.model.settings.cardWidth, 380);
        compare(root.item("widthText").text, "380");
        compare(desk.writes(), before);
        mouseRelease(slider, 199, 10);
        compare(desk.storedPreferences().cardWidth, 380);
        compare(desk.writes() - before, 1);
        keyClick(Qt.Key_Left);
        compare(desk.storedPreferences().cardWidth, 370);
        compare(desk.writes() - before, 2);
    }

    function test_leaving_the_page_in_the_middle_of_a_drag_saves_it(): void {
        root.start();
        const slider = root.item("widthSlider");
        mousePress(slider, 40, 10);
        for (let x = 40; x <= 120; x += 4)
            mouseMove(slider, x, 10);
        desk.navigation.page = Orvane.NavigationModel.DashboardPage.today;
        tryCompare(desk.model.settings, "adjusting", false);
        compare(desk.storedPreferences().cardWidth, 320);
        mouseRelease(root.view, 10, 10);
    }

    function test_the_display_is_picked_by_name(): void {
        desk.open([]);
        desk.attachDisplays(["eDP-1", "DP-2"]);
        root.show();
        const picker = root.item("displayPicker");
        compare(picker.choices, ["Built-in display, or first available", "eDP-1", "DP-2"]);
        picker.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Return);
        compare(desk.storedPreferences().displayID, 2);
        compare(picker.shown, "DP-2");
    }

    function test_a_display_that_was_unplugged_is_told(): void {
        desk.open([]);
        desk.attachDisplays(["eDP-1", "DP-2"]);
        root.show();
        desk.model.settings.displayID = 2;
        verify(!root.item("displayRow").note);
        desk.attachDisplays(["eDP-1"]);
        compare(root.item("displayRow").note, "Preferred display disconnected (using fallback)");
        compare(root.item("displayPicker").shown, "Built-in display, or first available");
        desk.attachDisplays(["eDP-1", "DP-2"]);
        compare(root.item("displayRow").note, "");
        compare(root.item("displayPicker").shown, "DP-2");
    }

    function test_the_layout_is_restored_and_nothing_else(): void {
        root.start();
        desk.model.settings.setCardShown("notes", false);
        desk.model.settings.moveCard("tasks", 1);
        desk.model.settings.cardWidth = 300;
        desk.model.settings.defaultMinutes = 50;
        mouseClick(root.item("restoreLayout"));
        const stored = desk.storedPreferences();
        compare(stored.cards, ["tasks", "focus", "notes", "agenda"]);
        compare(stored.hiddenCards, []);
        compare(stored.cardWidth, 260);
        compare(stored.defaultMinutes, 50);
    }

    function test_the_appearance_changes_the_dashboard_at_once(): void {
        root.start();
        const wanted = [["dark", 2, Orvane.Palette.darkDashboard], ["light", 1, Orvane.Palette.lightDashboard], ["system", 0, Orvane.Palette.lightDashboard]];
        for (const [word, index, tones] of wanted) {
            mouseClick(root.segment("appearance", index));
            compare(desk.storedPreferences().appearance, word);
            compare(root.item("page").color, tones.page);
        }
        desk.setAppearance("purple");
        verify(root.segment("appearance", 1).checked, "an unknown word counts as light");
    }

    function test_the_clocks_style_and_the_minutes_are_kept(): void {
        root.start();
        mouseClick(root.segment("clockStyle", 1));
        compare(desk.storedPreferences().clockStyle, "monospaced");
        mouseClick(root.segment("clockStyle", 0));
        compare(desk.storedPreferences().clockStyle, "rounded");
        const minutes = root.item("defaultMinutes");
        mouseClick(minutes, minutes.width - 16, 16);
        compare(desk.storedPreferences().defaultMinutes, 26);
        verify(root.texts(root.item("settingsScroll")).includes("Default focus: 26 minutes"));
    }
}
