#!/usr/bin/python3
"""Opening the menu of prepared messages, from the click to the first paint, beside a bare QMenu with as many items.

    bench/menu.py [--runs N] [--build FOLDER]

Both open in turn on one virtual display; the table gives medians. Ours lists the folder anew at each opening, the QMenu
gets its names for nothing. FOLDER is a build folder that is used as it is; without it build/release is built first.
"""

import argparse
import os
import statistics
import subprocess
import sys
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(top / "tests/support"))

from services.base import Sandbox  # noqa: E402
from services.display import Display  # noqa: E402

COUNTS = (10, 1000, 10000)


def build():
    subprocess.run(["cmake", "--preset", "release"], cwd=top, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "menu_bench"], cwd=top, check=True,
                   stdout=subprocess.DEVNULL)
    return top / "build/release"


def fill(folder, count):
    folder.mkdir(parents=True)
    for at in range(count):
        (folder / f"Answer to a question that is often asked {at}.txt").touch()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--build", type=Path)
    options = parser.parse_args()
    program = next((options.build or build()).glob("**/menu_bench"))
    print(f"Machine: {os.cpu_count()} cores, {options.runs} runs each, medians\n")
    print("| Files | Kest's menu | a bare QMenu | Kest / it |")
    print("|---|---|---|---|")
    with Sandbox() as sandbox:
        Display(sandbox)
        for count in COUNTS:
            folder = sandbox.home / f"messages-{count}"
            fill(folder, count)
            lines = sandbox.run([program, folder, str(options.runs)], seconds=300).splitlines()
            ours, peer = (statistics.median(column) for column in zip(*(map(float, line.split()) for line in lines)))
            print(f"| {count} | {ours:.1f} ms | {peer:.1f} ms | {ours / peer:.2f} |", flush=True)


if __name__ == "__main__":
    main()
