"""A focus session from the choice of its task to its end, and across a crash."""

from harness import Keyboard, main, wait_until
from planner import PlannerTest


class Focus(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.orvane.open()
        self.orvane.focus_add_field()
        for title in ("Read", "Write the letter"):
            self.orvane.add(title)

    def sessions(self):
        return self.home.records("session")

    def wait_session(self, status):
        """Waits until the store holds one session in this status, and gives it."""
        def stored():
            found = self.sessions()
            return found[0] if len(found) == 1 and found[0]["status"] == status else None
        return wait_until(stored, f"one {status} session in the store")

    def choose(self, part, title):
        """Looks for a part of a title in the chooser and takes what Return takes."""
        self.orvane.click("Choose a task", role="button")
        search = self.orvane.wait_for("Find a task…", role="text")
        wait_until(lambda: self.orvane.find("Find a task…", role="text").has("focused"), "the keyboard in the search")
        Keyboard.type(part)
        wait_until(lambda: search.text() == part, "the search to read " + part)
        Keyboard.press("Return")
        self.orvane.wait_for(f"Focus task: {title}", role="button")

    def begin(self):
        self.choose("LETTER", "Write the letter")
        self.assertTrue(self.orvane.wait_for("25 minutes", role="radio button").has("checked"))
        self.orvane.click("45 minutes", role="radio button")
        self.orvane.wait_for(starting="45:00")
        self.assertTrue(self.orvane.wait_for("45 minutes", role="radio button").has("checked"))
        self.assertFalse(self.orvane.wait_for("25 minutes", role="radio button").has("checked"))
        self.orvane.click("Start focus")
        self.orvane.wait_for("IN SESSION")

    def test_a_session_runs_pauses_and_ends(self):
        self.assertIsNone(self.orvane.find("Pause"))
        self.begin()
        session = self.wait_session("running")
        self.assertEqual(("countdown", 2700, "Write the letter"),
                         (session["mode"], session["target"], session["title"]))
        self.orvane.wait_for(starting="44:5")
        self.orvane.click("Pause")
        self.orvane.wait_for("PAUSED")
        self.wait_session("paused")
        self.orvane.click("Resume")
        self.orvane.wait_for("IN SESSION")
        self.orvane.click("Finish session")
        self.orvane.wait_for("READY")
        session = self.wait_session("finished")
        spent = sum(segment["duration"] for segment in session["segments"])
        self.assertTrue(0 < spent < 60, spent)
        self.orvane.wait_for("Focus task: Write the letter", role="button")

    def test_a_session_is_found_paused_after_a_crash(self):
        self.begin()
        self.wait_session("running")
        self.orvane.kill()
        again = self.started()
        self.wait_session("paused")
        again.open()
        again.wait_for("PAUSED")
        again.wait_for("Restored paused. Time away wasn’t counted.")
        again.wait_for("Write the letter", role="label")
        again.click("Resume")
        again.wait_gone("Restored paused. Time away wasn’t counted.")
        self.wait_session("running")

    def test_a_tasks_menu_begins_a_session_on_it(self):
        self.orvane.choose("Read", "Focus on this")
        self.orvane.wait_for("IN SESSION")
        session = self.wait_session("running")
        self.assertEqual(("countdown", 1500, "Read"), (session["mode"], session["target"], session["title"]))
        self.orvane.wait_for("Complete Read").press()
        self.wait_session("finished")
        self.orvane.wait_for("READY")

    def test_everything_is_done_without_a_pointer(self):
        self.orvane.wait_for("Choose a task", role="button").press()
        self.orvane.wait_for("Read", role="list item")
        found = [item for item in self.orvane.items() if item.name == "Read" and "list item" in item.role]
        found[-1].press()
        self.orvane.wait_for("Focus task: Read", role="button")
        self.orvane.wait_for("Custom", role="radio button").press()
        self.orvane.wait_for("Custom focus duration", role="spin button").node.get_value_iface().set_current_value(90)
        self.orvane.wait_for(starting="1:30:00")
        self.orvane.wait_for("Done", role="push button").press()
        self.orvane.wait_gone("Done", role="push button")
        self.orvane.wait_for("Count up, without a deadline", role="page tab").press()
        self.orvane.wait_for("Start focus", role="push button").press()
        self.assertEqual("stopwatch", self.wait_session("running")["mode"])
        self.orvane.wait_for("Finish session", role="push button").press()
        self.wait_session("finished")


if __name__ == "__main__":
    main()
