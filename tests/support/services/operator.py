"""A person at the desktop: finds controls by role and name as a screen reader does, and uses mouse and keyboard."""

import os

from .base import ServiceError, wait_until


class Operator:
    """Looks through the accessibility bus and acts through synthetic input.

    One per process: the accessibility library connects to the bus of the environment it is first used in.
    """

    def __init__(self, sandbox):
        self.sandbox = sandbox
        for name in ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "DISPLAY"):
            if name in sandbox.env:
                os.environ[name] = sandbox.env[name]
        os.environ.pop("NO_AT_BRIDGE", None)
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        import pyatspi
        self.atspi = pyatspi

    def application(self, name, seconds=60, process=None):
        """The running program whose accessible name begins with `name`, and that is this process where one is given.

        One that has just ended may still be listed.
        """
        return wait_until(lambda: self._application(name, process), f"the program “{name}” on the accessibility bus",
                          seconds, every=0.1)

    def _application(self, name, process):
        for program in self._children(self.atspi.Registry.getDesktop(0)):
            if program and (self._name(program) or "").lower().startswith(name.lower()) \
                    and process in (None, self._process_of(program)):
                return program
        return None

    def _process_of(self, program):
        try:
            return program.get_process_id()
        except Exception:  # it has ended
            return -1

    def find(self, root, name=None, role=None, seconds=60, showing=True, where=None):
        """The first control below `root` with this accessible name (exact) and role name."""
        return wait_until(lambda: self._find(root, name, role, showing, where),
                          f"the control “{name}” ({role or 'any role'})", seconds, every=0.05)

    def exists(self, root, name=None, role=None, showing=True):
        return self._find(root, name, role, showing, None) is not None

    def _find(self, root, name, role, showing, where):
        for child in self._children(root):
            try:
                matches = ((name is None or child.name == name) and (role is None or child.getRoleName() == role)
                           and (not showing or self.has_state(child, "STATE_SHOWING"))
                           and (where is None or where(child)))
            except Exception:  # a control may go away while it is being looked at
                continue
            if matches:
                return child
            found = self._find(child, name, role, showing, where)
            if found:
                return found
        return None

    def _children(self, node):
        try:
            return [node.getChildAtIndex(i) for i in range(node.childCount)]
        except Exception:  # the program may be gone by now
            return []

    def _name(self, node):
        try:
            return node.name
        except Exception:
            return None

    def has_state(self, control, state):
        try:
            return control.getState().contains(getattr(self.atspi, state))
        except Exception:
            return False

    def is_enabled(self, control):
        return self.has_state(control, "STATE_ENABLED") and self.has_state(control, "STATE_SENSITIVE")

    def text(self, control):
        try:
            interface = control.queryText()
            return interface.getText(0, interface.characterCount)
        except NotImplementedError:
            return control.name

    def value_text(self, control):
        """What a control with a fixed name shows: its text where it has one, else its description."""
        return control.description or self.text(control)

    def type_into(self, window, text):
        """Types into whatever has the focus in the window."""
        self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
        self.sandbox.run(["xdotool", "type", "--delay", "20", text], seconds=60)

    def click(self, control, seconds=60):
        """Moves the pointer onto the control and presses the left button there."""
        wait_until(lambda: self.is_enabled(control), f"“{control.name}” to be enabled", seconds, every=0.02)
        self.click_at_once(control)

    def click_at_once(self, control):
        """As an impatient person does: whether it is enabled or not."""
        box = self.place(control)
        if box.width <= 0 or box.height <= 0:
            raise ServiceError(f"“{control.name}” has no place on the screen")
        self.sandbox.run(["xdotool", "mousemove", box.x + box.width // 2, box.y + box.height // 2,
                          "click", "1"])

    def place(self, control):
        """Where it is on the screen: x, y, width, height."""
        return control.queryComponent().getExtents(self.atspi.DESKTOP_COORDS)

    def key(self, combination, window=None):
        """Presses keys, for example "ctrl+Return", in the window that has the focus or in the given one."""
        if window:
            self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
        self.sandbox.run(["xdotool", "key", "--clearmodifiers", combination])

    def move_window(self, window, x, y):
        self.sandbox.run(["xdotool", "windowmove", window, x, y])

    def window(self, pattern, seconds=60):
        """The id of a visible window whose title matches the pattern."""
        def search():
            try:
                found = self.sandbox.run(["xdotool", "search", "--onlyvisible", "--name", pattern]).split()
            except ServiceError:
                return None
            return found[-1] if found else None
        return wait_until(search, f"a window titled “{pattern}”", seconds, every=0.1)
