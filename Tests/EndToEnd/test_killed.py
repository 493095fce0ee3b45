"""Whatever was reported as saved is there after the program was killed without warning."""

import os
import random
import threading

from gi.repository import GLib

from harness import Keyboard, main
from planner import SAVED, PlannerTest

ROUNDS = 6


class Killed(PlannerTest):
    def test_killed_at_any_moment_it_keeps_what_it_reported_as_saved(self):
        seed = int(os.environ.get("ORVANE_SEED") or random.randrange(1 << 32))
        print("seed", seed)
        chance = random.Random(seed)
        reported = set()
        for attempt in range(ROUNDS):
            orvane = self.started()
            orvane.open()
            orvane.focus_add_field()
            killer = threading.Timer(chance.uniform(0.5, 6), orvane.process.kill)
            killer.start()
            reported |= self.drive_until_killed(orvane, attempt)
            killer.join()
            orvane.kill()
        again = self.started()
        again.open()
        self.assertTrue(reported, "nothing was ever reported as saved")
        self.assertLessEqual(reported, set(self.home.titles()))

    def drive_until_killed(self, orvane, attempt):
        """Adds tasks until the program is gone; gives the titles that showed before it said that all is
        saved."""
        reported = set()
        number = 0
        while orvane.running():
            Keyboard.type(f"{attempt}-{number}")
            Keyboard.press("Return")
            number += 1
            try:
                shown = orvane.shown_titles()
                if orvane.find(SAVED):
                    reported |= set(shown)
            except GLib.Error:
                continue  # killed while it was being looked at
        return reported


if __name__ == "__main__":
    main()
