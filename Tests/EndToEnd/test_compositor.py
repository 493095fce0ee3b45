"""The panel's round corners: smooth where a compositor blends them, cut where none does, also when one comes
or goes while the program runs."""

import ctypes
import subprocess

from harness import main, run, spawn, wait_until
from planner import PlannerTest


def background():
    """The desktop's own colour; a compositor may have another idea of it than the display."""
    return colours(4, 900, 1, 1).pop()


def colours(left, top, width, height):
    """The set of colours in a rectangle of the display."""
    command = ["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-"]
    data = subprocess.run(command, capture_output=True, check=True).stdout
    return {tuple(data[i:i + 3]) for i in range(0, len(data), 3)}


def compositing():
    """Whether a compositor has the display's selection for it."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = x11.XGetSelectionOwner.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    owner = x11.XGetSelectionOwner(display, ctypes.c_ulong(x11.XInternAtom(display, b"_NET_WM_CM_S0", 0)))
    x11.XCloseDisplay(display)
    return owner != 0


class Compositor(PlannerTest):
    def setUp(self):
        super().setUp()
        run("xsetroot", "-solid", "#b8c3b1")

    def begin_compositor(self):
        compositor = spawn(["picom", "--backend", "xrender", "--config", "/dev/null"])
        self.addCleanup(compositor.wait)
        self.addCleanup(compositor.terminate)
        wait_until(compositing, "the compositor")
        return compositor

    def open_panel(self):
        orvane = self.started()
        orvane.open()
        orvane.focus_add_field()
        return orvane

    def wait_corner(self, orvane, condition, what):
        """Waits until the colours around the panel's lower left corner fulfil `condition`."""
        left, top, _, height = orvane.wait_for("Orvane", role="frame").box()
        # The body stands 12 pixels inside the window.
        wait_until(lambda: condition(colours(left + 12, top + height - 24, 24, 24)), what)

    @staticmethod
    def smooth(found):
        """Blended: the background, the body, and several colours between the two."""
        behind = background()
        between = [colour for colour in found if all(0x28 < part < whole - 8
                                                     for part, whole in zip(colour, behind))]
        return behind in found and len(between) >= 4

    @staticmethod
    def cut(found):
        """Not blended: the background shows beside the body, and nothing between the two."""
        behind = background()
        return behind in found and all(sum(colour) < 3 * 0x30 for colour in found - {behind})

    def test_corners_are_smooth_under_a_compositor(self):
        self.begin_compositor()
        orvane = self.open_panel()
        self.wait_corner(orvane, self.smooth, "smooth corners")

    def test_corners_follow_a_compositor_that_comes_and_goes(self):
        orvane = self.open_panel()
        self.wait_corner(orvane, self.cut, "cut corners")
        compositor = self.begin_compositor()
        self.wait_corner(orvane, self.smooth, "smooth corners with the compositor")
        compositor.terminate()
        self.wait_corner(orvane, self.cut, "cut corners without it")

    def test_beside_the_panel_the_desktop_shows_through(self):
        self.begin_compositor()
        orvane = self.open_panel()
        left, top, width, height = orvane.wait_for("Orvane", role="frame").box()
        behind = {background()}
        wait_until(lambda: colours(left, top + 100, 11, height - 140) == behind, "nothing at the left")
        wait_until(lambda: colours(left + width - 11, top + 100, 11, height - 140) == behind, "nothing at the right")


if __name__ == "__main__":
    main()
