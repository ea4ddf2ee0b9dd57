#!/usr/bin/python3
"""A person who uses the installed Kest while its package is upgraded: upgrade_inside.py OLD_VERSION NEW_VERSION.

Says "upgrade now" on standard output when the moment has come, and goes on when a line arrives on standard input.
"""

import json
import os
import sys
from pathlib import Path

here = Path(__file__).resolve().parent
sys.path[:0] = [str(here.parent / "support"), str(here.parent / "endtoend")]
os.environ.update(KEST_BUILD_DIR="/usr", KEST_SOURCE_DIR=str(here.parent.parent))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, ServiceError, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mailbus import ROOT, MailBus  # noqa: E402
from services.mailserver import MailServer  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402


class Person:

    def __init__(self, sandbox):
        SessionBus(sandbox)
        Display(sandbox)
        AccessibilityBus(sandbox)
        self.sound = SoundServer(sandbox, "pulseaudio")
        sandbox.at_close.append(self.sound.close)
        self.thunderbird = Thunderbird(sandbox, MailServer(sandbox), system_addon=True)
        self.kest = KestProgram(sandbox, Operator(sandbox), "/usr")
        self.bus = MailBus(sandbox.env["DBUS_SESSION_BUS_ADDRESS"])

    def addon_version(self):
        """What Thunderbird has loaded."""
        extensions = self.thunderbird.profile / "extensions.json"
        found = [addon for addon in json.loads(extensions.read_text())["addons"] if addon["id"] == "kest@kest.invalid"]
        return found and found[0]["active"] and found[0]["version"]

    def expect_addon(self, version):
        wait_until(lambda: self.addon_version() == version, f"the add-on {version} to be active", 30)
        if not self.bus.accounts():
            raise ServiceError("the host names no account")

    def use_it(self, old, new):
        self.thunderbird.start()
        self.expect_addon(old)
        self.kest.start()
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() >= "00:01", "the time to run", 30)
        print("upgrade now", flush=True)
        sys.stdin.readline()
        self.sound.microphone.play_samples(bytes(2 * 44100))
        self.kest.click("Stop")
        path = wait_until(self.kest.only_recording, "the recording")
        wait_until(lambda: b"moof" not in path.read_bytes(), "the recording to be finished")
        self.kest.click("New Message")
        self.thunderbird.wait_window("Write: A voice email", 90)
        self.thunderbird.kill()
        self.thunderbird.wait_off_bus()
        self.thunderbird.start()
        self.expect_addon(new)


def main():
    with Sandbox() as sandbox:
        Person(sandbox).use_it(*sys.argv[1:])
    print("used")


if __name__ == "__main__":
    sys.exit(main())
