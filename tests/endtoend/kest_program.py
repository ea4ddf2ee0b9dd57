"""The running program, worked through its window."""

import configparser
import subprocess
import threading
from pathlib import Path

from services.base import ServiceError, wait_until


def speak(sandbox, sound, sentence, folder, name, during=None):
    """Speaks a sentence into the virtual microphone; calls `during` in the middle. Leaves FOLDER/NAME.wav."""
    wav = Path(folder) / f"{name}.wav"
    sandbox.run(["espeak-ng", "-v", "en", "-s", "150", "-w", wav, sentence])
    speaking = threading.Thread(target=sound.play, args=(wav,))
    speaking.start()
    try:
        if during:
            during()
    finally:
        speaking.join()


class KestProgram:
    """One `kest` process in a sandbox, and the person who uses it."""

    def __init__(self, sandbox, person, build):
        self.sandbox = sandbox
        self.person = person
        self.build = Path(build)
        self.process = None

    @property
    def recordings_folder(self):
        return self.sandbox.home / "Music" / "Kest"

    def write_setting(self, key, value):
        """Before the start: what the person chose earlier."""
        path = Path(self.sandbox.env["XDG_CONFIG_HOME"]) / "kest" / "settings.ini"
        path.parent.mkdir(parents=True, exist_ok=True)
        settings = configparser.ConfigParser()
        settings.optionxform = str
        settings.read(path)
        if "General" not in settings:
            settings["General"] = {}
        settings["General"][key] = value
        with open(path, "w") as out:
            settings.write(out, space_around_delimiters=False)

    def start(self, seconds=60, env=None, record="Record"):
        """`record`: how the Record button is called, where it is not English."""
        self.process = self.sandbox.start("kest", [self.build / "bin" / "kest"], env=env)
        self.root = self.person.application("kest", seconds, self.process.pid)
        self.control(record)

    def control(self, name, seconds=60):
        return self.person.find(self.root, name, seconds=seconds)

    def stand_aside(self):
        """Where it covers nothing that is clicked in Thunderbird: it comes above Thunderbird whenever that is turned to."""
        record = self.control("Record")
        self.person.move_window(self.person.window("^Kest$"), 700, 420)
        wait_until(lambda: self.person.place(record).y > 420, "the window to have moved")

    def click(self, name, seconds=60):
        self.person.click(self.control(name, seconds))

    def come_back(self):
        """Kest is started again, as a person does who misses its window: the running one comes to the front."""
        again = self.sandbox.start("kest-again", [self.build / "bin" / "kest"])
        if again.wait(60):
            raise ServiceError(f"a second start ended with {again.returncode}")

    def wait_until_idle(self, seconds=60):
        """Until the last command is through: its controls are enabled again."""
        record = self.control("Record")
        wait_until(lambda: self.person.is_enabled(record), "the command to end", seconds)

    def time_text(self):
        return self.person.value_text(self.control("Recording Time"))

    def recordings(self):
        return sorted(self.recordings_folder.glob("*.m4a"))

    def only_recording(self):
        found = self.recordings()
        if len(found) > 1:
            raise ServiceError(f"more than one recording: {[path.name for path in found]}")
        return found[0] if found else None

    def quit(self, seconds=60):
        """Closes the window through the window manager, and waits for the program's orderly end."""
        self.person.key("alt+F4", self.person.window("^Kest$"))
        try:
            code = self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise ServiceError("the program did not end when its window was closed") from None
        if code:
            raise ServiceError(f"the program ended with {code}:\n{self.sandbox.log('kest')}")

    def kill(self):
        """As in a crash."""
        self.process.kill()
        self.process.wait()

    def wait_for_notice(self, fragment, seconds=10):
        """The quiet place of the window says something with this in it.

        How soon trouble is told is asserted where it begins, in the recorder's tests: to look through the window over
        the accessibility bus takes a second or two itself on a busy machine.
        """
        def said():
            notice = self.person.find(self.root, "Notice", seconds=seconds)
            text = self.person.value_text(notice)
            return text if fragment in text else None
        return wait_until(said, f"a notice with “{fragment}”", seconds)
