#!/usr/bin/python3
"""A whole recording in several programs: processor time, memory, what a kill leaves.

    bench/beside.py [--runs N] [--seconds N] [--build FOLDER]

All record the same virtual microphone of one private PulseAudio, in turn, on one virtual display. Kest and
gnome-sound-recorder are pressed in their windows; for ffmpeg and GStreamer, the press is their start.
"""

import argparse
import array
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / "tests/support"), str(top / "tests/endtoend"), str(top / "bench")]

RATE = 44100
SETTLED = 2.0  # s


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


def measure(recorder, seconds):
    """One recording, from the press to the finished file."""
    noise = babble(recorder.sandbox, seconds + SETTLED + 1)
    recorder.open()
    idle = pss_of(recorder)
    recorder.press()
    recorder.sound.microphone.play_samples(noise, wait=False)
    time.sleep(SETTLED)
    before, began = cpu_of(recorder), time.monotonic()
    time.sleep(seconds)
    figures = {"cpu": (cpu_of(recorder) - before) / (time.monotonic() - began) * 100, "idle": idle,
               "recording": pss_of(recorder)}
    recorder.stop()
    figures["bytes"] = recorder.path.stat().st_size / (seconds + SETTLED)
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
    print("| Program | processor | PSS idle | PSS recording | a second of sound | "
          "playable of 5 s when killed |")
    print("|---|---|---|---|---|---|")
    for name, one in middles.items():
        left = statistics.median(killed[name])
        print(f"| {name} | {cell(one['cpu'], ours['cpu'], '%')} | {cell(one['idle'], ours['idle'], 'MiB')} | "
              f"{cell(one['recording'], ours['recording'], 'MiB')} | "
              f"{one['bytes'] / 1000:.1f} kB | {left:.1f} s |")


if __name__ == "__main__":
    main()
