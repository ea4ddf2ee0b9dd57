"""A disk that fills up: said in time, and what was recorded plays."""

import random
import shutil
import subprocess
import time
from pathlib import Path

from services.base import wait_until

from .driven import PATIENCE, RATE, RENAME, TROUBLES, Recorder
from .row import Row, Seen
from .sounding import decoded_samples, is_ordinary, seconds_lost

TOLD_WITHIN = 2.0  # seconds
PACKET = 1024  # Samples; how much of the last one plays, only a finished file says.
PAGE = 4096


class SmallDisk:
    """A file system in memory, at an existing folder."""

    def __init__(self, at, kilobytes):
        self.at = Path(at)
        self.filler = self.at / "filler"
        subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={kilobytes}k", "none", str(at)], check=True)

    def fill(self, leaving=0):
        with open(self.filler, "wb", buffering=0) as file:
            try:
                while file.write(b"x" * 512):
                    pass
            except OSError:
                pass
            if leaving:
                file.truncate(max(0, file.tell() - leaving))

    def make_room(self):
        self.filler.unlink(missing_ok=True)

    def close(self):
        subprocess.run(["umount", "--lazy", str(self.at)], check=True)


class Take:
    """One recording on a small disk."""

    def __init__(self, context, place, chance):
        self.root = context.folder(place)
        self.recordings = self.root / "Recordings"
        self.recordings.mkdir()
        self.disk = SmallDisk(self.recordings, 1024)
        self.file = self.recordings / "take.m4a"
        self.context, self.place, self.chance = context, place, chance
        self.failures = []

    def run(self):
        self.recorder = Recorder(self.context.sandbox, self.context.build, self.root)
        self.recorder.tell(f"record {self.file}")
        self.captured = None
        began = getattr(self, self.place)()
        news = self.recorder.wait("trouble")
        told = (news[0] - began) / 1e9
        if TROUBLES[int(news[1].split(" ")[1])] != "DiskFull":
            self.failures.append(f"told {news[1]}")
        if told > TOLD_WITHIN:
            self.failures.append(f"told after {told:.2f} s")
        self.recorder.wait("finished")
        self.check_playable()
        self.recorder.end()
        self.check_next_start()
        return told

    # The moments; each returns when it happened, by the monotonic clock in nanoseconds

    def recording(self):
        self.recorder.wait_for_samples(int(self.chance.uniform(0.3, 1.5) * RATE))
        wait_until(lambda: decoded_samples(self.file), "something in the file", PATIENCE)
        self.captured = decoded_samples(self.file) - PACKET
        now = time.monotonic_ns()
        self.disk.fill()
        return now

    def finishing(self):
        self.recorder.wait_for_samples(int(self.chance.uniform(2, 3) * RATE))
        self.recorder.tell("pause")
        self.recorder.wait("paused")
        self.wait_until_it_stands()
        self.captured = self.recorder.samples() - PACKET
        self.disk.fill(self.chance.randint(1, 4) * PAGE)
        return self.stop()

    def renaming(self):
        self.recorder.wait_for_samples(int(self.chance.uniform(0.3, 1) * RATE))
        self.recorder.arm(1, kinds=RENAME, error=28)  # ENOSPC: the folder cannot grow
        self.captured = self.recorder.samples() - PACKET
        return self.stop()

    def stop(self):
        now = time.monotonic_ns()
        self.recorder.tell("stop")
        return now

    def wait_until_it_stands(self):
        """Until what was said before the pause is in the file."""
        size, since = -1, time.monotonic()
        while time.monotonic() - since < 0.4:
            now = self.file.stat().st_size
            if now != size:
                size, since = now, time.monotonic()
            time.sleep(0.02)

    # Afterwards

    def check_playable(self):
        kept = decoded_samples(self.file)
        if kept is None:
            self.failures.append("not playable")
        elif kept < self.captured:
            self.failures.append(f"{seconds_lost(self.captured, kept):.3f} s too little in the file")

    def check_next_start(self):
        self.disk.make_room()
        recorder = Recorder(self.context.sandbox, self.context.build, self.root)
        recorder.tell(f"recover {self.recordings}")
        recorder.wait("recovered")
        recorder.end()
        if not is_ordinary(self.file) or (decoded_samples(self.file) or 0) < self.captured:
            self.failures.append("the next start did not finish it")
        remembered = self.root / "state/kest/unfinished-recordings"
        self.left = [path.name for path in [*self.recordings.iterdir(), *remembered.iterdir()] if path != self.file]
        if self.left:
            self.failures.append(f"left over: {self.left}")


def row_for(place, fault):
    def one(context, number):
        chance = random.Random(context.seed + number)
        take = Take(context, place, chance)
        try:
            told = take.run()
            return Seen(runs=1, leftovers=len(take.left),
                        failures=[f"{place}, seed {context.seed + number}: {text}" for text in take.failures]), told
        finally:
            take.disk.close()
            shutil.rmtree(take.root, ignore_errors=True)

    def run(context, runs):
        context.start_sound("pulseaudio")
        seen, told = context.gather(one, runs)
        seen.worst = f"said after {max(told):.2f} s"
        return seen
    return Row(f"full-{place}", fault, "said within 2 s, what was recorded plays and is finished once there is room",
               4, 100, run, needs_mounts=True)


ROWS = [row_for("recording", "disk full in mid-recording"),
        row_for("finishing", "disk full in finishing"),
        row_for("renaming", "no room for the change of name that ends finishing (the call is made to fail)")]
