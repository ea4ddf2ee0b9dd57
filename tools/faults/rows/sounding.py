"""What a recording holds, by the word of another program."""

import struct
import subprocess

from .driven import RATE


def decoded_samples(path):
    """How many samples ffmpeg plays; None when it cannot."""
    done = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-threads", "1", "-i", str(path), "-f", "s16le", "-ac", "1", "-"],
                          capture_output=True, timeout=300)
    return len(done.stdout) // 2 if done.returncode == 0 else None


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
