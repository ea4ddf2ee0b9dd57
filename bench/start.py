#!/usr/bin/python3
"""Start to first picture, and memory at rest: Kest beside a form of Qt's own controls, an empty window and a well-known
recorder.

    bench/start.py [--runs N]

All are started in turn, on one virtual display, in one run; the table gives medians and their ratio to Kest's. Memory
is PSS, read 3 s after the start. On a virtual display OpenGL is the processor's work, so the well-known recorder is started
without it, too.
"""

import argparse
import os
import re
import shutil
import statistics
import subprocess
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(top / "tests/support"))

from services.base import Sandbox  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.sound import SoundServer  # noqa: E402

SETTLED = 3.0  # seconds until what is done at idle is done


def pss(pid):
    text = Path(f"/proc/{pid}/smaps_rollup").read_text()
    return int(re.search(r"^Pss:\s+(\d+)", text, re.M).group(1)) / 1024


def once(sandbox, command):
    """(milliseconds to the first picture, MiB of PSS at rest)."""
    watcher = subprocess.Popen([top / "build/release/bin/window_shown", *command], env=sandbox.env,
                               stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        shown, pid = watcher.stdout.readline().split()
        time.sleep(SETTLED)
        return float(shown), pss(int(pid))
    finally:
        watcher.stdin.close()
        watcher.wait(10)


def build():
    subprocess.run(["cmake", "--preset", "release"], cwd=top, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "kest", "bench_programs"], cwd=top,
                   check=True, stdout=subprocess.DEVNULL)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=16)
    runs = parser.parse_args().runs
    build()
    programs = {"Kest": [str(top / "build/release/bin/kest")],
                "bare form, 14 stock controls": [str(top / "build/release/bin/bare_form")],
                "empty Qt Widgets window": [str(top / "build/release/bin/bare_window")]}
    if shutil.which("gnome-sound-recorder"):
        programs["gnome-sound-recorder"] = ["gnome-sound-recorder"]
        programs["gnome-sound-recorder, drawn without OpenGL"] = ["env", "GSK_RENDERER=cairo", "gnome-sound-recorder"]
    figures = {name: [] for name in programs}
    with Sandbox() as sandbox:
        SessionBus(sandbox)
        Display(sandbox)
        SoundServer(sandbox, "pulseaudio")
        for turn in range(runs + 1):
            # There and back: nobody always starts after the same one, which leaves its libraries in the caches.
            for name in list(programs)[::1 if turn % 2 else -1]:
                figure = once(sandbox, programs[name])
                if turn:  # the first turn warms the disk cache
                    figures[name].append(figure)
    report(figures, runs)


def report(figures, runs):
    medians = {name: [statistics.median(column) for column in zip(*rows)] for name, rows in figures.items()}
    ours = medians["Kest"]
    print(f"Machine: {os.cpu_count()} cores, {runs} runs each, medians\n")
    print("| Program | start to first picture | Kest / it | PSS at rest | Kest / it |")
    print("|---|---|---|---|---|")
    for name, (shown, memory) in medians.items():
        print(f"| {name} | {shown:.0f} ms | {ours[0] / shown:.2f} | {memory:.1f} MiB | {ours[1] / memory:.2f} |")


if __name__ == "__main__":
    main()
