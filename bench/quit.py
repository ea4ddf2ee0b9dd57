#!/usr/bin/python3
"""From the wish to quit to the end of the process, with old recordings to clear away, beside `gio trash` on as many.

    bench/quit.py [--runs N] [--program PATH] [--at FOLDER]

FOLDER says which file system is measured (default: /var/tmp). Right after many deletions ext4 is slow to make files, so
each run's files stay until the end.
"""

import argparse
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

top = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(top / "tests/support"))

from services.base import Sandbox  # noqa: E402
from services.bus import SessionBus  # noqa: E402
from services.sound import SoundServer  # noqa: E402

SETTLED = 1.5  # seconds until what is done at idle is done
COUNTS = (0, 10, 1000, 10000)


def fill(folder, count):
    folder.mkdir(parents=True, exist_ok=True)
    for at in range(count):
        (folder / f"2024-03-05_14-07-{at}.m4a").write_bytes(b"sound")


def quit_kest(sandbox, program, count, settings):
    """Milliseconds from the signal to the end."""
    recordings = sandbox.home / "Music" / "Kest"
    fill(recordings, count)
    path = Path(sandbox.env["XDG_CONFIG_HOME"]) / "kest" / "settings.ini"
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text("[General]\n" + settings)
    process = sandbox.start("kest", [program], env={"QT_QPA_PLATFORM": "offscreen"})
    time.sleep(SETTLED)
    begin = time.monotonic()
    process.send_signal(signal.SIGTERM)
    code = process.wait(120)
    taken = (time.monotonic() - begin) * 1000
    if code or any(recordings.glob("*.m4a")):
        sys.exit(f"the recordings were not cleared away ({code}):\n{sandbox.log('kest')}")
    return taken


def gio_trash(sandbox, count):
    folder = sandbox.home / "Music" / "Others"
    fill(folder, count)
    files = sorted(folder.glob("*.m4a"))
    begin = time.monotonic()
    if files:
        subprocess.run(["gio", "trash", *files], env=sandbox.env, check=True)
    return (time.monotonic() - begin) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--program", default=str(top / "build/release/bin/kest"))
    parser.add_argument("--at", default="/var/tmp")
    options = parser.parse_args()
    figures = {}
    with tempfile.TemporaryDirectory(prefix="kest-", dir=options.at) as place:
        for run in range(options.runs):
            for count in COUNTS:
                ways = {"trash": lambda box: quit_kest(box, options.program, count, "iWhenToDelete=4\n"),
                        "delete": lambda box: quit_kest(box, options.program, count,
                                                        "iWhenToDelete=4\nbTrashNotDelete=false\n"),
                        "gio trash": lambda box: gio_trash(box, count)}
                for name, way in ways.items():
                    with Sandbox(root=Path(place) / f"{run}-{count}-{name.replace(' ', '-')}", keep=True) as sandbox:
                        SessionBus(sandbox)
                        sound = SoundServer(sandbox, "pulseaudio", microphone=False)
                        figures.setdefault((count, name), []).append(way(sandbox))
                        sound.close()
    report(figures, options)


def report(figures, options):
    print(f"Machine: {os.cpu_count()} cores, {options.runs} runs each, medians, files at {options.at}\n")
    print("| Recordings | quit, to the trash | quit, deleted | gio trash |")
    print("|---|---|---|---|")
    for count in COUNTS:
        row = [statistics.median(figures[count, name]) for name in ("trash", "delete", "gio trash")]
        print(f"| {count} | " + " | ".join(f"{value:.0f} ms" for value in row) + " |")


if __name__ == "__main__":
    main()
