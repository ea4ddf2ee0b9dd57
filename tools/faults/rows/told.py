"""The microphone, the sound server or the room on the disk goes away while the whole program records: its window says so."""

import random
import time
from pathlib import Path

from services.base import wait_until
from services.sound import MICROPHONE, MICROPHONE_DESCRIPTION

from .driven import PATIENCE, RATE
from .fulldisk import PACKET, TOLD_WITHIN, SmallDisk
from .row import Row, Seen
from .sounding import clicks, decoded_samples, is_ordinary

KINDS = ("pulseaudio", "pipewire")
ROOM = 8192  # Kilobytes: more than all takes together have.
MOST_LOST = 0.5  # Seconds that a take may be shorter than the time since its file was there.

# What is to be read in the window.
WORDS = {"unplugged": "The microphone went away. The recording is kept.",
         "killed": "The sound server ended. The recording is kept.",
         "full": "The disk is full. The recording so far is kept."}


class Scene:
    """The running program, its microphone, and its recordings on a small disk."""

    def __init__(self, context, kind):
        self.person, self.sandbox = context.person, context.sandbox
        self.sound = context.start_sound(kind)
        self.sound.microphone.hum(clicks())
        self.kest = context.start_kest()
        self.folder = self.kest.recordings_folder
        self.folder.mkdir(parents=True, exist_ok=True)
        self.disk = SmallDisk(self.folder, ROOM)
        self.start()

    def start(self):
        self.kest.start()
        self.notice = self.kest.control("Notice")

    def says(self, words):
        return self.person.text(self.notice) == words and self.person.has_state(self.notice, "STATE_SHOWING")

    def record(self):
        """Presses Record; gives the file, with something to play in it, and when it was there."""
        before = set(self.kest.recordings())
        self.kest.click("Record")
        [file] = wait_until(lambda: set(self.kest.recordings()) - before, "the recording", PATIENCE)
        began = time.monotonic()
        wait_until(lambda: decoded_samples(file), "something in the file", PATIENCE)
        return file, began

    # The faults, and what sets them right

    def unplugged(self):
        self.sound.remove_source(MICROPHONE)

    def killed(self):
        self.sound.kill()

    def full(self):
        self.disk.fill()

    def mend(self, fault):
        if fault == "unplugged":
            self.sound.add_source(MICROPHONE, MICROPHONE_DESCRIPTION)
            self.sound.set_default(MICROPHONE)
        elif fault == "killed":
            self.sound.restart_with_microphone()
        else:
            self.disk.make_room()

    # Afterwards

    def record_again(self, fault):
        """As a person goes on: Stop, then Record. Nothing is said of what is over."""
        self.kest.click("Stop", PATIENCE)
        file, _began = self.record()
        wait_until(lambda: not self.says(WORDS[fault]), "the words to go", PATIENCE)
        self.kest.click("Stop", PATIENCE)
        wait_until(lambda: is_ordinary(file), "the next recording", PATIENCE)

    def start_again(self):
        self.kest.quit(PATIENCE)
        self.start()

    def leftovers(self):
        unfinished = Path(self.sandbox.env["XDG_STATE_HOME"]) / "kest/unfinished-recordings"
        return [path.name for path in [*self.folder.glob(".*"), *unfinished.glob("*")]]

    def close(self):
        self.sandbox.stop(self.kest.process)
        self.disk.close()


def one(scene, fault, chance):
    """(sentences, seconds until it was said)"""
    file, began = scene.record()
    time.sleep(chance.uniform(0, 1.5))
    if scene.says(WORDS[fault]):
        raise RuntimeError("it was said before it happened")
    played = wait_until(lambda: decoded_samples(file), "what plays before", PATIENCE) - PACKET
    now = time.monotonic()
    getattr(scene, fault)()
    wait_until(lambda: scene.says(WORDS[fault]), f"“{WORDS[fault]}” in the window", PATIENCE)
    told = time.monotonic() - now
    failures = [f"said after {told:.2f} s"] if told > TOLD_WITHIN else []
    if fault != "full":
        wait_until(lambda: is_ordinary(file), "the take to be an ordinary file", PATIENCE)
        played = max(played, int((now - began - MOST_LOST) * RATE))
    failures += judge(file, played)
    scene.mend(fault)
    scene.record_again(fault)
    if fault == "full":
        scene.start_again()
        wait_until(lambda: is_ordinary(file), "the take to be finished at the next start", PATIENCE)
        failures += judge(file, played)
    return failures, told


def judge(file, least):
    kept = decoded_samples(file)
    if kept is None:
        return ["the take is not playable"]
    return [f"{kept} samples kept, {least} at least were spoken"] if kept < least else []


def several(context, kind, numbers, seen):
    """One after the other in one program; ends after a run that went wrong. Gives the times until it was said."""
    scene, told = Scene(context, kind), []
    try:
        for number in numbers:
            seen.runs += 1
            fault = list(WORDS)[number % len(WORDS)]
            failures, seconds = one(scene, fault, random.Random(context.seed + number))
            seen.failures += [f"{kind}, {fault}, seed {context.seed + number}: {text}" for text in failures]
            told.append(seconds)
        scene.kest.quit(PATIENCE)
        seen.leftovers += len(scene.leftovers())
    except Exception as problem:  # what it left is nobody's ground to go on from
        seen.failures.append(f"{kind}, run {number}: {type(problem).__name__}: {problem}")
    finally:
        scene.close()
    return told


def run(context, runs):
    context.start_desktop()
    seen, told = Seen(), []
    for at, kind in enumerate(KINDS):
        told += several(context, kind, range(at, runs, len(KINDS)), seen)
        context.stop_sound()
    seen.worst = f"said after {max(told, default=0):.2f} s"
    return seen


ROWS = [Row("told", "microphone unplugged, sound server killed, disk full, by turns while the whole program records",
            "said in the window within 2 s, the take plays and is an ordinary file (full disk: once there is room, after the next "
            "start), the next recording works", 3, 60, run, needs_mounts=True)]
