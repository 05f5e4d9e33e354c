# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Analyses recordings of OpenAL Soft's wave file writer: separate sounds and their pitches.

Samples are numbers from -1 to 1. All measurements are in frames of the recording, so stalls of the system do not affect
them.
"""

import array
import math
import operator
import struct
import wave

# The threshold of sound, 0.02 % of full scale. A plucked note is never below it for longer than BRIDGE seconds.
HEIGHT = 0.0002
BRIDGE = 0.004
# The range of detected pitches, in hertz.
LOWEST, HIGHEST = 75, 1300
WINDOW = 2048


class Recording:
    """Both channels of a recording. Ignores the sizes in the header: they are wrong until the writer closes it."""

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
        """The sounds between silences: a list of (first frame, frame after the last)."""
        bridge = int(BRIDGE * self.rate)
        sounds = []
        for frame, sample in enumerate(self.left):
            if -HEIGHT <= sample <= HEIGHT:
                continue
            if sounds and frame <= sounds[-1][1] + bridge:
                sounds[-1][1] = frame + 1
            else:
                sounds.append([frame, frame + 1])
        return sounds

    def peak(self):
        return max((abs(sample) for side in (self.left, self.right) for sample in side), default=0)


def samples_of(path):
    """The samples of a 16-bit mono file, scaled like a recording, and its rate."""
    with wave.open(path) as file:
        if (file.getnchannels(), file.getsampwidth()) != (1, 2):
            raise ValueError(path)
        samples = array.array("h", file.readframes(file.getnframes()))
        return array.array("f", (sample / 32768 for sample in samples)), file.getframerate()


def first_sound(samples):
    return next(frame for frame, sample in enumerate(samples) if abs(sample) > HEIGHT)


def largest_difference(recorded, first, expected):
    """The largest difference between the recording, from the frame `first`, and the expected samples."""
    actual = recorded[first : first + len(expected)]
    if len(actual) < len(expected):
        return math.inf
    return max(map(abs, map(operator.sub, actual, expected)))


def largest_step(samples):
    return max(map(abs, map(operator.sub, samples[1:], samples)), default=0)


def pitch(samples, rate, first):
    """The pitch after a frame, in hertz, from the first high peak of the autocorrelation; 0 if there is none."""
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
    """The frame at which a sound begins, found by `count` of its samples from `anchor`; None if it is missing."""
    known = samples[anchor : anchor + count]
    for frame in range(len(recorded) - count):
        if abs(recorded[frame] - known[0]) < HEIGHT and largest_difference(recorded, frame, known) < HEIGHT:
            return frame - anchor
    return None
