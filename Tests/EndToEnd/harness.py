"""A desktop of its own for one test script: a virtual display with a window manager, a session bus with
its accessibility bus, and scratch folders in place of the user's. Nothing of the machine's own session is
read or written.

The desktop lives as long as the script; every test starts the program in a home of its own."""

import atexit
import ctypes
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
SKIPPED = 77
DEADLINE = 30.0
SCREEN = (1920, 1080)
OPENBOX = ("openbox", "--sm-disable")


def wait_until(condition, what, deadline=DEADLINE):
    """Polls `condition` until it gives something true and returns that; fails naming `what` it waited
    for."""
    end = time.monotonic() + deadline
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"waited {deadline:.0f} s in vain for {what}")
        time.sleep(0.02)


def holds_for(condition, seconds, what):
    """Watches that `condition` stays true for a while: how to show that something does not happen."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if not condition():
            raise AssertionError(f"did not last {seconds} s: {what}")
        time.sleep(0.02)


def die_with_parent():
    """Run in a child before exec: it ends when this script does, however that happens."""
    ctypes.CDLL(None).prctl(1, signal.SIGTERM)


def spawn(command, **options):
    """Starts a process that does not outlive this script."""
    return subprocess.Popen(command, preexec_fn=die_with_parent, **options)


class Desktop:
    """The virtual display, window manager and buses. Its environment is this process's own, so that the
    accessibility client here and every program started later share it."""

    def __init__(self, window_manager=OPENBOX):
        self.folder = Path(tempfile.mkdtemp(prefix="orvane-desktop-"))
        atexit.register(self.close)
        self.processes = []
        self._use_environment()
        self._start_display()
        self._start_bus()
        if window_manager:
            self._start(list(window_manager))
            wait_until(self._managed, "the window manager")

    def _use_environment(self):
        for name in list(os.environ):
            if name.startswith(("XDG_", "DBUS_", "QT_", "GTK_", "WAYLAND_", "AT_SPI_", "DISPLAY", "XAUTHORITY")):
                del os.environ[name]
        folders = {"HOME": "home", "XDG_DATA_HOME": "data", "XDG_CONFIG_HOME": "config",
                   "XDG_CACHE_HOME": "cache", "XDG_STATE_HOME": "state", "XDG_RUNTIME_DIR": "run"}
        for name, folder in folders.items():
            (self.folder / folder).mkdir(mode=0o700)
            os.environ[name] = str(self.folder / folder)
        os.environ.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8", TZ="Europe/Berlin",
                          NO_AT_BRIDGE="0")

    def _start(self, command, **options):
        log = open(self.folder / (Path(command[0]).name + ".log"), "ab")
        process = spawn(command, stdin=subprocess.DEVNULL, stderr=log,
                        **({"stdout": log} | options))
        self.processes.append(process)
        return process

    def _start_display(self):
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SCREEN[0]}x{SCREEN[1]}x24",
                     "-nolisten", "tcp", "-noreset"], pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("the virtual display did not start: " + self._log("Xvfb"))
        os.environ["DISPLAY"] = ":" + number

    def _start_bus(self):
        bus = self._start(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE,
                          text=True, start_new_session=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def _log(self, name):
        return (self.folder / (name + ".log")).read_text(errors="replace")

    @staticmethod
    def _managed():
        answer = run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK", check=False)
        return "window id" in answer

    def close(self):
        for process in reversed(self.processes):
            if process.args[0] == "dbus-daemon":
                try:
                    os.killpg(process.pid, signal.SIGTERM)  # with what the bus started
                except ProcessLookupError:
                    pass
            process.terminate()
            try:
                process.wait(timeout=5)
            except subprocess.TimeoutExpired:
                process.kill()  # some window managers never answer once their bus is in trouble
                process.wait()
        self.processes = []
        shutil.rmtree(self.folder, ignore_errors=True)


def run(*command, check=True, timeout=60):
    """Runs a command and returns what it printed."""
    done = subprocess.run(command, capture_output=True, text=True, timeout=timeout, check=False)
    if check and done.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))} ended with {done.returncode}: {done.stderr}")
    return done.stdout


def screenshot(path):
    """Writes a picture of the whole display."""
    run("import", "-window", "root", str(path))


def pixel(x, y):
    """The colour of one pixel of the display, as "#RRGGBB"."""
    answer = run("import", "-window", "root", "-crop", f"1x1+{round(x)}+{round(y)}", "-depth", "8", "txt:-")
    return re.search(r"#[0-9A-F]{6}", answer).group(0)


def screenshot_at_rest(path):
    """Writes a picture of the display once two in a row are the same (a caret may go on blinking: then
    the last one stays)."""
    path = Path(path)
    before = None
    for _ in range(15):
        screenshot(path)
        now = path.read_bytes()
        if now == before:
            return
        before = now
        time.sleep(0.1)


class Pointer:
    """The pointer, in pixels of the display."""

    @staticmethod
    def move(x, y):
        run("xdotool", "mousemove", str(round(x)), str(round(y)))

    @classmethod
    def click(cls, x, y, times=1, button=1):
        cls.move(x, y)
        run("xdotool", "click", "--repeat", str(times), "--delay", "60", str(button))

    @classmethod
    def drag(cls, start, end, steps=12):
        """Presses at `start`, moves to `end` as a hand would, and lets go there."""
        cls.move(*start)
        run("xdotool", "mousedown", "1")
        for step in range(1, steps + 1):
            cls.move(*(a + (b - a) * step / steps for a, b in zip(start, end)))
            time.sleep(0.02)
        run("xdotool", "mouseup", "1")


class Keyboard:
    @staticmethod
    def press(*keys):
        """Presses each key or combination ("ctrl+q"), in xdotool's names."""
        run("xdotool", "key", "--delay", "30", *keys)

    @staticmethod
    def type(text):
        run("xdotool", "type", "--delay", "15", text)


def program_path():
    """The program under test, which the environment names."""
    path = os.environ.get("ORVANE_PROGRAM")
    if not path:
        raise SystemExit("set ORVANE_PROGRAM to the orvane to test")
    return str(Path(path).resolve())


def skip(reason):
    """Ends the script as skipped."""
    print(f"Skipped: {reason}")
    sys.exit(SKIPPED)


def as_other_user(reason_to_skip="switching to another user needs root"):
    """Makes the rest of the script run as a user whom permissions bind. Does nothing for one already;
    root runs the script again as nobody, from a copy that nobody can read, and exits with its status."""
    if os.geteuid() != 0:
        return
    if not shutil.which("setpriv"):
        skip(reason_to_skip)
    with tempfile.TemporaryDirectory(prefix="orvane-nobody-") as folder:
        os.chmod(folder, 0o755)
        copies = Path(folder) / "scripts"
        shutil.copytree(HERE, copies, ignore=shutil.ignore_patterns("__pycache__"))
        program = shutil.copy(program_path(), Path(folder) / "orvane")
        run("chmod", "-R", "a+rX", folder)
        environment = {**os.environ, "ORVANE_PROGRAM": str(program), "TMPDIR": "/tmp"}
        status = subprocess.run(["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups", sys.executable,
                                 "-B", str(copies / Path(sys.argv[0]).name), *sys.argv[1:]],
                                env=environment, cwd=folder, check=False).returncode
    sys.exit(status)


def main(window_manager=OPENBOX):
    """Starts the desktop, with this command as its window manager or none for None, and runs the script's
    tests; exits with 77 when all of them were skipped."""
    Desktop(window_manager)
    outcome = unittest.main(exit=False, verbosity=2).result
    for test, reason in outcome.skipped:
        print(f"Skipped: {test.id()}: {reason}")
    if not outcome.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if outcome.skipped and len(outcome.skipped) == outcome.testsRun else 0)
