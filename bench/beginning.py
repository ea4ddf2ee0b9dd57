#!/usr/bin/python3
"""How much of what is said after the press is missing in several programs' recordings.

    bench/beginning.py [--runs N] [--build FOLDER]

All record the same virtual microphone of one private PulseAudio, in turn, on one virtual display. Kest and
gnome-sound-recorder are pressed in their windows; for ffmpeg and GStreamer, the press is their start.

A tone sounds some time after the press. From the press to the tone is longer in the file of a reader that records all the
time than from the beginning to the tone in the program's own; the difference is the time from the press to the first sample
in its file. The click is made by a program of its own, whose start is in the figure; it stands below the table. What the reader
hands over at once stands there, too: the figure is uncertain by so much.
"""

import argparse
import array
import math
import os
import statistics
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / "tests/support"), str(top / "tests/endtoend"), str(top / "bench")]

from beside import RATE, desktop, samples  # noqa: E402

TONE_AFTER = 1.0  # s
LATENCY = 2  # ms


def tone(seconds):
    return array.array("h", (int(20000 * math.sin(2 * math.pi * 1000 * at / RATE)) for at in range(int(seconds * RATE))))


def tone_at(heard, level):
    """Seconds from its start to the tone."""
    return next(at for at, value in enumerate(heard) if abs(value) > level) / RATE


class Reader:
    """Records all the time."""

    def __init__(self, sandbox):
        self.sandbox = sandbox
        self.path = sandbox.root / "reader.raw"
        with open(self.path, "wb") as out:
            self.process = sandbox.start("reader", ["parec", "--raw", f"--latency-msec={LATENCY}", f"--rate={RATE}",
                                                    "--channels=1"], stdout=out)

    def size(self):
        return self.path.stat().st_size

    def now(self):
        """Seconds that it has recorded so far, at the moment in which it hands over something."""
        before = self.size()
        while (size := self.size()) == before:
            pass
        return size / 2 / RATE

    def step(self):
        """Milliseconds of sound that it hands over at once: the median of some."""
        sizes = [self.now() for _ in range(50)]
        return statistics.median(later - sooner for sooner, later in zip(sizes, sizes[1:])) * 1000

    def tone_after(self, moment):
        self.sandbox.stop(self.process)
        return tone_at(array.array("h", self.path.read_bytes())[int(moment * RATE):], 3000)


def measure(recorder):
    """(milliseconds missing, milliseconds that the reader hands over at once)"""
    recorder.open()
    reader = Reader(recorder.sandbox)
    time.sleep(1)
    step = reader.step()
    pressed = reader.now()
    recorder.press()
    time.sleep(TONE_AFTER)
    recorder.sound.microphone.play_samples(tone(0.2).tobytes())
    time.sleep(0.5)
    recorder.stop()
    missing = reader.tone_after(pressed) - tone_at(samples(recorder.path), 0.1)
    recorder.close()
    return missing * 1000, step


def click_costs(sandbox, runs):
    """Milliseconds of the program that clicks, where it does not click."""
    costs = []
    for _run in range(runs):
        began = time.monotonic()
        sandbox.run(["xdotool", "mousemove", "0", "0"])
        costs.append((time.monotonic() - began) * 1000)
    return statistics.median(costs)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=9)
    parser.add_argument("--build", type=Path, default=top / "build/release")
    options = parser.parse_args()
    os.environ.update(KEST_BUILD_DIR=str(options.build), KEST_SOURCE_DIR=str(top))
    from recorders import ALL
    from services.base import Sandbox
    figures = {}
    with Sandbox() as sandbox:
        sound = desktop(sandbox, options.build)
        try:
            for _run in range(options.runs):
                for recorder in ALL:
                    figures.setdefault(recorder.name, []).append(measure(recorder(sandbox, sound)))
            click = click_costs(sandbox, options.runs)
        finally:
            sound.close()
    report(figures, click, options.runs)


def report(figures, click, runs):
    print(f"Machine: {os.cpu_count()} cores, medians of {runs} recordings\n")
    print("| Program | from the press to the first sample in the file |")
    print("|---|---|")
    for name, ones in figures.items():
        missing = [missing for missing, _step in ones]
        print(f"| {name} | {statistics.median(missing):.0f} ms ({min(missing):.0f} to {max(missing):.0f}) |")
    step = statistics.median(step for ones in figures.values() for _missing, step in ones)
    print(f"\nThe program that clicks takes {click:.0f} ms; the reader hands over {step:.0f} ms at once.")


if __name__ == "__main__":
    main()
