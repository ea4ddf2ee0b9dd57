#!/usr/bin/python3
"""Compares bit rates and coders of FFmpeg's AAC encoder on speech: quality, size and processor time.

    compare.py WAV...        (needs ffmpeg and python3-numpy)

Quality is told in two figures, averaged over frames of 23 ms that are not silent: the segmental signal-to-noise ratio
(higher is better) and the log-spectral distance below 14 kHz (lower is better), both against the input. At the bit rate
that was chosen, the frequency up to which anything is kept is varied too; "–" is what the encoder chooses itself.
"""

import resource
import subprocess
import sys
import tempfile
from pathlib import Path

import numpy

RATE = 44100
FRAME = 1024
BIT_RATES = (32, 48, 64, 80, 96)
CODERS = ("fast", "twoloop")
CHOSEN = ("twoloop", 72)
HIGHEST_KEPT = (0, 16, 15, 14, 13)  # kHz; 0: the encoder's own choice
QUIET = 10 ** (-50 / 20)
HIGHEST = int(14000 / RATE * FRAME)


def run(*words):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    output = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", *map(str, words)], check=True,
                            capture_output=True).stdout
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return output, after.ru_utime - before.ru_utime


def samples(path, *filters):
    raw, _ = run("-i", path, *filters, "-ac", 1, "-ar", RATE, "-f", "f32le", "-")
    return numpy.frombuffer(raw, numpy.float32).astype(float)


def frames(signal):
    count = len(signal) // FRAME
    return signal[:count * FRAME].reshape(count, FRAME)


def compare(original, coded):
    length = min(len(original), len(coded))
    one, other = frames(original[:length]), frames(coded[:length])
    loud = numpy.sqrt((one ** 2).mean(axis=1)) > QUIET
    one, other = one[loud], other[loud]
    noise = ((one - other) ** 2).sum(axis=1) + 1e-12
    snr = numpy.clip(10 * numpy.log10((one ** 2).sum(axis=1) / noise), -10, 35).mean()
    window = numpy.hanning(FRAME)
    spectra = [20 * numpy.log10(numpy.abs(numpy.fft.rfft(part * window, axis=1))[:, 1:HIGHEST] + 1e-3)
               for part in (one, other)]
    distance = numpy.sqrt(((spectra[0] - spectra[1]) ** 2).mean(axis=1)).mean()
    return snr, distance


def main():
    inputs = [samples(path) for path in sys.argv[1:]]
    seconds = sum(map(len, inputs)) / RATE
    print(f"{seconds:.0f} s of speech in {len(inputs)} pieces\n")
    print("| coder | kb/s asked | kept up to kHz | kb/s got | MB an hour | seg. SNR dB | spectral distance dB | CPU ms per s |")
    print("|---|---|---|---|---|---|---|---|")
    with tempfile.TemporaryDirectory() as folder:
        for coder in CODERS:
            for rate in BIT_RATES:
                row(Path(folder), inputs, seconds, coder, rate)
        for kept in HIGHEST_KEPT:
            row(Path(folder), inputs, seconds, *CHOSEN, kept)


def row(folder, inputs, seconds, coder, rate, kept=0):
    size = cpu = 0
    figures = []
    for original in inputs:
        raw, coded = folder / "in.f32", folder / "out.m4a"
        raw.write_bytes(original.astype(numpy.float32).tobytes())
        _, used = run("-f", "f32le", "-ar", RATE, "-ac", 1, "-i", raw, "-c:a", "aac", "-aac_coder", coder,
                      "-b:a", f"{rate}k", "-cutoff", kept * 1000, coded)
        cpu += used
        size += coded.stat().st_size
        figures.append(compare(original, samples(coded)))
    snr, distance = numpy.mean(figures, axis=0)
    print(f"| {coder} | {rate} | {kept or '–'} | {size * 8 / seconds / 1000:.0f} | {size / seconds * 3600 / 1e6:.1f} | "
          f"{snr:.1f} | {distance:.2f} | {cpu / seconds * 1000:.1f} |")


if __name__ == "__main__":
    main()
