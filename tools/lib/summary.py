"""Prints the outcome of the test runs whose reports lie in a folder: skipped tests with their reason,
failed tests by name, and as the last line "N passed, N failed". Exits with 1 unless everything passed
and at least one test ran."""

import re
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

# What a test says when it skips itself: GoogleTest's message block, a Qt Test line, a script's own.
SKIP_REASONS = (
    re.compile(r"^SKIP\s*:\s*(?P<reason>.+(?:\n\s*Loc:.*)?)", re.MULTILINE),
    re.compile(r"^Skipped:\s*(?P<reason>.+)", re.MULTILINE | re.IGNORECASE),
    re.compile(r": Skipped\n(?P<reason>.+)", re.MULTILINE),
)


def reason_of(output):
    """The reason that a skipped test printed."""
    for pattern in SKIP_REASONS:
        found = pattern.search(output)
        if found:
            return " ".join(found.group("reason").split())
    return "no reason given"


def skips_inside(output):
    """The cases that a Qt Test program skipped although the program as a whole passed."""
    return [" ".join(line.split()) for line in re.findall(r"^SKIP\s*:\s*(.+)$", output, re.MULTILINE)]


def read_junit(path):
    """Yields (name, outcome, output) for each test of a CTest report."""
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        output = case.findtext("system-out") or ""
        outcome = {"run": "passed", "fail": "failed", "notrun": "skipped", "disabled": "skipped"}.get(
            case.get("status"), "failed")
        if case.get("status") == "notrun" and case.find("skipped") is None:
            outcome = "failed"
        yield case.get("name"), outcome, output


def main(folder):
    passed, failed = 0, []
    for report in sorted(Path(folder).glob("*.xml")):
        suite = report.stem
        for name, outcome, output in read_junit(report):
            if outcome == "passed":
                passed += 1
                for inside in skips_inside(output):
                    print(f"skipped inside {name} ({suite}): {inside}")
            elif outcome == "skipped":
                print(f"skipped {name} ({suite}): {reason_of(output)}")
            else:
                failed.append(f"{name} ({suite})")
    fuzz = Path(folder) / "fuzz.txt"
    for line in fuzz.read_text().splitlines() if fuzz.exists() else []:
        if line.startswith("passed"):
            passed += 1
        else:
            failed.append(line.removeprefix("failed "))
    for name in failed:
        print(f"failed {name}")
    print(f"{passed} passed, {len(failed)} failed")
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
