import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "DashboardView"
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
        }
    }

    function show(): void {
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    function test_it_says_that_the_planner_is_being_opened(): void {
        desk.begin(["One"]);
        root.show();
        verify(root.item("openingPlanner"));
        compare(root.item("openingPlanner").text, "Opening your planner…");
        compare(root.item("tasksCard"), null);
        desk.model.load();
        desk.settle();
        compare(root.item("openingPlanner"), null);
        verify(root.item("tasksCard"));
    }

    function test_a_restore_shows_a_turning_ring_until_the_other_planner_is_there(): void {
        desk.open(["One"]);
        root.show();
        verify(root.item("tasksCard"));
        desk.beginRestore(["Two", "Three"]);
        compare(root.item("tasksCard"), null);
        const text = root.item("openingPlanner");
        compare(text.text, "Opening your planner…");
        const ring = text.parent.children[0];
        tryVerify(() => ring.children[1].rotation > 0);
        desk.settle();
        compare(root.item("openingPlanner"), null);
        verify(root.item("tasksCard"));
        compare(desk.openTitles(), ["Two", "Three"]);
        compare(root.item("footerMessage").text, "Backup restored. Previous data was backed up locally.");
    }

    function test_a_store_that_fails_offers_a_retry_and_no_cards(): void {
        desk.begin(["One"]);
        desk.failOpening(true);
        desk.model.load();
        desk.settle();
        root.show();
        verify(root.item("storageError").text.startsWith("Your planner could not be opened. Your existing data has been preserved. "));
        compare(root.item("retryOpening").text, "Retry opening planner");
        compare(root.item("tasksCard"), null);
        desk.failOpening(false);
        mouseClick(root.item("retryOpening"));
        desk.settle();
        compare(root.item("storageError"), null);
        verify(root.item("tasksCard"));
        compare(root.item("footerButton").text, "Dismiss");
    }

    function test_the_retry_has_the_keyboard(): void {
        desk.begin([]);
        desk.failOpening(true);
        desk.model.load();
        desk.settle();
        root.show();
        root.view.forceActiveFocus();
        verify(root.item("retryOpening").activeFocus);
        desk.failOpening(false);
        keyClick(Qt.Key_Return);
        desk.settle();
        verify(root.item("tasksCard"));
    }

    function test_it_follows_the_chosen_appearance(): void {
        desk.open([]);
        root.show();
        desk.setAppearance("light");
        compare(root.item("page").color, Orvane.Palette.lightDashboard.page);
        desk.setAppearance("dark");
        compare(root.item("page").color, Orvane.Palette.darkDashboard.page);
    }

    function test_cards_reach_down_to_the_footer(): void {
        desk.open([]);
        root.show();
        const card = root.item("tasksCard");
        compare(card.mapToItem(root.view, 0, 0), Qt.point(220, 112));
        compare(card.height, 546);
        root.view.height = 580;
        compare(card.height, 396);
    }
}
