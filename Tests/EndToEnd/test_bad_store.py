"""A store that cannot be read is told in a sentence and keeps its bytes."""

import sqlite3

from harness import main
from planner import PlannerTest

MESSAGE = "Your planner could not be opened. Your existing data has been preserved. "
RETRY = "Retry opening planner"
INCOMPATIBLE = "This planner was created by an incompatible app version."


class BadStore(PlannerTest):
    def make_store(self, *statements):
        """Lets the program make a store with a task in it and changes it then; gives the file's bytes."""
        orvane = self.started()
        orvane.open()
        orvane.focus_add_field()
        orvane.add("Precious")
        orvane.wait_stored("Precious")
        self.assertEqual(0, orvane.terminate())
        connection = sqlite3.connect(self.home.store)
        for statement in statements:
            connection.execute(statement)
        connection.commit()
        connection.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        connection.close()
        return self.home.store.read_bytes()

    def assert_refused(self, sentence=""):
        """Starts the program, expects the failure with this sentence and the store as it was."""
        before = self.home.store.read_bytes()
        orvane = self.start()
        orvane.wait_for(RETRY)
        message = orvane.wait_for(starting=MESSAGE + sentence).name
        self.assertGreater(len(message), len(MESSAGE))
        self.assertIsNone(orvane.find("Add something to do…"))
        orvane.terminate()
        self.assertEqual(before, self.home.store.read_bytes())

    def test_a_file_that_is_no_database(self):
        self.home.planner.mkdir(mode=0o700)
        self.home.store.write_bytes(b"These are not the pages you are looking for.\n" * 300)
        self.assert_refused()

    def test_a_database_that_is_not_ours(self):
        self.home.planner.mkdir(mode=0o700)
        connection = sqlite3.connect(self.home.store)
        connection.execute("CREATE TABLE recipe(name TEXT)")
        connection.commit()
        connection.close()
        self.assert_refused()

    def test_a_newer_version(self):
        self.make_store("PRAGMA user_version = 4711")
        self.assert_refused(INCOMPATIBLE)

    def test_a_row_of_another_kind(self):
        self.make_store("INSERT INTO PlannerRecord VALUES ('reminder-1', 'reminder', x'7b7d')")
        self.assert_refused(INCOMPATIBLE)

    def test_a_row_whose_payload_is_no_blob(self):
        self.make_store("INSERT INTO PlannerRecord VALUES ('note-2026-01-01', 'note', 'text')")
        self.assert_refused("A planner record is unreadable.")

    def test_a_truncated_file(self):
        whole = self.make_store()
        self.home.store.write_bytes(whole[:len(whole) // 2])
        self.assert_refused()


if __name__ == "__main__":
    main()
