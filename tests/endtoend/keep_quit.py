#!/usr/bin/python3
"""What the running program keeps in order: old recordings when it ends, and the shown name of the microphone."""

import base64
import os
import signal
import sys
import unittest
from pathlib import Path
from urllib.parse import unquote

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "support"))

from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import AccessibilityBus, SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.operator import Operator  # noqa: E402
from services.sound import SoundServer  # noqa: E402

PROGRAM = Path(os.environ["KEST_BUILD_DIR"]) / "bin" / "kest"
NAMES = ("a.m4a", "b c.m4a", "note.txt", "old.M4A", ".x.m4a")


class KeepTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.sandbox = Sandbox()
        cls.addClassCleanup(cls.sandbox.close)
        cls.bus = SessionBus(cls.sandbox)
        cls.display = Display(cls.sandbox)
        cls.accessibility = AccessibilityBus(cls.sandbox)
        cls.sound = SoundServer(cls.sandbox, "pulseaudio")
        cls.addClassCleanup(cls.sound.close)
        cls.person = Operator(cls.sandbox)

    def setUp(self):
        self.recordings = self.sandbox.home / "Music" / "Kest"
        self.trash = Path(self.sandbox.env["XDG_DATA_HOME"]) / "Trash"
        self.sandbox.run(["rm", "-rf", self.trash, self.recordings])
        self.recordings.mkdir(parents=True)
        for name in NAMES:
            (self.recordings / name).write_text(name)

    def run_program(self, **settings):
        """Starts it with these settings and returns when its window is there."""
        path = Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest" / "settings.ini"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("[General]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))
        (self.sandbox.logs / "kest.log").unlink(missing_ok=True)
        self.program = self.sandbox.start("kest", [PROGRAM], env={"QT_QPA_PLATFORM": "xcb",
                                                                  "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
        self.addCleanup(self.sandbox.stop, self.program)
        self.window = self.person.application("kest", process=self.program.pid)
        self.person.find(self.window, "Record")

    def end(self):
        """The session ends it; at its own end everything must be done."""
        self.program.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.wait(60), 0)

    def close_window(self):
        self.person.key("alt+F4", self.person.window("^Kest$"))
        self.assertEqual(self.program.wait(60), 0)

    def left(self):
        return {path.name for path in self.recordings.iterdir()}

    def trashed(self):
        folder = self.trash / "files"
        return {path.name for path in folder.iterdir()} if folder.exists() else set()

    def test_never_removes_nothing(self):
        self.run_program(iWhenToDelete=0)
        self.close_window()
        self.assertEqual(self.left(), set(NAMES))
        self.assertFalse(self.trash.exists())

    def test_after_a_day_leaves_what_is_younger(self):
        self.run_program(iWhenToDelete=1)
        self.close_window()
        self.assertEqual(self.left(), set(NAMES))

    def test_every_recording_is_in_the_trash_when_the_window_is_closed(self):
        self.run_program(iWhenToDelete=4)
        self.close_window()
        self.assertEqual(self.left(), {"note.txt", "old.M4A", ".x.m4a"})
        self.assertEqual(self.trashed(), {"a.m4a", "b c.m4a"})
        note = (self.trash / "info" / "b c.m4a.trashinfo").read_text()
        original = next(line for line in note.splitlines() if line.startswith("Path="))[len("Path="):]
        self.assertEqual(unquote(original), str(self.recordings / "b c.m4a"))

    def test_another_program_lists_what_is_in_the_trash_and_puts_it_back(self):
        self.run_program(iWhenToDelete=4)
        self.close_window()
        listed = self.sandbox.run(["trash-list"])
        for name in ("a.m4a", "b c.m4a"):
            self.assertIn(str(self.recordings / name), listed)
            self.sandbox.run(["trash-restore"], cwd=self.recordings, input="0\n")
        self.assertEqual(self.left(), set(NAMES))
        self.assertEqual((self.recordings / "b c.m4a").read_text(), "b c.m4a")
        self.assertEqual(self.trashed(), set())

    def test_every_recording_is_in_the_trash_when_the_session_ends(self):
        self.run_program(iWhenToDelete=-1)
        self.end()
        self.assertEqual(self.trashed(), {"a.m4a", "b c.m4a"})

    def test_without_the_trash_recordings_are_gone(self):
        self.run_program(iWhenToDelete=4, bTrashNotDelete="false")
        self.close_window()
        self.assertEqual(self.left(), {"note.txt", "old.M4A", ".x.m4a"})
        self.assertFalse(self.trash.exists())

    def record(self):
        """Presses Record and waits until there is something to lose. The names of recordings begin with the year."""
        self.person.click(self.person.find(self.window, "Record"))
        wait_until(lambda: any(path.stat().st_size > 4096 for path in self.recordings.glob("2*.m4a")),
                   "a recording that grows")

    def check_all_is_in_the_trash_once(self):
        self.assertEqual(self.left(), {"note.txt", "old.M4A", ".x.m4a"})
        self.assertEqual(len(self.trashed()), 3)
        recording = next(path for path in (self.trash / "files").glob("2*.m4a"))
        self.sandbox.run(["ffprobe", "-v", "error", recording])
        self.assertEqual({path.stem for path in (self.trash / "info").iterdir()}, self.trashed())

    def test_a_recording_stopped_just_before_the_end_is_in_the_trash_too(self):
        self.run_program(iWhenToDelete=4)
        self.record()
        self.person.click(self.person.find(self.window, "Stop"))
        self.end()
        self.check_all_is_in_the_trash_once()

    def test_a_recording_that_runs_at_the_end_is_in_the_trash_too(self):
        self.run_program(iWhenToDelete=4)
        self.record()
        self.end()
        self.check_all_is_in_the_trash_once()

    def test_a_recording_stopped_just_before_the_end_is_gone_without_the_trash(self):
        self.run_program(iWhenToDelete=4, bTrashNotDelete="false")
        self.record()
        self.person.click(self.person.find(self.window, "Stop"))
        self.end()
        self.assertEqual(self.left(), {"note.txt", "old.M4A", ".x.m4a"})
        self.assertFalse(self.trash.exists())

    def test_a_recordings_folder_that_is_not_found_is_logged_and_nothing_removed(self):
        nowhere = base64.b64encode(b"no bookmark at all").decode()
        self.run_program(iWhenToDelete=4, dAudioRecordingFolder=f"@Bytes({nowhere})")
        self.end()
        self.assertEqual(self.left(), set(NAMES))
        said = [line for line in self.sandbox.log("kest").splitlines() if "Could not delete old recordings: " in line]
        self.assertEqual(len(said), 1, self.sandbox.log("kest"))
        self.assertIn("KestErrorDomain Code=11001", said[0])

    def test_the_microphones_name_is_there_at_the_start_and_follows_a_change(self):
        self.run_program()
        field = self.person.find(self.window, "Input Device")
        wait_until(lambda: self.person.text(field) == "BM", "the microphone's abbreviation", 40)
        self.assertEqual(field.description, "Built-in Microphone")
        self.sound.add_source("usb", "USB Mic")
        self.sound.set_default("usb")
        wait_until(lambda: self.person.text(field) == "UM", "the other microphone within 30 seconds", 40, every=0.5)
        self.assertEqual(field.description, "USB Mic")
        self.sound.set_default("kest_microphone")
        self.sound.remove_source("usb")
        self.end()

    def test_a_microphone_of_one_word_is_logged_and_the_next_one_is_shown(self):
        self.run_program()
        field = self.person.find(self.window, "Input Device")
        wait_until(lambda: self.person.text(field) == "BM", "the microphone's abbreviation", 40)
        for name, description in (("plain", "Microphone"), ("usb", "USB Mic")):
            self.sound.add_source(name, description)
            self.addCleanup(self.sound.remove_source, name)
        self.addCleanup(self.sound.set_default, "kest_microphone")
        self.sound.set_default("plain")
        wait_until(lambda: field.description == "Microphone", "the whole name within 30 seconds", 40, every=0.5)
        self.assertEqual(self.person.text(field), "BM")
        wait_until(lambda: "An exception was raised and not handled" in self.sandbox.log("kest"), "the log to say so")
        self.sound.set_default("usb")
        wait_until(lambda: self.person.text(field) == "UM", "the next microphone within 30 seconds", 40, every=0.5)
        self.end()

    def test_a_sound_server_that_answers_late_does_not_leave_the_field_empty(self):
        self.sound.stall()
        self.addCleanup(self.sound.resume)
        self.run_program()
        field = self.person.find(self.window, "Input Device")
        self.assertEqual(self.person.text(field), "")
        self.sound.resume()
        wait_until(lambda: self.person.text(field) == "BM", "the microphone's abbreviation", 40)
        self.end()


if __name__ == "__main__":
    unittest.main()
