# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Interrupts a playback: closing the program, Listen again, another record and key, a message box."""

import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time
import unittest

from close_request import open_screen
from listening_case import MAJOR, SHORT, ListeningCase, expected_notes, stage_with_short_scale
from playing import PlayingSession, ended
from stalls import Stalls
from timed import timely

CLOSINGS = 9
LONGEST_CLOSING = 0.200


class Interrupting(ListeningCase):
    def listen(self):
        """Presses Listen and waits for the first note; returns the status line."""
        status = self.session.status()
        self.session.press(self.session.button("Listen"))
        self.session.wait(lambda: self.session.text(status).startswith("Playing: "), "the first note")
        return status

    def test_closing_during_a_playback_ends_the_process_immediately(self):
        times, own = [], []
        for round_ in range(CLOSINGS):
            self.session.restart()
            self.listen()
            # The rounds cover a note and the gap after it. A late call hits the next note, which is equivalent.
            time.sleep(0.07 * round_)
            times.append(self.session.close())
            own.append(self.seconds_to_end_a_trivial_process())
            self.assertLess(len(self.session.recording().sounds()), len(MAJOR) + 1, "that was in the middle")
        print(
            f"\nclosing in the middle of a playback: {statistics.median(times) * 1000:.1f} ms, "
            f"{max(times) * 1000:.1f} ms at most; of these the test's own {statistics.median(own) * 1000:.1f} ms"
        )
        self.assertLess(statistics.median(times), timely(LONGEST_CLOSING))

    @staticmethod
    def seconds_to_end_a_trivial_process():
        with subprocess.Popen(["sleep", "60"]) as process:
            start = time.monotonic()
            process.send_signal(signal.SIGKILL)
            return ended(process, start)

    def test_listen_again_while_a_scale_plays_does_nothing(self):
        listen = self.session.button("Listen")
        with Stalls() as stalls:
            status = self.listen()
            for _ in range(3):
                note = self.session.text(status)
                self.session.press(listen)
                self.session.wait(lambda note=note: self.session.text(status) != note, "the next note")
            self.session.wait_for_standby(status)
        # Long enough for the start of another playback, which must not come.
        time.sleep(0.5)
        self.assertEqual(self.session.text(status), "Standby")
        self.assert_sounds(self.session.recording(), expected_notes("C", MAJOR), stalls)

    def test_another_record_and_key_do_not_change_the_playback(self):
        with Stalls() as stalls:
            status = self.listen()
            self.session.press(self.session.button("Next record"))
            self.choose("D", SHORT)
            self.assertTrue(self.session.text(status).startswith("Playing: "), "the scale still plays")
            self.session.wait_for_standby(status)
        self.assert_sounds(self.session.recording(), expected_notes("C", MAJOR), stalls)

    def test_a_close_request_during_a_message_box_is_ignored(self):
        file = os.path.join(self.session.stage, "Audio", "0.wav")
        os.rename(file, file + ".gone")
        self.addCleanup(os.rename, file + ".gone", file)
        with open_screen() as screen:
            window = screen.window_titled("Tonalith")
            self.session.press(self.session.button("Listen"))
            box = self.session.wait(self.session.dialog, "the message box")
            screen.ask_to_close(window)
            # The window stays open until the message box is answered.
            time.sleep(0.3)
            self.assertIsNotNone(self.session.dialog())
            self.session.press(self.session.button("OK", box))
            self.session.wait(lambda: self.session.dialog() is None, "the end of the message box")
            status = self.session.status()
            self.session.wait(lambda: self.session.text(status) == "Playing: D", "the next note")
            self.session.close()


if __name__ == "__main__":
    with tempfile.TemporaryDirectory(prefix="tonalith-interrupting-") as own_folder:
        with PlayingSession(stage_with_short_scale(sys.argv.pop(1), own_folder)) as session:
            Interrupting.session = session
            unittest.main(verbosity=2, warnings="ignore")
