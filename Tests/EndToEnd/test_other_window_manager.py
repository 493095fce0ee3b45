"""What the panel does under one window manager it does under another with rules of its own."""

import shutil

import harness
from harness import skip
from test_hot_key import HotKey  # noqa: F401
from test_panel import Panel  # noqa: F401
from test_stacking import Stacking  # noqa: F401

if __name__ == "__main__":
    if not shutil.which("xfwm4"):
        skip("xfwm4 is not installed")
    harness.main(("xfwm4", "--compositor=off"))
