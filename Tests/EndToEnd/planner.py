"""Orvane as a person meets it: a home to start it in, and what one does with the panel."""

import json
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from accessible import Program
from harness import SCREEN, Keyboard, Pointer, program_path, run, screenshot, spawn, wait_until

SAVED = "Saved on this Mac"


class Home:
    """Folders for one user of the program: empty, but for preferences that say the introduction is
    over."""

    def __init__(self, data=None):
        self.folder = Path(tempfile.mkdtemp(prefix="orvane-home-"))
        self.data = Path(data) if data else self.folder / "data"
        self.config = self.folder / "config"
        for folder in (self.data, self.config):
            folder.mkdir(mode=0o700, exist_ok=True)
        self.seed_preferences({"onboardingComplete": True})

    def seed_preferences(self, values):
        """Writes the preferences as the program keeps them."""
        record = json.dumps(values, separators=(",", ":")).replace('"', '\\"')
        self.preferences_file.parent.mkdir(exist_ok=True)
        self.preferences_file.write_text(f'[General]\npreferences.v1="@ByteArray({record})"\n')

    def preferences(self):
        """The preferences on disk."""
        found = re.search(r'^preferences\.v1="@ByteArray\((.*)\)"$', self.preferences_file.read_text(), re.MULTILINE)
        return json.loads(found.group(1).replace('\\"', '"'))

    @property
    def preferences_file(self):
        return self.config / "Orvane" / "Orvane.conf"

    def seed_default(self, key, value):
        """Adds one of the program's other small values beside the preferences."""
        with open(self.preferences_file, "a", encoding="utf-8") as file:
            file.write(f"{key}=@ByteArray({value})\n")

    @property
    def planner(self):
        """The folder with the planner in it."""
        return self.data / "Orvane"

    @property
    def store(self):
        return self.planner / "Planner.sqlite"

    def environment(self):
        return {**os.environ, "XDG_DATA_HOME": str(self.data), "XDG_CONFIG_HOME": str(self.config)}

    def records(self, kind):
        """The stored records of a kind ("task", "note", "session"), as dictionaries; empty without a store."""
        if not self.store.exists():
            return []
        connection = sqlite3.connect(f"file:{self.store}?mode=ro", uri=True, timeout=10)
        try:
            rows = connection.execute("SELECT payload FROM PlannerRecord WHERE kind = ?", (kind,)).fetchall()
        except sqlite3.OperationalError as error:
            if "no such table" in str(error):
                return []
            raise
        finally:
            connection.close()
        return [json.loads(payload) for (payload,) in rows]

    def tasks(self):
        """The stored tasks in the planner's order."""
        return sorted(self.records("task"), key=lambda task: task["order"])

    def put(self, kind, key, record):
        """Writes a record into the store of a program that has ended, as the program itself would."""
        payload = json.dumps(record, separators=(",", ":"), sort_keys=True, ensure_ascii=False).encode()
        connection = sqlite3.connect(self.store)
        with connection:
            connection.execute("INSERT OR REPLACE INTO PlannerRecord VALUES (?, ?, ?)", (key, kind, payload))
        connection.close()

    def titles(self):
        return [task["title"] for task in self.tasks()]

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class Orvane(Program):
    """The running program. `arguments` are its own; the home says where it keeps things."""

    def __init__(self, home, *arguments, environment=None):
        self.home = home
        self.log = tempfile.NamedTemporaryFile(prefix="orvane-log-", mode="w+b")
        self.process = spawn([program_path(), *arguments], stdin=subprocess.DEVNULL, stdout=self.log,
                             stderr=subprocess.STDOUT, env=environment or home.environment())
        super().__init__(self.process.pid)

    # Starting and ending.

    def wait_for_strip(self):
        return self.wait_for("Open Orvane workspace")

    def running(self):
        return self.process.poll() is None

    def wait_for_end(self):
        """Waits until the program ends by itself and returns its exit status."""
        wait_until(lambda: not self.running(), "the program to end")
        return self.process.returncode

    def terminate(self):
        """Ends it as a session manager does; returns the exit status."""
        self.process.send_signal(signal.SIGTERM)
        return self.wait_for_end()

    def kill(self):
        """Ends it without any warning."""
        if self.running():
            self.process.kill()
        self.process.wait()

    def output(self):
        self.log.flush()
        return Path(self.log.name).read_text(errors="replace")

    # The panel.

    def hover(self):
        """Moves the pointer onto the strip, coming from elsewhere."""
        left, top, width, height = self.wait_for_strip().box()
        Pointer.move(left + width / 2, top + height + 300)
        Pointer.move(left + width / 2, top + height / 2)

    def open(self):
        """Opens the panel by hovering; returns the field that adds tasks. On a busy machine the strip
        may still be on its way to its place when the pointer comes: then it comes again."""
        for _ in range(3):
            self.hover()
            try:
                return self.add_field(deadline=8)
            except AssertionError:
                continue
        self.hover()
        return self.add_field()

    def add_field(self, **options):
        return self.wait_for("Add something to do…", role="text", **options)

    def click(self, name, role=None, times=1):
        Pointer.click(*self.wait_for(name, role).centre(), times=times)

    def focus_add_field(self):
        self.click("Add something to do…", role="text")
        wait_until(lambda: self.add_field().has("focused"), "the keyboard in the add field")

    def add(self, title):
        """Types a task into the add field, which must have the keyboard, and waits until it shows."""
        Keyboard.type(title)
        Keyboard.press("Return")
        self.wait_for(f"Complete {title}")

    def choose(self, title, action):
        """Picks an entry of a task's menu."""
        self.click(f"Actions for {title}")
        self.click(action, role="menu item")

    def shown_titles(self):
        """The titles in the list on show, from top to bottom."""
        found = []
        for item in self.items():
            match = re.match(r"(?:Complete|Reopen) (.*)", item.name)
            if match and "button" in item.role or match and "check" in item.role:
                found.append((item.box()[1], match.group(1)))
        return [title for _, title in sorted(found)]

    def title_point(self, title):
        """Where a task's title stands: right of its round button."""
        left, top, width, height = self.wait_for(f"Complete {title}").box()
        return left + width + 40, top + height / 2

    def drag_before(self, title, target):
        """Drags a task by its title to the upper edge of another one."""
        x, y = self.title_point(target)
        Pointer.drag(self.title_point(title), (x, y - 14))

    def wait_titles(self, *titles):
        wait_until(lambda: self.shown_titles() == list(titles), f"the list to read {titles}")

    def wait_saved(self):
        self.wait_for(SAVED)

    def wait_stored(self, *titles):
        """Waits until the store on disk holds exactly these titles, in this order."""
        wait_until(lambda: self.home.titles() == list(titles), f"the store to hold {titles}")

    def wait_until_stored(self, condition):
        """Waits until the stored tasks fulfil `condition`."""
        wait_until(lambda: condition(self.home.tasks()), "the store to hold the change")

    # The Dashboard.

    def dashboard_shows(self):
        return self.find("Today", role="page tab") is not None

    def open_settings(self):
        """Shows the Dashboard's Settings page without the pointer: by way of the panel, or of the Dashboard,
        which shows in its place while the planner is still being opened."""
        self.wait_for_strip().press()
        self.wait_for("Settings").press()
        self.wait_for("Your space, your way.", role="heading")

    def close_dashboard(self):
        """Closes the Dashboard as its window's frame does."""
        self.click("Today", role="page tab")

        def closed():
            Keyboard.press("alt+F4")
            return not self.dashboard_shows()
        wait_until(closed, "the Dashboard to close")


class PlannerTest(unittest.TestCase):
    """A test with a home of its own; whatever it starts is ended with it, and a failure leaves a picture."""

    def setUp(self):
        self.home = Home()
        self.programs = []
        Pointer.move(SCREEN[0] / 2, SCREEN[1] - 20)

    def start(self, *arguments, home=None, environment=None):
        """Starts the program and gives it; it is not waited for."""
        program = Orvane(home or self.home, *arguments, environment=environment)
        self.programs.append(program)
        return program

    def started(self, **options):
        """Starts the program and waits until its strip shows."""
        program = self.start(**options)
        program.wait_for_strip()
        return program

    def restarted(self, program):
        """Ends the program in an orderly way and starts it again in the same home."""
        self.assertEqual(0, program.terminate())
        return self.started(home=program.home)

    def terminal(self):
        """Another program's window that has the keyboard; its shell runs in the home's folder, which this
        gives."""
        process = spawn(["xterm", "-geometry", "60x10+100+600", "-e", "bash", "--norc"], cwd=self.home.folder)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        self.activate_terminal()
        return self.home.folder

    @staticmethod
    def activate_terminal():
        window = wait_until(lambda: run("xdotool", "search", "--onlyvisible", "--class", "xterm", check=False).split(),
                            "the terminal's window")[0]
        run("xdotool", "windowactivate", "--sync", window)

    def tearDown(self):
        outcome = self._outcome.result
        if any(test is self for test, _ in outcome.failures + outcome.errors):
            print("A picture of the failure is in", self._leave_picture(), file=sys.stderr)
        for program in self.programs:
            program.kill()
        self.home.remove()
        complaints = [line for program in self.programs for line in program.output().splitlines() if "qrc:/" in line]
        self.assertEqual([], complaints, "a view found something missing")

    def _leave_picture(self):
        folder = Path(tempfile.gettempdir()) / f"orvane-failures-{os.geteuid()}"
        folder.mkdir(exist_ok=True, parents=True)
        screenshot(folder / f"{self.id()}.png")
        report = [program.tree() + "\n\n" + program.output() for program in self.programs]
        (folder / f"{self.id()}.txt").write_text("\n\n".join(report))
        return folder
