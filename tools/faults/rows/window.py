"""The window's thread, or the whole program, stands still for seconds while it records: not a sample is missing."""

import contextlib
import ctypes
import os
import random
import signal
import subprocess
import time

from services.base import wait_until

from .driven import PATIENCE, RATE
from .row import NotHere, Row, Seen
from .sounding import NEAR, PERIOD, clicks, distances, is_ordinary, played, reference, samples_of

BLOCKED = 5.0  # seconds
FROZEN = 10.0  # seconds
PTRACE_DETACH, PTRACE_SEIZE, PTRACE_INTERRUPT = 17, 0x4206, 0x4207
ANY_THREAD = 0x40000000  # __WALL of waitpid(2)
LIBC = ctypes.CDLL(None, use_errno=True)


def ptrace(request, thread):
    if LIBC.ptrace(request, thread, None, None) < 0:
        raise OSError(ctypes.get_errno(), "ptrace")


@contextlib.contextmanager
def stopped(thread):
    """Stops one thread of a process; the others go on."""
    ptrace(PTRACE_SEIZE, thread)
    ptrace(PTRACE_INTERRUPT, thread)
    os.waitpid(thread, ANY_THREAD)
    try:
        yield
    finally:
        ptrace(PTRACE_DETACH, thread)


@contextlib.contextmanager
def frozen(process):
    """Stops all threads of a process, as when the machine has no processor for it."""
    os.kill(process, signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(process, signal.SIGCONT)


def is_part(short, long):
    """Whether one row of distances stands in the other, within what the encoder may move."""
    return any(all(abs(one - other) <= NEAR for one, other in zip(short, long[at:])) for at in range(len(long) - len(short) + 1))


class Hanging:
    """The running program, and beside it a plain program that captures the same microphone.

    `standing` is what stops a process by its number, as a context manager, and `seconds` for how long.
    """

    def __init__(self, context, kind, standing, seconds):
        self.context, self.standing, self.seconds = context, standing, seconds
        context.start_sound(kind).microphone.hum(clicks())
        self.kest = context.start_kest()
        self.kest.start()

    def take(self, number, chance):
        """(what Kest kept, what the other one heard, samples spoken at least)."""
        raw = self.context.folder("reference") / "heard.raw"
        other = self.context.sandbox.start("reference", reference(raw))
        wait_until(lambda: raw.exists() and raw.stat().st_size > RATE, "the reference to hear something", PATIENCE)
        self.kest.click("Record")
        wait_until(lambda: len(self.kest.recordings()) > number, "the recording", PATIENCE)
        began = time.monotonic()
        time.sleep(chance.uniform(0.2, 0.8))
        with self.standing(self.kest.process.pid):
            time.sleep(self.seconds)
        spoken = int((time.monotonic() - began) * RATE)
        self.kest.click("Stop", PATIENCE)
        file = self.kest.recordings()[-1]
        wait_until(lambda: is_ordinary(file), "the finished recording", PATIENCE)
        time.sleep(0.3)  # the other one hears what Kest heard last
        self.context.sandbox.stop(other)
        return played(file) or [], samples_of(raw.read_bytes()), spoken

    def judge(self, number, chance):
        """(how many clicks were kept, what is wrong with them or null)."""
        kept, heard, spoken = self.take(number, chance)
        own = distances(kept)
        if len(kept) < spoken or len(own) < spoken // PERIOD - 2:
            return len(own), f"{spoken} samples spoken, {len(kept)} and {len(own)} clicks kept"
        if not is_part(own[1:-1], distances(heard)):
            return len(own), f"{own} is not what was heard"
        return len(own), None

    def end(self):
        self.kest.quit(PATIENCE)
        for take in self.kest.recordings():
            take.unlink()
        self.context.stop_sound()


def probe():
    """Whether a thread of a child may be stopped."""
    child = subprocess.Popen(["sleep", "60"])
    try:
        with stopped(child.pid):
            pass
    except OSError as refused:
        raise NotHere(f"no thread may be stopped: {refused}") from refused
    finally:
        child.kill()
        child.wait()


def several(context, runs, kinds, standing, seconds):
    """The runs, shared by the sound servers of these kinds."""
    seen, clicks_seen = Seen(), 0
    context.start_desktop()
    for kind, numbers in zip(kinds, (range(at, runs, len(kinds)) for at in range(len(kinds)))):
        hanging = Hanging(context, kind, standing, seconds)
        for taken, number in enumerate(numbers):
            seen.runs += 1
            kept, wrong = hanging.judge(taken, random.Random(context.seed + number))
            clicks_seen += kept
            seen.failures += [f"{kind}, run {number}: {wrong}"] if wrong else []
        hanging.end()
    seen.worst = f"none of {clicks_seen} clicks out of place"
    if seen.failures:
        seen.worst = f"{len(seen.failures)} takes with a gap"
    return seen


def blocked_window(context, runs):
    probe()
    return several(context, runs, ["pulseaudio"], stopped, BLOCKED)


def frozen_program(context, runs):
    return several(context, runs, ["pulseaudio", "pipewire"], frozen, FROZEN)


ROWS = [Row("window-blocked", "the window's thread stopped for 5 s while the program records", "no sample lost", 1, 20, blocked_window),
        Row("frozen", "the whole program stopped for 10 s while it records", "no sample lost, the recording goes on", 2, 20,
            frozen_program)]
