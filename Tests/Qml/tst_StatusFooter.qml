import QtQuick
import QtTest
import Orvane as Orvane

TestCase {
    id: root

    name: "StatusFooter"
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

    function start(titles: var): void {
        desk.open(titles);
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        waitForRendering(root.view);
    }

    function item(name: string): Item {
        return desk.find(root.view, name);
    }

    function test_the_save_state_stands_at_the_right(): void {
        root.start([]);
        compare(root.item("saveState").text, "Saved on this Mac");
        desk.model.addTaskTitled("One");
        compare(root.item("saveState").text, "Saving…");
        desk.settle();
        compare(root.item("saveState").text, "Saved on this Mac");
        verify(!root.item("footerMessage").visible);
    }

    function test_a_removed_task_can_be_brought_back(): void {
        root.start(["One", "Two"]);
        desk.model.deleteTask(desk.model.openTasks.idAt(0));
        compare(root.item("footerMessage").text, "Task removed.");
        compare(root.item("footerButton").text, "Undo");
        verify(root.item("footerCross").visible);
        waitForRendering(root.view);
        mouseClick(root.item("footerButton"));
        compare(desk.openTitles().sort(), ["One", "Two"]);
        verify(!root.item("footerButton").visible);
    }

    function test_undo_goes_away_with_its_notice(): void {
        root.start(["One", "Two"]);
        desk.model.deleteTask(desk.model.openTasks.idAt(0));
        desk.model.notice = "Something else.";
        verify(!root.item("footerButton").visible);
        compare(root.item("footerMessage").text, "Something else.");
        compare(root.item("footerCross").Accessible.name, "Dismiss message");
        mouseClick(root.item("footerCross"));
        verify(!root.item("footerMessage").visible);
        compare(desk.model.notice, "");
    }

    function test_an_error_comes_before_everything_else(): void {
        root.start(["One"]);
        desk.model.deleteTask(desk.model.openTasks.idAt(0));
        desk.model.error = "It went wrong.";
        compare(root.item("footerMessage").text, "It went wrong.");
        compare(root.item("footerButton").text, "Dismiss");
        verify(!root.item("footerCross").visible);
        mouseClick(root.item("footerButton"));
        compare(desk.model.error, "");
        compare(root.item("footerMessage").text, "Task removed.");
    }

    function test_a_problem_with_a_reminder_comes_after_the_models_error(): void {
        root.start(["One"]);
        desk.failReminder();
        const problem = "Notifications are disabled for Orvane.";
        compare(root.item("footerMessage").text, problem);
        desk.model.error = "It went wrong.";
        compare(root.item("footerMessage").text, "It went wrong.");
        waitForRendering(root.view);
        mouseClick(root.item("footerButton"));
        compare(desk.model.error, "");
        compare(root.item("footerMessage").text, problem);
        compare(root.item("footerButton").text, "Dismiss");
        waitForRendering(root.view);
        mouseClick(root.item("footerButton"));
        compare(desk.model.reminderError, "");
        verify(!root.item("footerMessage").visible);
    }

    function test_a_problem_with_a_reminder_comes_before_the_notice(): void {
        root.start(["One"]);
        desk.model.notice = "Something else.";
        desk.failReminder();
        compare(root.item("footerMessage").text, "Notifications are disabled for Orvane.");
        verify(!root.item("footerCross").visible);
        mouseClick(root.item("footerButton"));
        compare(root.item("footerMessage").text, "Something else.");
    }

    function test_there_is_no_footer_while_the_planner_is_closed(): void {
        desk.begin([]);
        root.view = createTemporaryObject(kind, root, {
            model: desk.model,
            navigation: desk.navigation
        });
        compare(root.item("statusFooter"), null);
        desk.model.load();
        desk.settle();
        verify(root.item("statusFooter"));
    }

    function test_a_failed_save_is_retried_and_its_message_goes(): void {
        root.start(["One"]);
        desk.failSaves(true);
        desk.model.addTaskTitled("Two");
        desk.settle();
        compare(root.item("saveState").text, "Not saved");
        compare(root.item("footerButton").text, "Retry save");
        verify(root.item("footerMessage").text.startsWith("Your changes are still in memory. Retry saving or export a backup. "));
        desk.failSaves(false);
        mouseClick(root.item("footerButton"));
        desk.settle();
        compare(desk.model.error, "");
        compare(root.item("saveState").text, "Saved on this Mac");
        verify(!root.item("footerMessage").visible);
    }
}
