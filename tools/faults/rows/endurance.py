"""Hours of recording and of starting and stopping, compressed: memory and descriptors stay flat."""

import os
import re
import struct
import subprocess
import threading
import time
from pathlib import Path

from services.base import wait_until

from .context import BABBLE
from .driven import PATIENCE, RATE, Recorder
from .row import Row, Seen
from .sounding import is_ordinary

HOURS = 3
SPEED = 10  # Times real time, at most: far faster, PulseAudio leaves samples out for a recorder that reads ten times a second.
CYCLES = 1440  # One a minute for a day.
PRESSED = 400  # Starts and stops through the window.
BATCH = 20  # After so many all recordings but the last are taken away.
TAIL = 65536  # Bytes: more than a fragment has.
TAKE = 0.15  # seconds of each
MOST_GROWTH = 1.0  # Megabytes an hour of sound, and for a thousand starts and stops.
MOST_WAITING = 10  # Seconds of sound between microphone and file; Kest keeps up to 188 s for an encoder that gets no processor.
SETTLED = 0.2  # The share of the run after which what is allocated once is allocated.


def megabytes(pid):
    """What is its own, and its share of what it shares with the sound server and the display."""
    rollup = Path(f"/proc/{pid}/smaps_rollup").read_text()
    return sum(int(kilobytes) for kilobytes in re.findall(r"^Pss_(?:Anon|Shmem):\s+(\d+)", rollup, re.M)) / 1024


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def slope(points):
    """Of the straight line through (x, y) that fits best."""
    mean_x, mean_y = (sum(values) / len(points) for values in zip(*points))
    spread = sum((x - mean_x) ** 2 for x, _y in points)
    return sum((x - mean_x) * (y - mean_y) for x, y in points) / spread if spread else 0.0


def encoded_samples(take):
    """Where the last fragment in the file begins: what was encoded up to there."""
    with open(take, "rb") as file:
        file.seek(max(0, os.fstat(file.fileno()).st_size - TAIL))
        tail = file.read()
    at = tail.rfind(b"tfdt")  # ISO/IEC 14496-12: version and flags, then the decode time in 32 or 64 bits
    if not 0 <= at <= len(tail) - 16:
        return 0
    return struct.unpack_from(">Q" if tail[at + 4] else ">I", tail, at + 8)[0]


class FastMicrophone:
    """Speaks noise into a FIFO, up to so many times faster than real time: as fast as the recorder's encoder follows.

    A microphone does not wait, so that one faster than the encoder would fill any memory. `waiting` gives the seconds of
    sound that are captured and not encoded; above MOST_WAITING it goes on in real time.
    """

    def __init__(self, sound, speed, waiting):
        sound.microphone.hush()
        self.fifo = os.open(sound.microphone.fifo, os.O_RDWR)
        self.speed, self.waiting, self.ended = speed, waiting, threading.Event()
        self.thread = threading.Thread(target=self.speak, daemon=True)
        self.thread.start()

    def speak(self):
        noise = os.urandom(2 * RATE * BABBLE)
        block = 2 * int(RATE * 0.01)
        due, at = time.monotonic(), 0
        while not self.ended.is_set():
            due = max(due + 0.01, time.monotonic() - 0.1)
            time.sleep(max(0.0, due - time.monotonic()))
            piece = block * (self.speed if self.waiting() < MOST_WAITING else 1)
            os.write(self.fifo, noise[at:at + piece])
            at = (at + piece) % (len(noise) - block * self.speed)

    def end(self):
        self.ended.set()
        self.thread.join(PATIENCE)
        os.close(self.fifo)


def start(context):
    root = context.folder("endurance")
    (root / "Recordings").mkdir()
    return Recorder(context.sandbox, context.build, root), root / "Recordings/take.m4a"


def settled(points):
    return points[int(len(points) * SETTLED):]


def judge(seen, points, what, first, last):
    """Fills in the slope of (x, megabytes) and the descriptors at the beginning and the end."""
    growth = slope(settled(points))
    seen.worst = f"{growth:+.2f} MB {what}, {first} to {last} descriptors"
    if growth > MOST_GROWTH:
        seen.failures.append(f"memory grows by {growth:.2f} MB {what}: {[round(y, 1) for _x, y in points[::max(1, len(points) // 20)]]}")
    if last > first:
        seen.failures.append(f"{first} descriptors at the beginning, {last} at the end")


def record(context, hours):
    sound = context.start_sound("pulseaudio")
    recorder, take = start(context)
    recorder.tell(f"record {take}")
    recorder.wait("started")
    microphone = FastMicrophone(sound, SPEED, lambda: (recorder.samples() - encoded_samples(take)) / RATE)
    seen, points, first = Seen(runs=1), [], None
    goal = int(hours * 3600 * RATE)
    while recorder.samples() < goal:
        if told := recorder.told_meanwhile():
            raise RuntimeError(f"after {recorder.samples() / RATE / 3600:.2f} h: {told}")
        points.append((recorder.samples() / RATE / 3600, megabytes(recorder.process.pid)))
        first = first or descriptors(recorder.process.pid)
        time.sleep(max(0.05, min(2.0, hours * 10)))
    last = descriptors(recorder.process.pid)
    recorder.tell("stop")
    finished = recorder.wait("finished", 600)[1]
    microphone.end()
    judge(seen, points, "an hour", first, last)
    check(seen, take, finished, recorder.samples())
    recorder.end()
    return seen


def check(seen, take, finished, captured):
    kept = int(subprocess.run(["ffprobe", "-v", "error", "-show_entries", "stream=duration_ts", "-of", "default=nk=1:nw=1", take],
                              capture_output=True, text=True, check=True).stdout)
    if finished.split(" ")[1] != "1" or not is_ordinary(take) or kept != captured:
        seen.failures.append(f"{captured} samples captured, {kept} kept ({finished})")


def cycled(pid, cycles, one):
    """Does one(number) so many times, and looks at the process after each."""
    seen, points, first = Seen(runs=1), [], None
    for number in range(cycles):
        one(number)
        if number >= min(20, cycles // 3):
            points.append((number / 1000, megabytes(pid)))
            first = first or descriptors(pid)
    judge(seen, points, "for 1000 cycles", first, descriptors(pid))
    return seen


def cycle(context, cycles):
    context.start_sound("pulseaudio")
    recorder, take = start(context)

    def one(number):
        recorder.tell(f"record {take}")
        recorder.wait("started")
        recorder.wait_for_samples(int(TAKE * RATE))
        recorder.tell("stop")
        if recorder.wait("finished")[1].split(" ")[1] != "1":
            raise RuntimeError(f"cycle {number} kept nothing")
        take.unlink()
    seen = cycled(recorder.process.pid, cycles, one)
    seen.leftovers = len([path for path in take.parent.iterdir()])
    recorder.end()
    return seen


def cycle_window(context, cycles):
    context.start_sound("pulseaudio")
    context.start_desktop()
    kest = context.start_kest()
    kest.start()
    record, stop = kest.control("Record"), kest.control("Stop")

    def one(number):
        before = set(kest.recordings())
        context.person.click(record, PATIENCE)
        [take] = wait_until(lambda: set(kest.recordings()) - before, "the recording", PATIENCE)
        wait_until(lambda: b"moof" in take.read_bytes(), "something in the file", PATIENCE)
        context.person.click(stop, PATIENCE)
        wait_until(lambda: is_ordinary(take), "the finished recording", PATIENCE)
        if number % BATCH == BATCH - 1:
            for path in before:
                path.unlink()
    seen = cycled(kest.process.pid, cycles, one)
    kest.quit(PATIENCE)
    seen.leftovers = len([path for path in kest.recordings_folder.iterdir() if path not in kest.recordings()])
    return seen


def once(work, short, whole):
    """`runs` times the whole; 0: a short one, too short for a slope that says anything."""
    def run(context, runs):
        seen = work(context, whole if runs else short)
        if not runs:
            seen.failures = [text for text in seen.failures if not text.startswith("memory grows")]
        return seen
    return run


ROWS = [Row("hours", f"{HOURS} h of recording, up to {SPEED} times faster than real time", "memory flat (at most 1 MB an hour), "
            "descriptors flat, every sample kept", 0, 1, once(record, 0.02, HOURS)),
        Row("cycles", f"{CYCLES} starts and stops: one a minute for a day", "memory flat (at most 1 MB for 1000), descriptors flat",
            0, 1, once(cycle, 12, CYCLES)),
        Row("cycles-window", f"Record and Stop pressed {PRESSED} times in the window of the whole program",
            "memory flat (at most 1 MB for 1000), descriptors flat", 0, 1, once(cycle_window, 12, PRESSED))]
