#!/usr/bin/python3
"""Compares bit rates and coders of FFmpeg's AAC encoder on speech: quality, size and processor time.

    compare.py VOICE...        (needs ffmpeg and python3-numpy)

A voice is a sound file, or a folder, whose files are taken one after the other until 15 s are there. Figures are averages
over the voices. Quality is told in three, all against the input and over what is not silent:

- segmental signal-to-noise ratio, over frames of 23 ms (higher is better);
- log-spectral distance below 14 kHz, over frames of 23 ms (lower is better);
- noise-to-mask ratio (lower is better): how far the error lies above or below what the speech itself covers for the ear,
  over frames of 46 ms. The outer ear, the bands, the spreading between them and the offset of the mask are those of
  ITU-R BS.1387-1 (basic version, FFT ear model), at 92 dB for full scale; its spreading in time is left out.

At the setting that was chosen, the frequency up to which anything is kept is varied too; "–" is what the encoder chooses
itself.
"""

import resource
import subprocess
import sys
import tempfile
from pathlib import Path

import numpy

RATE = 44100
FRAME = 1024
VOICE_SECONDS = 15
SOUNDS = (".ogg", ".wav")
SETTINGS = [("fast", rate) for rate in (56, 60, 64, 66, 68, 72)] + [("twoloop", rate) for rate in (64, 68, 72)]
CHOSEN = ("fast", 66)
KEPT = 15  # kHz
ALSO_KEPT = (0, 16, 14)  # kHz; 0: the encoder's own choice
QUIET = 10 ** (-50 / 20)
HIGHEST = int(14000 / RATE * FRAME)
FULL_SCALE_DB = 92


def run(*words):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    output = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", *map(str, words)], check=True,
                            capture_output=True).stdout
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return output, after.ru_utime - before.ru_utime


def samples(path, *filters):
    raw, _ = run("-i", path, *filters, "-ac", 1, "-ar", RATE, "-f", "f32le", "-")
    return numpy.frombuffer(raw, numpy.float32).astype(float)


def voice(path):
    """A voice in one piece, clipped as a microphone's sound is."""
    files = [path] if path.is_file() else sorted(file for file in path.rglob("*") if file.suffix in SOUNDS)
    parts = []
    while files and sum(map(len, parts)) < VOICE_SECONDS * RATE:
        parts.append(samples(files.pop(0)))
    return numpy.clip(numpy.concatenate(parts), -1, 1)


def frames(signal, length=FRAME, step=None):
    return numpy.lib.stride_tricks.sliding_window_view(signal, length)[::step or length]


def loud(pieces):
    return numpy.sqrt((pieces ** 2).mean(axis=1)) > QUIET


def compare(original, coded):
    """Segmental signal-to-noise ratio, log-spectral distance, noise-to-mask ratio, all in dB."""
    length = min(len(original), len(coded))
    original, coded = original[:length], coded[:length]
    one, other = frames(original), frames(coded)
    heard = loud(one)
    one, other = one[heard], other[heard]
    noise = ((one - other) ** 2).sum(axis=1) + 1e-12
    snr = numpy.clip(10 * numpy.log10((one ** 2).sum(axis=1) / noise), -10, 35).mean()
    window = numpy.hanning(FRAME)
    spectra = [20 * numpy.log10(numpy.abs(numpy.fft.rfft(part * window, axis=1))[:, 1:HIGHEST] + 1e-3)
               for part in (one, other)]
    distance = numpy.sqrt(((spectra[0] - spectra[1]) ** 2).mean(axis=1)).mean()
    return snr, distance, Ear().noise_to_mask(original, coded)


class Ear:
    """The FFT-based ear model of ITU-R BS.1387-1, as far as the noise-to-mask ratio needs it."""

    LENGTH = 2048
    WIDTH = 0.25  # of a band, in Bark
    STEEPNESS_BELOW = 27  # dB a Bark
    ADDITION = 0.4  # exponent with which what several bands cover adds up

    def __init__(self):
        frequency = numpy.arange(1, self.LENGTH // 2 + 1) * RATE / self.LENGTH
        kilohertz = frequency / 1000
        self.outer_ear = 10 ** ((-0.6 * 3.64 * kilohertz ** -0.8 + 6.5 * numpy.exp(-0.6 * (kilohertz - 3.3) ** 2)
                                 - 1e-3 * kilohertz ** 3.6) / 10)
        edges = numpy.arange(self.bark(80), self.bark(16000), self.WIDTH)
        bands = numpy.digitize(self.bark(frequency), edges) - 1
        inside = (bands >= 0) & (self.bark(frequency) < edges[-1] + self.WIDTH)
        self.grouping = (bands[:, None] == numpy.arange(len(edges))) & inside[:, None]
        self.centre = edges + self.WIDTH / 2
        self.frequency = 650 * numpy.sinh(self.centre / 7)
        self.filled = self.grouping.any(axis=0)
        self.inner_noise = 10 ** (0.1456 * (self.frequency / 1000) ** -0.8)
        self.offset = 10 ** (-numpy.where(self.centre <= 12, 3, 0.25 * self.centre) / 10)
        # So that a band is not raised by its own spreading.
        self.gain = self.spread(numpy.ones((1, len(edges))))

    @staticmethod
    def bark(frequency):
        return 7 * numpy.arcsinh(frequency / 650)

    def in_bands(self, signal):
        window = numpy.hanning(self.LENGTH) * 10 ** (FULL_SCALE_DB / 20) / (self.LENGTH / 4)
        power = numpy.abs(numpy.fft.rfft(signal * window, axis=1)[:, 1:]) ** 2 * self.outer_ear
        return power @ self.grouping

    def spread(self, excitation):
        level = 10 * numpy.log10(excitation)
        total = numpy.zeros_like(excitation)
        for band, centre in enumerate(self.centre):
            away = self.centre - centre
            steepness_above = numpy.maximum(24 + 230 / self.frequency[band] - 0.2 * level[:, band, None], 0)
            fall = numpy.where(away < 0, -self.STEEPNESS_BELOW * away, steepness_above * away)
            total += (excitation[:, band, None] * 10 ** (-fall / 10)) ** self.ADDITION
        return total ** (1 / self.ADDITION)

    def noise_to_mask(self, original, coded):
        one = frames(original, self.LENGTH, self.LENGTH // 2)
        heard = loud(one)
        error = frames(original - coded, self.LENGTH, self.LENGTH // 2)[heard]
        mask = self.spread(self.in_bands(one[heard]) + self.inner_noise) / self.gain * self.offset
        ratio = (self.in_bands(error) / mask)[:, self.filled]
        return 10 * numpy.log10(ratio.mean(axis=1) + 1e-12).mean()


def row(folder, voices, coder, rate, kept):
    raw, coded = folder / "in.f32", folder / "out.m4a"

    def encoded(original):
        raw.write_bytes(original.astype(numpy.float32).tobytes())
        _, used = run("-f", "f32le", "-ar", RATE, "-ac", 1, "-i", raw, "-c:a", "aac", "-aac_coder", coder,
                      "-b:a", f"{rate}k", "-cutoff", kept * 1000, coded)
        return used

    everything = numpy.concatenate(voices)
    cpu = encoded(everything) / len(everything) * RATE * 1000
    figures = []
    for original in voices:
        encoded(original)
        figures.append((coded.stat().st_size * 8 / len(original) * RATE / 1000, *compare(original, samples(coded))))
    got, snr, distance, masked = numpy.mean(figures, axis=0)
    most = max(figure[0] for figure in figures)
    print(f"| {coder} | {rate} | {kept or '–'} | {got:.0f} (most {most:.0f}) | {snr:.1f} | {distance:.2f} | "
          f"{masked:.1f} | {cpu:.1f} |", flush=True)


def main():
    voices = [voice(Path(name)) for name in sys.argv[1:]]
    seconds = sum(map(len, voices)) / RATE
    print(f"{seconds:.0f} s of speech in {len(voices)} voices\n")
    print("| coder | kb/s asked | kept up to kHz | kb/s got | seg. SNR dB | spectral distance dB | noise-to-mask dB | "
          "CPU ms per s |")
    print("|---|---|---|---|---|---|---|---|")
    with tempfile.TemporaryDirectory() as folder:
        for setting in SETTINGS:
            row(Path(folder), voices, *setting, KEPT)
        for kept in ALSO_KEPT:
            row(Path(folder), voices, *CHOSEN, kept)


if __name__ == "__main__":
    main()
