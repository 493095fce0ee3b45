"""The hot key opens the panel from another program and gives the keyboard back afterwards."""

import contextlib
import ctypes
from pathlib import Path

from harness import Keyboard, Pointer, main, run, wait_until
from planner import PlannerTest


class HotKey(PlannerTest):
    def test_it_opens_the_panel_from_another_window_with_the_keyboard_in_the_add_field(self):
        orvane = self.started()
        folder = self.terminal()
        Keyboard.press("alt+n")
        wait_until(lambda: orvane.add_field().has("focused"), "the keyboard in the add field")
        orvane.add("From elsewhere")
        orvane.wait_stored("From elsewhere")
        Keyboard.press("Escape")
        orvane.wait_gone("Add something to do…")

        def touched():
            Keyboard.type("touch back\n")
            return Path(folder, "back").exists()
        wait_until(touched, "the keyboard to be the terminal's again")

    def test_a_panel_it_opened_stays_when_the_pointer_is_elsewhere(self):
        orvane = self.started()
        Keyboard.press("alt+n")
        orvane.add_field()
        Pointer.move(100, 900)
        orvane.add("Still here")
        Pointer.click(100, 900)
        orvane.wait_gone("Add something to do…")

    def test_a_combination_that_is_taken_is_told_and_hovering_still_opens(self):
        with grabbed_alt_n():
            orvane = self.started()
            orvane.open()
            orvane.wait_for("Option–N is already in use. Open Orvane from the menu bar.")
            orvane.click("Dismiss message")
            orvane.wait_gone("Option–N is already in use. Open Orvane from the menu bar.")


@contextlib.contextmanager
def grabbed_alt_n():
    """Owns Alt+N on the display as another program would."""
    xlib = ctypes.CDLL("libX11.so.6")
    xlib.XOpenDisplay.restype = display_type = ctypes.c_void_p
    xlib.XDefaultRootWindow.restype = ctypes.c_ulong
    xlib.XDefaultRootWindow.argtypes = xlib.XCloseDisplay.argtypes = [display_type]
    xlib.XKeysymToKeycode.argtypes = [display_type, ctypes.c_ulong]
    xlib.XKeysymToKeycode.restype = ctypes.c_ubyte
    xlib.XGrabKey.argtypes = [display_type, ctypes.c_int, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int,
                              ctypes.c_int, ctypes.c_int]
    xlib.XSync.argtypes = [display_type, ctypes.c_int]
    display = xlib.XOpenDisplay(None)
    alt, asynchronous = 1 << 3, 1
    xlib.XGrabKey(display, xlib.XKeysymToKeycode(display, ord("n")), alt, xlib.XDefaultRootWindow(display), 0,
                  asynchronous, asynchronous)
    xlib.XSync(display, 0)
    try:
        yield
    finally:
        xlib.XCloseDisplay(display)


if __name__ == "__main__":
    main()
