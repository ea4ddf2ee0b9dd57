"""Speaks into a virtual microphone in real time."""

import collections
import itertools
import os
import subprocess
import threading
import time

BLOCK_SECONDS = 0.01


class Microphone:
    """Feeds a FIFO of signed 16-bit samples, block by block, as a sound card would: silence, the room's `hum`, or what `play` gives.

    Runs on a thread of its own. A block that the server does not take in time is dropped, as a sound card drops it.
    """

    def __init__(self, fifo, channels=1, rate=44100):
        self.fifo = fifo
        self.channels = channels
        self.rate = rate
        self._queue = collections.deque()
        self._room = itertools.repeat(bytes(self._block_bytes()))
        self._lock = threading.Lock()
        self._drained = threading.Event()
        self._drained.set()
        self._hushed = False
        self._ended = False
        self._thread = threading.Thread(target=self._feed, name="microphone", daemon=True)
        self._thread.start()

    def play(self, path, wait=True):
        """Any file that ffmpeg reads; with `wait`, returns when its last sample went in."""
        raw = subprocess.run(["ffmpeg", "-v", "error", "-i", str(path), "-f", "s16le", "-ar", str(self.rate), "-ac",
                              str(self.channels), "-"], check=True, capture_output=True).stdout
        self.play_samples(raw, wait)

    def play_samples(self, raw, wait=True):
        """Interleaved signed 16-bit little-endian samples."""
        block = self._block_bytes()
        with self._lock:
            self._drained.clear()
            self._queue.extend(raw[at:at + block].ljust(block, b"\0") for at in range(0, len(raw), block))
        if wait:
            self._drained.wait()

    def hum(self, raw):
        """What is heard whenever nothing is played, again and again, in place of silence."""
        block = self._block_bytes()
        whole = len(raw) // block * block
        with self._lock:
            self._room = itertools.cycle([raw[at:at + block] for at in range(0, whole, block)])

    def hush(self, hushed=True):
        """Hushed, the microphone delivers nothing at all, not even silence; others may then write into the FIFO."""
        self._hushed = hushed

    def close(self):
        self._ended = True
        self._thread.join()

    def _block_bytes(self):
        return int(self.rate * BLOCK_SECONDS) * self.channels * 2

    def _next_block(self):
        with self._lock:
            if self._queue:
                return self._queue.popleft()
            self._drained.set()
            return next(self._room)

    def _feed(self):
        # Read and write: opening never waits for the server, and its end is no broken pipe.
        pipe = None
        due = time.monotonic()
        while not self._ended:
            due += BLOCK_SECONDS
            time.sleep(max(0.0, due - time.monotonic()))
            if self._hushed:
                continue
            pipe = self._reopened(pipe)
            if pipe is None:
                continue
            try:
                os.write(pipe, self._next_block())
            except BlockingIOError:
                pass
        if pipe is not None:
            os.close(pipe)

    def _reopened(self, pipe):
        """The FIFO's descriptor, anew where the server made the FIFO anew."""
        try:
            there = os.stat(self.fifo)
        except FileNotFoundError:
            return pipe
        if pipe is not None:
            if os.fstat(pipe).st_ino == there.st_ino:
                return pipe
            os.close(pipe)
        return os.open(self.fifo, os.O_RDWR | os.O_NONBLOCK)
