"""Asked to end at a random moment, in each way that a desktop has: the program ends in order, and all that was said is there."""

import concurrent.futures
import contextlib
import dataclasses
import os
import random
import shutil
import signal
import subprocess
import time
from pathlib import Path

import dbus
import dbus.bus

from kest_program import KestProgram
from services.base import ServiceError, repeat_until, wait_until
from services.bus import SessionBus
from services.display import Display

from .driven import PATIENCE, RATE
from .row import Row, Seen
from .sounding import decoded_samples, is_ordinary

ENDS_WITHIN = 10  # seconds; Kest itself waits 5 for a recording to be finished
MOST_LOST = 0.5  # Seconds that a take may be shorter than the time since its file was there; a key takes some of them to come.
NAME = "org.kest.Mail1.Thunderbird"
SLOW_CALLS = 10  # more than a message takes
SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)
KEYS = ("alt+F4", "ctrl+q", "ctrl+w")
STATES = ("starting", "beginning", "recording", "paused", "stopping", "stopped", "playing", "mailing", "preferences")


@dataclasses.dataclass
class Take:
    """What a run recorded."""

    began: float = 0.0  # On the monotonic clock; 0: nothing was.
    paused: float = 0.0  # From then on it did not go on; 0: to the end.
    snapshot: Path = None  # The file as it was just before the end.


class Desk:
    """A display, a bus, a microphone and a slow mail application, for one run after the other."""

    def __init__(self, context):
        self.context, self.sandbox = context, context.sandbox
        SessionBus(self.sandbox)
        Display(self.sandbox)
        context.start_sound("pulseaudio").add_output("speaker")
        self.sandbox.start("fake", [context.build / "bin/fake-mail-application", "Thunderbird"])
        self.connection = dbus.bus.BusConnection(self.sandbox.env["DBUS_SESSION_BUS_ADDRESS"])
        wait_until(lambda: self.connection.name_has_owner(NAME), "the fake mail application", PATIENCE)

    def make_slow(self):
        script = self.connection.get_object(NAME, "/org/kest/Test")
        script.Configure("{}", dbus_interface="org.kest.Test.Script")
        for number in range(1, SLOW_CALLS):
            script.At(dbus.UInt32(number), "delay", "150", dbus_interface="org.kest.Test.Script", signature="uss")


class Ending:
    """One start of the program, and the moment at which it is asked to end."""

    def __init__(self, desk, state, chance):
        self.desk, self.sandbox, self.chance, self.state = desk, desk.sandbox, chance, state
        self.recordings = self.sandbox.home / "Music/Kest"
        self.unfinished = Path(self.sandbox.env["XDG_STATE_HOME"]) / "kest/unfinished-recordings"
        self.take = Take()

    def start(self):
        expanded = self.state == "playing" or self.chance.random() < 0.5
        KestProgram(self.sandbox, None, self.desk.context.build).write_setting("bWindowExpanded", str(expanded).lower())
        self.process = self.sandbox.start("kest", [self.desk.context.build / "bin/kest"])
        self.window = wait_until(self.visible, "the window", PATIENCE, every=0.001)

    def visible(self):
        with contextlib.suppress(ServiceError):
            return self.sandbox.run(["xdotool", "search", "--onlyvisible", "--name", "^Kest$"]).split()[-1]

    def press(self, keys):
        self.sandbox.run(["xdotool", "key", "--clearmodifiers", keys])

    def focus(self):
        self.sandbox.run(["xdotool", "windowactivate", "--sync", self.window])

    def wait(self, least, most):
        time.sleep(self.chance.uniform(least, most))

    def files(self):
        """The recordings; without the hidden file that a finished one is made in."""
        return sorted(self.recordings.glob("[!.]*"))

    def leftovers(self):
        hidden = [path.name for path in self.recordings.glob(".*")]
        return [path.name for path in self.files()[1:]] + hidden + [path.name for path in self.unfinished.glob("*")]

    # The moments

    def starting(self):
        self.wait(0, 0.08)

    def begin(self):
        self.focus()
        # A window that has just been given the focus may miss a key; while it records, the key does nothing more.
        repeat_until(lambda: self.press("ctrl+r"), self.files, "the recording", PATIENCE, every=1)
        self.take.began = time.monotonic()

    def beginning(self):
        self.begin()
        self.wait(0, 0.1)

    def recording(self):
        self.begin()
        self.wait(0.1, 1.2)

    def paused(self):
        self.recording()
        self.press("ctrl+p")
        self.take.paused = time.monotonic()
        self.wait(0, 0.3)

    def stopping(self):
        self.recording()
        self.press("ctrl+s")
        self.take.paused = time.monotonic()
        self.wait(0, 0.08)

    def stopped(self):
        self.stopping()
        wait_until(lambda: is_ordinary(self.files()[0]), "the finished recording", PATIENCE)

    def playing(self):
        self.stopped()
        self.press("ctrl+l")
        self.wait(0, 0.2)

    def mailing(self):
        self.desk.make_slow()
        self.stopped()
        self.press("ctrl+n")
        self.wait(0, 0.6)

    def preferences(self):
        self.focus()
        self.press("ctrl+comma")
        self.wait(0, 0.3)

    def look(self):
        """Keeps the file as it is."""
        if self.take.began and self.files():
            self.take.snapshot = shutil.copy(self.files()[0], self.desk.context.folder("before") / "take.m4a")

    def ask(self):
        # The preferences lie before the window whose key it is.
        self.way = self.chance.choice([way for way in SIGNALS + KEYS if (self.state, way) != ("preferences", "ctrl+q")])
        if self.way in SIGNALS:
            os.kill(self.process.pid, self.way)
            self.way = self.way.name
        else:
            self.press(self.way)
        self.asked = time.monotonic()

    # What is left

    def ended(self):
        """Within the time; a window that has just come may have missed the key, and what lies before it may have taken it."""
        if self.way in KEYS:
            repeat_until(lambda: self.process.poll() is None and self.press(self.way), lambda: self.process.poll() is not None,
                         "the end", ENDS_WITHIN, every=1)
        self.process.wait(ENDS_WITHIN)

    def judge(self):
        """Sentences about what should not be, and the seconds that are missing."""
        try:
            self.ended()
        except (ServiceError, subprocess.TimeoutExpired):
            self.process.kill()
            return [f"did not end within {ENDS_WITHIN} s"], 0.0
        finally:
            self.sandbox.stop(self.process)
        if self.process.returncode:
            return [f"ended with {self.process.returncode}"], 0.0
        if left := self.leftovers():
            return [f"left over: {left}"], 0.0
        return self.judge_take() if self.take.began else ([], 0.0)

    def judge_take(self):
        if not self.files():
            return (["no file"], 0.0) if self.state != "beginning" else ([], 0.0)
        file = self.files()[0]
        samples = decoded_samples(file)
        if samples is None or not is_ordinary(file):
            return ["not an ordinary file"], 0.0
        if samples < (decoded_samples(self.take.snapshot) or 0):
            return ["shorter than before the end"], 0.0
        lost = max(0.0, (self.take.paused or self.asked) - self.take.began - samples / RATE)
        return ([f"{lost:.2f} s lost"] if lost > MOST_LOST else []), lost

    def clear(self):
        for path in self.files():
            path.unlink()


def one(desk, number, seed):
    """(sentences, seconds missing)"""
    state = STATES[number % len(STATES)]
    ending = Ending(desk, state, random.Random(seed))
    ending.start()
    getattr(ending, state)()
    ending.look()
    ending.ask()
    failures, lost = ending.judge()
    ending.clear()
    return [f"{state}, {ending.way}, seed {seed}: {text}" for text in failures], lost


def several(context, numbers):
    seen, worst = Seen(), 0.0
    with context.another() as own:
        desk = Desk(own)
        for number in numbers:
            seen.runs += 1
            try:
                failures, lost = one(desk, number, context.seed + number)
            except Exception as problem:  # a run that comes to nothing is a run that missed the bar
                failures, lost = [f"run {number}: {type(problem).__name__}: {problem}"], 0.0
            seen.failures += failures
            worst = max(worst, lost)
            if failures:
                break  # what it left is nobody's ground to go on from
    return seen, worst


def run(context, runs):
    for number in (signal.SIGHUP, signal.SIGINT):  # ignored by all that nohup or a shell's & starts, Kest too
        if signal.getsignal(number) == signal.SIG_IGN:
            signal.signal(number, signal.SIG_DFL)
    whole, worst = Seen(), 0.0
    workers = min(context.workers, 2)
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for seen, lost in pool.map(lambda at: several(context, range(at, runs, workers)), range(workers)):
            whole.runs += seen.runs
            whole.failures += seen.failures
            worst = max(worst, lost)
    whole.worst = f"{worst:.2f} s less than since its file was there"
    return whole


ROWS = [Row("ended", "asked to end at a random moment, by signal, key or window: " + ", ".join(STATES) + " (the whole program)",
            "ends in order within 10 s, all that was recorded is in an ordinary file, nothing left over", 9, 900, run)]
