#!/usr/bin/python3
"""Runs every measurement, and writes docs/benchmarks.md.

    bench/all.py [NAME...] [-- ARGUMENTS]

All of them take an hour and a half; with names ("start"), only those are renewed, with other arguments than usual if told.
What they need is installed and built first.

Each is a program of its own in this folder and says there what it measures and how. Nothing else should run meanwhile.
"""

import datetime
import os
import platform
import re
import subprocess
import sys
from pathlib import Path

top = Path(__file__).resolve().parent.parent
page = top / "docs/benchmarks.md"

PARTS = {
    "start": "From the start to the window",
    "beginning": "From the press to the first sample",
    "beside": "A recording beside other programs",
    "recording": "The recorder alone",
    "speech": "What speech becomes",
    "finishing": "From Stop to the finished file",
    "compose": "From the click to the compose window",
    "menu": "The menu of prepared messages",
    "quit": "Quitting with old recordings to clear away",
    "idle": "At rest",
}

INTRODUCTION = """# Measured

Written by `bench/all.py`. Every table is one run of one program in `bench/`, whose head says what is measured and how; the
peers ran in the same run, in turn. Milliseconds belong to the machine that is named, ratios say more.
"""


def machine():
    model = re.search(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.M)
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2 ** 30
    return (f"{os.cpu_count()} cores of {model.group(1) if model else platform.machine()}, {memory:.0f} GiB, "
            f"Linux {platform.release()}, load {os.getloadavg()[0]:.1f} at its beginning, "
            f"{datetime.date.today().isoformat()}")


def measured(name, arguments):
    where = machine()
    print(f"{name} …", flush=True)
    done = subprocess.run([top / "bench" / f"{name}.py", *arguments], capture_output=True, text=True)
    if done.returncode:
        sys.exit(f"{name} failed:\n{done.stderr[-2000:]}")
    tables = ("\n" + done.stdout.strip()).replace("\n## ", "\n### ")
    return f"{where}\n{tables}\n"


def old_parts():
    """{heading: text} of the page as it is."""
    if not page.exists():
        return {}
    pieces = re.split(r"^## (.*)\n", page.read_text(), flags=re.M)
    return dict(zip(pieces[1::2], (text.strip() + "\n" for text in pieces[2::2])))


def prepare():
    script = '. "$top/tools/packages.sh"; need_packages build run test bench; build release'
    subprocess.run(["bash", "-euo", "pipefail", "-c", script], env={**os.environ, "top": str(top)}, check=True)


def main():
    words = sys.argv[1:]
    end = words.index("--") if "--" in words else len(words)
    names, others = words[:end] or list(PARTS), words[end + 1:]
    unknown = [name for name in names if name not in PARTS]
    if unknown:
        sys.exit(f"{unknown[0]}: there are {', '.join(PARTS)}\n{__doc__}")
    prepare()
    parts = old_parts()
    for name, heading in PARTS.items():
        if name in names:
            parts[heading] = measured(name, others)
            there = [each for each in PARTS.values() if each in parts]
            page.write_text(INTRODUCTION + "".join(f"\n## {each}\n\n{parts[each]}" for each in there))


if __name__ == "__main__":
    main()
