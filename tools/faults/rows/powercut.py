"""The power goes: what had reached the disk by then, and nothing of what was still in memory, is what the next start finds."""

import random
import shutil
import subprocess
import time

from .driven import RATE, Recorder
from .row import NotHere, Row, Seen
from .sounding import decoded_samples, is_ordinary, seconds_lost

MOST_LOST = 3.0  # seconds
MEGABYTES = 16


class Disk:
    """An image of a disk in memory, with a file system that is mounted through a loop device."""

    def __init__(self, folder):
        self.memory = folder / "memory"
        self.image = self.memory / "disk"
        self.mounted = folder / "mounted"
        for made in (self.memory, self.mounted):
            made.mkdir()
        self._run("mount", "-t", "tmpfs", "-o", f"size={3 * MEGABYTES}m", "none", self.memory)
        with open(self.image, "wb") as file:
            file.truncate(MEGABYTES << 20)
        self._run("mkfs.ext4", "-q", "-F", self.image)
        self.mount()

    @staticmethod
    def _run(*words):
        subprocess.run([str(word) for word in words], check=True, capture_output=True)

    def mount(self):
        self._run("mount", "-o", "loop", self.image, self.mounted)

    def unmount(self):
        self._run("umount", self.mounted)

    def snapshot(self):
        """What the disk holds in one moment: two looks one after the other must see the same."""
        while (first := self.image.read_bytes()) != self.image.read_bytes():
            pass
        return first

    def lose_power(self, held):
        """The file system goes, and comes back with what the disk held."""
        self.unmount()
        self.image.write_bytes(held)
        self.mount()

    def close(self):
        self.unmount()
        self._run("umount", self.memory)


def one(context, number):
    seed = context.seed + number
    chance = random.Random(seed)
    folder = context.folder("power")
    disk = Disk(folder)
    try:
        return cut(context, disk, chance, f"seed {seed}")
    finally:
        disk.close()
        shutil.rmtree(folder, ignore_errors=True)


def cut(context, disk, chance, said):
    root = disk.mounted / "home"
    recordings = root / "Recordings"
    recordings.mkdir(parents=True)
    subprocess.run(["sync", "-f", str(disk.mounted)], check=True)
    recorder = Recorder(context.sandbox, context.build, root, beside=disk.mounted.parent)
    take = recordings / "take.m4a"
    recorder.tell(f"record {take}")
    recorder.wait("started")
    time.sleep(chance.uniform(0.5, 9))
    if finishing := chance.random() < 0.25:
        recorder.tell("stop")
        time.sleep(chance.uniform(0, 0.1))
    spoken = recorder.spoken()
    held = disk.snapshot()
    recorder.kill()
    disk.lose_power(held)
    recorder = Recorder(context.sandbox, context.build, root, beside=disk.mounted.parent)
    recorder.tell(f"recover {recordings}")
    recorder.wait("recovered")
    recorder.end()
    seen = Seen(runs=1)
    kept = (decoded_samples(take) or 0) if take.exists() else 0
    lost = seconds_lost(spoken, kept)
    said = f"{said}, {'finishing' if finishing else 'recording'}, {spoken / RATE:.2f} s spoken: "
    if lost > MOST_LOST:
        seen.failures.append(said + f"{lost:.2f} s lost")
    if take.exists() and not is_ordinary(take):
        seen.failures.append(said + f"what is there is no ordinary file ({take.stat().st_size} bytes)")
    beside = [path.name for path in recordings.iterdir() if path != take]
    remembered = root / "state/kest/unfinished-recordings"
    beside += [path.name for path in remembered.iterdir()] if remembered.exists() else []
    seen.leftovers = len(beside)
    if beside:
        seen.failures.append(said + f"left over: {beside}")
    return seen, lost


def probe(context):
    try:
        Disk(context.folder("probe")).close()
    except subprocess.CalledProcessError as refused:
        raise NotHere(f"no file system on a loop device: {refused.stderr.decode().strip()}") from refused


def run(context, runs):
    probe(context)
    context.start_sound("pulseaudio")
    seen, losses = context.gather(one, runs)
    seen.worst = f"{max(losses):.2f} s lost"
    return seen


ROWS = [Row("power-cut", "power cut while recording or finishing (ext4 on a loop device, the image as it is in that moment)",
            "at most 3 s lost, what is there plays", 4, 100, run, needs_mounts=True)]
