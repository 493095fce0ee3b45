"""A data folder that cannot be written is told, and opening is retried once it has been mended."""

import fcntl

from harness import as_other_user, main
from planner import PlannerTest

MESSAGE = "Your planner could not be opened. Your existing data has been preserved. "
RETRY = "Retry opening planner"


class StorageFailure(PlannerTest):
    def setUp(self):
        super().setUp()
        self.home.data.chmod(0o500)
        self.addCleanup(lambda: self.home.folder.exists() and self.home.data.chmod(0o700))
        self.orvane = self.start()

    def test_the_dashboard_opens_with_the_message_and_a_retry(self):
        self.orvane.wait_for(RETRY)
        self.orvane.wait_for(starting=MESSAGE)
        self.assertEqual([], list(self.home.data.iterdir()))

    def test_retrying_without_mending_fails_again(self):
        self.orvane.click(RETRY)
        self.orvane.wait_for(RETRY)
        self.orvane.wait_for(starting=MESSAGE)
        self.assertTrue(self.orvane.running())

    def test_retrying_after_mending_opens_the_planner(self):
        self.orvane.wait_for(RETRY)
        self.home.data.chmod(0o700)
        self.orvane.click(RETRY)
        self.orvane.wait_gone(RETRY)
        self.orvane.focus_add_field()
        self.orvane.add("Mended")
        self.orvane.wait_stored("Mended")

    def test_retrying_while_another_program_has_the_planner_says_so(self):
        self.orvane.wait_for(RETRY)
        self.home.data.chmod(0o700)
        self.home.planner.mkdir(mode=0o700)
        with open(self.home.planner / ".lock", "wb") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.orvane.click(RETRY)
            self.orvane.wait_for(MESSAGE + "Another program is using this planner")
        self.orvane.click(RETRY)
        self.orvane.wait_gone(RETRY)

    def test_hovering_before_the_planner_is_open_shows_the_dashboard(self):
        self.orvane.wait_for(RETRY)
        self.orvane.close_dashboard()
        self.orvane.wait_gone(RETRY)
        self.orvane.hover()
        self.orvane.wait_for(RETRY)


if __name__ == "__main__":
    as_other_user()
    main()
