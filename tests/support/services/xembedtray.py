"""A real system tray of the XEmbed kind (System Tray Protocol Specification), for a display that has a window manager."""

import re
import subprocess

from .base import ServiceError, wait_until


class XEmbedTray:
    """Starts it in the sandbox, and works what stands in it with the mouse."""

    SIZE = 24

    def __init__(self, sandbox):
        self.sandbox = sandbox
        sandbox.start("trayer", ["trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--heighttype",
                                 "pixel", "--height", self.SIZE, "--SetDockType", "true"])
        self.panel = wait_until(self._find_panel, "the tray", 60, every=0.1)

    def _find_panel(self):
        """The one of its windows that has a place on the screen."""
        try:
            found = self.sandbox.run(["xdotool", "search", "--onlyvisible", "--class", "trayer"]).split()
        except ServiceError:
            return None
        return found[-1] if found else None

    def items(self):
        """The ids of the programs' windows that it has taken in: those with a name, within frames of its own."""
        tree = self.sandbox.run(["xwininfo", "-id", self.panel, "-tree"])
        return [str(int(number, 16)) for number in re.findall(r'^\s+(0x[0-9a-f]+) "', tree.split("child", 1)[-1], re.M)]

    def click(self, item):
        place = self.sandbox.run(["xdotool", "getwindowgeometry", "--shell", item])
        x, y, width, height = (int(re.search(rf"^{name}=(-?\d+)", place, re.M).group(1))
                               for name in ("X", "Y", "WIDTH", "HEIGHT"))
        self.sandbox.run(["xdotool", "mousemove", x + width // 2, y + height // 2, "click", "1"])

    def colours(self, item):
        """How many different ones its picture has."""
        done = subprocess.run(["import", "-silent", "-window", item, "-format", "%k", "info:"], env=self.sandbox.env,
                              capture_output=True, text=True, timeout=20, check=True)
        return int(done.stdout)
