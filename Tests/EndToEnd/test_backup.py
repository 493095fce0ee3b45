"""The planner is exported to a file and a backup is put in its place, with the file dialog driven by keys."""

import json
import os
import random
import threading
import uuid
from pathlib import Path

from harness import SCREEN, Keyboard, Pointer, main, run, wait_until
from planner import PlannerTest

EXPORT = "Export JSON backup…"
RESTORE = "Restore backup…"
QUESTION = "Restore this planner backup?"
FAILED = "Restore failed; your current planner was preserved. "
DONE = "Backup restored. Previous data was backed up locally."
ROUNDS = 6


def backup_of(*titles, notes=()):
    """A backup's bytes: open tasks with these titles."""
    tasks = [{"createdAt": 1, "id": str(uuid.uuid4()).upper(), "order": index, "title": title}
             for index, title in enumerate(titles)]
    return json.dumps({"notes": list(notes), "schemaVersion": 1, "sessions": [], "tasks": tasks}).encode()


def titles_in(path):
    """The titles of a backup that Orvane wrote, in order."""
    planner = json.loads(Path(path).read_text())
    return [task["title"] for task in sorted(planner["tasks"], key=lambda task: task["order"])]


class BackupTest(PlannerTest):
    def setUp(self):
        super().setUp()
        self.files = self.home.folder / "files"
        self.files.mkdir()
        self.orvane = self.started()

    def add(self, *titles):
        """Adds tasks in the panel and waits until they are saved."""
        self.orvane.open()
        self.orvane.focus_add_field()
        for title in titles:
            self.orvane.add(title)
        self.orvane.wait_stored(*titles)

    def show_buttons(self):
        """Shows the Dashboard's page with the two buttons."""
        if not self.orvane.dashboard_shows():
            if not self.orvane.find("Open dashboard"):
                self.orvane.open()
            self.orvane.wait_for("Open dashboard").press()
            self.orvane.wait_for("Today", role="page tab")
        self.orvane.click("Settings", role="page tab")
        left, top, _, _ = self.orvane.wait_for("Today", role="page tab").box()

        def scrolled_to():
            # They stand at the end of a page that is longer than its window.
            Pointer.click(left + 400, top + 300, times=5, button=5)
            return self.orvane.find(RESTORE, role="button")
        wait_until(scrolled_to, "the end of the page")
        return self.orvane.wait_for(RESTORE, role="button")

    def show_today(self):
        self.orvane.click("Today", role="page tab")

    def press(self, button):
        """Presses one of the two buttons and waits for the file dialog; gives its field for the name."""
        self.show_buttons()
        self.orvane.wait_for(button, role="button").press()
        return self.name_field()

    def name_field(self):
        def field():
            for item in self.orvane.items():
                if item.role == "text" and item.has("focused") and item.name.startswith("File name"):
                    return item
            return None
        return wait_until(field, "the file dialog with the keyboard in its field")

    def choose(self, button, path):
        """Presses one of the two buttons and types the file's path into the dialog."""
        self.press(button)
        Keyboard.press("ctrl+a")
        Keyboard.type(str(path))
        Keyboard.press("Return")

    def wait_closed(self):
        wait_until(lambda: not self.dialogs(), "the file dialog to close")

    def dialogs(self):
        return [item for item in self.orvane.items() if item.name.startswith("File name") and item.role == "text"]

    def dialog_window(self):
        [dialog] = run("xdotool", "search", "--onlyvisible", "--name", "^Save As$").split()
        return dialog

    def owner_of_the_dialog(self):
        """The X11 window in front of which the file dialog stands."""
        return run("xprop", "-id", self.dialog_window(), "WM_TRANSIENT_FOR").split()[-1]

    def safety_copies(self):
        return list(self.home.planner.glob("Before-restore-*.json"))


class Export(BackupTest):
    def test_the_file_holds_the_planner_for_its_owner_alone(self):
        self.add("Tea", "Cake")
        field = self.press(EXPORT)
        self.assertRegex(field.text(), r"^Orvane-\d{4}-\d{2}-\d{2}\.json$")
        Keyboard.press("ctrl+a")
        Keyboard.type(str(self.files / "Mine.json"))
        Keyboard.press("Return")
        wait_until((self.files / "Mine.json").exists, "the exported file")
        self.show_today()
        self.orvane.wait_for("Backup exported.")
        self.assertEqual(["Tea", "Cake"], titles_in(self.files / "Mine.json"))
        self.assertEqual(0o600, (self.files / "Mine.json").stat().st_mode & 0o777)
        self.assertEqual(["Mine.json"], os.listdir(self.files))

    def test_a_name_without_an_ending_gets_one(self):
        self.add("Tea")
        self.choose(EXPORT, self.files / "Mine")
        wait_until((self.files / "Mine.json").exists, "the exported file")

    def test_an_existing_file_is_replaced_once_the_user_agrees_and_keeps_its_mode(self):
        self.add("Tea")
        file = self.files / "Mine.json"
        file.write_text("old")
        file.chmod(0o644)
        self.choose(EXPORT, file)
        self.orvane.wait_for("Yes", role="button")
        self.assertEqual("old", file.read_text())
        Keyboard.press("alt+y")
        wait_until(lambda: file.read_text() != "old", "the file to be replaced")
        self.assertEqual(["Tea"], titles_in(file))
        self.assertEqual(0o644, file.stat().st_mode & 0o777)

    def test_escape_writes_nothing_and_the_strip_comes_back(self):
        self.add("Tea")
        self.press(EXPORT)
        self.assertIsNone(self.orvane.find("Open Orvane workspace"))
        Keyboard.press("Escape")
        self.wait_closed()
        self.orvane.wait_for_strip()
        self.assertEqual([], os.listdir(self.files))

    def test_the_dialog_belongs_to_the_dashboard_and_holds_it(self):
        self.add("Tea")
        self.press(EXPORT)
        self.assertIn('"Orvane"', run("xprop", "-id", self.owner_of_the_dialog(), "WM_NAME"))
        self.assertIn("_NET_WM_STATE_MODAL", run("xprop", "-id", self.dialog_window(), "_NET_WM_STATE"))
        self.orvane.click("Today", role="page tab")
        # Once the dialog has handled a later press, the first one is over.
        [field] = self.dialogs()
        Pointer.click(*field.centre())
        Keyboard.press("ctrl+a", "x")
        wait_until(lambda: self.name_field().text() == "x", "the dialog to handle a key")
        self.orvane.wait_for(EXPORT, role="button").press()
        self.assertEqual(1, len(self.dialogs()))
        Keyboard.press("Escape")
        self.wait_closed()

    def test_while_the_dashboard_is_minimized_the_dialog_stands_free(self):
        self.add("Tea")
        self.press(EXPORT)
        dashboard = self.owner_of_the_dialog()
        Keyboard.press("Escape")
        self.wait_closed()
        button = self.orvane.wait_for(EXPORT, role="button")
        run("xdotool", "windowminimize", dashboard)
        wait_until(lambda: "Iconic" in run("xprop", "-id", dashboard, "WM_STATE"), "the Dashboard to go")
        button.press()
        self.name_field()
        self.assertNotIn(dashboard, self.owner_of_the_dialog())
        Keyboard.press("Escape")
        self.wait_closed()

    def test_quitting_with_the_dialog_open_ends_the_program(self):
        self.add("Tea")
        self.press(EXPORT)
        self.assertEqual(0, self.orvane.terminate())
        self.assertEqual(["Tea"], self.home.titles())


class Restore(BackupTest):
    def setUp(self):
        super().setUp()
        self.file = self.files / "Backup.json"
        self.file.write_bytes(backup_of("Sow", "Weed", "Water"))
        self.add("Tea", "Cake")

    def ask(self):
        self.choose(RESTORE, self.file)
        self.orvane.wait_for(QUESTION)

    def test_return_puts_the_backup_in_place_and_keeps_the_old_planner(self):
        self.ask()
        self.orvane.wait_for("This replaces 2 tasks with 3 tasks. A backup of your current planner will be "
                             "kept on this Mac.")
        Keyboard.press("Return")
        self.orvane.wait_stored("Sow", "Weed", "Water")
        self.show_today()
        self.orvane.wait_for(DONE)
        self.orvane.wait_titles("Sow", "Weed", "Water")
        [copy] = self.safety_copies()
        self.assertEqual(["Tea", "Cake"], titles_in(copy))
        self.assertEqual(0o600, copy.stat().st_mode & 0o777)

    def test_restoring_the_safety_copy_undoes_it(self):
        self.ask()
        Keyboard.press("Return")
        self.orvane.wait_stored("Sow", "Weed", "Water")
        self.orvane.wait_gone(QUESTION)
        [self.file] = self.safety_copies()
        self.ask()
        Keyboard.press("Return")
        self.orvane.wait_stored("Tea", "Cake")
        self.assertEqual(2, len(self.safety_copies()))

    def test_the_restored_planner_is_there_after_a_new_start(self):
        self.ask()
        Keyboard.press("Return")
        self.orvane.wait_stored("Sow", "Weed", "Water")
        again = self.restarted(self.orvane)
        again.open()
        again.wait_titles("Sow", "Weed", "Water")

    def test_escape_in_either_dialog_changes_nothing(self):
        self.press(RESTORE)
        Keyboard.press("Escape")
        self.wait_closed()
        self.ask()
        Keyboard.press("Escape")
        self.orvane.wait_gone(QUESTION)
        self.orvane.wait_for_strip()
        self.show_today()
        self.orvane.wait_titles("Tea", "Cake")
        self.assertEqual(["Tea", "Cake"], self.home.titles())
        self.assertEqual([], self.safety_copies())

    def test_another_file_is_refused_with_its_reason(self):
        self.file.write_text("Dear diary")
        self.choose(RESTORE, self.file)
        self.wait_closed()
        self.show_today()
        self.orvane.wait_for(FAILED + "Choose a JSON backup exported by Orvane.")
        self.orvane.wait_titles("Tea", "Cake")
        self.assertEqual([], self.safety_copies())

    def test_a_backup_that_is_too_large_is_refused(self):
        with open(self.file, "wb") as file:
            file.truncate(50_000_001)
        self.choose(RESTORE, self.file)
        self.wait_closed()
        self.show_today()
        self.orvane.wait_for(FAILED + "Backups must be smaller than 50 MB.")
        self.assertEqual(["Tea", "Cake"], self.home.titles())


class Killed(BackupTest):
    def begun_copies(self):
        """The safety copies, also those that are not whole yet or never became so."""
        return list(self.home.planner.glob("*Before-restore-*"))

    def test_killed_at_any_moment_of_a_restore_the_planner_is_the_old_or_the_new_one_whole(self):
        seed = int(os.environ.get("ORVANE_SEED") or random.randrange(1 << 32))
        print("seed", seed)
        chance = random.Random(seed)
        planners = [[f"{name} {number}" for number in range(20_000)] for name in ("Sow", "Weed")]
        for titles in planners:
            notes = [{"id": f"day {day}", "text": titles[0] * 200, "updatedAt": 1} for day in range(2_000)]
            (self.files / f"{titles[0]}.json").write_bytes(backup_of(*titles, notes=notes))
        present = []
        for attempt in range(ROUNDS):
            wanted = planners[attempt % 2]
            self.choose(RESTORE, self.files / f"{wanted[0]}.json")
            self.orvane.wait_for(QUESTION)
            begun = len(self.begun_copies())
            Keyboard.press("Return")
            wait_until(lambda: len(self.begun_copies()) > begun, "the safety copy to be begun")
            killer = threading.Timer(chance.uniform(0, 0.35), self.orvane.process.kill)
            killer.start()
            killer.join()
            self.orvane.kill()
            # Where the strip will be, the pointer would open it at once.
            Pointer.move(SCREEN[0] / 2, SCREEN[1] - 20)
            self.orvane = self.started()
            found = self.home.titles()
            self.assertTrue(found in (present, wanted), f"{len(found)} tasks that are no planner of ours")
            if found == wanted and present:
                self.assertIn(present, [titles_in(copy) for copy in self.safety_copies()])
            present = found


if __name__ == "__main__":
    main()
