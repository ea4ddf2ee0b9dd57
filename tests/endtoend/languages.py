#!/usr/bin/python3
"""The running program in the languages of those who sit before it, as the environment of the session names them."""

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

BUILD = Path(os.environ["KEST_BUILD_DIR"])


class Languages(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox()
        cls.addClassCleanup(cls.sandbox.close)
        SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox)
        AccessibilityBus(cls.sandbox)
        cls.person = Operator(cls.sandbox)

    def start(self, record, **environment):
        """Starts Kest where these variables are set, and waits for the control that is named `record` in its language."""
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.addCleanup(lambda: self.sandbox.stop(self.kest.process))
        self.kest.start(60, environment, record)

    def place(self, name):
        return self.person.place(self.kest.control(name))

    def test_in_german_window_and_preferences_are_german(self):
        self.start("Aufnehmen", LANGUAGE="de")
        for name in ("Neue Nachricht", "Antworten", "Allen antworten"):
            self.kest.control(name)
        self.assertEqual(self.person.value_text(self.kest.control("Hinweis")), "Bereit zur Aufnahme")
        self.assertLess(self.place("Neue Nachricht").x, self.place("Allen antworten").x)
        self.kest.click("Einstellungen")
        self.kest.control("Antworten sofort senden")
        self.kest.click("Schließen")
        wait_until(lambda: not self.person.exists(self.kest.root, "Schließen"), "the sheet to go")

    def test_in_arabic_the_window_begins_at_the_right(self):
        self.start("تسجيل", LC_ALL="", LANGUAGE="ar:en")
        self.assertGreater(self.place("رسالة جديدة").x, self.place("الرد على الكل").x)
        self.assertGreater(self.place("تسجيل").x, self.place("مدة التسجيل").x)
        self.assertEqual(self.person.value_text(self.kest.control("مدة التسجيل")), "--:--")

    def test_whoever_wants_english_first_gets_english(self):
        self.start("Record", LANGUAGE="en_GB:de")
        self.kest.control("Reply All")

    def test_a_language_that_is_not_there_leaves_english(self):
        self.start("Record", LANGUAGE="eo")
        self.kest.control("Reply All")


if __name__ == "__main__":
    unittest.main()
