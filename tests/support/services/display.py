"""A virtual display with a window manager."""

import subprocess

from .base import ServiceError, wait_until

OPENBOX = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <placement><policy>Smart</policy></placement>
  <theme><name>Clearlooks</name></theme>
  <desktops><number>1</number></desktops>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
</openbox_config>
"""


class Display:
    """Xvfb on a display number of its own choosing, with openbox unless told otherwise."""

    def __init__(self, sandbox, size="1280x800", window_manager=True):
        self.sandbox = sandbox
        process = sandbox.start(
            "display", ["Xvfb", "-displayfd", "1", "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"],
            stdout=subprocess.PIPE)
        number = process.stdout.readline().decode().strip()
        if not number:
            raise ServiceError("the virtual display did not start:\n" + sandbox.log("display"))
        self.process = process
        self.name = f":{number}"
        sandbox.env.update(DISPLAY=self.name, QT_QPA_PLATFORM="xcb", XDG_SESSION_TYPE="x11")
        sandbox.env.pop("WAYLAND_DISPLAY", None)
        if window_manager:
            config = sandbox.root / "openbox.xml"
            config.write_text(OPENBOX)
            # It says that it is there before it looks for windows: one that is shown between the two it never manages.
            running = sandbox.root / f"openbox-runs-{number}"
            self.window_manager = sandbox.start(
                "openbox", ["openbox", "--sm-disable", "--config-file", config, "--startup", f"touch {running}"])
            wait_until(running.exists, "the window manager")

    def screenshot(self, path):
        """The whole screen as a PNG."""
        self.sandbox.run(["import", "-silent", "-window", "root", str(path)])
        return path
