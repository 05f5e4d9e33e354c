# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The base class of tests that play scales in the program and identify the notes in the recording.

A note is identified by its pitch; then the recording must equal the file of the note, sample by sample. The session
belongs to the class and is set before the tests run. Each test starts the program again.
"""

import contextlib
import os
import re
import shutil
import sqlite3
import statistics
import unittest

from notes import KEYS
from recorded import cents, first_sound, largest_difference, pitch, samples_of
from stalls import Stalls
from timed import timely

NOTE = re.compile(r"([A-G]#?), string [1-6], (?:open|fret \d+)")
C4 = 440 * 2 ** (-9 / 12)
MAJOR = "2212221"
# The second record of the test's stage gets a pattern that does not reach the octave, so that the playback adds the key
# note. In C and G all of its notes are notes of C major, whose files can be compared.
SHORT = "221"
LONGEST_GAP = 0.030
# The maximum difference between a recording and its sound file: a third of a 16-bit step.
SAME = 0.00001
# The pitch is measured this many frames after the beginning of a sound, with this tolerance in cents.
SETTLED = 4000
CLEAR = 5


def steps_to(number, pattern=MAJOR):
    """Semitones from the first note of a scale to the note `number`."""
    return sum(int(pattern[step % len(pattern)]) for step in range(number))


# The shipped recordings are the notes of C major from C4 upwards: file numbers by semitones above C4.
FILES = {steps_to(number): number for number in range(16)}


def notes_of(key, pattern):
    """The names of the notes of a scale, including the note after the last step."""
    return [KEYS[(KEYS.index(key) + sum(map(int, pattern[:steps]))) % 12] for steps in range(len(pattern) + 1)]


def expected_notes(key, pattern):
    """The expected notes of a playback, in semitones above C4."""
    notes = notes_of(key, pattern)
    numbers = [number for number, note in enumerate(notes) if number == 0 or note != notes[number - 1]]
    first = KEYS.index(key)
    return [first + steps_to(number, pattern) for number in numbers] + ([] if notes[-1] == key else [first])


class ListeningCase(unittest.TestCase):
    session = None

    def setUp(self):
        self.session.restart()

    def play(self):
        """Presses Listen and waits for the end; returns the stalls of the system during the playback."""
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

    def recorded_notes(self, recording):
        """The recorded notes in semitones above C4, and their first and last frames."""
        notes, ranges = [], []
        for first, _ in recording.sounds():
            frequency = pitch(recording.left, recording.rate, first + SETTLED)
            note = min(FILES, key=lambda which: abs(cents(frequency, C4 * 2 ** (which / 12))))
            off = abs(cents(frequency, C4 * 2 ** (note / 12)))
            self.assertLess(off, CLEAR, f"{frequency:.2f} Hz, a clear pitch")
            samples, rate = samples_of(os.path.join(self.session.stage, "Audio", f"{FILES[note]}.wav"))
            self.assertEqual(rate, recording.rate)
            start = first - first_sound(samples)
            # No note is cut, overlapped, clipped or disturbed: each equals its file, sample by sample.
            for side in (recording.left, recording.right):
                self.assertLess(largest_difference(side, start, samples), SAME, f"{note} at frame {start}")
            notes.append(note)
            ranges.append((start, start + len(samples)))
        return notes, ranges

    def assert_sounds(self, recording, expected, stalls, pauses=()):
        """Checks that only the expected notes are recorded, with short gaps except before the indexes in `pauses`."""
        notes, ranges = self.recorded_notes(recording)
        self.assertEqual(notes, expected)
        self.assertLess(recording.peak(), 0.99)
        gaps = [(after[0] - before[1]) / recording.rate for before, after in zip(ranges, ranges[1:])]
        self.assertGreaterEqual(min(gaps), 0, "no note begins before the one before has ended")
        gaps = [gap for at, gap in enumerate(gaps, start=1) if at not in pauses]
        print(
            f"\n{len(notes)} notes, gaps of {statistics.median(gaps) * 1000:.1f} ms, "
            f"{max(gaps) * 1000:.1f} ms at most; peak {recording.peak():.3f}; "
            f"the system stalled for {stalls.longest * 1000:.1f} ms at most"
        )
        self.assertLess(statistics.median(gaps), timely(LONGEST_GAP))
        # A stall of the system also causes a gap.
        self.assertLess(max(gaps), timely(LONGEST_GAP) + stalls.longest)


def stage_with_short_scale(stage, folder):
    """Copies the stage and gives the second record the short pattern."""
    copy = os.path.join(folder, "stage")
    shutil.copytree(stage, copy)
    with contextlib.closing(sqlite3.connect(os.path.join(copy, "TonalithDB97.mdb"))) as connection, connection:
        second = "SELECT ScaleID FROM ScalesQuery ORDER BY ScaleID LIMIT 1 OFFSET 1"
        connection.execute(f"UPDATE Scales SET ScaleIntervals = ? WHERE ScaleID = ({second})", (SHORT,))
    return copy
