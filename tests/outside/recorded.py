# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The tests' ear: what OpenAL Soft's writer of wave files has recorded, cut into sounds, with their pitches.

Samples are numbers from -1 to 1. Everything is measured in frames of the recording, so a machine that stands still for
a while changes nothing.
"""

import array
import math
import operator
import struct
import wave

# What counts as sound: a fifth of a thousandth of full scale. A plucked note is never that low for longer than BRIDGE.
HEIGHT = 0.0002
BRIDGE = 0.004
# The pitches that are looked for, in hertz.
LOWEST, HIGHEST = 75, 1300
WINDOW = 2048


class Recording:
    """Both sides of a recording. The writer may still be at work: what is there is read, whatever the header says."""

    def __init__(self, path):
        with open(path, "rb") as file:
            content = file.read()
        form = content.index(b"fmt ") + 8
        _, channels, self.rate, _, _, bits = struct.unpack_from("<HHIIHH", content, form)
        if (channels, bits) != (2, 32):
            raise ValueError(f"{channels} channels of {bits} bits")
        data = content.index(b"data", form) + 8
        frames = (len(content) - data) // 8
        both = array.array("f", content[data : data + frames * 8])
        self.left, self.right = both[0::2], both[1::2]

    def sounds(self):
        """The stretches of sound between silences: a list of (first frame, frame after the last)."""
        bridge = int(BRIDGE * self.rate)
        stretches = []
        for frame, sample in enumerate(self.left):
            if -HEIGHT <= sample <= HEIGHT:
                continue
            if stretches and frame <= stretches[-1][1] + bridge:
                stretches[-1][1] = frame + 1
            else:
                stretches.append([frame, frame + 1])
        return stretches

    def peak(self):
        return max((abs(sample) for side in (self.left, self.right) for sample in side), default=0)


def samples_of(path):
    """A mono file of 16 bits, as the recording would hold it, and its rate."""
    with wave.open(path) as file:
        if (file.getnchannels(), file.getsampwidth()) != (1, 2):
            raise ValueError(path)
        samples = array.array("h", file.readframes(file.getnframes()))
        return array.array("f", (sample / 32768 for sample in samples)), file.getframerate()


def first_sound(samples):
    return next(frame for frame, sample in enumerate(samples) if abs(sample) > HEIGHT)


def largest_difference(recorded, first, expected):
    """How far a recording is from what was to be heard from a frame on."""
    heard = recorded[first : first + len(expected)]
    if len(heard) < len(expected):
        return math.inf
    return max(map(abs, map(operator.sub, heard, expected)))


def largest_step(samples):
    return max(map(abs, map(operator.sub, samples[1:], samples)), default=0)


def pitch(samples, rate, first):
    """The pitch after a frame, in hertz, from the first high point of the autocorrelation; 0 where there is none."""
    lags = range(int(rate / HIGHEST), int(rate / LOWEST) + 2)
    still = samples[first : first + WINDOW]
    moved = samples[first : first + WINDOW + lags.stop]
    if len(moved) < WINDOW + lags.stop:
        return 0

    def likeness(lag):
        there = moved[lag : lag + WINDOW]
        energy = math.sqrt(sum(map(operator.mul, still, still)) * sum(map(operator.mul, there, there)))
        return sum(map(operator.mul, still, there)) / energy if energy else 0

    likenesses = [likeness(lag) for lag in lags]
    bound = 0.9 * max(likenesses)
    for at in range(1, len(likenesses) - 1):
        before, here, after = likenesses[at - 1 : at + 2]
        if here >= bound and before < here >= after:
            return rate / (lags.start + at + (before - after) / (2 * (before - 2 * here + after)))
    return 0


def cents(frequency, reference):
    return 1200 * math.log2(frequency / reference) if frequency > 0 else math.inf


def find(recorded, samples, anchor, count=64):
    """The frame at which a sound begins in a recording, known by some of its samples; None where it is not heard."""
    known = samples[anchor : anchor + count]
    for frame in range(len(recorded) - count):
        if abs(recorded[frame] - known[0]) < HEIGHT and largest_difference(recorded, frame, known) < HEIGHT:
            return frame - anchor
    return None
