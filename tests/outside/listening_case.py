# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A test that listens: plays scales in the program and finds the notes again in the recording.

A note is known by its pitch alone; then the recording has to be the note's file, sample by sample. The session is the
class's, set before the tests run; each test begins with a program that has just started.
"""

import contextlib
import os
import re
import shutil
import sqlite3
import statistics
import unittest

from recorded import cents, first_sound, largest_difference, pitch, samples_of
from stalls import Stalls
from timed import timely

KEYS = ["C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"]
NOTE = re.compile(r"([A-G]#?), string [1-6], (?:open|fret \d+)")
C4 = 440 * 2 ** (-9 / 12)
MAJOR = "2212221"
# The second record of the test's stage gets a pattern that ends short of the octave, so that its key closes it. In C and
# in G all of its notes are notes of C major, for which there are files to compare them with.
SHORT = "221"
LONGEST_GAP = 0.030
# What a recording may differ from a sound file: nothing that can be heard, a third of the smallest step of 16 bits.
SAME = 0.00001
# Frames after the beginning of a sound at which its pitch is measured, and how far it may be off, in cents.
SETTLED = 4000
CLEAR = 5


def steps_to(number, pattern=MAJOR):
    """Semitones from the first note of a scale to the one of that number."""
    return sum(int(pattern[step % len(pattern)]) for step in range(number))


# The shipped recordings hold the notes of C major upward from C4: their numbers by semitones above C4.
FILES = {steps_to(number): number for number in range(16)}


def notes_of(key, pattern):
    """The names of a scale's notes, one more than the pattern has steps."""
    return [KEYS[(KEYS.index(key) + sum(map(int, pattern[:steps]))) % 12] for steps in range(len(pattern) + 1)]


def notes_heard(key, pattern):
    """What a playback of the pattern sounds, in semitones above C4."""
    notes = notes_of(key, pattern)
    heard = [number for number, note in enumerate(notes) if number == 0 or note != notes[number - 1]]
    first = KEYS.index(key)
    return [first + steps_to(number, pattern) for number in heard] + ([] if notes[-1] == key else [first])


class ListeningCase(unittest.TestCase):
    session = None

    def setUp(self):
        self.session.restart()

    def play(self):
        """Presses Listen and waits for the end; how the machine stood still meanwhile."""
        status = self.session.status()
        with Stalls() as stalls:
            self.session.press(self.session.button("Listen"))
            self.session.wait_for_standby(status)
        return stalls

    def choose(self, key, pattern):
        """Types the key and waits until the neck shows the scale."""
        if key != "C":
            self.session.choose_key(key)
        notes = set(notes_of(key, pattern))
        self.session.wait(lambda: self.notes_on_the_neck() == notes, f"the notes {sorted(notes)} on the neck")

    def notes_on_the_neck(self):
        return {match.group(1) for match in (NOTE.fullmatch(node.get_name()) for node in self.session.nodes()) if match}

    def heard(self, recording):
        """The notes heard in semitones above C4, by their pitches alone, and where they begin and end."""
        notes, places = [], []
        for first, _ in recording.sounds():
            frequency = pitch(recording.left, recording.rate, first + SETTLED)
            note = min(FILES, key=lambda which: abs(cents(frequency, C4 * 2 ** (which / 12))))
            off = abs(cents(frequency, C4 * 2 ** (note / 12)))
            self.assertLess(off, CLEAR, f"{frequency:.2f} Hz, a clear pitch")
            samples, rate = samples_of(os.path.join(self.session.stage, "Audio", f"{FILES[note]}.wav"))
            self.assertEqual(rate, recording.rate)
            start = first - first_sound(samples)
            # No note is cut, overlapped, clipped or clicked into: each is the file of its pitch, sample by sample.
            for side in (recording.left, recording.right):
                self.assertLess(largest_difference(side, start, samples), SAME, f"{note} at frame {start}")
            notes.append(note)
            places.append((start, start + len(samples)))
        return notes, places

    def assert_sounds(self, recording, expected, stalls, pauses=()):
        """The expected notes and nothing else, with short gaps except before those at the places of `pauses`."""
        notes, places = self.heard(recording)
        self.assertEqual(notes, expected)
        self.assertLess(recording.peak(), 0.99)
        gaps = [(place[0] - before[1]) / recording.rate for before, place in zip(places, places[1:])]
        self.assertGreaterEqual(min(gaps), 0, "no note begins before the one before has ended")
        gaps = [gap for at, gap in enumerate(gaps, start=1) if at not in pauses]
        print(
            f"\n{len(notes)} notes, gaps of {statistics.median(gaps) * 1000:.1f} ms, "
            f"{max(gaps) * 1000:.1f} ms at most; peak {recording.peak():.3f}; "
            f"the machine stood still for {stalls.longest * 1000:.1f} ms at most"
        )
        self.assertLess(statistics.median(gaps), timely(LONGEST_GAP))
        # A machine that stands still makes a gap that is not the program's.
        self.assertLess(max(gaps), timely(LONGEST_GAP) + stalls.longest)


def stage_with_short_scale(stage, folder):
    """A copy of the stage whose second record has the short pattern."""
    copy = os.path.join(folder, "stage")
    shutil.copytree(stage, copy)
    with contextlib.closing(sqlite3.connect(os.path.join(copy, "TonalithDB97.mdb"))) as connection, connection:
        second = "SELECT ScaleID FROM ScalesQuery ORDER BY ScaleID LIMIT 1 OFFSET 1"
        connection.execute(f"UPDATE Scales SET ScaleIntervals = ? WHERE ScaleID = ({second})", (SHORT,))
    return copy
