"""What a program says of itself on the accessibility bus: items found by name, where they are and in
which state."""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from harness import DEADLINE, wait_until  # noqa: E402


class Item:
    """One accessible item of a program, as it was when it was looked up."""

    def __init__(self, node):
        self.node = node
        self.name = node.get_name() or ""
        self.role = node.get_role_name()

    def box(self):
        """Left, top, width and height in pixels of the display."""
        extents = self.node.get_extents(Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    def centre(self):
        left, top, width, height = self.box()
        return left + width / 2, top + height / 2

    def has(self, state):
        """Whether the item is in a state: "showing", "focused", "checked", "enabled" …"""
        return self.node.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    def press(self):
        """Presses the item as assistive technology does, without pointer or key."""
        action = self.node.get_action_iface()
        for index in range(action.get_n_actions()):
            if action.get_action_name(index) == "Press":
                return action.do_action(index)
        raise AssertionError(f"{self} has no press action")

    def value(self):
        """The number that a slider or the like is at."""
        return self.node.get_value_iface().get_current_value()

    def set_value(self, value):
        self.node.get_value_iface().set_current_value(value)

    def text(self):
        """What stands in a text field."""
        return self.node.get_text_iface().get_text(0, -1)

    def __repr__(self):
        return f"{self.role} {self.name!r}"


class Program:
    """The accessible items of one process."""

    def __init__(self, pid):
        self.pid = pid

    def _roots(self):
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_process_id() == self.pid:
                application.clear_cache()
                yield application

    def items(self, showing=True):
        """Every item in reading order; by default only what is on show."""
        todo = list(self._roots())
        while todo:
            node = todo.pop(0)
            try:
                item = Item(node)
                if showing and item.role not in ("application", "frame", "window") and not item.has("showing"):
                    continue
                yield item
                children = [node.get_child_at_index(index) for index in range(node.get_child_count())]
            except GLib.Error:
                continue  # went away while it was being looked at
            todo[:0] = [child for child in children if child is not None]

    def find(self, name=None, role=None, starting=None):
        """The first item on show with this name (or a name starting so) and role; None without one."""
        for item in self.items():
            if name is not None and item.name != name:
                continue
            if starting is not None and not item.name.startswith(starting):
                continue
            if role is not None and role not in item.role:
                continue
            return item
        return None

    def wait_for(self, name=None, role=None, starting=None, deadline=DEADLINE):
        """Waits until such an item shows and stands still, and returns it."""
        def found_at_rest():
            item = self.find(name, role, starting)
            if item is None:
                return None
            before = item.box()
            again = self.find(name, role, starting)
            return again if again is not None and again.box() == before and before[2] > 0 else None
        return wait_until(found_at_rest, f"{role or 'item'} {name or starting!r}", deadline)

    def wait_gone(self, name=None, role=None, starting=None):
        wait_until(lambda: self.find(name, role, starting) is None, f"{name or starting!r} to go away")

    def tree(self):
        """All items as text, for a failure's report."""
        return "\n".join(f"{item} {item.box() if item.role != 'application' else ''}"
                         for item in self.items(showing=False))
