#!/usr/bin/python3
"""The very first start of the program: the welcome, what can be tried in it, and that it comes once."""

import os
import struct
import sys
import unittest
from math import pi, sin
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.accessible_events import AccessibleEvents  # noqa: E402
from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
TONE = b"".join(struct.pack("<h", int(6000 * sin(2 * pi * 441 * at / 44100))) for at in range(44100))


class FirstStart(unittest.TestCase):

    def setUp(self):
        self.sandbox = Sandbox()
        self.addCleanup(self.sandbox.close)
        SessionBus(self.sandbox)
        Display(self.sandbox)
        AccessibilityBus(self.sandbox)
        self.sound = SoundServer(self.sandbox, "pulseaudio")
        self.addCleanup(self.sound.close)
        self.person = Operator(self.sandbox)
        self.events = AccessibleEvents(self.sandbox)
        wait_until(self.events.listens, "the listener on the accessibility bus", 60)
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.sandbox.welcomed.unlink()

    def wait_for_welcome(self):
        """It is on the screen, and takes the keys."""
        self.kest.control("Start", 30)
        welcome = self.person.window("^Welcome to Kest$")
        wait_until(lambda: self.sandbox.run(["xdotool", "getactivewindow"]).strip() == str(welcome), "its focus", 30)

    def test_it_welcomes_once_and_lets_the_microphone_be_tried(self):
        self.kest.start(60)
        self.wait_for_welcome()
        self.assertEqual(self.person.value_text(self.kest.control("Microphone Name")), "Built-in Microphone")
        self.assertEqual(self.sound.recorders(), 0)
        self.kest.click("Try the Microphone")
        wait_until(lambda: self.sound.recorders() == 1, "the microphone to be open", 30)
        self.sound.microphone.hum(TONE)
        self.kest.control("You are heard.", 30)
        wait_until(lambda: "You are heard." in self.events.announced(), "it to be announced", 30)
        self.kest.come_back()
        self.wait_for_welcome()
        self.person.key("Escape")
        wait_until(lambda: not self.person.exists(self.kest.root, "Start"), "the welcome to go", 30)
        wait_until(lambda: self.sound.recorders() == 0, "the microphone to be closed", 30)
        self.assertTrue(self.sandbox.welcomed.exists())
        self.assertEqual(self.kest.recordings(), [])
        self.kest.quit(30)
        self.kest.start(60)
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin", 30)
        self.assertFalse(self.person.exists(self.kest.root, "Try the Microphone"))
        self.kest.quit(30)


if __name__ == "__main__":
    unittest.main()
