"""Kest's own window in a process of its own, over a real bus, with a recording to hand over."""

import json
import select
import subprocess

from services.base import ServiceError

from .driven import PATIENCE

# What a person presses, and the settings that the window has for it.
COMMANDS = {"New Message": ("sending", "New Message"), "Reply, sent": ("sending", "Reply"), "Reply, shown": ("showing", "Reply")}
BACK_ENDS = ("script", "own")


class KestWindow:
    """kest-driven-window. In seconds the limits for a call, for the start of a mail application, and for the call after one
    that was not answered in time."""

    def __init__(self, context, answer, start, again):
        self.sandbox = context.sandbox
        limits = (int(limit * 1000) for limit in (answer, start, again))
        self.process = self.sandbox.start("window", [context.build / "bin/kest-driven-window", *limits], stdin=subprocess.PIPE,
                                          stdout=subprocess.PIPE, env={"QT_QPA_PLATFORM": "offscreen"})

    def tell(self, command, seconds=PATIENCE):
        self.process.stdin.write(command.encode() + b"\n")
        self.process.stdin.flush()
        ready, _, _ = select.select([self.process.stdout], [], [], seconds)
        if not ready:
            raise ServiceError(f"the window hangs at “{command}”")
        return self.process.stdout.readline().decode().strip()

    def take(self, command):
        """A new window with a recording, and the settings for the command."""
        if self.tell(f"take {COMMANDS[command][0]}") != "taken":
            raise ServiceError("no recording")

    def take_again(self):
        if self.tell("again") != "taken":
            raise ServiceError("no recording afterwards")

    def press(self, back_end, command, seconds=PATIENCE):
        """What kest-driven-window.cpp says of a press."""
        return json.loads(self.tell(f"press {back_end} {COMMANDS[command][1]}", seconds))

    def close(self):
        self.process.stdin.close()
        self.sandbox.stop(self.process)
