"""Quitting with changes that cannot be saved asks first, in front of everything, and does as answered."""

import os
from pathlib import Path

from harness import Keyboard, main, run, screenshot_at_rest, wait_until
from test_full_disk import SmallDisk, fill, with_mounts_of_our_own

QUESTION = "Some changes haven’t been saved."
INFORMATIVE = ("Keep Orvane open to retry or export a backup. Quitting now loses changes that are only in "
               "memory.")


class QuitGuard(SmallDisk):
    def setUp(self):
        super().setUp()
        fill(self.home.data)
        self.orvane.add("While full")
        self.orvane.wait_for("Not saved")

    def ask(self):
        Keyboard.press("ctrl+q")
        self.orvane.wait_for(QUESTION)
        wait_until(lambda: self.orvane.wait_for("Keep Open").has("focused"), "the keyboard in the question")

    def test_the_question_shows_with_both_answers(self):
        self.ask()
        self.orvane.wait_for(INFORMATIVE)
        self.orvane.wait_for("Quit Without Saving")
        self.orvane.wait_gone("Add something to do…")
        if folder := os.environ.get("ORVANE_PICTURES"):
            screenshot_at_rest(Path(folder) / "quit-guard.png")

    def test_return_keeps_the_program_open_with_the_change(self):
        self.ask()
        Keyboard.press("Return")
        self.orvane.wait_gone(QUESTION)
        self.assertTrue(self.orvane.running())
        self.orvane.open()
        self.orvane.wait_titles("Before", "While full")

    def test_escape_keeps_the_program_open(self):
        self.ask()
        Keyboard.press("Escape")
        self.orvane.wait_gone(QUESTION)
        self.orvane.wait_for_strip()
        self.assertTrue(self.orvane.running())

    def test_the_other_button_leaves_without_the_change(self):
        self.ask()
        self.orvane.click("Quit Without Saving")
        self.assertEqual(0, self.orvane.wait_for_end())
        self.assertEqual(["Before"], self.home.titles())

    def test_a_session_that_ends_asks_too(self):
        run("kill", "-TERM", str(self.orvane.pid))
        self.orvane.wait_for(QUESTION)
        self.assertTrue(self.orvane.running())


if __name__ == "__main__":
    with_mounts_of_our_own()
    main()
