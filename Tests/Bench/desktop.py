"""What the real program costs on a real display: start, opening, memory and rest, beside the empty window.

    desktop.py ORVANE EMPTY-WINDOW

A display, window manager, bus and home of its own; nothing of the machine's session is touched. Moments are
told from the display's pixels, read over and over in this process."""

import json
import os
import statistics
import sys
import threading
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "EndToEnd"))

from gi.repository import Gio, GLib  # noqa: E402  pylint: disable=wrong-import-position
from Xlib import X, XK, display  # noqa: E402  pylint: disable=wrong-import-position
from Xlib.ext import xtest  # noqa: E402  pylint: disable=wrong-import-position

from harness import SCREEN, Desktop, run, spawn  # noqa: E402  pylint: disable=wrong-import-position
from planner import Home  # noqa: E402  pylint: disable=wrong-import-position

ROOT = "#b8c3b1"
MIDDLE = SCREEN[0] // 2
PORTAL = """<node><interface name="org.freedesktop.portal.Settings">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal></interface></node>"""


class Portal:
    """A desktop that asks for no animations, so that the moments below are the program's own."""

    def __init__(self):
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()
        ready = threading.Event()
        Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", 0, self._export,
                         lambda *_: ready.set(), None)
        ready.wait(10)

    @staticmethod
    def _export(connection, _name):
        # The bus ends before this process does.
        connection.set_exit_on_close(False)
        interface = Gio.DBusNodeInfo.new_for_xml(PORTAL).interfaces[0]

        def answer(_connection, _sender, _path, _interface, _method, arguments, invocation):
            _group, key = arguments.unpack()
            if key != "enable-animations":
                invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", key)
                return
            value = GLib.Variant("v", GLib.Variant("b", False))
            invocation.return_value(GLib.Variant.new_tuple(GLib.Variant("v", value)))

        connection.register_object("/org/freedesktop/portal/desktop", interface, answer, None, None)


class Screen:
    """The display's pixels and keys, without a process for each."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root

    def pixels(self, x, y, width, height):
        return self.root.get_image(x, y, width, height, X.ZPixmap, 0xffffffff).data

    def wait(self, condition, what, deadline=20):
        """The moment at which `condition` became true."""
        end = time.monotonic() + deadline
        while not condition():
            if time.monotonic() > end:
                raise AssertionError("waited in vain for " + what)
        return time.monotonic()

    def press(self, *names):
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(name)) for name in names]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.flush()


def row(name, value, floor=None, reach="", unit="ms"):
    ratio = f"{value / floor:.2f}" if floor else ""
    print(f"{name:<44} {value:>9.1f} {f'{floor:.1f}' if floor else '':>9} {ratio:>6} {reach:>10}  {unit}")


def seed(home, count):
    """Fills the home's planner through the program's own format, by way of its store."""
    import sqlite3  # only here
    program = spawn([sys.argv[1]], env=home.environment())
    store = home.store

    def there():
        if not store.exists():
            return False
        connection = sqlite3.connect(store)
        try:
            return connection.execute("SELECT count(*) FROM sqlite_master WHERE name='PlannerRecord'").fetchone()[0]
        except sqlite3.Error:
            return False
        finally:
            connection.close()
    while not there():
        time.sleep(0.02)
    program.terminate()
    program.wait()
    connection = sqlite3.connect(store)
    rows = []
    for number in range(count):
        task_id = f"00000000-0000-4000-8000-{number:012X}"
        payload = json.dumps({"createdAt": number, "id": task_id, "order": number,
                              "title": f"A task whose title is about as long as usual, number {number}"},
                             separators=(",", ":"), sort_keys=True)
        rows.append((f"task-{task_id}", "task", payload.encode()))
    connection.executemany("INSERT INTO PlannerRecord VALUES (?, ?, ?)", rows)
    connection.commit()
    connection.close()


def started(command, environment, screen, dark):
    """Starts a program; gives it and the seconds until the middle of its window is painted."""
    before = time.monotonic()
    process = spawn(command, env=environment)
    painted = screen.wait(dark, "the first frame")
    return process, painted - before


def ended(process, screen, dark):
    process.terminate()
    process.wait()
    screen.wait(lambda: not dark(), "the window to go")


def measure_start(screen, homes, rounds=15):
    # Left of the wordmark and right of the mark both windows are black.
    def dark():
        return screen.pixels(MIDDLE - 62, 3, 4, 1)[:3] == b"\0\0\0"
    times = {"orvane": [], "empty": []}
    for _ in range(rounds):
        for name, command in (("orvane", sys.argv[1]), ("empty", sys.argv[2])):
            process, seconds = started([command], homes[10_000].environment(), screen, dark)
            times[name].append(seconds * 1000)
            time.sleep(0.5)
            ended(process, screen, dark)
    row("start to the first frame, 10k tasks", statistics.median(times["orvane"]),
        statistics.median(times["empty"]), "1.6")


def private_memory(pid):
    text = Path(f"/proc/{pid}/smaps_rollup").read_text(encoding="ascii")
    return sum(int(line.split()[1]) for line in text.splitlines()
               if line.startswith(("Private_Clean", "Private_Dirty"))) / 1024


def switches(pid):
    total = 0
    for status in Path(f"/proc/{pid}/task").glob("*/status"):
        total += sum(int(line.split()[1]) for line in status.read_text(encoding="ascii").splitlines()
                     if "ctxt_switches" in line)
    return total


def processor(pid):
    return sum(int(stat.read_text(encoding="ascii").split()[0])
               for stat in Path(f"/proc/{pid}/task").glob("*/schedstat")) / 1e6


def measure_rest(screen, homes):
    def dark():
        return screen.pixels(MIDDLE - 62, 3, 4, 1)[:3] == b"\0\0\0"
    found = {}
    for name, command in (("orvane", sys.argv[1]), ("empty", sys.argv[2])):
        process, _ = started([command], homes[1000].environment(), screen, dark)
        time.sleep(3)
        memory = private_memory(process.pid)
        before = switches(process.pid), processor(process.pid)
        time.sleep(10)
        found[name] = (memory, switches(process.pid) - before[0], processor(process.pid) - before[1])
        ended(process, screen, dark)
    orvane, empty = found["orvane"], found["empty"]
    row("private memory, panel closed, 1k tasks", orvane[0], empty[0], "1.6", "MiB")
    row("idle for 10 s: context switches", orvane[1], empty[1], "at most 5", "")
    row("idle for 10 s: processor", orvane[2], empty[2] or None, "0")


def measure_hot_key(screen, homes, rounds=40):
    # The body of the panel, beside its cards' upper edges: where a card's surface begins to show.
    area = (MIDDLE - 300, 130, 600, 60)
    process = spawn([sys.argv[1]], env=homes[1000].environment())
    screen.wait(lambda: screen.pixels(MIDDLE - 62, 3, 4, 1)[:3] == b"\0\0\0", "the strip")
    time.sleep(1)
    closed = screen.pixels(*area)
    times = []
    screen.press("Alt_L", "n")
    screen.wait(lambda: screen.pixels(*area) != closed, "the panel")
    time.sleep(0.7)
    opened = screen.pixels(*area)
    for _ in range(rounds):
        screen.press("Escape")
        screen.wait(lambda: screen.pixels(*area) == closed, "the panel to close")
        time.sleep(0.2)
        before = time.monotonic()
        screen.press("Alt_L", "n")
        times.append((screen.wait(lambda: screen.pixels(*area) == opened, "the cards") - before) * 1000)
        time.sleep(0.2)
    process.terminate()
    process.wait()
    times.sort()
    row("hot key to the cards on the screen, median", times[len(times) // 2])
    row("hot key to the cards on the screen, p95", times[int(len(times) * 0.95)], reach="50")


def main():
    os.environ["ORVANE_PROGRAM"] = sys.argv[1]
    Desktop()
    run("xsetroot", "-solid", ROOT)
    run("xdotool", "mousemove", str(MIDDLE), str(SCREEN[1] - 20))
    Portal()
    del os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
    homes = {count: Home() for count in (1000, 10_000)}
    try:
        for count, home in homes.items():
            seed(home, count)
        screen = Screen()
        print(f"\n{'on a display':<44} {'measured':>9} {'floor':>9} {'ratio':>6} {'reach':>10}")
        measure_start(screen, homes)
        measure_hot_key(screen, homes)
        measure_rest(screen, homes)
    finally:
        for home in homes.values():
            home.remove()


if __name__ == "__main__":
    main()
