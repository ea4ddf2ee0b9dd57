"""Looking at windows on a display, and turning from one to another, as the window manager has it."""

import itertools
import re

from .base import ServiceError, wait_until


class Windows:
    """The windows of the sandbox's display."""

    def __init__(self, sandbox):
        self.sandbox = sandbox

    def active(self):
        """The id of the window in front, or None."""
        told = self.sandbox.run(["xprop", "-root", "_NET_ACTIVE_WINDOW"])
        found = re.search(r"# (0x[0-9a-f]+)", told)
        return str(int(found.group(1), 16)) if found and int(found.group(1), 16) else None

    def turn_to(self, window):
        """As a person does who clicks it in a task list."""
        self.sandbox.run(["xdotool", "windowactivate", "--sync", window])
        wait_until(lambda: self.active() == window, "the window to be in front")

    def is_viewable(self, window):
        """Shown, by the window manager's word; the window may be on its way in or out of its frame."""
        return "window state: Normal" in self.sandbox.run(["xprop", "-id", window, "WM_STATE"])

    def of_class(self, name, seconds=60):
        """The id of the only visible window of that class."""
        def search():
            try:
                return self.sandbox.run(["xdotool", "search", "--onlyvisible", "--class", name]).split()
            except ServiceError:
                return None
        return wait_until(search, f"a window of the class {name}", seconds)[-1]


class MapWitness:
    """Notes every hiding of one window, however short, until it is closed."""

    numbers = itertools.count(1)

    def __init__(self, sandbox, window):
        self.sandbox = sandbox
        self.window = window
        self.log_name = f"witness-{next(self.numbers)}"
        self.process = sandbox.start(self.log_name, ["stdbuf", "-oL", "xev", "-id", window, "-event", "structure"])
        wait_until(self._sees, "the witness to look", every=0.1)

    def _sees(self):
        self.sandbox.run(["xdotool", "windowmove", "--relative", "--", self.window, "1", "0"])
        return "ConfigureNotify" in self.sandbox.log(self.log_name)

    def hidings(self):
        return self.sandbox.log(self.log_name).count("UnmapNotify event")

    def close(self):
        self.sandbox.stop(self.process)
