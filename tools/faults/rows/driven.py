"""A recorder of Kest's in a process of its own, which can be killed, and whose disk can fail, at a chosen moment."""

import mmap
import os
import select
import signal
import struct
import subprocess
import time

from services.base import ServiceError

CREATE, WRITE, SYNC, RENAME, REMOVE, CHANGE = (1 << bit for bit in range(6))
ANY = 63
RATE = 44100
PATIENCE = 60  # Seconds for anything that has no bar of its own, on a busy machine.

# RecordingTrouble, in its order.
TROUBLES = ("NoSoundServer", "NoMicrophone", "MicrophoneLost", "SoundServerLost", "NoSound", "DiskFull", "CannotWrite",
            "EncoderMissing")


class Recorder:
    """kest-driven-recorder with its files under `root`; `root`/state is where it remembers what is unfinished.

    What is shared with it lies in `beside`, by default next to `root`.
    """

    def __init__(self, sandbox, build, root, beside=None):
        self.root = root
        calls, samples = ((beside or root.parent) / f"{root.name}.{what}" for what in ("calls", "samples"))
        self.control = self._shared(calls)
        self.counter = self._shared(samples)
        self.process = sandbox.start(
            "recorder", [build / "bin/kest-driven-recorder", samples],
            env={"XDG_STATE_HOME": str(root / "state"), "LD_PRELOAD": str(build / "lib/kest-file-calls.so"),
                 "KEST_FILE_CALLS": str(calls), "KEST_FILE_CALLS_UNDER": str(root)},
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self.sandbox = sandbox
        self.pending = b""
        self.wait("ready")

    @staticmethod
    def _shared(path):
        path.write_bytes(bytes(mmap.PAGESIZE))
        with open(path, "r+b") as file:
            return mmap.mmap(file.fileno(), mmap.PAGESIZE)

    def tell(self, command):
        try:
            self.process.stdin.write(command.encode("utf-8", "surrogateescape") + b"\n")
        except BrokenPipeError:
            pass  # killed; whoever waits for the answer is told

    def news(self, seconds=PATIENCE):
        """The next line as (nanoseconds of the monotonic clock, words); None once the program is gone."""
        deadline = time.monotonic() + seconds
        while b"\n" not in self.pending:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0.0, deadline - time.monotonic()))
            if not ready:
                raise ServiceError(f"the recorder said nothing for {seconds:g} s")
            piece = os.read(self.process.stdout.fileno(), 65536)
            if not piece:
                return None
            self.pending += piece
        line, self.pending = self.pending.split(b"\n", 1)
        stamp, _, words = line.decode("utf-8", "surrogateescape").partition(" ")
        return int(stamp), words

    def wait(self, word, seconds=PATIENCE):
        """Passes over other news until one begins with `word`."""
        while news := self.news(seconds):
            if news[1].split(" ")[0] == word:
                return news
        raise ServiceError(f"the recorder ended before it said “{word}”")

    def told_meanwhile(self):
        """The words of the next line if there is one already; null when there is none."""
        if b"\n" not in self.pending and not select.select([self.process.stdout], [], [], 0)[0]:
            return None
        news = self.news()
        return news[1] if news else "the recorder ended"

    def samples(self):
        """How many samples the running recording has captured."""
        return struct.unpack_from("=q", self.counter)[0]

    def spoken(self):
        """How many were spoken into it, those that it has not captured yet among them."""
        return struct.unpack_from("=q", self.counter, 8)[0]

    def wait_for_samples(self, count, seconds=PATIENCE):
        deadline = time.monotonic() + seconds
        while self.samples() < count and self.process.poll() is None:
            if time.monotonic() > deadline:
                raise ServiceError(f"{self.samples()} of {count} samples after {seconds:g} s")
            time.sleep(0.005)

    # The disk

    def arm(self, countdown, after=False, kinds=ANY, error=0):
        """At the countdown-th such call from now it is killed, or (with an error) that and later calls fail."""
        struct.pack_into("=IIIiII", self.control, 0, 0, 0, int(after), error, 0, 0)
        struct.pack_into("=I", self.control, 4, countdown)
        struct.pack_into("=I", self.control, 0, kinds)

    def disarm(self):
        struct.pack_into("=II", self.control, 0, 0, 0)

    def calls(self):
        """How many calls were counted since it was armed."""
        return struct.unpack_from("=I", self.control, 16)[0]

    # The end

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.wait_until_gone()

    def is_gone(self):
        return self.process.poll() is not None

    def is_gone_within(self, seconds):
        try:
            self.wait_until_gone(seconds)
        except subprocess.TimeoutExpired:
            return False
        return True

    def wait_until_gone(self, seconds=PATIENCE):
        self.process.wait(seconds)
        self._forget()

    def end(self):
        self.tell("end")
        code = self.process.wait(PATIENCE)
        self._forget()
        if code:
            raise ServiceError(f"the recorder ended with {code}")

    def _forget(self):
        self.process.stdin.close()
        self.process.stdout.close()
        if self.process in self.sandbox.processes:
            self.sandbox.processes.remove(self.process)
