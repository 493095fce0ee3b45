"""The daily note: what is written is there on another day and after the program was gone, and a line of it
becomes a task."""

import datetime

from harness import Keyboard, Pointer, main, wait_until
from planner import SAVED, PlannerTest

NOTEPAD = "Daily notepad"


def key(days=0):
    return (datetime.date.today() + datetime.timedelta(days)).isoformat()


class Notes(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.orvane.open()

    def notes(self):
        """The stored notes' texts by day."""
        return {note["id"]: note["text"] for note in self.home.records("note")}

    def wait_notes(self, expected):
        wait_until(lambda: self.notes() == expected, f"the store to hold {expected}")

    def note(self, orvane=None):
        return (orvane or self.orvane).wait_for(NOTEPAD, role="text")

    def click_into(self, orvane=None):
        Pointer.click(*self.note(orvane).centre())
        wait_until(lambda: self.note(orvane).has("focused"), "the keyboard in the note")

    def wait_text(self, expected, orvane=None):
        # A screen reader gets a paragraph separator where a line ends.
        wait_until(lambda: self.note(orvane).text().replace("\u2029", "\n") == expected,
                   f"the note to read {expected!r}")

    def write(self, *lines):
        """Types into the note with the keyboard in it."""
        for number, line in enumerate(lines):
            if number:
                Keyboard.press("Return")
            Keyboard.type(line)

    def test_a_note_is_there_after_going_to_yesterday_and_after_a_restart(self):
        self.click_into()
        self.write("Open with the empty calendar", "Ask Jonas")
        self.wait_notes({key(): "Open with the empty calendar\nAsk Jonas"})
        self.orvane.click("Previous day's note")
        self.wait_text("")
        self.click_into()
        self.write("Yesterday was long")
        self.wait_notes({key(): "Open with the empty calendar\nAsk Jonas", key(-1): "Yesterday was long"})
        self.orvane.click("Next day's note")
        self.wait_text("Open with the empty calendar\nAsk Jonas")
        again = self.restarted(self.orvane)
        again.open()
        self.wait_text("Open with the empty calendar\nAsk Jonas", again)
        again.click("Previous day's note")
        self.wait_text("Yesterday was long", again)

    def test_a_line_becomes_a_task_and_the_note_stays(self):
        self.click_into()
        self.write("Open with the empty calendar", "Ask Jonas", "Lunch?")
        Keyboard.press("Up")
        Keyboard.press("ctrl+Return")
        self.orvane.wait_for("Added to your tasks. Your note is unchanged.")
        self.orvane.wait_titles("Ask Jonas")
        self.orvane.wait_stored("Ask Jonas")
        self.wait_text("Open with the empty calendar\nAsk Jonas\nLunch?")
        self.wait_notes({key(): "Open with the empty calendar\nAsk Jonas\nLunch?"})

    def test_what_was_reported_as_saved_survives_being_killed(self):
        self.click_into()
        self.write("Do not forget")
        self.wait_text("Do not forget")
        self.orvane.wait_for(SAVED)
        self.orvane.kill()
        self.assertEqual({key(): "Do not forget"}, self.notes())
        again = self.started()
        again.open()
        self.wait_text("Do not forget", again)

    def test_quitting_within_the_pause_after_a_key_saves_it(self):
        self.click_into()
        self.write("Quick")
        Keyboard.press("ctrl+q")
        self.assertEqual(0, self.orvane.wait_for_end())
        self.assertEqual({key(): "Quick"}, self.notes())

    def test_undo_stays_within_the_day(self):
        self.click_into()
        self.write("Today")
        self.orvane.click("Previous day's note")
        self.wait_text("")
        self.click_into()
        Keyboard.press("ctrl+z")
        self.write("x")
        Keyboard.press("ctrl+z")
        self.wait_text("")
        self.orvane.click("Next day's note")
        self.wait_text("Today")


if __name__ == "__main__":
    main()
