import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "NotchRootView"
    when: windowShown
    width: 674
    height: 617
    visible: true

    readonly property rect panelRect: Qt.rect(12, 0, 650, 580)
    readonly property rect stripRect: Qt.rect(237, 0, 200, 32)
    property var view: null

    Component {
        id: kind
        Orvane.NotchRootView {
            width: 674
            height: 617
        }
    }
    SignalSpy {
        id: opened
        signalName: "open"
    }
    SignalSpy {
        id: entered
        signalName: "entered"
    }
    SignalSpy {
        id: exited
        signalName: "exited"
    }

    function start(): void {
        desk.open(["One", "Two"]);
        desk.showPanel(false, root.stripRect, false);
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            state: desk.panel
        });
        for (const spy of [opened, entered, exited]) {
            spy.target = root.view;
            spy.clear();
        }
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    function test_the_strip_is_one_button_that_opens(): void {
        root.start();
        const strip = root.item("strip");
        compare(strip.Accessible.name, "Open Orvane workspace");
        compare(strip.Accessible.role, Accessible.Button);
        mouseClick(root.view, 337, 16);
        compare(opened.count, 1);
    }

    function test_without_motion_the_body_jumps_and_is_reported(): void {
        root.start();
        compare(desk.panel.body, root.stripRect);
        desk.showPanel(true, root.panelRect, true);
        compare(desk.panel.body, root.panelRect);
    }

    function test_with_motion_the_body_travels_from_where_it_is(): void {
        root.start();
        desk.setReduceMotion(false);
        desk.showPanel(true, root.panelRect, true);
        verify(desk.panel.body.width < 650, "it has not arrived at once");
        tryVerify(() => desk.panel.body.width > 200 && desk.panel.body.width < 650);
        const halfway = desk.panel.body.width;
        desk.showPanel(false, root.stripRect, true);
        verify(Math.abs(desk.panel.body.width - halfway) <= 40, "it turns round where it is");
        tryCompare(desk.panel, "body", root.stripRect);
    }

    function test_the_pointer_enters_and_leaves_exactly_at_the_body(): void {
        root.start();
        mouseMove(root.view, 100, 100);
        mouseMove(root.view, 238, 10);
        compare(entered.count, 1);
        mouseMove(root.view, 235, 10);
        compare(exited.count, 1);
        desk.showPanel(true, root.panelRect, false);
        mouseMove(root.view, 100, 200);
        compare(entered.count, 2);
    }

    function test_moving_over_the_panels_controls_is_not_leaving(): void {
        root.start();
        desk.showPanel(true, root.panelRect, false);
        waitForRendering(root.view);
        mouseMove(root.view, 600, 300);
        entered.clear();
        exited.clear();
        const rows = root.item("taskRows");
        for (let y = 0; y < 300; y += 10)
            mouseMove(rows, 100, y);
        mouseMove(root.item("closeWorkspace"), 5, 5);
        mouseMove(root.item("openDashboard"), 5, 5);
        compare(exited.count, 0);
        compare(entered.count, 0);
    }

    function test_without_a_notch_the_strip_shows_the_wordmark(): void {
        root.start();
        const word = root.item("wordmark");
        verify(word.visible);
        compare(word.text, "orvane");
        compare(root.item("stripHint").text, "⌥ N");
        verify(Math.abs(word.x + word.width / 2 - 100) <= 1, "it stands in the middle");
        desk.setNotch(37, 185);
        verify(!word.visible);
    }

    function test_a_session_shows_its_time_on_the_strip(): void {
        root.start();
        desk.startFocus(80 * 60 - 1122);
        compare(root.item("stripTime").text, "18:42");
        verify(root.item("stripTime").visible);
        desk.finishFocus();
        verify(!root.item("stripTime").visible);
        compare(root.item("stripHint").text, "DONE ✓");
    }

    function test_the_wordmark_makes_room_for_a_long_time_and_never_hides(): void {
        root.start();
        desk.startFocus(60);
        desk.pauseFocus();
        const word = root.item("wordmark");
        const time = root.item("stripTime");
        const left = time.mapToItem(root.item("strip"), time.width, 0).x;
        verify(word.visible);
        verify(word.x - left >= 8, "8 pixels stay between them");
        verify(root.item("stripHint").x - word.x - word.width >= 8);
    }

    function test_escape_closes_the_panel(): void {
        root.start();
        desk.showPanel(true, root.panelRect, false);
        desk.requestFocus();
        keyClick(Qt.Key_Escape);
        compare(desk.dismissals, 1);
    }

    function test_the_headers_buttons_do_what_they_say(): void {
        root.start();
        desk.showPanel(true, root.panelRect, false);
        waitForRendering(root.view);
        compare(root.item("openDashboard").Accessible.name, "Open dashboard");
        mouseClick(root.item("openDashboard"));
        compare(desk.dashboards, 1);
        compare(root.item("openSettings").Accessible.name, "Settings");
        mouseClick(root.item("openSettings"));
        compare(desk.settingsRequests, 1);
        compare(root.item("closeWorkspace").Accessible.name, "Close workspace");
        mouseClick(root.item("closeWorkspace"));
        compare(desk.dismissals, 1);
    }

    function test_the_hot_key_puts_the_keyboard_into_the_add_field(): void {
        root.start();
        desk.showPanel(true, root.panelRect, false);
        desk.requestFocus();
        verify(root.item("addTaskEntry").activeFocus);
    }

    function test_without_the_tasks_card_the_hot_key_goes_to_the_first_control(): void {
        root.start();
        desk.hideEveryCard();
        desk.showPanel(true, root.panelRect, false);
        desk.requestFocus();
        verify(root.item("openDashboard").activeFocus);
        verify(root.item("openDashboard").visualFocus);
    }

    function test_every_card_hidden_is_a_clean_slate(): void {
        root.start();
        desk.showPanel(true, root.panelRect, false);
        verify(!root.item("cleanSlate").visible);
        desk.hideEveryCard();
        verify(root.item("cleanSlate").visible);
        compare(root.item("cleanSlateText").title, "Your workspace is a clean slate.");
        compare(root.item("tasksCard"), null);
        compare(root.item("chooseCards").text, "Choose your cards");
        mouseClick(root.item("chooseCards"));
        compare(desk.settingsRequests, 1);
    }
}
