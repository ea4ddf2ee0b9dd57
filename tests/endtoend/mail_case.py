"""One real Thunderbird for all tests of a class, on private services."""

import os
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(os.environ["KEST_SOURCE_DIR"]) / "tests" / "support"))

from services.base import Sandbox, repeat_until, wait_until  # noqa: E402,F401
from services.bus import SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mailbus import END, MailBus, error_of  # noqa: E402,F401
from services.mailserver import MailServer, message, text_of  # noqa: E402,F401
from services.thunderbird import Thunderbird  # noqa: E402

import dbus  # noqa: E402


class MailCase(unittest.TestCase):
    """`options` go to Thunderbird's fixture, `arguments` onto its command line."""

    options = {}
    arguments = ()

    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox(keep=bool(os.environ.get("KEST_KEEP")))
        cls.addClassCleanup(cls.sandbox.close)
        SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox)
        cls.mail = MailServer(cls.sandbox)
        cls.prepare_mail()
        cls.thunderbird = Thunderbird(cls.sandbox, cls.mail, **cls.options)
        cls.thunderbird.start(True, *cls.arguments)
        cls.bus = MailBus(cls.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])

    @classmethod
    def prepare_mail(cls):
        """What lies in the mailboxes before Thunderbird starts."""

    def setUp(self):
        self.mail.forget_sent()
        self.mail.refuse = None

    def run(self, result=None):
        before = len(result.errors) + len(result.failures) if result else 0
        super().run(result)
        if result and len(result.errors) + len(result.failures) > before:
            self._explain()

    def _explain(self):
        folder = Path(os.environ["KEST_BUILD_DIR"]) / "failures"
        folder.mkdir(exist_ok=True)
        shot = self.display.screenshot(folder / f"{self.id()}.png")
        print(f"--- {self.id()} failed; the screen is in {shot}; Thunderbird's log ends:\n"
              + self.sandbox.log("thunderbird")[-3000:], file=sys.stderr)

    def assertFails(self, name, work, *arguments, **keywords):
        """The call fails with that error of org.kest.Mail1.Error; returns the words."""
        with self.assertRaises(dbus.DBusException) as caught:
            work(*arguments, **keywords)
        found, words = error_of(caught.exception)
        self.assertEqual(found, name, words)
        self.assertTrue(words)
        return words
