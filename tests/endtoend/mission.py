#!/usr/bin/python3
"""All that Kest is for, from end to end, on real parts: the main job, and then what goes round it.

    mission.py --build BUILD_FOLDER --output FOLDER [--sound pulseaudio|pipewire] [--back-end script|bridge]

After the main job (see main_job.py) a preference is changed, a mail that came in is answered by voice, a prepared text
and a prepared audio file are sent, and the recordings go to the trash when Kest closes. Leaves pictures and one page
of them, the recordings and the mails that arrived in the output folder.
"""

import shutil
import subprocess
import sys
from pathlib import Path

import main_job  # first: it finds the services
from kest_program import speak
from main_job import MainJob
from services.base import ServiceError, wait_until
from services.mail_content import ArrivedMail
from services.mailbus import MailBus
from services.mailserver import message

ANSWER = "Thank you for your question. Here is what I think."
QUESTION = "Where shall we meet"
SENDER = "Ben Ford <ben@example.test>"
TEXT_NAME, TEXT = "On holiday.txt", "I am on holiday until Monday.\nPlease write to Ben."
AUDIO_NAME, AUDIO_SAYS = "Greeting.ogg", "Many happy returns of the day!"


class Mission(MainJob):

    def steps(self):
        return [
            *self.beginning(),
            ("Preferences: the sender's name is to go into the recording's name", self.change_preference),
            ("A mail comes in and is selected in Thunderbird", self.receive),
            ("Record an answer; Reply: Thunderbird's own reply opens", self.reply),
            ("The reply is sent and belongs to the mail that it answers", self.check_reply),
            ("A prepared text is chosen in the menu and sent as the message", self.send_text),
            ("A prepared audio file is chosen and sent in place of a recording", self.send_audio),
            ("Kest closes, with nothing left behind", self.quit),
            ("Kest opens and closes with the clean-up on: the recordings are in the trash", self.clean_up),
            ("The pictures on one page", self.contact_sheet),
            ("Everything that was started has ended", self.end),
        ]

    def start_kest(self):
        self.prepare_messages(self.sandbox.home / "Music" / "Kest Optional Outgoing Messages")
        super().start_kest()

    def prepare_messages(self, folder):
        folder.mkdir(parents=True)
        (folder / TEXT_NAME).write_text(TEXT)
        spoken = self.output / "prepared.wav"
        self.sandbox.run(["espeak-ng", "-v", "en", "-w", spoken, AUDIO_SAYS])
        self.sandbox.run(["ffmpeg", "-v", "error", "-i", spoken, folder / AUDIO_NAME])
        self.prepared_audio = (folder / AUDIO_NAME).read_bytes()

    def change_preference(self):
        self.kest.click("Preferences")
        box = self.kest.control("Include Sender's Name")
        self.person.click(box)
        wait_until(lambda: self.person.has_state(box, "STATE_CHECKED"), "the check mark")
        self.picture("preferences")
        self.kest.click("Close")
        wait_until(lambda: not self.person.exists(self.kest.root, "Include Sender's Name"), "the sheet to go")

    def receive(self):
        self.original = message(SENDER, "anna@example.test", QUESTION, "Where shall we meet on Sunday?")
        self.thunderbird.receive(self.original)
        bus = MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        self.thunderbird.open_inbox(bus)
        self.picture("a-mail-is-selected")

    def reply(self):
        self.record_answer()
        self.kest.click("Reply")
        self.reply_title = f"Write: Re: {QUESTION}"
        window = self.thunderbird.wait_window(self.reply_title, 60)
        self.kest.wait_until_idle(60)
        self.person.move_window(window, 0, 0)
        self.picture("reply")

    def record_answer(self):
        before = set(self.kest.recordings())
        self.kest.come_back()
        self.kest.click("Record")
        speak(self.sandbox, self.sound, ANSWER, self.output, "answer")
        self.kest.click("Stop")
        self.answer = wait_until(lambda: set(self.kest.recordings()) - before, "the answer's recording").pop()

    def check_reply(self):
        mail = self.send_and_take(self.reply_title, "reply.eml")
        self.recording_of_answer = self.answer.with_name(f"{self.answer.stem}_Ben Ford.m4a")
        self.expect(mail.message["In-Reply-To"], self.original["Message-ID"], "what it answers")
        self.expect(mail.attachments, [(self.recording_of_answer.name, "audio/mp4",
                                        self.recording_of_answer.read_bytes())], "the attachment")
        if "> Where shall we meet on Sunday?" not in mail.text:
            raise ServiceError(f"the question is not quoted: “{mail.text}”")
        shutil.copy2(self.recording_of_answer, self.output)

    def send_text(self):
        self.choose(TEXT_NAME)
        self.picture("prepared-text-chosen")
        mail = self.compose_and_send("prepared-text", "prepared-text.eml")
        self.expect(mail.attachments, [], "the attachments")
        self.expect(mail.text.replace("\r\n", "\n").startswith(TEXT + "\n"), True, "the text's place")

    def send_audio(self):
        self.choose(AUDIO_NAME)
        mail = self.compose_and_send("prepared-audio", "prepared-audio.eml")
        self.expect([(name, data) for name, _, data in mail.attachments], [(AUDIO_NAME, self.prepared_audio)],
                    "the attachment")

    def choose(self, name):
        """With the keyboard: a letter goes to the next name that begins with it."""
        self.kest.come_back()
        self.kest.click("Optional Message")
        wait_until(self.menu_is_open, "the menu")
        self.person.key(name[0].lower())
        if name == TEXT_NAME:
            self.picture("prepared-messages")
        self.person.key("Return")
        wait_until(lambda: not self.menu_is_open(), "the menu to close")
        message = self.kest.control("New Message")
        wait_until(lambda: self.person.is_enabled(message), "the choice to be taken")

    def menu_is_open(self):
        """A menu is a window of the program's own that no window manager frames."""
        done = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.kest.process.pid)],
                              env=self.sandbox.env, capture_output=True, text=True, timeout=60)
        return len(done.stdout.split()) > 1

    def compose_and_send(self, picture, file_name):
        self.kest.click("New Message")
        window = self.thunderbird.wait_window(main_job.COMPOSE_TITLE, 30)
        self.kest.wait_until_idle(60)
        self.person.move_window(window, 0, 0)
        self.write_recipient(window)
        self.picture(picture)
        return self.send_and_take(main_job.COMPOSE_TITLE, file_name)

    def send_and_take(self, title, file_name):
        self.mail_server.forget_sent()
        self.thunderbird.send_from_window(title)
        self.mail_server.wait_sent()
        return ArrivedMail(shutil.copy2(self.only_mail(), self.output / file_name))

    @staticmethod
    def expect(found, wanted, what):
        if found != wanted:
            raise ServiceError(f"{what}: {found!r} instead of {wanted!r}")

    def quit(self):
        self.kest.quit()
        left = sorted(path.name for path in self.kest.recordings_folder.iterdir())
        self.expect(left, sorted([self.recording.name, self.recording_of_answer.name]), "the recordings folder")

    def clean_up(self):
        # No recording of this hour is old: a choice beyond the offered ones takes every recording.
        self.kest.write_setting("iWhenToDelete", "4")
        self.kest.start()
        self.kest.quit()
        trash = Path(self.sandbox.env["XDG_DATA_HOME"]) / "Trash"
        names = sorted([self.recording.name, self.recording_of_answer.name])
        self.expect(list(self.kest.recordings_folder.iterdir()), [], "the recordings folder")
        self.expect(sorted(path.name for path in (trash / "files").iterdir()), names, "the trash")
        self.expect(sorted(path.stem for path in (trash / "info").iterdir()), names, "what can be restored")

    def contact_sheet(self):
        pictures = sorted(self.output.glob("[0-9]*.png"))
        subprocess.run(["montage", "-label", "%t", "-pointsize", "18", "-tile", "3x", "-geometry", "700x430+10+10",
                        "-background", "#f4f4f4", *pictures, self.output / "contact-sheet.png"], check=True)

    def results(self):
        mails = ", ".join(sorted(path.name for path in self.output.glob("*.eml")))
        return [("All pictures", self.output / "contact-sheet.png"), ("Pictures", self.output / "*.png"),
                ("Recordings", self.output / "*.m4a"), ("Mails", f"{self.output}: {mails}")]


if __name__ == "__main__":
    sys.exit(main_job.perform(Mission, __doc__))
