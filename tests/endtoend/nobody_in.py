#!/usr/bin/python3
"""The running program, and everybody else: what the bus cannot make it do, and what its logs do not say."""

import json
import os
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, repeat_until, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mailbus import MailBus, error_of  # noqa: E402
from services.mailserver import MailServer, message  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.otheraddon import OtherAddon  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402
from services.windows import Windows  # noqa: E402

import dbus  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
MARKER = "Zaubernuss"
SENDER = f"{MARKER} Ford <{MARKER}@example.test>"
DESKTOP = "org.freedesktop.Application"
LATER = 3  # Seconds after which nothing comes any more of what was asked for.
SECOND_OF_SILENCE = bytes(2 * 44100)

# Thunderbird's log has what add-ons tell their console.
CONSOLE_TOO = {"devtools.console.stdout.content": True}
# What the engine says of it holds the subject.
FAILING_SCRIPT = "export function mailNewMessageWithSubject(subject) { subject.shorten(); }\n"

# What each of them logs in the course of the test.
LOGGED = {"kest": "The mail script failed. line 1", "thunderbird": "Kest's mail host does not start",
          "mailhost": "The mail application has closed the connection."}


class NobodyIn(unittest.TestCase):

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
        cls.mail_server.put("anna", message(SENDER, "anna@example.test", f"{MARKER} question", f"{MARKER} words"))
        cls.thunderbird = Thunderbird(cls.sandbox, cls.mail_server, prefs=CONSOLE_TOO)
        cls.give_host_a_log()
        cls.other_addon = OtherAddon(cls.thunderbird.profile, "org.kest.mailhost", "kest@kest.invalid")
        cls.addClassCleanup(cls.other_addon.close)
        cls.thunderbird.start()
        cls.addClassCleanup(cls.thunderbird.stop)
        cls.windows = Windows(cls.sandbox)
        cls.sandbox.start("calculator", ["xcalc"])
        cls.calculator = cls.windows.of_class("XCalc")
        cls.person = Operator(cls.sandbox)
        cls.kest = KestProgram(cls.sandbox, cls.person, BUILD)
        cls.kest.write_setting("tNewMessageSubject", f'"{MARKER} subject"')
        cls.kest.write_setting("tNewMessageBody", f'"{MARKER} body"')
        cls.kest.write_setting("tReplyBody", f'"{MARKER} answer"')
        cls.kest.write_setting("bIncudeReplyToInName", "true")
        folder = cls.sandbox.home / "Music" / "Kest Optional Outgoing Messages"
        folder.mkdir(parents=True)
        (folder / f"{MARKER} name.txt").write_text(f"{MARKER} text")
        cls.kest.start()
        cls.kest.stand_aside()
        cls.stranger = MailBus(cls.sandbox.env["DBUS_SESSION_BUS_ADDRESS"], stranger=True)

    def setUp(self):
        self.recorded = []

    @classmethod
    def give_host_a_log(cls):
        """Else Thunderbird gets what it says, and keeps it to itself. While `host_away` is there the host does not start."""
        cls.host_away = cls.sandbox.root / "host-away"
        manifest = cls.sandbox.home / ".mozilla/native-messaging-hosts/org.kest.mailhost.json"
        words = json.loads(manifest.read_text())
        logging = cls.sandbox.root / "logging-host"
        logging.write_text(f"#!/bin/sh\n[ ! -e {cls.host_away} ] || exit 1\n"
                           f'exec {words["path"]} "$@" 2>>{cls.sandbox.logs}/mailhost.log\n')
        logging.chmod(0o755)
        manifest.write_text(json.dumps({**words, "path": str(logging)}))

    def desktop(self, member, signature, *arguments):
        return self.stranger.connection.call_blocking("org.kest.Kest", "/org/kest/Kest", DESKTOP, member, signature,
                                                      arguments, timeout=30)

    def assertNothingDone(self):
        """Now, and later."""
        time.sleep(LATER)
        self.assertEqual(self.kest.time_text(), "--:--")
        self.assertEqual(self.kest.recordings(), [])
        self.assertEqual(self.thunderbird.windows("Write: "), [])
        self.assertEqual(list(self.mail_server.outbox.glob("*.eml")), [])

    def record_a_moment(self):
        before = set(self.kest.recordings())
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin")
        self.sound.microphone.play_samples(SECOND_OF_SILENCE)
        self.kest.click("Stop")
        [recording] = wait_until(lambda: set(self.kest.recordings()) - before, "the recording")
        wait_until(lambda: b"moof" not in recording.read_bytes(), "the finished recording")
        self.recorded.append(recording.stem)
        return recording

    def hide(self):
        window = self.person.window("^Kest$")
        self.windows.turn_to(self.calculator)
        wait_until(lambda: not self.windows.is_viewable(window), "the window to hide")
        return window

    def test_a_start_with_words_behind_it_only_shows_the_window(self):
        for words in (["record"], ["--record"], ["/etc/passwd"], ["send"]):
            again = self.sandbox.start("kest-again", [BUILD / "bin" / "kest", *words])
            self.assertEqual(again.wait(30), 0)
        self.assertNothingDone()

    def press_while_hidden(self):
        """Everything that another program can press, until the window is back."""
        controls = [self.kest.control(name) for name in ("Record", "New Message", "Reply", "Optional Message")]
        window = self.hide()
        for control in controls:
            actions = control.queryAction()
            for number in range(actions.nActions):
                actions.doAction(number)
        for keys in ("ctrl+r", "ctrl+n"):
            self.sandbox.run(["xdotool", "key", "--window", window, keys])
        self.assertEqual(self.sound.recorders(), 0)
        self.kest.come_back()
        wait_until(lambda: self.windows.is_viewable(window), "the window to come back")
        self.assertEqual(self.sound.recorders(), 0)

    def test_a_hidden_window_carries_out_nothing(self):
        self.press_while_hidden()
        self.assertNothingDone()

    def test_with_a_recording_a_hidden_window_carries_out_nothing_either(self):
        if not self.kest.recordings():
            self.record_a_moment()
        before = self.thunderbird.windows("Write: ")
        recordings = self.kest.recordings()
        self.press_while_hidden()
        time.sleep(LATER)
        self.assertEqual(self.thunderbird.windows("Write: "), before)
        self.assertEqual(self.kest.recordings(), recordings)
        self.assertEqual(list(self.mail_server.outbox.glob("*.eml")), [])

    def test_another_addon_neither_starts_the_host_nor_is_heard_by_ours(self):
        wait_until(lambda: len(self.other_addon.heard) == 2, "the other add-on to have tried", 60)
        for way, heard in self.other_addon.heard.items():
            with self.subTest(way):
                self.assertEqual(len(heard), 1)
                self.assertTrue(heard[0].startswith("refused: "), heard)

    def test_calls_on_the_bus_neither_record_nor_send(self):
        for action in ("record", "Record", "send", "quit"):
            self.desktop("ActivateAction", "sava{sv}", action, [], {})
        self.desktop("Open", "asa{sv}", ["file:///etc/passwd"], {})
        self.desktop("Activate", "a{sv}", {})
        self.assertNothingDone()

    def test_while_kest_runs_nobody_else_has_a_message_made(self):
        for bus in (self.stranger, MailBus(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])):
            with self.assertRaises(dbus.DBusException) as caught:
                bus.new_message("Not wanted")
            self.assertEqual(error_of(caught.exception)[0], "AccessDenied")
        self.assertEqual(self.thunderbird.windows("Write: Not wanted"), [])

    def write_and_answer(self):
        """A new message, then an answer to the mail that lies there."""
        self.record_a_moment()
        self.kest.click("New Message")
        self.thunderbird.wait_window(f"Write: {MARKER} subject", 60)
        self.kest.wait_until_idle(60)
        self.thunderbird.open_inbox(self.stranger)
        self.kest.come_back()
        self.record_a_moment()
        self.kest.click("Reply")
        self.thunderbird.wait_window(f"Write: Re: {MARKER} question", 60)
        self.kest.wait_until_idle(60)

    def start_kest_again(self):
        self.kest.come_back()
        self.kest.quit()
        self.kest.start()

    def fail_to_write(self):
        """Once because there is no file, which only the window says, and once because of the person's own script."""
        self.kest.come_back()
        self.record_a_moment().unlink()
        self.kest.click("New Message")
        self.kest.click("OK")
        self.kest.wait_until_idle(60)
        script = Path(self.sandbox.env["XDG_DATA_HOME"]) / "kest" / "ASMail.mjs"
        script.parent.mkdir(mode=0o700, exist_ok=True)
        script.write_text(FAILING_SCRIPT)
        self.addCleanup(self.start_kest_again)
        self.addCleanup(script.unlink)
        self.start_kest_again()
        self.record_a_moment()
        self.kest.click("New Message")
        self.kest.click("OK")
        self.kest.wait_until_idle(60)

    def start_thunderbird_without_host(self):
        """The host says that it ends, and the add-on that there is none; then there is one again."""
        self.thunderbird.stop()
        self.host_away.touch()
        self.thunderbird.start(False)
        wait_until(lambda: LOGGED["thunderbird"] in self.sandbox.log("thunderbird"), "the add-on's word")
        self.host_away.unlink()
        window = self.thunderbird.wait_window("Mozilla Thunderbird")
        repeat_until(lambda: [self.windows.turn_to(each) for each in (self.calculator, window)], self.thunderbird.on_bus,
                     "the host to be tried again")

    def test_the_logs_of_all_three_say_nothing_of_what_was_written(self):
        self.write_and_answer()
        self.fail_to_write()
        self.start_thunderbird_without_host()
        self.assertEqual(len(self.recorded), 4)
        for name, words in LOGGED.items():
            log = self.sandbox.log(name)
            self.assertIn(words, log)
            for written in (MARKER, "example.test", *self.recorded):
                self.assertNotIn(written.lower(), log.lower(), name)


if __name__ == "__main__":
    unittest.main()
