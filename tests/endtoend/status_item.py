#!/usr/bin/python3
"""The status item of the running program, on a desktop that has a place for one."""

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
from services.tray import Tray  # noqa: E402
from services.windows import Windows  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
PATIENCE = 60  # seconds


class StatusItem(unittest.TestCase):
    """One desktop for all; Kest is started anew for each test."""

    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox()
        cls.addClassCleanup(cls.sandbox.close)
        SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox)
        AccessibilityBus(cls.sandbox)
        cls.sound = SoundServer(cls.sandbox, "pulseaudio")
        cls.addClassCleanup(cls.sound.close)
        cls.tray = Tray(cls.sandbox)
        wait_until(cls.tray.is_up, "the place for status items", PATIENCE)
        cls.windows = Windows(cls.sandbox)
        cls.person = Operator(cls.sandbox)
        cls.sandbox.start("calculator", ["xcalc", "-geometry", "+800+400"])
        cls.calculator = cls.windows.of_class("XCalc", PATIENCE)

    def setUp(self):
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        for earlier in self.kest.recordings():
            earlier.unlink()
        self.wait_until_no_item()  # of an earlier program
        self.kest.start(PATIENCE)
        self.addCleanup(lambda: self.sandbox.stop(self.kest.process))
        self.window = self.person.window("^Kest$")
        self.item = wait_until(self.tray.items, "the status item", PATIENCE)[0]

    def hide(self):
        self.windows.turn_to(self.calculator)
        wait_until(lambda: not self.windows.is_viewable(self.window), "the window to hide", PATIENCE)

    def wait_until_back(self):
        wait_until(lambda: self.windows.is_viewable(self.window), "the window to come back", PATIENCE)

    def wait_until_no_item(self):
        wait_until(lambda: not self.tray.items(), "the item to go", PATIENCE)

    def labels(self):
        return list(self.tray.menu(self.item))

    def test_its_menu_offers_no_recording(self):
        self.assertEqual(self.labels(), ["Show Kest", "Quit Kest"])
        self.assertEqual(self.tray.tool_tip(self.item), "Kest")

    def test_it_stops_a_recording_of_the_hidden_window(self):
        self.kest.click("Record")
        wait_until(lambda: self.labels() == ["Show Kest", "Stop Recording", "Quit Kest"], "the menu to offer Stop",
                   PATIENCE)
        wait_until(lambda: self.tray.tool_tip(self.item) == "Kest – recording", "the item to say so", PATIENCE)
        wait_until(lambda: self.kest.time_text() >= "00:01", "a second of recording", PATIENCE)
        self.hide()
        self.tray.choose(self.item, "Stop Recording")
        wait_until(lambda: self.labels() == ["Show Kest", "Quit Kest"], "the recording to end", PATIENCE)
        wait_until(lambda: self.tray.tool_tip(self.item) == "Kest", "the item to say so", PATIENCE)
        self.assertFalse(self.windows.is_viewable(self.window))
        self.assertIsNotNone(self.kest.only_recording())

    def test_a_pause_shows(self):
        self.kest.click("Record")
        wait_until(lambda: self.tray.tool_tip(self.item) == "Kest – recording", "the item to say so", PATIENCE)
        self.kest.click("Pause")
        wait_until(lambda: self.tray.tool_tip(self.item) == "Kest – paused", "the item to say so", PATIENCE)

    def test_it_brings_the_window_back(self):
        self.hide()
        self.tray.choose(self.item, "Show Kest")
        self.wait_until_back()
        self.hide()
        self.tray.activate(self.item)
        self.wait_until_back()

    def test_it_ends_the_program_and_goes_with_it(self):
        self.hide()
        self.tray.choose(self.item, "Quit Kest")
        self.assertEqual(self.kest.process.wait(PATIENCE), 0)
        self.wait_until_no_item()

    def test_it_does_not_keep_a_closed_program_alive(self):
        self.kest.quit(PATIENCE)
        self.wait_until_no_item()


if __name__ == "__main__":
    unittest.main()
