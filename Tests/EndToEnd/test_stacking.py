"""The open panel stands above what comes later, docks and full-screen windows included; the strip gives
way to a full-screen window."""

import re

from harness import SCREEN, Keyboard, Pointer, holds_for, main, run, spawn, wait_until
from planner import PlannerTest

STRIP = (SCREEN[0] / 2, 10)


class Stacking(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()

    def terminal(self):
        process = spawn(["xterm", "-geometry", "60x10+100+600", "-e", "sleep", "600"])
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return wait_until(lambda: run("xdotool", "search", "--onlyvisible", "--class", "xterm", check=False).split(),
                          "the terminal's window")[0]

    def full_screen(self):
        window = self.terminal()
        run("xdotool", "windowactivate", "--sync", window)
        run("wmctrl", "-i", "-r", window, "-b", "add,fullscreen")
        wait_until(lambda: f"Width: {SCREEN[0]}" in run("xwininfo", "-id", window), "the full-screen window")
        return window

    def dock(self):
        """A bar across the upper edge that is mapped now."""
        window = self.terminal()
        run("xdotool", "windowunmap", "--sync", window)
        run("xprop", "-id", window, "-f", "_NET_WM_WINDOW_TYPE", "32a", "-set", "_NET_WM_WINDOW_TYPE",
            "_NET_WM_WINDOW_TYPE_DOCK")
        run("xdotool", "windowsize", window, str(SCREEN[0]), "300", "windowmove", window, "0", "0")
        run("xdotool", "windowmap", "--sync", window)
        wait_until(lambda: self.covers_the_upper_edge(window), "the dock along the upper edge")
        return window

    @staticmethod
    def covers_the_upper_edge(window):
        report = run("xwininfo", "-id", window)
        left, top, width, height = (
            int(re.search(rf"{name}: +(-?\d+)", report).group(1))
            for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        # A terminal's size is a whole number of characters.
        return "IsViewable" in report and left <= 0 and top <= 0 and width > SCREEN[0] - 40 and height > 250

    def assert_pressing_reaches_the_panel(self):
        self.orvane.click("Close workspace")
        self.orvane.wait_gone("Add something to do…")

    def test_a_dock_that_comes_later_does_not_cover_the_open_panel(self):
        Keyboard.press("alt+n")
        self.orvane.add_field()
        self.dock()
        # The panel answers at most every 300 ms.
        holds_for(lambda: self.orvane.find("Close workspace") is not None, 0.7, "the panel stays open")
        self.assert_pressing_reaches_the_panel()

    def test_the_panel_opens_above_a_dock_that_came_after_the_strip(self):
        self.dock()
        Keyboard.press("alt+n")
        self.orvane.add_field()
        self.assert_pressing_reaches_the_panel()

    def test_the_strip_stands_below_a_full_screen_window(self):
        self.full_screen()
        Pointer.move(STRIP[0], 800)
        Pointer.move(*STRIP)
        holds_for(lambda: self.orvane.find("Add something to do…") is None, 0.9,
                  "the covered strip does not open")

    def test_the_open_panel_stands_above_a_full_screen_window_and_leaves_it_below_again(self):
        self.full_screen()
        Keyboard.press("alt+n")
        wait_until(lambda: self.orvane.add_field().has("focused"), "the keyboard in the add field")
        self.orvane.add("Above all")
        self.assert_pressing_reaches_the_panel()
        Pointer.move(STRIP[0], 800)
        Pointer.move(*STRIP)
        holds_for(lambda: self.orvane.find("Add something to do…") is None, 0.9,
                  "the covered strip does not open")


if __name__ == "__main__":
    main()
