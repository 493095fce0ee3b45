"""What is chosen on the Settings page takes effect at once and is there at the next start."""

from harness import Keyboard, Pointer, holds_for, main, pixel, run, wait_until
from planner import PlannerTest
from test_monitors import HALF, display_id, join, split

CARDS = ("Tasks", "Focus", "Notes", "Agenda")
NOTHING = ("filler", "unknown", "invalid", "panel", "redundant object")
DARK_PAGE = "#111512"
LIGHT_PAGE = "#F8F6F0"


class Settings(PlannerTest):
    def setUp(self):
        super().setUp()
        self.orvane = self.started()
        self.orvane.open_settings()

    def toggle(self, name):
        self.orvane.wait_for(name, role="check box").press()

    def choose(self, name):
        self.orvane.wait_for(name, role="radio button").press()

    def wait_kept(self, **expected):
        """Waits until the preferences on disk have these values."""
        def kept():
            stored = self.home.preferences()
            return all(stored.get(key) == value for key, value in expected.items())
        wait_until(kept, f"the preferences to hold {expected}")

    def open_settings_again(self):
        self.orvane.kill()
        self.orvane = self.started()
        self.orvane.open_settings()

    def wait_order(self, *names):
        """Waits until the cards' rows stand in this order, from top to bottom."""
        def in_order():
            tops = [self.orvane.wait_for(name, role="check box").box()[1] for name in names]
            return tops == sorted(tops)
        wait_until(in_order, f"the cards to stand as {names}")

    def panel_closed(self):
        return self.orvane.find("Close workspace") is None

    def page_colour(self):
        left, top, _, height = self.orvane.wait_for("Your space, your way.", role="heading").box()
        return pixel(left - 8, top + height / 2)

    def scroll_down(self):
        Keyboard.press("Next", "Next")
        self.orvane.wait_for("Restore backup…", role="push button")

    def assert_roles(self, expected):
        """Everything on show has a role and a name, and these items have these."""
        roles = {}
        for item in self.orvane.items():
            roles.setdefault(item.name, set()).add(item.role)
            if item.has("focusable") and item.role not in ("frame", "window"):
                self.assertNotIn(item.role, NOTHING, f"the role of {item}")
                self.assertTrue(item.name.strip(), f"the name of {item} at {item.box()}")
        for name, role in expected.items():
            self.assertIn(role, roles.get(name, set()), f"the role of {name!r}")

    def test_every_control_has_a_role_and_a_name(self):
        self.assert_roles({
            "Open workspace on hover": "check box", "Tasks": "check box", "Agenda": "check box",
            "Move tasks left": "push button", "Move agenda right": "push button", "Card width": "slider",
            "Show notch on": "combo box", "System": "radio button", "Workspace": "heading"})
        self.assertTrue(self.orvane.find("Tasks", role="check box").has("checked"))
        self.assertTrue(self.orvane.find("Settings", role="page tab").has("selected"))
        self.scroll_down()
        self.assert_roles({"Default focus: 25 minutes": "spin button", "Export JSON backup…": "push button",
                           "Restore backup…": "push button"})

    def test_the_panels_header_leads_to_the_page(self):
        self.orvane.close_dashboard()
        self.orvane.open()
        self.orvane.click("Settings", role="push button")
        self.orvane.wait_for("Your space, your way.", role="heading")
        self.assertTrue(self.panel_closed())

    def test_without_opening_on_hover_only_the_hot_key_opens(self):
        self.toggle("Open workspace on hover")
        self.wait_kept(hoverEnabled=False)
        self.orvane.close_dashboard()
        self.orvane.hover()
        holds_for(self.panel_closed, 0.9, "hovering opens nothing")
        Keyboard.press("alt+n")
        self.orvane.add_field()

    def test_hovering_opens_nothing_while_the_page_is_on_show(self):
        self.terminal()
        self.orvane.hover()
        holds_for(self.panel_closed, 0.9, "hovering opens nothing")
        self.orvane.click("Today", role="page tab")
        self.activate_terminal()
        self.orvane.open()

    def test_hidden_cards_leave_the_panel_and_the_empty_panel_leads_back(self):
        for name in CARDS:
            self.toggle(name)
        self.wait_kept(hiddenCards=["tasks", "focus", "notes", "agenda"])
        self.orvane.close_dashboard()
        self.orvane.wait_for_strip().press()
        self.orvane.wait_for("Your workspace is a clean slate.")
        self.assertIsNone(self.orvane.find("Your tasks"))
        self.orvane.click("Choose your cards")
        self.toggle("Tasks")
        self.wait_kept(hiddenCards=["focus", "notes", "agenda"])
        self.orvane.close_dashboard()
        self.orvane.open()

    def test_the_appearance_is_seen_at_once_and_after_a_restart(self):
        self.choose("Light")
        wait_until(lambda: self.page_colour() == LIGHT_PAGE, "a light page")
        self.choose("Dark")
        wait_until(lambda: self.page_colour() == DARK_PAGE, "a dark page")
        self.orvane = self.restarted(self.orvane)
        self.orvane.open_settings()
        wait_until(lambda: self.page_colour() == DARK_PAGE, "a dark page after a restart")
        self.assertTrue(self.orvane.find("Dark", role="radio button").has("checked"))
        self.assertFalse(self.orvane.find("Light", role="radio button").has("checked"))

    def test_a_new_order_survives_a_kill_at_once(self):
        self.orvane.wait_for("Move tasks right").press()
        self.wait_order("Focus", "Tasks", "Notes", "Agenda")
        self.orvane.kill()
        self.wait_kept(cards=["focus", "tasks", "notes", "agenda"])
        self.open_settings_again()
        self.wait_order("Focus", "Tasks", "Notes", "Agenda")

    def test_a_width_is_kept_when_the_drag_is_over_and_survives_a_kill(self):
        left, top, width, height = self.orvane.wait_for("Card width", role="slider").box()
        Pointer.drag((left + width * 0.2, top + height / 2), (left + width * 0.8, top + height / 2))
        self.wait_kept(cardWidth=350)
        self.open_settings_again()
        self.assertEqual(350, self.orvane.wait_for("Card width", role="slider").value())

    def test_assistive_technology_sets_the_numbers(self):
        self.orvane.wait_for("Card width", role="slider").set_value(304)
        self.wait_kept(cardWidth=300)
        self.scroll_down()
        self.orvane.wait_for(starting="Default focus", role="spin button").set_value(50)
        self.orvane.wait_for("Default focus: 50 minutes", role="spin button")
        self.wait_kept(defaultMinutes=50)

    def test_the_whole_page_is_worked_by_keyboard(self):
        def focused():
            names = [item.name for item in self.orvane.items() if item.has("focused")]
            return names[-1] if names else None

        def go_to(name):
            for _ in range(30):
                if focused() == name:
                    return
                before = focused()
                Keyboard.press("Tab")
                wait_until(lambda: focused() != before, f"Tab to move on from {before!r}")
            self.fail(f"{name!r} was not reached")
        go_to("Open workspace on hover")
        Keyboard.press("space")
        go_to("Move tasks right")
        Keyboard.press("space", "space", "space")
        wait_until(lambda: focused() == "Move tasks left", "the keyboard on the other button")
        go_to("Agenda")
        Keyboard.press("Return")
        go_to("Card width")
        Keyboard.press("End")
        go_to("System")
        Keyboard.press("Right", "Right")
        go_to("Default focus: 25 minutes")
        Keyboard.press("Up")
        self.wait_kept(hoverEnabled=False, cards=["focus", "notes", "agenda", "tasks"], hiddenCards=["agenda"],
                       cardWidth=380, appearance="dark", defaultMinutes=26)


class Displays(PlannerTest):
    def setUp(self):
        super().setUp()
        self.addCleanup(join)
        split()
        self.orvane = self.started()
        self.orvane.open_settings()

    def strip_middle(self):
        left, _, width, _ = self.orvane.wait_for_strip().box()
        return left + width / 2

    def test_the_strip_goes_to_the_chosen_display_and_falls_back_without_it(self):
        self.orvane.click("Show notch on", role="combo box")
        self.orvane.wait_for("RIGHT", role="menu item").press()
        wait_until(lambda: abs(self.strip_middle() - HALF * 3 / 2) <= 1, "the strip on the right")
        wait_until(lambda: self.home.preferences()["displayID"] == display_id("RIGHT"), "the choice to be kept")
        run("xrandr", "--delmonitor", "RIGHT")
        self.orvane.wait_for("Preferred display disconnected (using fallback)")
        wait_until(lambda: abs(self.strip_middle() - HALF / 2) <= 1, "the strip back on the left")
        self.assertEqual(display_id("RIGHT"), self.home.preferences()["displayID"])


if __name__ == "__main__":
    main()
