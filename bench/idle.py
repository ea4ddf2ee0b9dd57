#!/usr/bin/python3
"""How often a program that does nothing wakes: Kest shown and hidden, beside an empty window and a well-known recorder.

    bench/idle.py [--runs N] [--seconds N] [--build FOLDER]

A wake-up is a voluntary context switch of any of its threads. Kest hides because another application is in front. Its
two in a minute while it is shown are the look at the microphone's name every 30 s.
"""

import argparse
import os
import re
import statistics
import subprocess
import sys
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / "tests/support"), str(top / "tests/endtoend")]

from services.base import Sandbox, wait_until  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.display import Display  # noqa: E402
from services.sound import SoundServer  # noqa: E402
from services.windows import Windows  # noqa: E402

SETTLED = 8  # s until what is done at idle is done


def switches(pid):
    """By thread."""
    return {task.name: int(re.search(r"^voluntary_ctxt_switches:\s+(\d+)", (task / "status").read_text(), re.M).group(1))
            for task in Path(f"/proc/{pid}/task").iterdir()}


def wakeups(process, seconds, runs):
    """A second, the median over so many such times; a thread that ends meanwhile is left out."""
    time.sleep(SETTLED)
    counts = []
    for _run in range(runs):
        before = switches(process.pid)
        time.sleep(seconds)
        counts.append(sum(count - before.get(thread, 0) for thread, count in switches(process.pid).items()) / seconds)
    return statistics.median(counts)


def window_of(sandbox, title):
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], env=sandbox.env,
                           capture_output=True, text=True).stdout.split()
    return found and found[-1]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--seconds", type=int, default=30)
    parser.add_argument("--build", type=Path, default=top / "build/release")
    options = parser.parse_args()
    figures = {}
    with Sandbox() as sandbox:
        SessionBus(sandbox)
        Display(sandbox)
        sound = SoundServer(sandbox, "pulseaudio")
        windows = Windows(sandbox)
        kest = sandbox.start("kest", [options.build / "bin/kest"])
        window = wait_until(lambda: window_of(sandbox, "^Kest$"), "the window", 30, every=0.1)
        figures["Kest, shown"] = wakeups(kest, options.seconds, options.runs)
        other = sandbox.start("xcalc", ["xcalc"])
        windows.turn_to(windows.of_class("XCalc"))
        wait_until(lambda: not windows.is_viewable(window), "the window to hide")
        figures["Kest, hidden"] = wakeups(kest, options.seconds, options.runs)
        sandbox.stop(kest)
        sandbox.stop(other)
        for name, command in {"empty Qt Widgets window": [options.build / "bin/bare_window"],
                              "gnome-sound-recorder": ["gnome-sound-recorder"]}.items():
            process = sandbox.start(Path(command[0]).name, command)
            figures[name] = wakeups(process, options.seconds, options.runs)
            sandbox.stop(process)
        sound.close()
    print(f"Machine: {os.cpu_count()} cores, medians of {options.runs} times {options.seconds} s\n")
    print("| Program | wake-ups a second | Kest, shown / it |")
    print("|---|---|---|")
    for name, value in figures.items():
        ratio = f"{figures['Kest, shown'] / value:.2f}" if value else "–"
        print(f"| {name} | {value:.2f} | {ratio} |")


if __name__ == "__main__":
    main()
