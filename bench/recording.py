#!/usr/bin/python3
"""Recording, measured: from the press to the first sample, from Stop to the finished file, processor time and memory.

    bench/recording.py [--runs N] [--hour] [--preset PRESET]

On a private PulseAudio and a private PipeWire with a virtual microphone. Processor time and memory stand beside those
of `ffmpeg -f pulse`, which records the same microphone with the same encoder in turn; medians of five takes. `--hour` also
records an hour, which PulseAudio's virtual microphone speaks in six minutes.
"""

import argparse
import json
import statistics
import subprocess
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(top / "tests/support"))

from recorders import Ffmpeg, processor_seconds, pss  # noqa: E402
from services.base import Sandbox  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.sound import SoundServer  # noqa: E402

TAKE = 10  # seconds
TAKES = 5  # in turn with the peer


def build(preset):
    subprocess.run(["cmake", "--preset", preset], cwd=top, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", preset, "--target", "recording_bench"], cwd=top, check=True,
                   stdout=subprocess.DEVNULL)


def babble(sandbox, microphone):
    """Has the microphone hear something for the length of a take, so that the encoders have work."""
    path = sandbox.root / "babble.wav"
    if not path.exists():
        source = f"anoisesrc=c=pink:a=0.4:r=44100:d={TAKE + 4},tremolo=f=4:d=0.9"
        sandbox.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", source, "-ac", "1", path])
    microphone.play(path, wait=False)


def ffmpeg(sandbox, server):
    """(percent of a core, MB of PSS) of the well-known recorder over one take."""
    recorder = Ffmpeg(sandbox, server)
    recorder.press()
    time.sleep(1)
    pid = recorder.process.pid
    before, began = processor_seconds(pid), time.monotonic()
    time.sleep(TAKE)
    used = (processor_seconds(pid) - before) / (time.monotonic() - began)
    memory = pss(pid)
    recorder.stop()
    return used * 100, memory


def spread(runs, key):
    values = [run[key] for run in runs]
    return f"{statistics.median(values):.1f} (worst {max(values):.1f})"


def median(runs, key):
    return statistics.median(run[key] for run in runs)


def report(kind, calls, takes, peers):
    take = {key: median(takes, key) for key in takes[0]}
    peer = [statistics.median(figures) for figures in zip(*peers)]
    print(f"\n## {kind}\n\n| | Kest |\n|---|---|")
    for state in ("cold", "warm"):
        print(f"| prepareToRecord and record, {state}, ms | {spread(calls[state], 'calls ms')} |")
        print(f"| record to first sample, {state}, ms | {spread(calls[state], 'first sample ms')} |")
    print(f"| stop call, ms | {take['stop call ms']:.1f} |")
    print(f"| stop to finished file, {TAKE} s, ms | {take['finished ms']:.0f} |")
    print(f"| memory before recording, MB | {take['idle MB']:.1f} |")
    print("\n| | Kest | ffmpeg -f pulse | ratio |\n|---|---|---|---|")
    print(f"| processor while recording, % of a core | {take['cpu percent']:.1f} | {peer[0]:.1f} | "
          f"{take['cpu percent'] / peer[0]:.2f} |")
    print(f"| memory while recording, MB | {take['recording MB']:.1f} | {peer[1]:.1f} | "
          f"{take['recording MB'] / peer[1]:.2f} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=10)
    parser.add_argument("--hour", action="store_true")
    parser.add_argument("--preset", default="release")
    options = parser.parse_args()
    build(options.preset)
    program = top / "build" / options.preset / "bin/recording_bench"
    for kind in ("pulseaudio", "pipewire"):
        with Sandbox() as sandbox:
            SessionBus(sandbox)
            server = SoundServer(sandbox, kind)
            calls = json.loads(sandbox.run([program, "call", options.runs], seconds=300))
            takes, peers = [], []
            for _turn in range(TAKES):
                babble(sandbox, server.microphone)
                takes.append(json.loads(sandbox.run([program, "take", TAKE], seconds=60)))
                time.sleep(5)
                babble(sandbox, server.microphone)
                peers.append(ffmpeg(sandbox, server))
                time.sleep(5)
            report(kind, calls, takes, peers)
            if options.hour and kind == "pulseaudio":
                hour = json.loads(sandbox.run([program, "hour"], seconds=900))
                print(f"\nOne hour: stop to finished file {hour['finished ms']:.0f} ms, {hour['megabytes']:.1f} MB, "
                      f"{hour['recording MB']:.1f} MB of memory at its end.")


if __name__ == "__main__":
    main()
