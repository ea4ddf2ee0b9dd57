"""The window's thread hangs for seconds while the program records: not a sample is missing."""

import array
import contextlib
import ctypes
import os
import random
import subprocess
import time

from services.base import wait_until

from .driven import PATIENCE, RATE
from .row import NotHere, Row, Seen
from .sounding import is_ordinary

BLOCKED = 5.0  # seconds
PERIOD = RATE // 10  # samples between two clicks
LOUD = 8000  # of 32767; what is between the clicks stays far below
NEAR = 4  # Samples by which the encoder may move a click's peak.
PTRACE_DETACH, PTRACE_SEIZE, PTRACE_INTERRUPT = 17, 0x4206, 0x4207
ANY_THREAD = 0x40000000  # __WALL of waitpid(2)
LIBC = ctypes.CDLL(None, use_errno=True)


def clicks():
    """A second of them: a short pulse in each tenth."""
    pulse = [20000, 28000, 20000, 0]
    return array.array("h", (pulse + [0] * (PERIOD - len(pulse))) * 10).tobytes()


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


def distances(samples):
    """From each click to the next, in samples."""
    found, at = [], 0
    while at < len(samples):
        if abs(samples[at]) > LOUD:
            piece = samples[at:at + 40]
            found.append(at + max(range(len(piece)), key=lambda n: abs(piece[n])))
            at += 400
        else:
            at += 1
    return [after - before for before, after in zip(found, found[1:])]


def is_part(short, long):
    """Whether one row of distances stands in the other, within what the encoder may move."""
    return any(all(abs(one - other) <= NEAR for one, other in zip(short, long[at:])) for at in range(len(long) - len(short) + 1))


def samples_of(raw):
    samples = array.array("h")
    samples.frombytes(raw[:len(raw) // 2 * 2])
    return samples


class Hanging:
    """The running program, and beside it a plain program that captures the same microphone."""

    def __init__(self, context):
        self.context = context
        context.start_sound("pulseaudio").microphone.hum(clicks())
        self.kest = context.start_kest()
        self.kest.start()

    def take(self, number, chance):
        """(what Kest kept, what the other one heard)."""
        raw = self.context.folder("reference") / "heard.raw"
        other = self.context.sandbox.start("reference", ["parec", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1", raw])
        wait_until(lambda: raw.exists() and raw.stat().st_size > RATE, "the reference to hear something", PATIENCE)
        self.kest.click("Record")
        wait_until(lambda: len(self.kest.recordings()) > number, "the recording", PATIENCE)
        time.sleep(chance.uniform(0.2, 0.8))
        with stopped(self.kest.process.pid):
            time.sleep(BLOCKED)
        self.kest.click("Stop", PATIENCE)
        file = self.kest.recordings()[-1]
        wait_until(lambda: is_ordinary(file), "the finished recording", PATIENCE)
        time.sleep(0.3)  # the other one hears what Kest heard last
        self.context.sandbox.stop(other)
        decoded = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-i", file, "-f", "s16le", "-ac", "1", "-"],
                                 capture_output=True, check=True).stdout
        return samples_of(decoded), samples_of(raw.read_bytes())


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


def run(context, runs):
    probe()
    context.start_desktop()
    hanging, seen, clicks_seen = Hanging(context), Seen(), 0
    for number in range(runs):
        seen.runs += 1
        kept, heard = hanging.take(number, random.Random(context.seed + number))
        own = distances(kept)
        clicks_seen += len(own)
        if len(kept) < BLOCKED * RATE or len(own) < BLOCKED * 10 - 2:
            seen.failures.append(f"run {number}: only {len(kept)} samples and {len(own)} clicks kept")
        elif not is_part(own[1:-1], distances(heard)):
            seen.failures.append(f"run {number}: {own} is not what was heard")
    hanging.kest.quit(PATIENCE)
    seen.worst = f"none of {clicks_seen} clicks out of place"
    if seen.failures:
        seen.worst = f"{len(seen.failures)} takes with a gap"
    return seen


ROWS = [Row("window-blocked", "the window's thread stopped for 5 s while the program records", "no sample lost", 1, 20, run)]
