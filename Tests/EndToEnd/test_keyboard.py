"""Everything that one does with tasks can be done without a pointer."""

from harness import Keyboard, main, wait_until
from planner import SAVED, PlannerTest


class KeyboardOnly(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        Keyboard.press("alt+n")
        wait_until(lambda: self.orvane.add_field().has("focused"), "the keyboard in the add field")
        for title in ("First", "Second", "Third"):
            self.orvane.add(title)

    def focused(self):
        """Name of the innermost item that has the keyboard; None where none says so."""
        names = [item.name for item in self.orvane.items() if item.has("focused")]
        return names[-1] if names else None

    def go_to(self, name, key="Tab"):
        """Presses a key until an item has the keyboard."""
        for _ in range(30):
            if self.focused() == name:
                return
            before = self.focused()
            Keyboard.press(key)
            wait_until(lambda: self.focused() != before, f"{key} to move on from {before!r}")
        self.fail(f"{name!r} was not reached with {key}")

    def go_to_row(self, title):
        self.go_to("First", "shift+Tab")
        self.go_to(title, "Down")

    def test_a_task_is_reordered_and_says_where_it_is(self):
        self.go_to_row("Third")
        Keyboard.press("alt+Up")
        self.orvane.wait_for("Third, 2 of 3")
        self.orvane.wait_stored("First", "Third", "Second")
        Keyboard.press("alt+Up")
        self.orvane.wait_for("Third, 1 of 3")
        self.orvane.wait_stored("Third", "First", "Second")

    def test_a_task_is_renamed(self):
        self.go_to_row("Second")
        Keyboard.press("F2")
        self.orvane.wait_for("Task title", role="text")
        Keyboard.type("Better")
        Keyboard.press("Return")
        self.orvane.wait_titles("First", "Better", "Third")
        self.assertEqual("Better", wait_until(self.focused, "a focused row"))

    def test_a_task_is_completed(self):
        self.go_to_row("Second")
        Keyboard.press("space")
        self.orvane.wait_titles("First", "Third")
        self.orvane.wait_for("2 LEFT")

    def test_a_task_is_deleted_and_brought_back(self):
        self.go_to_row("Second")
        Keyboard.press("Delete")
        self.orvane.wait_titles("First", "Third")
        self.go_to("Undo")
        Keyboard.press("space")
        self.orvane.wait_titles("First", "Third", "Second")
        self.orvane.wait_for(SAVED)

    def test_the_menu_opens_and_is_walked_with_keys(self):
        self.go_to_row("Second")
        Keyboard.press("Menu")
        self.orvane.wait_for("Move up", role="menu item")
        Keyboard.press("Escape")
        self.orvane.wait_gone("Move up", role="menu item")
        wait_until(lambda: self.focused() == "Second", "the keyboard back in the row")
        Keyboard.press("Menu")
        self.go_to("Move up", "Down")
        Keyboard.press("Return")
        self.orvane.wait_stored("Second", "First", "Third")

    def test_escape_closes_the_panel_and_the_hot_key_opens_it_again(self):
        Keyboard.press("Escape")
        self.orvane.wait_gone("Add something to do…")
        Keyboard.press("alt+n")
        self.orvane.wait_titles("First", "Second", "Third")


if __name__ == "__main__":
    main()
