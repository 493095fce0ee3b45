"""On a full disk the edit stays on show, the failure is told, and there is room again after a retry."""

import os
import subprocess
import sys

from harness import Keyboard, main, run, skip
from planner import SAVED, PlannerTest

MESSAGE = "Your changes are still in memory. Retry saving or export a backup. "


def with_mounts_of_our_own():
    """Runs the script again where its mounts are seen by nobody else and end with it."""
    if os.environ.get("ORVANE_OWN_MOUNTS"):
        return
    enter = ["unshare", "--mount", "--propagation", "private"]
    enter += [] if os.geteuid() == 0 else ["--map-root-user"]
    probe = subprocess.run([*enter, "mount", "-t", "tmpfs", "tmpfs", "/mnt"], capture_output=True, text=True,
                           check=False)
    if probe.returncode != 0:
        skip("mounting a small file system is not allowed here: " + probe.stderr.strip())
    os.environ["ORVANE_OWN_MOUNTS"] = "yes"
    os.execvp(enter[0], [*enter, sys.executable, "-B", *sys.argv])


def fill(folder):
    """Leaves no room on the folder's file system; removing "filler" gives it back."""
    with open(folder / "filler", "wb", buffering=0) as filler:
        try:
            while filler.write(b"x" * 4096):
                pass
        except OSError:
            pass


class SmallDisk(PlannerTest):
    """A planner with one stored task, on a small file system of its own."""

    def setUp(self):
        super().setUp()
        run("mount", "-t", "tmpfs", "-o", "size=2m,mode=0700", "tmpfs", str(self.home.data))
        self.addCleanup(run, "umount", "--lazy", str(self.home.data))
        self.orvane = self.started()
        self.orvane.open()
        self.orvane.focus_add_field()
        self.orvane.add("Before")
        self.orvane.wait_saved()
        self.orvane.wait_stored("Before")


class FullDisk(SmallDisk):
    def test_the_edit_is_kept_and_saved_once_there_is_room(self):
        fill(self.home.data)
        self.orvane.add("While full")
        self.orvane.wait_for("Not saved")
        self.orvane.wait_for(starting=MESSAGE)
        self.orvane.wait_titles("Before", "While full")
        self.assertEqual(["Before"], self.home.titles())

        self.orvane.click("Retry save")
        self.orvane.wait_for("Retry save")
        self.orvane.wait_titles("Before", "While full")

        (self.home.data / "filler").unlink()
        self.orvane.click("Retry save")
        self.orvane.wait_for(SAVED)
        self.orvane.wait_gone(starting=MESSAGE)
        self.orvane.wait_stored("Before", "While full")

    def test_quitting_asks_before_it_loses_the_edit(self):
        fill(self.home.data)
        self.orvane.add("While full")
        self.orvane.wait_for("Not saved")
        Keyboard.press("ctrl+q")
        self.orvane.wait_for("Some changes haven’t been saved.")
        self.orvane.click("Keep Open")
        self.orvane.wait_gone("Some changes haven’t been saved.")
        self.assertTrue(self.orvane.running())
        (self.home.data / "filler").unlink()
        self.assertEqual(0, self.orvane.terminate())
        self.assertEqual(["Before", "While full"], self.home.titles())


if __name__ == "__main__":
    with_mounts_of_our_own()
    main()
