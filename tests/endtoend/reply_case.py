"""Kest's own window, a virtual microphone and a real Thunderbird, for answering the mail that lies in it."""

import datetime
import email.utils
import os
from pathlib import Path

from kest_program import KestProgram
from mail_case import MailCase, message, repeat_until, text_of, wait_until
from services.bus import AccessibilityBus
from services.operator import Operator
from services.sound import SoundServer

SECOND_OF_SILENCE = bytes(2 * 44100)
SPOKEN = "Here is my spoken answer."
BEN = "Ben Ford <ben@example.test>"
LONG = 90  # seconds, for a loaded machine
BACK_ENDS = ("script", "bridge")


class ReplyCase(MailCase):
    """Each answer begins with a Kest of its own, started with the settings of the test."""

    first_date = email.utils.localtime()

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        AccessibilityBus(cls.sandbox)
        cls.sound = SoundServer(cls.sandbox, "pulseaudio")
        cls.addClassCleanup(cls.sound.close)
        cls.person = Operator(cls.sandbox)
        cls.thunderbird.open_inbox(cls.bus, cls.messages)

    @classmethod
    def put(cls, sender, to, subject, text, html=None, **headers):
        """Delivers an original, and remembers its Message-ID by its subject."""
        mail = message(sender, to, subject, text, **headers)
        # Thunderbird lists the newest first: what is put first is to stand at the top.
        mail.replace_header("Date", cls.first_date - datetime.timedelta(minutes=len(getattr(cls, "ids", {}))))
        if html:
            mail.add_alternative(html, subtype="html")
        cls.mail.put("anna", mail)
        cls.ids = {**getattr(cls, "ids", {}), subject: mail["Message-ID"]}
        cls.messages = len(cls.ids)

    def setUp(self):
        super().setUp()
        self.kest = None
        self.addCleanup(self.close_kest)

    def close_kest(self):
        if self.kest and self.kest.process:
            self.sandbox.stop(self.kest.process)
            self.kest = None

    def start_kest(self, back_end, **settings):
        """Kest with these settings and a second of sound recorded, next to Thunderbird."""
        self.close_kest()
        self.mail.forget_sent()
        self.kest = KestProgram(self.sandbox, self.person, Path(os.environ["KEST_BUILD_DIR"]))
        self.sandbox.run(["rm", "-rf", self.kest.recordings_folder, Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest"])
        self.kest.write_setting("useASClass", "true" if back_end == "script" else "false")
        self.kest.write_setting("tReplyBody", f'"{SPOKEN}"')
        for key, value in settings.items():
            self.kest.write_setting(key, value)
        self.kest.start()
        self.kest.stand_aside()
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin")
        self.sound.microphone.play_samples(SECOND_OF_SILENCE)
        self.kest.click("Stop")
        self.recording = wait_until(self.finished_recording, "the finished recording").read_bytes()

    def finished_recording(self):
        path = self.kest.only_recording()
        return path if path and b"moof" not in path.read_bytes() else None

    def answer(self, button="Reply"):
        """Brings Kest to the front and presses the button."""
        self.kest.come_back()
        self.kest.click(button)

    # The messages in Thunderbird

    def subject_selected(self):
        selected = self.bus.selection()
        return str(self.bus.get(selected[0], "Subject")) if len(selected) == 1 else None

    def select(self, subject):
        """Selects the message with that subject alone, with the keyboard."""
        self.thunderbird.select_first(self.bus)
        for _ in range(self.messages):
            if self.subject_selected() == subject:
                return
            before = self.bus.selection()
            repeat_until(lambda: self.thunderbird.press("Inbox - ", "Down"), lambda: self.bus.selection() != before,
                         "the next message to be selected")
        self.fail(f"no message “{subject}” is in the list")

    def lies_in(self, folder, subject):
        """On the server, whatever Thunderbird shows."""
        identifier = f"Message-ID: {self.ids[subject]}".encode()
        kept = [path for path in self.mail.files("anna", folder) if "T" not in path.name.partition(":2,")[2]]
        try:
            return any(identifier in path.read_bytes() for path in kept)
        except FileNotFoundError:  # The server has just given one another name: look again.
            return self.lies_in(folder, subject)

    # What arrived

    def send_from(self, subject):
        """Sends the reply from Thunderbird's own window, and returns it as it arrived."""
        title = f"Write: {subject} - "
        self.thunderbird.wait_window(title, LONG)
        self.kest.wait_until_idle(LONG)
        self.thunderbird.send_from_window(title)
        return self.mail.wait_sent()[-1]

    @staticmethod
    def addresses(mail, header):
        return [one.addr_spec for one in mail[header].addresses]

    def check_answer(self, mail, original, quoted, threaded=True, name=None):
        """Text, quote, recording; with `threaded` also that it belongs to the original."""
        text = text_of(mail)
        self.assertTrue(text.startswith(f"{SPOKEN}\n\n"), text)
        self.assertRegex(text, rf"(?s)^{SPOKEN}\n\n.*\n> ?{quoted}")
        [attached] = mail.iter_attachments()
        self.assertEqual(attached.get_content_type(), "audio/mp4")
        self.assertEqual(attached.get_content(), self.recording)
        self.assertEqual(attached.get_filename(), name or self.kest.only_recording().name)
        if threaded:
            self.assertEqual(mail["in-reply-to"], self.ids[original])
            self.assertIn(self.ids[original], mail["references"])
