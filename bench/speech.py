#!/usr/bin/python3
"""Speech as four programs record it by default: size, and how near it is to what the microphone heard.

    bench/speech.py [--build FOLDER]

Five voices of espeak-ng are spoken into the virtual microphone of a private PulseAudio, once for each program. Quality is
told by the segmental signal-to-noise ratio (higher is better), the log-spectral distance below 14 kHz and the noise-to-mask
ratio (lower is better); see speech-bit-rate/compare.py. Each file is first moved to where it fits the original best, and made as loud: a program that
adds two channels is 3 dB louder, which is no noise.
"""

import argparse
import os
import sys
import time
from pathlib import Path

import numpy

top = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(top / folder) for folder in ("tests/support", "tests/endtoend", "bench", "bench/speech-bit-rate")]

from compare import RATE, compare, samples  # noqa: E402

SENTENCE = ("Good morning. I shall be ten minutes late, because the bus is stuck behind a plough. Please begin without me, "
            "and ask Susan whether she has found the yellow folder with the figures of last week.")
VOICES = ("en", "en-us+f3", "de", "fr+m3", "en+f4")
SEARCHED = 4 * RATE  # samples that a file may begin before the speech


def speak(sandbox):
    """All voices in one file."""
    parts = []
    for voice in VOICES:
        part = sandbox.root / f"{voice}.wav"
        sandbox.run(["espeak-ng", "-v", voice, "-s", "150", "-w", part, SENTENCE])
        parts.append(samples(part))
    return numpy.concatenate(parts)


def aligned(original, heard):
    """What was heard, from where it fits the original best, to a sixteenth of a sample: resampling shifts by less than one."""
    size = 1 << (len(original) + len(heard)).bit_length()
    spectrum, conjugate = numpy.fft.rfft(heard, size), numpy.conj(numpy.fft.rfft(original, size))
    whole = int(numpy.argmax(numpy.fft.irfft(spectrum * conjugate, size)[:SEARCHED]))
    turn = 2j * numpy.pi * numpy.arange(len(spectrum)) / size
    shifts = [whole + part / 16 for part in range(-16, 17)]
    best = max(shifts, key=lambda shift: (spectrum * conjugate * numpy.exp(turn * shift)).real.sum())
    return numpy.fft.irfft(spectrum * numpy.exp(turn * best), size)[:len(original)]


def as_loud(original, heard):
    part = original[:len(heard)]
    return heard * (part @ part) / (part @ heard[:len(part)])


def record(recorder, original):
    recorder.open()
    recorder.press()
    recorder.wait_until_recording()
    time.sleep(1)
    recorder.sound.microphone.play_samples((numpy.clip(original, -1, 1) * 32767).astype("<i2").tobytes())
    time.sleep(0.5)
    recorder.stop()
    path = recorder.path
    heard = samples(path)
    fitting = as_loud(original, aligned(original, heard))
    figures = (path.stat().st_size * 8 / (len(heard) / RATE) / 1000, *compare(original, fitting))
    recorder.close()
    return figures


def recorders():
    from recorders import FfmpegAsItComes, GnomeSoundRecorder, GStreamer, Kest

    class UsualGStreamer(GStreamer):
        def command(self):
            return ["gst-launch-1.0", "-q", "-e", "pulsesrc", "!", "audioconvert", "!", "avenc_aac", "!", "mp4mux", "!",
                    "filesink", f"location={self.path}"]

    return Kest, FfmpegAsItComes, UsualGStreamer, GnomeSoundRecorder


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, default=top / "build/release")
    options = parser.parse_args()
    os.environ.update(KEST_BUILD_DIR=str(options.build), KEST_SOURCE_DIR=str(top))
    from beside import desktop
    from services.base import Sandbox
    with Sandbox() as sandbox:
        sound = desktop(sandbox, options.build)
        original = speak(sandbox)
        print(f"{len(original) / RATE:.0f} s of speech in {len(VOICES)} voices\n")
        print("| Program | kb/s | seg. SNR dB | spectral distance dB | noise-to-mask dB |")
        print("|---|---|---|---|---|")
        for recorder in recorders():
            rate, snr, distance, masked = record(recorder(sandbox, sound), original)
            print(f"| {recorder.name} | {rate:.0f} | {snr:.1f} | {distance:.2f} | {masked:.1f} |", flush=True)
        sound.close()


if __name__ == "__main__":
    main()
