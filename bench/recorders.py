"""Recorders under one hand: Kest and what else a person could record with. Used by other programs in this folder."""

import os
import re
import signal
import subprocess
import time
from pathlib import Path

from services.base import wait_until


def processor_seconds(pid):
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def pss(pid):
    """MiB."""
    text = Path(f"/proc/{pid}/smaps_rollup").read_text()
    return int(re.search(r"^Pss:\s+(\d+)", text, re.M).group(1)) / 1024


class Recorder:
    """One run of one program: `open`, `press`, `stop`, and the file that it made."""

    def __init__(self, sandbox, sound):
        self.sandbox = sandbox
        self.sound = sound
        self.process = None

    def open(self):
        """All that a person does before the press."""

    def press(self):
        """The person's press, or the command, that begins the recording."""

    def is_recording(self):
        """The sound server has a stream of its process."""
        return f'application.process.id = "{self.process.pid}"' in self.sandbox.run(["pactl", "list", "source-outputs"])

    def close(self):
        self.sandbox.stop(self.process)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def wait_until_recording(self):
        wait_until(self.is_recording, f"{self.name} to record", 30)


class CommandRecorder(Recorder):
    """A program of the command line: it is started when the person wants to record."""

    def press(self):
        self.path = self.sandbox.root / f"{self.program}.m4a"
        self.path.unlink(missing_ok=True)
        self.process = self.sandbox.start(self.program, self.command())

    def stop(self):
        self.process.send_signal(signal.SIGINT)
        self.process.wait(30)


class Ffmpeg(CommandRecorder):
    name = "ffmpeg -f pulse"
    program = "ffmpeg"
    capture = ()
    coding = ("-b:a", "66k")

    def command(self):
        return ["ffmpeg", "-v", "error", "-nostdin", "-y", "-f", "pulse", *self.capture, "-i", "default",
                "-ac", "1", "-ar", "44100", "-c:a", "aac", *self.coding, self.path]


class FfmpegLikeKest(Ffmpeg):
    name = "ffmpeg -f pulse, told to capture and encode as Kest does"
    capture = ("-sample_rate", "44100", "-channels", "1")
    coding = (*Ffmpeg.coding, "-aac_coder", "fast", "-cutoff", "15000")


class FfmpegAsItComes(Ffmpeg):
    name = "ffmpeg -f pulse, as it comes"

    def command(self):
        return ["ffmpeg", "-v", "error", "-nostdin", "-y", "-f", "pulse", "-i", "default", self.path]


class GStreamer(CommandRecorder):
    name = "gst-launch-1.0 pulsesrc"
    program = "gst-launch-1.0"

    def command(self):
        return ["gst-launch-1.0", "-q", "-e", "pulsesrc", "!", "audioconvert", "!", "audio/x-raw,channels=1,rate=44100",
                "!", "avenc_aac", "bitrate=66000", "!", "mp4mux", "!", "filesink", f"location={self.path}"]


class GnomeSoundRecorder(Recorder):
    """It draws with OpenGL, which on a virtual display is the processor's work."""

    name = "gnome-sound-recorder"
    environment = {}

    def open(self):
        self.process = self.sandbox.start("gnome-sound-recorder", ["gnome-sound-recorder"], env=self.environment)
        self.window = wait_until(self._find, "its window", 60, every=0.1)
        self.sandbox.run(["xdotool", "windowactivate", "--sync", self.window])
        time.sleep(3)

    def _find(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Sound Recorder"], env=self.sandbox.env,
                               capture_output=True, text=True).stdout.split()
        return found and found[-1]

    def press(self):
        self.sandbox.run(["xdotool", "key", "ctrl+r"])

    def stop(self):
        self.sandbox.run(["xdotool", "mousemove", "--window", self.window, "390", "422", "click", "1"])
        wait_until(lambda: not self.is_recording(), "it to stop", 30)
        time.sleep(1)

    @property
    def path(self):
        folder = Path(self.sandbox.env["XDG_DATA_HOME"]) / "org.gnome.SoundRecorder"
        return max(folder.iterdir(), key=lambda path: path.stat().st_mtime)


class GnomeSoundRecorderWithoutOpenGL(GnomeSoundRecorder):
    name = "gnome-sound-recorder, drawn without OpenGL"
    environment = {"GSK_RENDERER": "cairo"}


class Kest(Recorder):
    name = "Kest"
    build = None  # where its bin/kest is
    person = None  # the Operator that clicks

    def open(self):
        from kest_program import KestProgram
        self.kest = KestProgram(self.sandbox, self.person, self.build)
        self.kest.start()
        self.process = self.kest.process
        self.places = {name: self._place(name) for name in ("Record", "Stop")}
        time.sleep(3)

    def _place(self, name):
        box = self.kest.control(name).queryComponent().getExtents(self.person.atspi.DESKTOP_COORDS)
        return box.x + box.width // 2, box.y + box.height // 2

    def _click(self, name):
        self.sandbox.run(["xdotool", "mousemove", *self.places[name], "click", "1"])

    def press(self):
        self._click("Record")

    def stop(self):
        self._click("Stop")
        wait_until(lambda: b"moof" not in self.path.read_bytes(), "the finished recording", 30)

    @property
    def path(self):
        return max(self.kest.recordings(), key=lambda path: path.stat().st_mtime)


ALL = (Kest, Ffmpeg, FfmpegLikeKest, FfmpegAsItComes, GStreamer, GnomeSoundRecorder, GnomeSoundRecorderWithoutOpenGL)
