"""Tasks are added, completed, renamed, reordered and removed by pointer and keyboard, and are on disk."""

from harness import Keyboard, Pointer, main, wait_until
from planner import PlannerTest


class Tasks(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.orvane.open()
        self.orvane.focus_add_field()

    def add(self, *titles):
        for title in titles:
            self.orvane.add(title)
        self.orvane.wait_stored(*titles)

    def test_typing_adds_tasks_that_a_restart_finds(self):
        self.add("Water the ferns", "Answer Ada")
        self.orvane.wait_saved()
        again = self.restarted(self.orvane)
        again.open()
        again.wait_titles("Water the ferns", "Answer Ada")

    def test_clicking_the_round_button_completes_and_reopens(self):
        self.add("Water the ferns", "Answer Ada")
        self.orvane.click("Complete Water the ferns")
        self.orvane.wait_titles("Answer Ada")
        self.orvane.wait_for("1 LEFT")
        wait_until(lambda: "completedAt" in self.home.tasks()[0], "the completion to be on disk")
        self.orvane.click("Completed", role="page tab")
        self.orvane.click("Reopen Water the ferns")
        self.orvane.click("To do", role="page tab")
        self.orvane.wait_titles("Water the ferns", "Answer Ada")
        wait_until(lambda: "completedAt" not in self.home.tasks()[0], "the reopening to be on disk")

    def test_double_click_renames_and_escape_keeps_the_old_title(self):
        self.add("Water the ferns")
        Pointer.click(*self.orvane.title_point("Water the ferns"), times=2)
        self.orvane.wait_for("Task title", role="text")
        Keyboard.press("ctrl+a")
        Keyboard.type("Feed the cat")
        Keyboard.press("Return")
        self.orvane.wait_titles("Feed the cat")
        self.orvane.wait_stored("Feed the cat")
        Pointer.click(*self.orvane.title_point("Feed the cat"), times=2)
        self.orvane.wait_for("Task title", role="text")
        Keyboard.type("nothing")
        Keyboard.press("Escape")
        self.orvane.wait_gone("Task title", role="text")
        self.orvane.wait_titles("Feed the cat")

    def test_dragging_reorders(self):
        self.add("First", "Second", "Third")
        self.orvane.drag_before("Third", "First")
        self.orvane.wait_titles("Third", "First", "Second")
        self.orvane.wait_stored("Third", "First", "Second")

    def test_the_menu_moves_a_task_up_and_down(self):
        self.add("First", "Second", "Third")
        self.orvane.choose("Third", "Move up")
        self.orvane.wait_stored("First", "Third", "Second")
        self.orvane.choose("First", "Move down")
        self.orvane.wait_stored("Third", "First", "Second")
        self.orvane.wait_titles("Third", "First", "Second")

    def test_a_deleted_task_comes_back_with_undo(self):
        self.add("First", "Second")
        self.orvane.choose("Second", "Delete task")
        self.orvane.wait_for("Task removed.")
        self.orvane.wait_stored("First")
        self.orvane.click("Undo")
        self.orvane.wait_titles("First", "Second")
        self.orvane.wait_stored("First", "Second")
        self.orvane.wait_gone("Task removed.")

    def test_a_very_long_title_is_refused_with_its_message(self):
        title = "x" * 1001
        Keyboard.type(title)
        Keyboard.press("Return")
        self.orvane.wait_for("Task titles can contain up to 1,000 characters.")
        self.assertEqual([], self.home.titles())


if __name__ == "__main__":
    main()
