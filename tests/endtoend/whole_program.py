#!/usr/bin/python3
"""The running program when things go wrong round it: the microphone, the sound server, the disk, the mail application,
itself."""

import contextlib
import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from kest_program import KestProgram  # noqa: E402
from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.mail_content import ArrivedMail  # noqa: E402
from services.mailserver import MailServer  # noqa: E402
from services.microphone import Microphone  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.thunderbird import Thunderbird  # noqa: E402

BUILD = Path(os.environ["KEST_BUILD_DIR"])
SECOND_OF_SILENCE = bytes(2 * 44100)


def fill(path):
    """Writes into a file until the disk is full."""
    with open(path, "ab", buffering=0) as filler:
        for size in (4096, 64):
            with contextlib.suppress(OSError):
                while filler.write(bytes(size)):
                    pass


def seconds_of(path):
    """What an independent tool says that the file lasts; raises where it cannot be played."""
    subprocess.run(["ffmpeg", "-v", "error", "-xerror", "-i", path, "-f", "null", "-"], check=True)
    return float(subprocess.run(["ffprobe", "-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path],
                                check=True, capture_output=True, text=True).stdout)


class WholeProgram(unittest.TestCase):
    """One desktop for all; Kest and its folders are new for each test."""

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

    def setUp(self):
        self.kest = KestProgram(self.sandbox, self.person, BUILD)
        self.sandbox.run(["rm", "-rf", self.kest.recordings_folder, Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest"])
        self.addCleanup(lambda: self.sandbox.stop(self.kest.process))

    def start_without(self, plugin):
        program = Path(self.sandbox.root) / f"without-{plugin}"
        for file in (BUILD / "bin/kest", *(BUILD / "lib").glob("kest-*.so")):
            if file.name != plugin:
                (program / file.parent.name).mkdir(parents=True, exist_ok=True)
                shutil.copy(file, program / file.parent.name)
        self.kest = KestProgram(self.sandbox, self.person, program)
        self.kest.start()

    def record(self, seconds=1):
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() != "--:--", "the recording to begin")
        self.sound.microphone.play_samples(SECOND_OF_SILENCE * seconds)

    def finished_recording(self):
        def finished():
            path = self.kest.only_recording()
            return path if path and b"moof" not in path.read_bytes() else None
        return wait_until(finished, "the finished recording")

    # The program itself

    def test_a_killed_program_finishes_its_recording_at_the_next_start(self):
        self.kest.start()
        self.record(3)
        self.kest.kill()
        kept = seconds_of(self.kest.only_recording())
        self.assertGreater(kept, 2.7)
        self.kest.start()
        self.assertAlmostEqual(seconds_of(self.finished_recording()), kept, delta=0.03)
        self.assertEqual(len(list(self.kest.recordings_folder.iterdir())), 1)

    def test_closing_the_window_while_recording_keeps_the_recording(self):
        self.kest.start()
        self.record(2)
        self.kest.quit()
        self.assertGreater(seconds_of(self.finished_recording()), 1.9)

    def test_starting_it_again_does_not_open_a_second_window(self):
        self.kest.start()
        second = self.sandbox.start("second-kest", [BUILD / "bin" / "kest"])
        self.assertEqual(second.wait(60), 0)
        windows = self.sandbox.run(["xdotool", "search", "--onlyvisible", "--name", "^Kest$"]).split()
        self.assertEqual(len(windows), 1)

    # The microphone

    def test_a_microphone_that_is_pulled_out_is_said_and_the_recording_kept(self):
        extra = self.sound.add_source("usb_microphone", "USB Microphone")
        hearing = Microphone(extra.fifo)
        self.addCleanup(self.sound.set_default, "kest_microphone")
        self.addCleanup(hearing.close)
        self.sound.set_default(extra.name)
        self.kest.start()
        self.kest.click("Record")
        wait_until(lambda: self.kest.time_text() == "00:02", "two seconds")
        self.sound.remove_source(extra.name)
        self.kest.wait_for_notice("microphone")
        self.assertGreater(seconds_of(self.finished_recording()), 1.0)

    def test_no_sound_server_at_record_is_said_in_words(self):
        self.sandbox.env["PULSE_SERVER"], there = f"unix:{self.sandbox.root}/nowhere", self.sandbox.env["PULSE_SERVER"]
        self.addCleanup(self.sandbox.env.__setitem__, "PULSE_SERVER", there)
        self.kest.start()
        self.kest.click("Record")
        self.kest.wait_for_notice("sound")
        wait_until(lambda: not self.kest.recordings(), "no broken file to stay")
        self.kest.quit()

    def test_where_libpulse_cannot_be_loaded_that_is_said_at_record(self):
        self.start_without("kest-pulse.so")
        self.kest.click("Record")
        self.kest.wait_for_notice("No sound server answers")
        wait_until(lambda: not self.kest.recordings(), "no broken file to stay")
        self.kest.quit()

    def test_a_sound_server_that_dies_is_said_and_the_recording_kept(self):
        self.addCleanup(self.sound.restart_with_microphone)
        self.kest.start()
        self.record(2)
        self.sound.kill()
        self.kest.wait_for_notice("The sound server ended")
        self.assertGreater(seconds_of(self.finished_recording()), 1.0)

    # The disk

    def test_a_full_disk_is_said_and_the_recording_kept(self):
        folder = self.kest.recordings_folder
        folder.mkdir(parents=True)
        self.sandbox.run(["mount", "-t", "tmpfs", "-o", "size=1m", "small-disk", folder])
        self.addCleanup(self.sandbox.run, ["umount", "--lazy", folder])
        self.kest.start()
        self.record(2)
        fill(folder / "filler")
        self.kest.wait_for_notice("The disk is full")
        self.assertGreater(seconds_of(self.kest.only_recording()), 1.0)

    # The mail application

    def test_thunderbird_is_started_by_the_first_call_and_used_again_after_it_died(self):
        self.kest.write_setting("emailAccountToUse", '"Club"')
        self.kest.start()
        self.record()
        self.kest.click("New Message")
        first = self.thunderbird.wait_window("Write: A voice email", 60)
        self.kest.wait_until_idle(60)
        pid = int(self.sandbox.run(["xdotool", "getwindowpid", first]))
        self.addCleanup(lambda: Path(f"/proc/{pid}").exists() and os.kill(pid, 15))
        os.kill(pid, 9)
        self.thunderbird.wait_off_bus()
        self.thunderbird.start()
        self.kest.come_back()
        self.record()
        self.kest.click("New Message")
        window = self.thunderbird.wait_window("Write: A voice email", 60)
        self.kest.wait_until_idle()
        self.send_to(window, "friend@example.test")
        mail = ArrivedMail(sorted(self.mail_server.outbox.glob("*.eml"))[-1])
        self.assertIn("club@example.test", str(mail.message["From"]))
        self.assertEqual([name for name, _, _ in mail.attachments], [self.kest.recordings()[-1].name])

    def test_a_missing_script_engine_is_said_and_the_recording_kept(self):
        self.start_without("kest-script.so")
        self.record(2)
        self.kest.click("New Message")
        words = "The part of Kest that prepares mail could not be loaded. Please install Kest again."
        self.person.find(self.kest.root, words)
        self.thunderbird.wait_window("Mozilla Thunderbird", 60)  # the press started it; it comes over Kest’s window
        self.kest.come_back()
        self.kest.click("OK")
        self.kest.wait_until_idle()
        self.assertGreater(seconds_of(self.finished_recording()), 1.9)
        self.record()  # and it goes on working
        self.kest.click("Stop")
        wait_until(lambda: len(self.kest.recordings()) == 2, "another recording")
        self.kest.quit()

    def test_what_is_pressed_while_a_command_runs_does_nothing_afterwards(self):
        self.kest.start()
        self.record()
        self.kest.click("Stop")
        self.finished_recording()
        button, record = self.kest.control("New Message"), self.kest.control("Record")
        with self.thunderbird.stopped():  # the command takes as long as the presses
            self.person.click(button)
            wait_until(lambda: not self.person.is_enabled(record), "the command to run")
            self.person.key("space")
            self.person.click_at_once(record)
            self.assertEqual(self.kest.time_text(), "--:--")
        self.thunderbird.wait_window("Write: A voice email", 60)
        self.kest.wait_until_idle(60)
        self.assertEqual(self.kest.time_text(), "--:--")
        self.assertEqual(len(self.kest.recordings()), 1)

    def send_to(self, window, address):
        self.person.move_window(window, 0, 0)
        program = self.person.application("Thunderbird")
        self.person.move_window(self.person.window("^Kest$"), 700, 500)
        self.person.click(self.person.find(program, "To", "entry"))
        self.person.type_into(window, address)
        self.person.key("Tab", window)
        self.thunderbird.send_from_window("Write: A voice email")
        self.mail_server.wait_sent()


if __name__ == "__main__":
    unittest.main()
