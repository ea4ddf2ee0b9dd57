"""A Wayland session: sway without a screen of its own, with Xwayland unless told otherwise."""

import contextlib
import itertools
import json
import os
import subprocess

from .base import ServiceError, wait_until
from .virtual_input import VirtualInput

CONFIG = """
output HEADLESS-1 resolution {size}
xwayland {xwayland}
focus_follows_mouse no
default_border pixel 2
default_floating_border pixel 2
seat * hide_cursor 1000
exec echo "$WAYLAND_DISPLAY" "$DISPLAY" > {told}.part && mv {told}.part {told}
"""

HEADLESS = {"WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1"}

# Sway refuses to run for root; here it sees itself as somebody else, and stays root for everybody else.
NOT_AS_ROOT = ["unshare", "--user", "--map-user=1000", "--map-group=1000", "setpriv", "--pdeathsig", "KILL"]


class Compositor:
    """Sets WAYLAND_DISPLAY and, with Xwayland, DISPLAY; programs choose their platform themselves."""

    def __init__(self, sandbox, size="1500x900", xwayland=True):
        self.sandbox = sandbox
        told = sandbox.root / "compositor-displays"
        config = sandbox.root / "sway.conf"
        config.write_text(CONFIG.format(size=size, told=told, xwayland="enable" if xwayland else "disable"))
        sandbox.env.update(SWAYSOCK=str(sandbox.runtime / "sway.sock"), XDG_SESSION_TYPE="wayland",
                           XDG_CURRENT_DESKTOP="sway")
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            sandbox.env.pop(name, None)
        self.process = sandbox.start("sway", [*(NOT_AS_ROOT if os.geteuid() == 0 else []), "sway", "--config", config],
                                     env=HEADLESS)
        wait_until(lambda: told.exists() or self.process.poll() is not None, "the compositor")
        if self.process.poll() is not None:
            raise ServiceError("the compositor did not start:\n" + sandbox.log("sway"))
        wayland, *x11 = told.read_text().split()
        sandbox.env["WAYLAND_DISPLAY"] = wayland
        if x11:
            sandbox.env["DISPLAY"] = x11[0]
        self.size = tuple(int(word) for word in size.split("x"))
        self.input = VirtualInput(sandbox.runtime / wayland, self.size)
        sandbox.at_close.append(self.input.close)

    def command(self, words):
        """One of sway's own commands, for example "output HEADLESS-1 scale 1.5"."""
        self.sandbox.run(["swaymsg", words])

    def screenshot(self, path):
        """The whole screen as a PNG."""
        self.sandbox.run(["grim", path])
        return path

    # Windows. A hidden one is not in sway's tree: it is as good as gone.

    def views(self, application="", title=""):
        """All windows of the application (its app_id or X11 class begins so) whose title holds the text."""
        return [view for view in _views(json.loads(self.sandbox.run(["swaymsg", "-t", "get_tree"])))
                if application_of(view).startswith(application) and title in (view["name"] or "")]

    def wait_view(self, application="", title="", seconds=60):
        return wait_until(lambda: self.views(application, title),
                          f"a window “{title}” of {application or 'any application'}", seconds, every=0.05)[-1]

    def focused(self):
        """The window with the keyboard focus, or None."""
        return next((view for view in self.views() if view["focused"]), None)

    def turn_to(self, view):
        """As a person does who chooses it by sway's keys; returns what sway tells of it now."""
        self.command(f"[con_id={view['id']}] focus")

        def focused():
            found = self.focused()
            return found if found and found["id"] == view["id"] else None
        return wait_until(focused, "the window to have the focus")


class Witness:
    """Notes every window that is shown, hidden or given the focus, however shortly, until it is closed."""

    numbers = itertools.count(1)

    def __init__(self, compositor):
        self.sandbox = compositor.sandbox
        self.log_name = f"witness-{next(self.numbers)}"
        self.process = self.sandbox.start(self.log_name, ["swaymsg", "--raw", "-t", "subscribe", "-m", '["window", "tick"]'])
        wait_until(self._sees, "the witness to look", every=0.1)

    def _sees(self):
        self.sandbox.run(["swaymsg", "-t", "send_tick", "seen"])
        return '"seen"' in self.sandbox.log(self.log_name)

    def events(self, change, application):
        """How often a window of the application went through "new", "close" or "focus"."""
        seen = []
        for line in self.sandbox.log(self.log_name).splitlines():
            with contextlib.suppress(ValueError):  # the last one may be on its way
                seen.append(json.loads(line))
        return sum(1 for event in seen if event.get("change") == change
                   and application_of(event["container"]).startswith(application))

    def close(self):
        self.sandbox.stop(self.process)


def application_of(view):
    """The name by which its application goes: the app_id, or under Xwayland the class."""
    return view.get("app_id") or (view.get("window_properties") or {}).get("class") or ""


def is_x11(view):
    return view["shell"] == "xwayland"


def inside_of(view):
    """Where the inside of its border begins on the screen."""
    return view["rect"]["x"] + view["window_rect"]["x"], view["rect"]["y"] + view["window_rect"]["y"]


def _views(node):
    if node.get("pid"):
        yield node
    for child in node["nodes"] + node["floating_nodes"]:
        yield from _views(child)
