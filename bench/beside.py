#!/usr/bin/python3
"""A whole recording in several programs: processor time, memory, what is missing at its start, what a kill leaves.

    bench/beside.py [--runs N] [--seconds N] [--build FOLDER]

All record the same virtual microphone of one private PulseAudio, in turn, on one virtual display. Kest and
gnome-sound-recorder are pressed in their windows; for ffmpeg and GStreamer, the press is their start.

The start: a tone sounds some time after the press. From there to the tone is longer in the file of a reader that records
all the time than in the program's own; the difference is what the program missed: the time from the press to the first sample
in its file. The reader hands over every 20 ms, so
that a figure may be up to that much too large.
"""

import argparse
import array
import math
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / "tests/support"), str(top / "tests/endtoend"), str(top / "bench")]

RATE = 44100
TONE_AFTER = 1.0  # s


def tone(seconds):
    return array.array("h", (int(20000 * math.sin(2 * math.pi * 1000 * at / RATE)) for at in range(int(seconds * RATE))))


def babble(sandbox, seconds):
    """Something for the encoders to work on."""
    source = f"anoisesrc=c=pink:a=0.4:r={RATE}:d={seconds},tremolo=f=4:d=0.9"
    return subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", source, "-ac", "1", "-f", "s16le", "-"],
                          env=sandbox.env, check=True, capture_output=True).stdout


def samples(path):
    """What a player hears, in floats; none where nothing can be played."""
    done = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "f32le", "-ac", "1", "-ar", str(RATE), "-"],
                          capture_output=True)
    return array.array("f", done.stdout[:len(done.stdout) // 4 * 4])


def tone_at(heard):
    """Seconds from its start to the tone."""
    return next((at for at, value in enumerate(heard) if abs(value) > 0.1), 0) / RATE


class Reader:
    """Records all the time."""

    def __init__(self, sandbox):
        self.sandbox = sandbox
        self.path = sandbox.root / "reader.raw"
        with open(self.path, "wb") as out:
            self.process = sandbox.start("reader", ["parec", "--raw", "--latency-msec=20", f"--rate={RATE}",
                                                    "--channels=1"], stdout=out)

    def now(self):
        """Seconds that it has recorded so far."""
        return self.path.stat().st_size / 2 / RATE

    def tone_after(self, moment):
        self.sandbox.stop(self.process)
        heard = array.array("h", self.path.read_bytes()[int(moment * RATE) * 2:])
        return next(at for at, value in enumerate(heard) if abs(value) > 3000) / RATE


def measure(recorder, seconds):
    """One recording, from the press to the finished file."""
    microphone = recorder.sound.microphone
    recorder.open()
    idle = pss_of(recorder)
    reader = Reader(recorder.sandbox)
    time.sleep(1)
    pressed = reader.now()
    recorder.press()
    time.sleep(TONE_AFTER)
    microphone.play_samples(tone(0.2).tobytes() + babble(recorder.sandbox, seconds + 2), wait=False)
    time.sleep(1)
    before, began = cpu_of(recorder), time.monotonic()
    time.sleep(seconds)
    figures = {"cpu": (cpu_of(recorder) - before) / (time.monotonic() - began) * 100, "idle": idle,
               "recording": pss_of(recorder)}
    recorder.stop()
    figures["missing"] = (reader.tone_after(pressed) - tone_at(samples(recorder.path))) * 1000
    figures["bytes"] = recorder.path.stat().st_size / (seconds + TONE_AFTER + 1)
    recorder.close()
    return figures


def cpu_of(recorder):
    from recorders import processor_seconds
    return processor_seconds(recorder.process.pid)


def pss_of(recorder):
    from recorders import pss
    return pss(recorder.process.pid) if recorder.process else 0.0


def kill(recorder, seconds):
    """Seconds that can be played of a recording whose program was killed after that time."""
    recorder.open()
    recorder.press()
    recorder.wait_until_recording()
    time.sleep(seconds)
    recorder.kill()
    return len(samples(recorder.path)) / RATE


def desktop(sandbox, build):
    """What they all need; returns the sound server."""
    from recorders import Kest
    from services.bus import AccessibilityBus, SessionBus
    from services.display import Display
    from services.operator import Operator
    from services.sound import SoundServer
    SessionBus(sandbox)
    Display(sandbox, "1600x1000")
    AccessibilityBus(sandbox)
    Kest.build, Kest.person = build, Operator(sandbox)
    return SoundServer(sandbox, "pulseaudio")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--build", type=Path, default=top / "build/release")
    options = parser.parse_args()
    os.environ.update(KEST_BUILD_DIR=str(options.build), KEST_SOURCE_DIR=str(top))
    from recorders import ALL
    from services.base import Sandbox
    figures, killed = {}, {}
    with Sandbox() as sandbox:
        sound = desktop(sandbox, options.build)
        try:
            for _ in range(options.runs):
                for recorder in ALL:
                    figures.setdefault(recorder.name, []).append(measure(recorder(sandbox, sound), options.seconds))
                    killed.setdefault(recorder.name, []).append(kill(recorder(sandbox, sound), 5))
        finally:
            sound.close()
    report(figures, killed, options)


def report(figures, killed, options):
    middles = {name: {key: statistics.median(run[key] for run in runs) for key in runs[0]}
               for name, runs in figures.items()}
    ours = middles["Kest"]

    def cell(value, mine, unit):
        ratio = f" ({mine / value:.2f})" if value and value is not mine else ""
        return f"{value:.1f} {unit}{ratio}" if value else "–"
    print(f"Machine: {os.cpu_count()} cores, {options.runs} runs of {options.seconds} s each, medians; in brackets Kest's "
          "figure divided by this one\n")
    print("| Program | processor | PSS idle | PSS recording | missing at the start | a second of sound | "
          "playable of 5 s when killed |")
    print("|---|---|---|---|---|---|---|")
    for name, one in middles.items():
        left = statistics.median(killed[name])
        print(f"| {name} | {cell(one['cpu'], ours['cpu'], '%')} | {cell(one['idle'], ours['idle'], 'MiB')} | "
              f"{cell(one['recording'], ours['recording'], 'MiB')} | {one['missing']:.0f} ms | "
              f"{one['bytes'] / 1000:.1f} kB | {left:.1f} s |")


if __name__ == "__main__":
    main()
