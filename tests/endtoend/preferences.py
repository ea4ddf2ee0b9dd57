#!/usr/bin/python3
"""The preferences of the running program, worked by mouse and keyboard, and what the next mail makes of them."""

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
from services.mail_content import ArrivedMail  # noqa: E402
from services.mailserver import MailServer  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402
from services.windows import MapWitness, Windows  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
SECOND_OF_SILENCE = bytes(2 * 44100)
SUBJECT = "Said by the Club"
AFTER_THE_GRACE = 0.6  # s, well over the 250 ms for which nobody may be in front


class Preferences(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox()
        cls.addClassCleanup(cls.sandbox.close)
        SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox)
        AccessibilityBus(cls.sandbox)
        cls.sound = SoundServer(cls.sandbox, "pulseaudio")
        cls.addClassCleanup(cls.sound.close)
        cls.mail_server = MailServer(cls.sandbox)
        cls.thunderbird = Thunderbird(cls.sandbox, cls.mail_server, second_account=True)
        cls.addClassCleanup(cls.thunderbird.stop)
        cls.person = Operator(cls.sandbox)
        cls.windows = Windows(cls.sandbox)

    def setUp(self):
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.sandbox.run(["rm", "-rf", Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest"])
        self.addCleanup(lambda: self.sandbox.stop(self.kest.process))

    def close_sheet(self):
        self.kest.click("Close")
        try:
            wait_until(lambda: not self.person.exists(self.kest.root, "Close"), "the sheet to go")
        except Exception:
            (BUILD / "failures").mkdir(exist_ok=True)
            self.display.screenshot(BUILD / "failures" / f"{self.id()}.png")
            raise

    def test_opening_the_preferences_starts_no_thunderbird_and_lists_its_accounts_when_it_comes(self):
        self.thunderbird.stop()
        self.thunderbird.wait_off_bus()
        self.kest.start()
        self.kest.click("Preferences")
        popup = self.kest.control("Sending Account")
        wait_until(lambda: "No mail application" in popup.description, "the word that none is connected")
        self.assertFalse(self.thunderbird.on_bus())
        self.thunderbird.start()
        wait_until(lambda: self.titles() == ["Anna's mail", "Club"], "the accounts", 60)
        self.assertFalse(self.person.exists(self.kest.root, "List Accounts"))
        self.close_sheet()

    def test_account_and_subject_that_were_chosen_are_in_the_next_message(self):
        if not self.thunderbird.on_bus():
            self.thunderbird.start()
        self.kest.start()
        self.kest.click("Preferences")
        self.choose_last_account("Club")
        self.kest.click("Subject")
        self.person.key("ctrl+a")
        self.person.type_into(self.person.window("^Preferences$"), SUBJECT)
        self.close_sheet()
        self.compose()
        self.send_to("friend@example.test")
        [path] = self.mail_server.outbox.glob("*.eml")
        mail = ArrivedMail(path)
        self.assertEqual(mail.subject, SUBJECT)
        self.assertEqual(str(mail.message["From"]), "The Club <club@example.test>")
        self.assertEqual([name for name, _, _ in mail.attachments], [self.kest.only_recording().name])

    def test_turning_to_another_application_leaves_the_window_while_the_sheet_is_open(self):
        calculator = self.sandbox.start("calculator", ["xcalc", "-geometry", "+900+500"])
        self.addCleanup(self.sandbox.stop, calculator)
        other = self.windows.of_class("XCalc")
        self.kest.start()
        window = self.person.window("^Kest$")
        self.kest.click("Preferences")
        self.kest.control("Close")
        witness = MapWitness(self.sandbox, window)
        self.addCleanup(witness.close)
        self.windows.turn_to(other)
        time.sleep(AFTER_THE_GRACE)
        self.assertEqual(witness.hidings(), 0)
        self.windows.turn_to(self.person.window("^Preferences$"))
        self.close_sheet()
        self.windows.turn_to(other)
        wait_until(lambda: not self.windows.is_viewable(window), "the window to hide once the sheet is gone")

    # What the person does

    def titles(self):
        """What the account pop-up offers, as a screen reader counts it."""
        popup = self.kest.control("Sending Account")
        items = []

        def collect(node):
            for index in range(node.childCount):
                child = node.getChildAtIndex(index)
                if child.getRoleName() == "list item":
                    items.append(child.name)
                collect(child)
        collect(popup)
        return items

    def choose_last_account(self, title):
        wait_until(lambda: self.titles()[-1:] == [title], f"the account “{title}” at the end of the list")
        self.kest.click("Sending Account")
        self.person.find(self.kest.root, title, "list item")
        self.person.key("End")
        self.person.key("Return")
        settings = Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest" / "settings.ini"
        wait_until(lambda: settings.exists() and f'emailAccountToUse="{title}"' in settings.read_text(),
                   "the choice in the settings")

    def compose(self):
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin")
        self.sound.microphone.play_samples(SECOND_OF_SILENCE)
        self.kest.click("Stop")
        self.kest.click("New Message")
        self.window = self.thunderbird.wait_window(f"Write: {SUBJECT}", 30)
        self.kest.wait_until_idle()

    def send_to(self, address):
        self.person.move_window(self.person.window("^Kest$"), 700, 500)
        self.person.move_window(self.window, 0, 0)
        self.person.click(self.person.find(self.person.application("Thunderbird"), "To", "entry"))
        self.person.type_into(self.window, address)
        self.person.key("Tab", self.window)
        self.thunderbird.send_from_window(f"Write: {SUBJECT}")
        self.mail_server.wait_sent()


if __name__ == "__main__":
    unittest.main()
