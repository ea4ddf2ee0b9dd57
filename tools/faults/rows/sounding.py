"""What a recording holds, by the word of another program."""

import array
import struct
import subprocess

from .driven import RATE

# Samples from one click to the next. No part of it is a multiple of what sound servers and recorders move at a time, so that a
# missing or a doubled piece always shows.
PERIOD = 4297
BLOCK = RATE // 100  # samples
LOUD = 8000  # of 32767; what is between the clicks stays far below
NEAR = 4  # Samples by which the encoder may move a click's peak.


def clicks():
    """Short pulses, to be spoken again and again: as many as end together with one of the microphone's blocks."""
    pulse = [20000, 28000, 20000, 0]
    return array.array("h", (pulse + [0] * (PERIOD - len(pulse))) * BLOCK).tobytes()


def reference(raw):
    """Another program that writes what it hears into a file, as soon as it hears it: left to itself it would keep the last second."""
    return ["parec", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=1", "--latency-msec=20", raw]


def distances(samples):
    """From each click to the next, in samples."""
    found, at = [], 0
    while at < len(samples):
        if abs(samples[at]) > LOUD:
            piece = samples[at:at + 40]
            found.append(at + max(range(len(piece)), key=lambda n: abs(piece[n])))
            at += 400
        else:
            at += 1
    return [after - before for before, after in zip(found, found[1:])]


def misplaced(samples):
    """The distances between clicks that were not spoken so, the first and the last left out: they may be cut."""
    return [distance for distance in distances(samples)[1:-1] if abs(distance - PERIOD) > NEAR]


def samples_of(raw):
    samples = array.array("h")
    samples.frombytes(raw[:len(raw) // 2 * 2])
    return samples


def played(path):
    """What ffmpeg plays, at RATE; None when it cannot, or finds anything wrong with it."""
    done = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-threads", "1", "-i", str(path), "-f", "s16le", "-ac", "1", "-"],
                          capture_output=True, timeout=300)
    return samples_of(done.stdout) if done.returncode == 0 and not done.stderr else None


def decoded_samples(path):
    """How many samples ffmpeg plays; None as `played`."""
    sound = played(path)
    return None if sound is None else len(sound)


def outermost_boxes(path):
    """The types of the outermost boxes, in order (ISO/IEC 14496-12)."""
    types = []
    with open(path, "rb") as file:
        while len(header := file.read(8)) == 8:
            length, kind = struct.unpack(">I4s", header)
            if length == 1:
                length = struct.unpack(">Q", file.read(8))[0]
                file.seek(length - 16, 1)
            elif length < 8:
                break
            else:
                file.seek(length - 8, 1)
            types.append(kind.decode("latin-1"))
    return types


def is_ordinary(path):
    boxes = outermost_boxes(path)
    return "moov" in boxes and "mdat" in boxes and "moof" not in boxes


def seconds_lost(captured, kept):
    return max(0.0, (captured - kept) / RATE)
