#!/usr/bin/python3
"""From Stop to the finished file, by length: Kest beside `ffmpeg -c copy -movflags +faststart`.

    bench/finishing.py [--runs N] [--preset PRESET] [--beside PROGRAM]...

Both make the same ordinary file out of the same fragmented recording, turn by turn, until it is safe on the disk: the new
file synced, renamed over the old one, the folder synced. ffmpeg's time includes its start, Kest's does not: Kest runs already
when Stop is pressed. Processor time, which a busy machine blurs less, includes the start of either. `--beside` names the
`finish_bench` of another build, which then takes part too. The recordings lie in the build folder: a real disk is measured.
"""

import argparse
import os
import resource
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent

LENGTHS = {"10 s": 10, "10 min": 600, "1 h": 3600, "3 h": 10800}


def build(preset):
    subprocess.run(["cmake", "--preset", preset], cwd=top, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", preset, "--target", "finish_bench"], cwd=top, check=True,
                   stdout=subprocess.DEVNULL)


def sync(path):
    descriptor = os.open(path, os.O_RDONLY)
    os.fsync(descriptor)
    os.close(descriptor)


def finish_with(program):
    """Milliseconds of one build's finisher; what loading the program takes is not counted."""
    def finish(recording, seconds):
        return float(subprocess.run([program, "finish", recording, str(seconds)], check=True, capture_output=True,
                                    text=True).stdout)
    return finish


def finish_with_ffmpeg(recording, _seconds):
    """Milliseconds of the well-known tool, its start included."""
    made = recording.with_name("made.m4a")
    began = time.monotonic()
    subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", "-i", recording, "-c", "copy", "-movflags", "+faststart",
                    made], check=True)
    sync(made)
    made.rename(recording)
    sync(recording.parent)
    return (time.monotonic() - began) * 1000


def processor():
    """Milliseconds that the programs run so far have used."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return (used.ru_utime + used.ru_stime) * 1000


def measure(recording, seconds, finishers, runs):
    """{name: [(milliseconds, milliseconds of processor time)]}"""
    figures = {name: [] for name in finishers}
    for _ in range(runs):
        for name, finish in finishers.items():
            fresh = recording.with_name("recording.m4a")
            shutil.copyfile(recording, fresh)
            sync(fresh)  # a recording in progress is synced once a second
            os.sync()
            before = processor()
            figures[name].append((finish(fresh, seconds), processor() - before))
    return figures


def spread(values):
    return f"{statistics.median(values):.0f} ({min(values):.0f} to {max(values):.0f})"


def report(what, results, sizes):
    """A table of one of the two figures: 0 milliseconds, 1 processor time."""
    names = list(next(iter(results.values())))
    others = [name for name in names if name != "Kest"]
    heads = ["Kest"] + [head for name in others for head in (name, "ratio")]
    print(f"\n{('Milliseconds', 'Processor milliseconds')[what]}, median (least to most):\n")
    print("| length | MB | " + " | ".join(heads) + " |")
    print("|" + "---|" * (len(heads) + 2))
    for length, figures in results.items():
        values = {name: [run[what] for run in runs] for name, runs in figures.items()}
        kest = statistics.median(values["Kest"])
        cells = [spread(values["Kest"])]
        for name in others:
            cells += [spread(values[name]), f"{kest / statistics.median(values[name]):.2f}"]
        print(f"| {length} | {sizes[length]:.1f} | " + " | ".join(cells) + " |")


def growth(results):
    """How the time goes on growing: from one length to the next, per hour of sound more."""
    medians = [(LENGTHS[length], statistics.median(run[0] for run in figures["Kest"]))
               for length, figures in results.items()]
    steps = [(after[1] - before[1]) / (after[0] - before[0]) * 3600 for before, after in zip(medians, medians[1:])]
    print("\nGrowth from length to length, Kest:", ", ".join(f"{step:.0f}" for step in steps), "ms an hour")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--preset", default="release")
    parser.add_argument("--beside", action="append", default=[], metavar="PROGRAM")
    options = parser.parse_args()
    build(options.preset)
    program = top / "build" / options.preset / "bin/finish_bench"
    finishers = {"Kest": finish_with(program), **{other: finish_with(other) for other in options.beside},
                 "ffmpeg": finish_with_ffmpeg}
    results, sizes = {}, {}
    with tempfile.TemporaryDirectory(dir=top / "build") as folder:
        for length, seconds in LENGTHS.items():
            recording = Path(folder) / "original.m4a"
            subprocess.run([program, "make", recording, str(seconds)], check=True)
            sizes[length] = recording.stat().st_size / 1e6
            results[length] = measure(recording, seconds, finishers, options.runs)
    report(0, results, sizes)
    report(1, results, sizes)
    growth(results)


if __name__ == "__main__":
    main()
