"""The self-check reports in JSON, with and without a display, and leaves nothing behind."""

import json
import os
import random
import signal
import subprocess
import tempfile
import unittest
from pathlib import Path

from harness import SCREEN, main, program_path, wait_until

TOP = Path(__file__).resolve().parents[2]
KEYS = ["bundleID", "calendarAuthorization", "displays", "loginItemStatus", "notificationAuthorization",
        "permissionsRequested", "result", "sqliteReopen", "sqliteRoundTrip", "uiTested"]


class SelfCheck(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory(prefix="orvane-scratch-")
        self.addCleanup(scratch.cleanup)
        self.scratch = Path(scratch.name)

    def left_behind(self):
        """What the self-check has in the temporary folder; the toolkit may keep a folder of its own."""
        return list(self.scratch.glob("Orvane-*"))

    def start(self, command=None, **environment):
        kept = {**os.environ, "TMPDIR": str(self.scratch)}
        kept.update({name: value for name, value in environment.items() if value is not None})
        for name in [name for name, value in environment.items() if value is None]:
            kept.pop(name, None)
        return subprocess.Popen(command or [program_path(), "--self-check"], env=kept, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True)

    def report(self, process, quiet=True):
        """The report of a self-check that must pass."""
        out, err = process.communicate(timeout=120)
        self.assertEqual(0, process.returncode, err)
        if quiet:
            self.assertEqual("", err)
        self.assertEqual([], self.left_behind())
        report = json.loads(out)
        self.assertEqual(KEYS, list(report))
        self.assertEqual("PASS", report["result"])
        self.assertEqual((True, True, False, False), (report["sqliteRoundTrip"], report["sqliteReopen"],
                                                      report["uiTested"], report["permissionsRequested"]))
        return report

    def test_with_a_display_it_lists_it(self):
        displays = self.report(self.start())["displays"]
        self.assertEqual([{"width": SCREEN[0], "height": SCREEN[1], "scale": 1, "safeAreaTop": 0}], displays)

    def test_without_a_display_the_list_is_empty(self):
        self.assertEqual([], self.report(self.start(DISPLAY=None))["displays"])

    def test_with_a_display_that_does_not_answer_the_list_is_empty(self):
        self.assertEqual([], self.report(self.start(DISPLAY=":4711"), quiet=False)["displays"])

    def test_without_a_bus_and_without_a_home_it_passes(self):
        self.report(self.start(DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent", HOME="/nonexistent",
                               XDG_DATA_HOME="/proc/nonexistent", XDG_CONFIG_HOME="/proc/nonexistent",
                               XDG_RUNTIME_DIR=None), quiet=False)

    def test_two_at_once_do_not_disturb_each_other(self):
        processes = [self.start(), self.start()]
        answers = [process.communicate(timeout=120) for process in processes]
        for process, (out, err) in zip(processes, answers):
            self.assertEqual(0, process.returncode, err)
            self.assertEqual("PASS", json.loads(out)["result"])
        self.assertEqual([], self.left_behind())

    def test_nothing_stays_behind_after_a_sigterm_at_any_moment(self):
        caught = 0
        for _ in range(20):
            process = self.start()
            if random.random() < 0.7:
                wait_until(lambda: self.left_behind() or process.poll() is not None, "the scratch folder")
            process.send_signal(signal.SIGTERM)
            process.communicate(timeout=120)
            caught += process.returncode != 0
            self.assertEqual([], self.left_behind())
        self.assertGreater(caught, 0, "no signal arrived in time")

    def test_a_scratch_folder_that_cannot_be_made_is_a_failure(self):
        process = self.start(TMPDIR="/proc/nonexistent")
        out, err = process.communicate(timeout=120)
        self.assertEqual((1, ""), (process.returncode, out))
        self.assertTrue(err.startswith("Self-check failed: "), err)

    def test_it_works_among_other_arguments(self):
        self.report(self.start([program_path(), "--verbose", "--self-check"]))

    def test_through_the_run_command_only_the_report_is_on_standard_output(self):
        preset = Path(program_path()).parents[1].name
        if not (TOP / "build" / preset / "build.ninja").exists():
            self.skipTest("the program was not built in this tree")
        self.report(self.start([TOP / "tools" / "run", "--self-check"], ORVANE_PRESET=preset), quiet=False)


if __name__ == "__main__":
    main()
