"""The panel opens and closes as the pointer and the keyboard ask."""

from harness import SCREEN, Keyboard, Pointer, holds_for, main, run, wait_until
from planner import PlannerTest

OUTSIDE = (SCREEN[0] / 4, SCREEN[1] - 100)


class Panel(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()

    def closed(self):
        return self.orvane.find("Add something to do…") is None

    def test_the_strip_stands_at_the_top_centre_of_the_screen(self):
        left, top, width, _ = self.orvane.wait_for_strip().box()
        self.assertEqual(0, top)
        self.assertAlmostEqual(SCREEN[0] / 2, left + width / 2, delta=1)

    def test_hovering_over_the_strip_opens_the_panel(self):
        self.orvane.open()
        self.assertIsNotNone(self.orvane.find("Make room for today."))

    def test_a_quick_pass_over_the_strip_opens_nothing(self):
        x, y = self.orvane.wait_for_strip().centre()
        run("xdotool", "mousemove", str(x), str(y), "sleep", "0.04", "mousemove", str(x), "600")
        holds_for(self.closed, 0.7, "the strip stays closed")

    def test_leaving_the_open_panel_closes_it(self):
        self.orvane.open()
        Pointer.move(*OUTSIDE)
        self.orvane.wait_gone("Add something to do…")

    def test_a_panel_with_the_keyboard_stays_until_a_click_outside(self):
        self.orvane.open()
        self.orvane.focus_add_field()
        Pointer.move(*OUTSIDE)
        holds_for(lambda: not self.closed(), 0.9, "the panel that is being typed into stays open")
        Pointer.click(*OUTSIDE)
        self.orvane.wait_gone("Add something to do…")

    def test_escape_closes_the_panel(self):
        self.orvane.open()
        self.orvane.focus_add_field()
        Keyboard.press("Escape")
        self.orvane.wait_gone("Add something to do…")

    def test_the_cross_closes_the_panel(self):
        self.orvane.open()
        self.orvane.click("Close workspace")
        self.orvane.wait_gone("Add something to do…")

    def test_assistive_technology_opens_the_panel_without_a_pointer(self):
        self.orvane.wait_for_strip().press()
        self.orvane.add_field()

    def test_control_q_quits(self):
        self.orvane.open()
        self.orvane.focus_add_field()
        Keyboard.press("ctrl+q")
        wait_until(lambda: not self.orvane.running(), "the program to end")
        self.assertEqual(0, self.orvane.process.returncode)


if __name__ == "__main__":
    main()
