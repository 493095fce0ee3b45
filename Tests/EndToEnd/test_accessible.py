"""What the program tells assistive technology: each control with its role and name, and what it does when
it is pressed without a pointer."""

from harness import main, wait_until
from planner import SAVED, PlannerTest

# Roles that tell nothing of a thing that one can use.
NOTHING = ("filler", "unknown", "invalid", "panel", "redundant object")
# What is read and used, and so needs a name.
NAMED = ("button", "page tab", "list", "list item", "menu", "menu item", "text", "heading", "label", "static",
         "image", "grouping", "notification", "alert")


class Accessible(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()

    def opened(self, *titles):
        """The open panel with these tasks, the keyboard in the add field."""
        self.orvane.open()
        self.orvane.focus_add_field()
        for title in titles:
            self.orvane.add(title)
        self.orvane.wait_saved()

    def roles(self):
        """The roles of all items on show, by name."""
        found = {}
        for item in self.orvane.items():
            found.setdefault(item.name, set()).add(item.role)
        return found

    def assert_shown(self, expected):
        roles = self.roles()
        for name, role in expected.items():
            self.assertIn(name, roles)
            self.assertIn(role, roles[name], f"the role of {name!r}")

    def test_the_strip_is_one_button(self):
        strip = self.orvane.wait_for_strip()
        self.assertEqual("push button", strip.role)

    def test_every_item_on_show_has_a_role_and_a_name(self):
        self.opened("Water the ferns", "Answer Ada")
        for item in self.orvane.items():
            usable = item.has("focusable") or item.node.get_n_actions() > 0
            if usable and item.role not in ("frame", "window"):
                self.assertNotIn(item.role, NOTHING, f"the role of {item}")
            if usable or any(role in item.role for role in NAMED):
                self.assertTrue(item.name.strip(), f"the name of {item} at {item.box()}")

    def test_the_panel_names_its_controls(self):
        self.opened("Water the ferns", "Answer Ada")
        self.assert_shown({
            "Open dashboard": "push button", "Close workspace": "push button",
            "Make room for today.": "heading", "Your tasks": "heading", "2 LEFT": "label",
            "Task status": "page tab list", "To do": "page tab", "Completed": "page tab",
            "Water the ferns": "list item", "Complete Water the ferns": "push button",
            "Actions for Water the ferns": "push button", "Answer Ada": "list item",
            "Add something to do…": "text", "Add task": "push button", SAVED: "label"})

    def test_the_chosen_tab_is_the_selected_one(self):
        self.opened("Water the ferns")
        self.assertTrue(self.orvane.wait_for("To do", role="page tab").has("selected"))
        completed = self.orvane.wait_for("Completed", role="page tab")
        self.assertFalse(completed.has("selected"))
        completed.press()
        wait_until(lambda: self.orvane.find("Completed", role="page tab").has("selected"), "the other tab")
        self.assertFalse(self.orvane.find("To do", role="page tab").has("selected"))

    def test_a_task_is_completed_and_reopened_by_the_press_action(self):
        self.opened("Water the ferns", "Answer Ada")
        self.orvane.wait_for("Complete Water the ferns").press()
        self.orvane.wait_titles("Answer Ada")
        wait_until(lambda: "completedAt" in self.home.tasks()[0], "the completion to be on disk")
        self.orvane.wait_for("Completed", role="page tab").press()
        self.orvane.wait_for("Reopen Water the ferns", role="button").press()
        self.orvane.wait_until_stored(lambda tasks: all("completedAt" not in task for task in tasks))
        self.orvane.wait_for("To do", role="page tab").press()
        self.orvane.wait_titles("Water the ferns", "Answer Ada")

    def test_the_menu_names_its_entries_and_they_are_pressed(self):
        self.opened("Water the ferns", "Answer Ada")
        self.orvane.wait_for("Actions for Water the ferns").press()
        self.orvane.wait_for("Task actions", role="menu")
        for entry in ("Rename", "Move up", "Move down", "Delete task"):
            self.orvane.wait_for(entry, role="menu item")
        self.orvane.wait_for("Rename", role="menu item").press()
        self.assertTrue(self.orvane.wait_for("Task title", role="text").has("editable"))

    def test_the_footers_controls_are_pressed(self):
        self.opened("Water the ferns")
        self.orvane.wait_for("Actions for Water the ferns").press()
        self.orvane.wait_for("Delete task", role="menu item").press()
        self.orvane.wait_for("Task removed.", role="label")
        self.orvane.wait_for("Undo", role="push button").press()
        self.orvane.wait_titles("Water the ferns")
        self.orvane.wait_for("Actions for Water the ferns").press()
        self.orvane.wait_for("Delete task", role="menu item").press()
        self.orvane.wait_for("Dismiss message", role="push button").press()
        self.orvane.wait_gone("Task removed.")

    def test_the_dashboard_names_its_pages(self):
        self.opened()
        self.orvane.wait_for("Open dashboard").press()
        today = self.orvane.wait_for("Today", role="page tab")
        self.assertTrue(today.has("selected"))
        self.assertIsNone(self.orvane.find("Maximize"), "the desktop decorates the window")
        self.assert_shown({"Pages": "page tab list", "Make room for today.": "heading",
                           "Task status": "page tab list", "Add something to do…": "text"})


if __name__ == "__main__":
    main()
