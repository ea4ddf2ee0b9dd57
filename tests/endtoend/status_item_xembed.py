#!/usr/bin/python3
"""The status item where the desktop has the older kind of place for it, as panels under X11 have: a small real one."""

import os
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.windows import Windows  # noqa: E402
from services.xembedtray import XEmbedTray  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
PATIENCE = 60  # seconds


class StatusItemInAnXEmbedTray(unittest.TestCase):

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)
        SessionBus(self.sandbox)
        Display(self.sandbox)
        AccessibilityBus(self.sandbox)
        sound = SoundServer(self.sandbox, "pulseaudio")
        self.addCleanup(sound.close)
        self.tray = XEmbedTray(self.sandbox)
        self.windows = Windows(self.sandbox)
        self.person = Operator(self.sandbox)
        self.sandbox.start("calculator", ["xcalc", "-geometry", "+800+400"])
        self.calculator = self.windows.of_class("XCalc", PATIENCE)
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.kest.start(PATIENCE)
        wait_until(self.tray.items, "the status item in the tray", PATIENCE)
        self.window = wait_until(self.main_window, "Kest's window", PATIENCE)

    def main_window(self):
        """The item in the tray bears the same name."""
        found = self.sandbox.run(["xdotool", "search", "--onlyvisible", "--name", "^Kest$"]).split()
        return next((window for window in found if window not in self.tray.items()), None)

    def hide(self):
        self.windows.turn_to(self.calculator)
        wait_until(lambda: not self.windows.is_viewable(self.window), "the window to hide", PATIENCE)

    def test_a_click_brings_the_window_back_and_the_end_takes_the_item_away(self):
        [item] = self.tray.items()
        self.assertGreater(self.tray.colours(item), 10, "a picture with colours")
        self.hide()
        self.tray.click(item)
        wait_until(lambda: self.windows.is_viewable(self.window), "the window to come back", PATIENCE)
        self.kest.quit(PATIENCE)
        wait_until(lambda: not self.tray.items(), "the item to go", PATIENCE)


if __name__ == "__main__":
    unittest.main()
