# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Checks a recording of the program's output: Listen, and clicks on notes."""

import operator
import os
import sys
import tempfile
import time
import unittest

from listening_case import CLEAR, MAJOR, SAME, SETTLED, SHORT, ListeningCase, expected_notes, stage_with_short_scale
from playing import PlayingSession
from recorded import HEIGHT, cents, find, largest_difference, largest_step, pitch, samples_of
from session import descendants
from stalls import Stalls

# Notes on the neck and their file numbers in semitones; A4 is number 33.
CLICKS = [("B, string 2, open", 23), ("E, string 1, open", 28), ("G, string 6, fret 15", 19)]
A4_FILE = 33
# A stopped sound fades out within this many frames around the cut: two periods of the output.
FADE = 512


class Listening(ListeningCase):
    def test_major_in_c_is_played_note_by_note(self):
        stalls = self.play()
        expected = expected_notes("C", MAJOR)
        self.assertEqual(expected, [0, 2, 4, 5, 7, 9, 11, 12])
        self.assert_sounds(self.session.recording(), expected, stalls)

    def test_a_scale_in_g_without_the_octave_ends_with_its_key(self):
        self.session.press(self.session.button("Next record"))
        self.choose("G", SHORT)
        stalls = self.play()
        expected = expected_notes("G", SHORT)
        self.assertEqual(expected, [7, 9, 11, 12, 7])
        self.assert_sounds(self.session.recording(), expected, stalls)

    def test_a_missing_file_is_reported_and_the_next_note_is_played(self):
        file = os.path.join(self.session.stage, "Audio", "1.wav")
        self.session.press(self.session.button("Next record"))
        self.choose("C", SHORT)
        os.rename(file, file + ".gone")
        self.addCleanup(os.rename, file + ".gone", file)
        status = self.session.status()
        with Stalls() as stalls:
            self.session.press(self.session.button("Listen"))
            box = self.session.wait(self.session.dialog, "the message box")
            self.assertEqual(box.get_name(), "Tonalith")
            self.assertIn("Cannot open file", {node.get_name() for node in descendants(box)})
            self.session.press(self.session.button("OK", box))
            self.session.wait(lambda: self.session.dialog() is None, "the end of the message box")
            self.session.wait(lambda: self.session.text(status).startswith("Playing: "), "the next note")
            self.session.wait_for_standby(status)
        self.assert_sounds(self.session.recording(), [0, 4, 5, 0], stalls, pauses={1})

    def test_a_click_plays_its_pitch_and_stops_the_previous_note(self):
        files = [samples_of(os.path.join(self.session.stage, "Octaves", f"{number}.wav"))[0] for _, number in CLICKS]
        for button in [self.session.button(name) for name, _ in CLICKS]:
            self.session.press(button)
            # The next click comes while the note still sounds.
            time.sleep(0.4)
        # The recording runs in real time: the last note sounds to its end.
        time.sleep(3)
        recording = self.session.recording()
        starts = [find(recording.left, samples, SETTLED) for samples in files]
        self.assertNotIn(None, starts)
        self.assertEqual(starts, sorted(starts))
        for (name, number), start in zip(CLICKS, starts):
            expected = 440 * 2 ** ((number - A4_FILE) / 12)
            self.assertLess(abs(cents(pitch(recording.left, recording.rate, start + SETTLED), expected)), CLEAR, name)
        self.assertLess(recording.peak(), 0.99)
        self.assert_whole(recording, files, starts)
        for before, after, was, start in zip(files, files[1:], starts, starts[1:]):
            self.assert_fades(recording, before, start - was, after, start)

    def assert_whole(self, recording, files, starts):
        """Each sound equals its file from the end of the previous sound to the next one or to its own end."""
        ends = [start - FADE for start in starts[1:]] + [starts[-1] + len(files[-1])]
        fades = [0] + [FADE] * (len(files) - 1)
        for side in (recording.left, recording.right):
            for samples, start, end, fade in zip(files, starts, ends, fades):
                self.assertLess(largest_difference(side, start + fade, samples[fade : end - start]), SAME)
            self.assertLess(max(map(abs, side[: starts[0]]), default=0), HEIGHT)
            self.assertLess(max(map(abs, side[ends[-1] :]), default=0), HEIGHT)

    def assert_fades(self, recording, before, cut, after, start):
        """Subtracts the new sound from the recording and checks that the previous sound fades without a click."""
        left = recording.left[start - FADE : start]
        left.extend(map(operator.sub, recording.left[start : start + FADE], after))
        height = max(map(abs, left))
        # The steps of the sound itself, plus those of a fade within a quarter of the permitted time.
        bound = largest_step(before[cut - FADE : cut + FADE]) + height / (FADE / 4)
        step = largest_step(left)
        print(f"\ncut at a height of {height:.3f}: largest step {step:.4f}, allowed {bound:.4f}")
        self.assertLess(step, bound)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory(prefix="tonalith-listening-") as own:
        with PlayingSession(stage_with_short_scale(sys.argv.pop(1), own)) as session:
            Listening.session = session
            unittest.main(verbosity=2, warnings="ignore")
