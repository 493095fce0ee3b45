"""Where no window manager runs, the panel still stands on top, is typed into and gives the keyboard back."""

from pathlib import Path

from harness import SCREEN, Keyboard, Pointer, main, run, spawn, wait_until
from planner import PlannerTest

OUTSIDE = (SCREEN[0] / 4, SCREEN[1] - 100)


class NoWindowManager(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()

    def terminal(self, geometry="60x10+100+600"):
        """A shell in the home's folder; gives its window."""
        process = spawn(["xterm", "-geometry", geometry, "-e", "bash", "--norc"], cwd=self.home.folder)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return wait_until(lambda: run("xdotool", "search", "--onlyvisible", "--class", "xterm", check=False).split(),
                          "the terminal's window")[0]

    def assert_typing_reaches_the_terminal(self):
        def touched():
            Keyboard.type("touch back\n")
            return Path(self.home.folder, "back").exists()
        wait_until(touched, "the keyboard to be the terminal's again")

    def test_the_strip_stands_at_the_top_centre_of_the_screen(self):
        left, top, width, _ = self.orvane.wait_for_strip().box()
        self.assertEqual(0, top)
        self.assertAlmostEqual(SCREEN[0] / 2, left + width / 2, delta=1)

    def test_hovering_opens_the_panel_and_leaving_closes_it(self):
        self.orvane.open()
        Pointer.move(*OUTSIDE)
        self.orvane.wait_gone("Add something to do…")

    def test_a_task_is_typed_into_the_hovered_panel(self):
        self.orvane.open()
        self.orvane.focus_add_field()
        self.orvane.add("Alone on the display")
        self.orvane.wait_stored("Alone on the display")

    def test_escape_gives_the_keyboard_back_to_the_window_that_had_it(self):
        run("xdotool", "windowfocus", "--sync", self.terminal())
        self.orvane.open()
        self.orvane.focus_add_field()
        self.orvane.add("Then away")
        Keyboard.press("Escape")
        self.orvane.wait_gone("Add something to do…")
        self.assert_typing_reaches_the_terminal()

    def test_escape_gives_the_keyboard_back_to_whatever_is_under_the_pointer(self):
        # What a display begins with when nobody hands the keyboard out.
        run("xdotool", "windowfocus", "1", check=False)
        self.terminal()
        Keyboard.press("alt+n")
        wait_until(lambda: self.orvane.add_field().has("focused"), "the keyboard in the add field")
        self.orvane.add("Then away")
        Keyboard.press("Escape")
        self.orvane.wait_gone("Add something to do…")
        Pointer.move(200, 650)
        self.assert_typing_reaches_the_terminal()

    def test_a_click_outside_closes_the_panel_that_is_typed_into(self):
        self.orvane.open()
        self.orvane.focus_add_field()
        Pointer.click(*OUTSIDE)
        self.orvane.wait_gone("Add something to do…")

    def test_a_window_that_comes_later_does_not_keep_the_panel_from_opening_above_it(self):
        self.terminal("200x40+300+0")
        Keyboard.press("alt+n")
        self.orvane.focus_add_field()
        self.orvane.add("Above the terminal")
        self.orvane.wait_stored("Above the terminal")


if __name__ == "__main__":
    main(window_manager=None)
