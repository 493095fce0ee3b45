"""Installing says what it installs, and asks nothing of apt when everything is there."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

LIB = Path(__file__).resolve().parents[2] / "tools" / "lib"

DPKG_QUERY = """#!/bin/sh
shift 2
for package; do case " $INSTALLED " in *" $package "*) echo "installed $package";; esac; done
"""
APT_GET = """#!/bin/sh
echo "$DEBIAN_FRONTEND $*" >> "$CALLS"
exit ${APT_STATUS:-0}
"""


class Install(unittest.TestCase):
    def install(self, wanted, installed, apt_status=0):
        """Runs install_missing over stand-ins; gives status, apt's calls and what was said."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in (("dpkg-query", DPKG_QUERY), ("apt-get", APT_GET), ("sudo", '#!/bin/sh\nexec "$@"\n')):
                file = Path(folder) / name
                file.write_text(text)
                file.chmod(0o755)
            calls = Path(folder) / "calls"
            calls.touch()
            environment = {**os.environ, "PATH": f"{folder}:/usr/bin:/bin", "INSTALLED": installed,
                           "CALLS": str(calls), "APT_STATUS": str(apt_status)}
            done = subprocess.run(["bash", "-c", f"source {LIB}/install.sh; install_missing {wanted}"],
                                  env=environment, capture_output=True, text=True, check=False)
            self.assertEqual("", done.stdout)
            return done.returncode, calls.read_text().splitlines(), done.stderr

    def test_nothing_is_asked_of_apt_when_all_is_there(self):
        self.assertEqual((0, [], ""), self.install("one two", "one two"))

    def test_only_what_is_missing_is_installed_after_saying_so(self):
        status, calls, said = self.install("one two three", "two")
        self.assertEqual(0, status)
        self.assertEqual(["noninteractive update -q",
                          "noninteractive install -y -q --no-install-recommends one three"], calls)
        self.assertIn("Installing 2 Debian packages: one three", said)

    def test_a_failing_apt_is_a_failure(self):
        status, calls, _ = self.install("one", "", apt_status=100)
        self.assertNotEqual(0, status)
        self.assertEqual(1, len(calls))

    def test_every_package_is_listed_once(self):
        done = subprocess.run(["bash", "-c", f'source {LIB}/packages.sh; echo "${{build_packages[@]}}" '
                               '"${run_packages[@]}" "${drive_packages[@]}" "${test_packages[@]}" '
                               '"${sanitizer_packages[@]}"'], capture_output=True, text=True, check=True)
        packages = done.stdout.split()
        self.assertGreater(len(packages), 20)
        self.assertEqual(sorted(set(packages)), sorted(packages))


if __name__ == "__main__":
    unittest.main()
