"""One planner has one program: a second start shows the first one's Dashboard or gives up."""

import subprocess

from harness import main, program_path, wait_until
from planner import Home, PlannerTest


class SecondStart(PlannerTest):
    def setUp(self):
        super().setUp()
        self.first = self.started()
        self.first.open()
        self.first.focus_add_field()
        self.first.add("Mine")
        self.first.wait_stored("Mine")

    def second(self, environment):
        return subprocess.run([program_path()], env=environment, capture_output=True, text=True, timeout=60,
                              check=False)

    def test_it_shows_the_dashboard_of_the_first_and_ends(self):
        self.assertFalse(self.first.dashboard_shows())
        ended = self.second(self.home.environment())
        self.assertEqual((0, "", ""), (ended.returncode, ended.stdout, ended.stderr))
        wait_until(self.first.dashboard_shows, "the first program's Dashboard")

    def test_without_a_bus_it_ends_with_one_line_and_touches_nothing(self):
        before = self.home.store.read_bytes()
        environment = self.home.environment()
        environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        ended = self.second(environment)
        self.assertEqual((1, ""), (ended.returncode, ended.stdout))
        self.assertEqual(1, len(ended.stderr.splitlines()), ended.stderr)
        self.assertEqual(before, self.home.store.read_bytes())
        self.first.add("Still mine")
        self.first.wait_stored("Mine", "Still mine")

    def test_after_the_first_was_killed_the_planner_is_free(self):
        self.first.kill()
        again = self.started()
        again.open()
        again.wait_titles("Mine")

    def test_two_planners_of_two_sessions_live_side_by_side(self):
        other = Home()
        self.addCleanup(other.remove)
        environment = other.environment()
        environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent"
        second = self.start(home=other, environment=environment)
        wait_until(other.store.exists, "the other planner's store")
        self.assertTrue(second.running())
        self.assertEqual(["Mine"], self.home.titles())


if __name__ == "__main__":
    main()
