"""A focus session on the real program: begun from a task's menu, paused, resumed, finished, found again
after a kill, and announced by a real notification server."""

import json

from harness import run, spawn, wait_until, main
from planner import PlannerTest

TASK = "Write the opening chapter"


class FocusTest(PlannerTest):
    def with_task(self):
        orvane = self.started()
        orvane.open()
        orvane.focus_add_field()
        orvane.add(TASK)
        orvane.wait_saved()
        return orvane

    def wait_status(self, status):
        wait_until(lambda: [session["status"] for session in self.home.records("session")] == [status],
                   f"one stored session that is {status}")
        return self.home.records("session")[0]

    def counted(self):
        return sum(segment["duration"] for segment in self.home.records("session")[0]["segments"])

    def test_a_countdown_from_the_menu_is_paused_resumed_finished_and_looked_back_at(self):
        orvane = self.with_task()
        orvane.choose(TASK, "Focus on this")
        orvane.wait_for("Pause")
        session = self.wait_status("running")
        self.assertEqual((TASK, "countdown", 1500), (session["title"], session["mode"], session["target"]))

        orvane.click("Pause", role="push button")
        self.wait_status("paused")
        orvane.click("Resume", role="push button")
        self.wait_status("running")
        orvane.click("Finish session", role="push button")
        self.wait_status("finished")
        orvane.wait_for("Start focus")

        orvane.click("Open dashboard", role="push button")
        orvane.click("Insights", role="page tab")
        orvane.wait_for(starting="DAYS WITH FOCUS")
        orvane.click("History", role="page tab")
        orvane.wait_for("FOCUS SESSIONS")
        wait_until(lambda: any(TASK in item.name for item in orvane.items()), "the session in the History")

    def test_a_session_that_was_running_at_a_kill_comes_back_paused(self):
        orvane = self.with_task()
        orvane.choose(TASK, "Focus on this")
        orvane.wait_for("Pause")
        self.wait_status("running")
        orvane.kill()
        again = self.started(home=self.home)
        again.open()
        again.wait_for("Restored paused. Time away wasn’t counted.")
        self.wait_status("paused")
        self.assertLess(self.counted(), 30)
        again.click("Resume", role="push button")
        self.wait_status("running")

    def test_a_countdown_that_runs_out_is_announced_by_the_notification_server(self):
        spawn(["dunst", "-conf", "/dev/null"])
        orvane = self.with_task()
        task = self.home.tasks()[0]
        self.assertEqual(0, orvane.terminate())
        self.home.put("session", "session-0F8FAD5B-D9CB-469F-A165-70867728950E", {
            "createdAt": task["createdAt"], "id": "0F8FAD5B-D9CB-469F-A165-70867728950E", "mode": "countdown",
            "segments": [{"duration": 57.5, "start": task["createdAt"]}], "status": "paused", "target": 60,
            "taskID": task["id"], "title": TASK})
        self.home.seed_default("consent.notifications", "1")

        again = self.started(home=self.home)
        again.open()
        again.click("Resume", role="push button")
        self.wait_status("finished")
        self.assertEqual(60, self.counted())
        wait_until(lambda: "Focus time is up" in run("dunstctl", "history", check=False)
                   or run("dunstctl", "count", "displayed", check=False).strip() == "1", "the notification")
        run("dunstctl", "close-all")
        shown = json.loads(run("dunstctl", "history"))["data"][0][0]
        self.assertEqual(("Focus time is up", "Your focus session is complete."),
                         (shown["summary"]["data"], shown["body"]["data"]))


if __name__ == "__main__":
    main()
