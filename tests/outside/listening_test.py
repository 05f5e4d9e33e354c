# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""What a listener hears: Listen and clicks on notes, in the whole program, found again in a recording of its output."""

import operator
import os
import sys
import tempfile
import time
import unittest

from listening_case import CLEAR, MAJOR, SAME, SETTLED, SHORT, ListeningCase, notes_heard, stage_with_short_scale
from playing import PlayingSession
from recorded import HEIGHT, cents, find, largest_difference, largest_step, pitch, samples_of
from session import descendants
from stalls import Stalls

# Notes on the neck and the numbers of their files, counted in semitones; number 33 would be A4.
CLICKS = [("B, string 2, open", 23), ("E, string 1, open", 28), ("G, string 6, fret 15", 19)]
A4_FILE = 33
# Frames around a cut in which the sound that is stopped fades away: two periods of the output.
FADE = 512


class Listening(ListeningCase):
    def test_major_in_c_is_heard_note_by_note(self):
        stalls = self.play()
        expected = notes_heard("C", MAJOR)
        self.assertEqual(expected, [0, 2, 4, 5, 7, 9, 11, 12])
        self.assert_sounds(self.session.recording(), expected, stalls)

    def test_a_scale_in_g_that_misses_the_octave_is_closed_by_its_key(self):
        self.session.press(self.session.button("Next record"))
        self.choose("G", SHORT)
        stalls = self.play()
        expected = notes_heard("G", SHORT)
        self.assertEqual(expected, [7, 9, 11, 12, 7])
        self.assert_sounds(self.session.recording(), expected, stalls)

    def test_a_missing_file_is_reported_and_the_next_note_sounds(self):
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

    def test_clicks_sound_their_pitches_and_each_ends_the_one_before(self):
        files = [samples_of(os.path.join(self.session.stage, "Octaves", f"{number}.wav"))[0] for _, number in CLICKS]
        for button in [self.session.button(name) for name, _ in CLICKS]:
            self.session.press(button)
            time.sleep(0.4)
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
        """Each sound is its file, alone, from the end of the one before to the next or to its own end."""
        ends = [start - FADE for start in starts[1:]] + [starts[-1] + len(files[-1])]
        fades = [0] + [FADE] * (len(files) - 1)
        for side in (recording.left, recording.right):
            for samples, start, end, fade in zip(files, starts, ends, fades):
                self.assertLess(largest_difference(side, start + fade, samples[fade : end - start]), SAME)
            self.assertLess(max(map(abs, side[: starts[0]]), default=0), HEIGHT)
            self.assertLess(max(map(abs, side[ends[-1] :]), default=0), HEIGHT)

    def assert_fades(self, recording, before, cut, after, start):
        """Without the sound that begins, what is left of the one before goes down without a click."""
        left = recording.left[start - FADE : start]
        left.extend(map(operator.sub, recording.left[start : start + FADE], after))
        height = max(map(abs, left))
        # The sound's own steps, and those of a fade that takes a quarter of the time it has.
        bound = largest_step(before[cut - FADE : cut + FADE]) + height / (FADE / 4)
        step = largest_step(left)
        print(f"\ncut at a height of {height:.3f}: largest step {step:.4f}, allowed {bound:.4f}")
        self.assertLess(step, bound)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory(prefix="tonalith-listening-") as own:
        with PlayingSession(stage_with_short_scale(sys.argv.pop(1), own)) as session:
            Listening.session = session
            unittest.main(verbosity=2, warnings="ignore")
