"""Where no window manager runs, the Dashboard brings what a title bar would hold."""

from harness import SCREEN, Pointer, main, wait_until
from planner import PlannerTest


class Undecorated(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.open_dashboard()
        self.orvane.wait_for("Maximize", role="push button")

    def open_dashboard(self):
        """By the panel; while the planner is still being opened the strip leads there at once."""
        self.orvane.wait_for_strip().press()
        wait_until(lambda: self.orvane.find("Open dashboard") or self.orvane.dashboard_shows(),
                   "the panel or the Dashboard")
        if not self.orvane.dashboard_shows():
            self.orvane.wait_for("Open dashboard").press()

    def frame(self):
        """Where the Dashboard's window is, by its sidebar's tab."""
        left, top, _, _ = self.orvane.wait_for("Today", role="page tab").box()
        return left, top

    def test_its_buttons_close_it(self):
        for name in ("Minimize", "Close"):
            self.orvane.wait_for(name, role="push button").press()
            wait_until(lambda: not self.orvane.dashboard_shows(), "the Dashboard to go")
            self.open_dashboard()
            self.orvane.wait_for(name, role="push button")

    def test_it_fills_the_screen_and_goes_back(self):
        before = self.frame()
        self.orvane.wait_for("Maximize").press()
        wait_until(lambda: self.frame() == (12, 56), "the window to fill the screen")
        self.orvane.wait_for("Maximize").press()
        wait_until(lambda: self.frame() == before, "the window to go back")

    def test_its_band_moves_it(self):
        left, top = self.frame()
        Pointer.drag((SCREEN[0] / 2, top - 30), (SCREEN[0] / 2 + 60, top + 10))
        wait_until(lambda: self.frame() == (left + 60, top + 40), "the window to follow the pointer")


if __name__ == "__main__":
    main(window_manager=False)
