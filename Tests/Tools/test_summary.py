"""The last lines of a test run tell the truth about it."""

import subprocess
import tempfile
import unittest
from pathlib import Path

SUMMARY = Path(__file__).resolve().parents[2] / "tools" / "lib" / "summary.py"

PASSED = '<testcase name="Adds" status="run"><system-out>fine</system-out></testcase>'
FAILED = '<testcase name="Saves" status="fail"><failure message=""/><system-out>broken</system-out></testcase>'
SKIPPED = ('<testcase name="Mounts" status="notrun"><skipped message="SKIP_RETURN_CODE=77"/>'
           "<system-out>Skipped: mounting is not allowed here</system-out></testcase>")
NOT_RUN = '<testcase name="Missing" status="notrun"><system-out/></testcase>'
SKIPPED_INSIDE = ('<testcase name="ScreenTests" status="run">'
                  "<system-out>PASS   : A()\nSKIP   : B() no second screen\n</system-out></testcase>")


def summary(cases, fuzz=""):
    """Exit status and lines printed for a report with these cases."""
    with tempfile.TemporaryDirectory() as folder:
        if cases is not None:
            (Path(folder) / "dev.xml").write_text(f'<?xml version="1.0"?><testsuite>{cases}</testsuite>')
        if fuzz:
            (Path(folder) / "fuzz.txt").write_text(fuzz)
        done = subprocess.run(["/usr/bin/python3", SUMMARY, folder], capture_output=True, text=True, check=False)
        return done.returncode, done.stdout.splitlines()


class Summary(unittest.TestCase):
    def test_all_passed(self):
        self.assertEqual((0, ["2 passed, 0 failed"]), summary(PASSED * 2))

    def test_a_failure_is_named_and_fails_the_run(self):
        self.assertEqual((1, ["failed Saves (dev)", "1 passed, 1 failed"]), summary(PASSED + FAILED))

    def test_a_skipped_test_is_named_with_its_reason_and_counts_as_neither(self):
        self.assertEqual((0, ["skipped Mounts (dev): mounting is not allowed here", "1 passed, 0 failed"]),
                         summary(PASSED + SKIPPED))

    def test_a_case_skipped_inside_a_passing_program_is_named(self):
        self.assertEqual((0, ["skipped inside ScreenTests (dev): B() no second screen", "1 passed, 0 failed"]),
                         summary(SKIPPED_INSIDE))

    def test_a_test_that_could_not_be_started_failed(self):
        self.assertEqual((1, ["failed Missing (dev)", "1 passed, 1 failed"]), summary(PASSED + NOT_RUN))

    def test_a_run_without_any_test_is_no_success(self):
        self.assertEqual((1, ["0 passed, 0 failed"]), summary(None))
        self.assertEqual(1, summary(SKIPPED)[0])

    def test_fuzz_targets_count_as_tests(self):
        self.assertEqual((1, ["failed fuzzing: FuzzB", "2 passed, 1 failed"]),
                         summary(PASSED, "passed fuzzing: FuzzA\nfailed fuzzing: FuzzB\n"))


if __name__ == "__main__":
    unittest.main()
