"""Clearing old recordings out of generated folders: whatever lies in them, nothing outside is touched."""

import concurrent.futures
import ctypes
import os
import random
import shutil
import socket
import stat
import subprocess
import threading
from urllib.parse import quote_from_bytes

from .row import Row, Seen

AT_FDCWD, RENAME_EXCHANGE = -100, 2
LIBC = ctypes.CDLL(None, use_errno=True)
OUTSIDE_NAMES = [b"a.m4a", b"b.m4a", b"note.txt", b"deep/one/c.m4a", b"deep/d.m4a", b"f0.m4a", b"f1.m4a", b"f2.m4a"]
STEMS = [b"take", b"2026-03-01_09-30-00", b"-rf", b" ", b"\xff\xfe", "Grüße".encode(), b"a\nb", b"..", b"%2e%2e", b"x" * 240]
ENDINGS = [b".m4a"] * 5 + [b".M4A", b".txt", b"", b".m4a ", b".m4a.part"]


class Tree:
    """A folder of recordings of every kind beside a folder that must stay as it is."""

    def __init__(self, base, chance):
        self.base, self.chance = os.fsencode(base), chance
        self.outside = self.base + b"/outside"
        self.recordings = self.base + b"/Recordings"
        self.staging = self.base + b"/staging"
        for name in OUTSIDE_NAMES:
            os.makedirs(os.path.dirname(self.outside + b"/" + name), exist_ok=True)
            self.write(self.outside + b"/" + name)
        os.mkdir(self.recordings)
        os.mkdir(self.staging)
        self.made = []
        for number in range(chance.randint(1, 12)):
            self.add(self.recordings, chance.choice(STEMS) + str(number).encode() + chance.choice(ENDINGS), 0)
        if chance.random() < 0.2:
            self.add(self.recordings, b"." + chance.choice(STEMS) + b"h.m4a", 0)

    @staticmethod
    def write(path):
        with open(path, "wb") as file:
            file.write(path)

    def some_outside(self):
        return self.outside + b"/" + self.chance.choice(OUTSIDE_NAMES)

    def add(self, folder, name, depth):
        path = folder + b"/" + name[:255]
        kinds = ["file", "file", "folder", "link", "folder link", "dangling", "loop", "fifo", "hard link", "socket", "locked"]
        kind = self.chance.choice(kinds)
        if kind in ("folder", "locked"):
            os.mkdir(path)
            if depth < 4:
                for number in range(self.chance.randint(0, 4)):
                    self.add(path, b"f%d.m4a" % number, depth + 1)
            if kind == "locked":
                os.chmod(path, 0o500)
        elif kind == "link":
            os.symlink(self.some_outside(), path)
        elif kind == "folder link":
            os.symlink(self.chance.choice([self.outside, self.outside + b"/deep", b"../outside", b"../../outside", b"/"]), path)
        elif kind == "dangling":
            os.symlink(b"nowhere", path)
        elif kind == "loop":
            os.symlink(name[:255], path)
        elif kind == "fifo":
            os.mkfifo(path)
        elif kind == "hard link":
            os.link(self.some_outside(), path)
        elif kind == "socket":
            self.bind(path)
        else:
            self.write(path)
        self.made.append(path)

    def bind(self, path):
        """A socket's own path may be 107 bytes long at most."""
        short = self.base + b"/s"
        with socket.socket(socket.AF_UNIX) as made:
            made.bind(short)
        os.rename(short, path)

    def swaps(self):
        """Pairs to be exchanged while it is cleared: something in it and a link that leads outside."""
        inside = [path for path in self.made if b"\xff" not in path]
        sampled = self.chance.sample(inside, min(len(inside), self.chance.randint(1, 3)))
        # None below another: through that one's link the exchange itself would reach outside.
        chosen = [path for path in sampled if not any(path.startswith(other + b"/") for other in sampled)]
        pairs = []
        for number, path in enumerate(chosen):
            link = self.staging + b"/%d" % number
            os.symlink(self.chance.choice([self.outside, self.outside + b"/deep", self.outside + b"/deep/one", self.some_outside()]), link)
            pairs.append((path, link))
        return pairs

    def swap_of_folder(self):
        """The folder itself and a link to one that has files of the same names."""
        link, other = self.staging + b"/folder", self.outside + b"/like it"
        os.mkdir(other)
        for name in os.listdir(self.recordings):
            self.write(other + b"/" + name)
        os.symlink(other, link)
        return [(self.recordings, link)]

    def state_of_outside(self):
        """Everything about what is outside but how many names its files have and when that changed."""
        found = []
        for folder, _folders, files in os.walk(self.outside):
            for path in [folder, *(folder + b"/" + name for name in files)]:
                status = os.lstat(path)
                content = open(path, "rb").read() if stat.S_ISREG(status.st_mode) else b""
                found.append((path, status.st_ino, status.st_mode, status.st_mtime_ns, content))
        return sorted(found)

    def remains(self):
        """What has a recording's name and is still there."""
        return [name for name in os.listdir(self.recordings) if name.endswith(b".m4a") and not name.startswith(b".")]


class Swapper:
    """Exchanges pairs of names as fast as it can, until told to end."""

    def __init__(self, pairs):
        self.pairs, self.ended, self.count = pairs, threading.Event(), 0
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        while not self.ended.is_set():
            for path, link in self.pairs:
                self.count += LIBC.renameat2(AT_FDCWD, path, AT_FDCWD, link, RENAME_EXCHANGE) == 0

    def end(self):
        self.ended.set()
        self.thread.join()


class Cleaner:

    def __init__(self, context):
        self.process = context.sandbox.start("cleaner", [context.build / "bin/kest-driven-cleaner"], stdin=subprocess.PIPE,
                                             stdout=subprocess.PIPE,
                                             env={"XDG_DATA_HOME": str(context.folder("data"))})

    def choose(self, folder, choice, trash, days):
        """The person has chosen this folder and these settings; by now it is that many days later."""
        self.process.stdin.write(quote_from_bytes(folder, safe="/").encode() + f"\t{choice}\t{int(trash)}\t{days}\n".encode())
        self.wait_for(b"chosen\n")

    def clean(self):
        self.process.stdin.write(b"clean\n")
        self.wait_for(b"done\n")

    def wait_for(self, expected):
        self.process.stdin.flush()
        if (said := self.process.stdout.readline()) != expected:
            raise RuntimeError(f"the cleaner said {said!r}")


def one(context, cleaner, number):
    """(sentences, how many exchanges)."""
    seed = context.seed + number
    chance = random.Random(seed)
    base = context.folder("tree")
    tree = Tree(base, chance)
    choice, days = chance.choice([(4, 0), (-1, 0), (1, 2), (2, 8), (3, 31)])
    swaps = chance.choice([list, list, tree.swaps, tree.swap_of_folder])()
    before = tree.state_of_outside()
    cleaner.choose(tree.recordings, choice, chance.random() < 0.5, days)
    swapper = Swapper(swaps) if swaps else None
    try:
        cleaner.clean()
    finally:
        if swapper:
            swapper.end()
    failures = []
    if (after := tree.state_of_outside()) != before:
        gone = sorted({entry[0] for entry in before} - {entry[0] for entry in after})
        failures.append(f"outside was touched, gone: {gone or 'nothing, but changed'}")
    if not swapper and tree.remains():
        failures.append(f"still there: {tree.remains()}")
    if not failures:
        subprocess.run(["chmod", "-R", "u+rwX", base], check=True) if os.geteuid() else None
        shutil.rmtree(base)
    return [f"seed {seed}: {text}" for text in failures], swapper.count if swapper else 0


def several(context, numbers):
    cleaner = Cleaner(context)
    seen, exchanges = Seen(), 0
    for number in numbers:
        seen.runs += 1
        failures, count = one(context, cleaner, number)
        seen.failures += failures
        exchanges += count
    cleaner.process.stdin.close()
    cleaner.process.wait(60)
    cleaner.process.stdout.close()
    return seen, exchanges


def run(context, runs):
    whole, exchanges = Seen(), 0
    with concurrent.futures.ThreadPoolExecutor(context.workers) as pool:
        for seen, count in pool.map(lambda first: several(context, range(first, runs, context.workers)), range(context.workers)):
            whole.runs += seen.runs
            whole.failures += seen.failures
            exchanges += count
    whole.worst = f"{exchanges} exchanges meanwhile"
    return whole


ROWS = [Row("clean-up", "clean-up over generated trees: links, fifos, sockets, hard links, folders; in half of the runs what is in it, "
            "or the folder itself, exchanged with links to the outside while it runs", "nothing outside the folder touched", 150, 10000, run)]
