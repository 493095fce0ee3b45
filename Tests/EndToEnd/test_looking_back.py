"""The Dashboard's pages Insights and History, with pointer, keys and the press action."""

from harness import Keyboard, main, wait_until
from planner import PlannerTest

# Roles that tell nothing of a thing that one can use.
NOTHING = ("filler", "unknown", "invalid", "panel", "redundant object")


class LookingBack(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.orvane.open()
        self.orvane.focus_add_field()
        for title in ("Water the ferns", "Answer Ada"):
            self.orvane.add(title)
        for title in ("Water the ferns", "Answer Ada"):
            self.orvane.wait_for(f"Complete {title}").press()
            self.orvane.wait_gone(f"Complete {title}")
        self.orvane.wait_saved()
        self.orvane.wait_for("Open dashboard").press()
        self.orvane.wait_for("Today", role="page tab")

    def show(self, page):
        self.orvane.click(page, role="page tab")
        wait_until(lambda: self.orvane.find(page, role="page tab").has("selected"), f"the page {page}")

    def assert_everything_named(self):
        for item in self.orvane.items():
            usable = item.has("focusable") or item.node.get_n_actions() > 0
            if usable and item.role not in ("frame", "window"):
                self.assertNotIn(item.role, NOTHING, f"the role of {item}")
                self.assertTrue(item.name.strip(), f"the name of {item} at {item.box()}")

    def test_reopening_a_task_takes_it_off_the_day_and_out_of_the_week(self):
        self.show("Insights")
        self.orvane.wait_for("TASKS COMPLETED: 2")
        self.show("History")
        self.orvane.click("Reopen Answer Ada")
        self.orvane.wait_gone("Reopen Answer Ada")
        self.orvane.wait_for("Reopen Water the ferns")
        self.orvane.wait_until_stored(lambda tasks: ["completedAt" in task for task in tasks] == [True, False])
        self.orvane.wait_for("Reopen Water the ferns").press()
        self.orvane.wait_for("No completed tasks for this day.")
        self.orvane.wait_for("Leave a trail of progress.")
        self.show("Insights")
        self.orvane.wait_for("TASKS COMPLETED: 0")

    def test_another_day_is_chosen_by_keyboard(self):
        self.show("History")
        today = self.orvane.wait_for(starting="Day: ").name
        self.orvane.wait_for("Reopen Answer Ada")
        self.orvane.wait_for(starting="Day: ").node.get_component_iface().grab_focus()
        wait_until(lambda: self.orvane.find(starting="Day: ").has("focused"), "the keyboard on the date")
        Keyboard.press("Return")
        self.orvane.wait_for("Choose a day", role="dialog")
        self.assert_everything_named()
        Keyboard.press("Up")
        Keyboard.press("Return")
        self.orvane.wait_gone("Choose a day", role="dialog")
        self.orvane.wait_for("No completed tasks for this day.")
        self.assertNotEqual(today, self.orvane.wait_for(starting="Day: ").name)

    def test_what_can_be_used_has_a_role_and_a_name(self):
        self.show("Insights")
        self.orvane.wait_for("Active minutes", role="list")
        days = [item for item in self.orvane.items() if item.name.endswith(": 0 min")]
        self.assertEqual(7, len(days))
        self.assert_everything_named()
        self.show("History")
        self.orvane.wait_for("Water the ferns", role="list item")
        self.assert_everything_named()


if __name__ == "__main__":
    main()
