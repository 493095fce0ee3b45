"""On several monitors the panel stands on the chosen one, and on another while that one is away."""

from harness import SCREEN, main, run, wait_until
from planner import PlannerTest

HALF = SCREEN[0] // 2


def display_id(output):
    """The id of a monitor that reports nothing of itself: FNV-1a of its output's name."""
    value = 2166136261
    for byte in output.encode():
        value = (value ^ byte) * 16777619 % 2**32
    return value


def split():
    """Cuts the display into two monitors; the real output belongs to the left one."""
    outputs = [line.split()[0] for line in run("xrandr").splitlines() if " connected" in line]
    run("xrandr", "--setmonitor", "LEFT", f"{HALF}/254x{SCREEN[1]}/286+0+0", outputs[0])
    add_right()


def add_right():
    run("xrandr", "--setmonitor", "RIGHT", f"{HALF}/254x{SCREEN[1]}/286+{HALF}+0", "none")


def join():
    for name in ("RIGHT", "LEFT"):
        if f" {name} " in run("xrandr", "--listmonitors") or f"*{name} " in run("xrandr", "--listmonitors"):
            run("xrandr", "--delmonitor", name)


class Monitors(PlannerTest):
    def setUp(self):
        super().setUp()
        self.addCleanup(join)

    def prefer(self, output):
        self.home.seed_preferences({"onboardingComplete": True, "displayID": display_id(output)})

    def wait_centred_at(self, orvane, middle):
        def there():
            left, top, width, _ = orvane.wait_for_strip().box()
            return top == 0 and abs(left + width / 2 - middle) <= 1
        wait_until(there, f"the strip to be centred at {middle}", deadline=10)

    def test_the_strip_stands_on_the_chosen_monitor(self):
        split()
        self.prefer("RIGHT")
        self.wait_centred_at(self.started(), HALF * 3 / 2)

    def test_without_a_choice_it_stands_on_the_first_one(self):
        split()
        self.wait_centred_at(self.started(), HALF / 2)

    def test_a_choice_that_is_not_there_falls_back_to_the_first_one(self):
        split()
        self.prefer("ELSEWHERE")
        self.wait_centred_at(self.started(), HALF / 2)

    def test_it_moves_when_the_chosen_monitor_goes_and_back_when_it_comes(self):
        split()
        self.prefer("RIGHT")
        orvane = self.started()
        self.wait_centred_at(orvane, HALF * 3 / 2)
        run("xrandr", "--delmonitor", "RIGHT")
        self.wait_centred_at(orvane, HALF / 2)
        add_right()
        self.wait_centred_at(orvane, HALF * 3 / 2)

    def test_the_panel_opens_on_the_monitor_it_moved_to(self):
        split()
        self.prefer("RIGHT")
        orvane = self.started()
        self.wait_centred_at(orvane, HALF * 3 / 2)
        left, _, width, _ = orvane.open().box()
        self.assertGreaterEqual(left, HALF)
        self.assertLessEqual(left + width, SCREEN[0])


if __name__ == "__main__":
    main()
