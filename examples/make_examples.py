#!/usr/bin/env python3
"""Writes the example waves beside this script, in the editor's text format.

Each file holds one wave of free-form dots: the header, then index and normalised amplitude of
every dot (1.0 is half of the peak-to-peak voltage), then one custom segment over all of them.
"""
import math
import pathlib

MAX_DOTS = 4096
QUANTIFY = 12  # bits


def decaying_ring(t):
    """A struck resonator: y = exp(-t / tau) sin(2 pi f t), t in parts of the record."""
    return math.exp(-5.0 * t) * math.sin(2.0 * math.pi * 24.0 * t)


def two_tone(t):
    """Two equal tones a little apart, as for intermodulation tests: the sum beats 4 times."""
    return 0.5 * math.sin(2.0 * math.pi * 40.0 * t) + 0.5 * math.sin(2.0 * math.pi * 44.0 * t)


# Height, centre and width (parts of one beat) of the waves P, Q, R, S and T of a heart beat.
BEAT = (
    (0.12, 0.200, 0.0250),
    (-0.15, 0.360, 0.0090),
    (0.95, 0.385, 0.0110),
    (-0.25, 0.412, 0.0100),
    (0.25, 0.640, 0.0400),
)


def heart_beat(t):
    """One beat as a sum of Gaussians: y = sum of a exp(-(t - c)^2 / (2 w^2))."""
    return sum(a * math.exp(-((t - c) ** 2) / (2.0 * w * w)) for a, c, w in BEAT)


# File, wave, dots, volts peak to peak, seconds for MAX_DOTS dots.
EXAMPLES = (
    ("decaying-ring.txt", decaying_ring, 3000, 5.0, 0.001),
    ("two-tone.txt", two_tone, 4000, 2.0, 0.0001),
    ("heart-beat.txt", heart_beat, 3200, 4.0, 1.024),
)


def number(value):
    """The shortest digits of a number; a blank behind, and in front of one that is not negative."""
    text = repr(value).removesuffix(".0").replace("e", "E")
    return text + " " if text.startswith("-") else " " + text + " "


def wave_lines(wave, dots, vpp, period):
    yield "Norvik Technologies,Inc. Save analog waveform to text files."
    last = dots - 1
    for value in (MAX_DOTS, dots, vpp, period, QUANTIFY, last, 1):
        yield number(value)
    for i in range(dots):
        yield number(i)
        yield number(round(wave(i / dots), 6) + 0.0)  # + 0.0: no "-0"
    # One custom segment: where it was made, its first and last dot, its kind, its length, and the
    # parameters of the wave generator, which play no part here.
    for value in (1, 0, 0, last, 0, dots, vpp, 0, 1, 0, 50, 0, 0, 50, 10, -5):
        yield number(value)


def main():
    folder = pathlib.Path(__file__).resolve().parent
    for name, wave, dots, vpp, period in EXAMPLES:
        text = "".join(line + "\r\n" for line in wave_lines(wave, dots, vpp, period))
        (folder / name).write_bytes(text.encode("ascii"))


if __name__ == "__main__":
    main()
