"""A guided tour: drives the real program on a virtual display with pointer and keys, says each step,
checks that it had its effect, and leaves a picture of each.

    tour.py PROGRAM FOLDER-FOR-PICTURES

Ends with 0, or with 1 naming the step that failed."""

import os
import subprocess
import sys
from pathlib import Path

from harness import Desktop, Keyboard, screenshot_at_rest
from planner import Home, Orvane

TASKS = ("Water the ferns", "Answer the letter from Ada", "Plan the trip to the coast")
PAGES = (("Today", "Make room for today."), ("Insights", "A week of little wins."), ("History", "Look back"),
         ("Settings", "Your space, your way."))


class Tour:
    """The steps in order; each says what it does and then checks that it happened."""

    def __init__(self, home, pictures):
        self.home = home
        self.pictures = pictures
        self.orvane = None
        self.number = 0
        self.step = "nothing yet"

    def say(self, step):
        self.number += 1
        self.step = step
        print(f"{self.number:2}. {step}", flush=True)

    def picture(self, name):
        """Takes the picture of the step once the panel's movements have come to rest."""
        screenshot_at_rest(self.pictures / f"{self.number:02}-{name}.png")

    def run(self):
        first, second, third = TASKS
        self.begin()
        self.hover()
        for title in TASKS:
            self.type_task(title)
        self.complete(first)
        self.reorder(third, second)
        self.delete(second)
        self.undo(second, third)
        self.focus(third)
        self.write_note()
        self.dashboard()
        self.quit()
        self.begin_again(third, second, "Send Marta the measurements")

    def begin(self):
        self.say("Orvane starts: the strip stands at the top centre of the screen.")
        self.orvane = Orvane(self.home)
        self.orvane.wait_for_strip()
        self.picture("strip")

    def hover(self):
        self.say("The pointer rests on the strip: the panel opens.")
        self.orvane.open()
        self.picture("panel")
        self.orvane.focus_add_field()

    def type_task(self, title):
        self.say(f"A task is typed: {title}")
        self.orvane.add(title)
        self.orvane.wait_saved()
        self.picture("task")

    def complete(self, title):
        self.say(f"A click on the round button completes “{title}”.")
        self.orvane.click(f"Complete {title}")
        self.orvane.wait_gone(f"Complete {title}")
        self.orvane.wait_until_stored(lambda tasks: any(
            task["title"] == title and "completedAt" in task for task in tasks))
        self.picture("completed")

    def reorder(self, moved, target):
        self.say(f"“{moved}” is dragged above “{target}”.")
        self.orvane.drag_before(moved, target)
        self.orvane.wait_titles(moved, target)
        self.orvane.wait_saved()
        self.picture("reordered")

    def delete(self, title):
        self.say(f"“{title}” is deleted from its menu.")
        self.orvane.click(f"Actions for {title}")
        self.orvane.wait_for("Delete task")
        self.picture("menu")
        self.orvane.click("Delete task")
        self.orvane.wait_for("Task removed.")
        self.orvane.wait_until_stored(lambda tasks: title not in [task["title"] for task in tasks])
        self.picture("deleted")

    def undo(self, title, other):
        self.say("“Undo” brings it back.")
        self.orvane.click("Undo")
        self.orvane.wait_titles(other, title)
        self.orvane.wait_saved()
        self.picture("undone")

    def focus(self, title):
        self.say(f"“{title}” gets twenty-five minutes of focus, is paused and finished.")
        self.orvane.choose(title, "Focus on this")
        self.orvane.wait_for("IN SESSION")
        self.picture("focus")
        self.orvane.click("Pause")
        self.orvane.wait_for("PAUSED")
        self.picture("paused")
        self.orvane.click("Finish session")
        self.orvane.wait_for("READY")

    def write_note(self):
        self.say("A note is written; Ctrl+Return turns a line of it into a task.")
        self.orvane.click("Daily notepad", role="text")
        Keyboard.type("The reading room is quiet before nine.")
        Keyboard.press("Return")
        Keyboard.type("Send Marta the measurements")
        Keyboard.press("ctrl+Return")
        self.orvane.wait_for("Added to your tasks. Your note is unchanged.")
        self.orvane.wait_until_stored(lambda tasks: any(
            task["title"] == "Send Marta the measurements" for task in tasks))
        self.picture("note")

    def dashboard(self):
        self.say("The Dashboard shows the day, the week, the past and the settings, by day and by night.")
        self.orvane.click("Open dashboard")
        for page, landmark in PAGES:
            self.orvane.click(page, role="page tab")
            self.orvane.wait_for(landmark)
            self.picture(page.lower())
        self.orvane.click("Dark", role="radio button")
        for page, landmark in PAGES:
            self.orvane.click(page, role="page tab")
            self.orvane.wait_for(landmark)
            self.picture(page.lower() + "-dark")

    def quit(self):
        self.say("Ctrl+Q quits.")
        Keyboard.press("ctrl+q")
        if self.orvane.wait_for_end() != 0:
            raise AssertionError(f"it ended with {self.orvane.process.returncode}")
        self.picture("quit")

    def begin_again(self, *open_titles):
        self.say("Orvane starts again: the tasks are there.")
        self.orvane = Orvane(self.home)
        self.orvane.open()
        self.orvane.wait_titles(*open_titles)
        self.picture("again")
        if self.orvane.terminate() != 0:
            raise AssertionError(f"it ended with {self.orvane.process.returncode}")


def main(program, folder):
    os.environ["ORVANE_PROGRAM"] = str(Path(program).resolve())
    pictures = Path(folder).resolve()
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.glob("[0-9][0-9]-*.png"):
        old.unlink()

    Desktop()
    # On a bare black screen a black strip could not be told from its surroundings.
    subprocess.run(["xsetroot", "-solid", "#b8c3b1"], check=True)
    home = Home()
    tour = Tour(home, pictures)
    try:
        tour.run()
    except Exception as failure:  # pylint: disable=broad-except
        print(f"The tour failed at step {tour.number} ({tour.step}): {failure}", file=sys.stderr)
        tour.picture("failed")
        if tour.orvane:
            print(tour.orvane.output(), file=sys.stderr)
        return 1
    finally:
        if tour.orvane:
            tour.orvane.kill()
        home.remove()
    print(f"The tour is over. Its pictures are in {os.path.relpath(pictures)}.")
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
