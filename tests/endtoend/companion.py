#!/usr/bin/python3
"""The window beside the real Thunderbird: when it hides, when it comes back, and that it never takes the keyboard."""

import os
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mailbus import MailBus  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402
from services.windows import MapWitness, Windows  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
AFTER_THE_GRACE = 0.6  # seconds; another application counts after a quarter of one
SUBJECT = "Beside the companion"


class Companion(unittest.TestCase):
    """One desktop with Kest, Thunderbird's main window and one of its compose windows, and a calculator."""

    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox()
        cls.addClassCleanup(cls.sandbox.close)
        SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox, "1500x900")
        AccessibilityBus(cls.sandbox)
        cls.sound = SoundServer(cls.sandbox, "pulseaudio")
        cls.addClassCleanup(cls.sound.close)
        cls.thunderbird = Thunderbird(cls.sandbox).start()
        cls.addClassCleanup(cls.thunderbird.stop)
        cls.bus = MailBus(cls.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        cls.windows = Windows(cls.sandbox)
        cls.person = Operator(cls.sandbox)
        cls.message = cls.bus.new_message(SUBJECT)
        cls.compose = cls.thunderbird.wait_window(f"Write: {SUBJECT}", 30)
        cls.inbox = cls.thunderbird.wait_window("Mozilla Thunderbird")
        cls.person.move_window(cls.compose, 0, 0)
        cls.sandbox.start("calculator", ["xcalc", "-geometry", "+1200+500"])
        cls.calculator = cls.windows.of_class("XCalc")

    def setUp(self):
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.kest.start()
        self.addCleanup(lambda: self.sandbox.stop(self.kest.process))
        self.window = self.person.window("^Kest$")
        self.person.move_window(self.window, 1000, 100)
        self.witness = MapWitness(self.sandbox, self.window)
        self.addCleanup(self.witness.close)
        wait_until(lambda: self.windows.active() == self.window, "Kest to be in front")

    def hide_by_turning_away(self):
        self.windows.turn_to(self.calculator)
        wait_until(lambda: not self.windows.is_viewable(self.window), "the window to hide")

    def wait_until_back(self):
        wait_until(lambda: self.windows.is_viewable(self.window), "the window to come back")

    def test_it_stays_when_thunderbird_comes_to_the_front(self):
        self.windows.turn_to(self.inbox)
        time.sleep(AFTER_THE_GRACE)
        self.assertEqual(self.witness.hidings(), 0)

    def test_it_hides_when_another_application_comes_to_the_front(self):
        for begin in (self.window, self.inbox):
            self.windows.turn_to(begin)
            self.hide_by_turning_away()
            self.assertEqual(self.windows.active(), self.calculator)
            self.windows.turn_to(self.inbox)
            self.wait_until_back()

    def test_it_comes_back_with_each_window_of_thunderbird_and_leaves_it_in_front(self):
        for window in (self.inbox, self.compose):
            self.hide_by_turning_away()
            self.windows.turn_to(window)
            self.wait_until_back()
            time.sleep(AFTER_THE_GRACE)
            self.assertEqual(self.windows.active(), window)
            self.assertTrue(self.windows.is_viewable(self.window))

    def test_going_between_two_windows_of_thunderbird_never_hides_it(self):
        for _ in range(8):
            self.windows.turn_to(self.inbox)
            self.windows.turn_to(self.compose)
        for window in (self.inbox, self.compose, self.window):
            self.windows.turn_to(window)
            time.sleep(AFTER_THE_GRACE)
        self.assertEqual(self.witness.hidings(), 0)

    def test_what_is_typed_while_it_comes_back_all_arrives(self):
        self.windows.turn_to(self.compose)
        self.sandbox.run(["xdotool", "mousemove", "--window", self.compose, 300, 450, "click", 1])
        typed = ""
        for number in range(4):
            self.hide_by_turning_away()
            sentence = f"{number} the quick brown fox jumps over the lazy dog "
            self.person.type_into(self.compose, sentence)
            typed += sentence
            self.wait_until_back()
            self.assertEqual(self.windows.active(), self.compose)
        wait_until(lambda: self.witness.hidings() >= 4, "the witness to tell of the last hiding")
        self.assertEqual(self.witness.hidings(), 4)
        wait_until(lambda: typed.strip() in str(self.bus.get(self.message, "Content")), "the text in the message")


if __name__ == "__main__":
    unittest.main()
