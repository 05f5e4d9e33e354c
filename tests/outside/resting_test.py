# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Measures the processor time of a playback, and checks that the program is idle afterwards.

Uses OpenAL Soft's null device: unlike the wave file writer it can stop mixing between sounds, like a sound card.
"""

import os
import sys
import time
import unittest

from playing import PlayingSession
from timed import timely

# The permitted shares of one core: in addition to mixing during a playback, and when idle.
BEYOND_MIXING = 0.05
AT_REST = 0.005
# The permitted wake-ups per second of all threads when idle.
WAKE_UPS = 2
SECONDS_OF_MAJOR = 8 * 0.6
# The device runs for two seconds after the last sound.
SECONDS_TO_REST = 2.5


class Threads:
    """The processor seconds and wake-ups of the threads of a process until now."""

    def __init__(self, pid):
        self.at = time.monotonic()
        self.seconds, self.wake_ups = {}, {}
        folder = f"/proc/{pid}/task"
        for thread in os.listdir(folder):
            with open(f"{folder}/{thread}/stat", encoding="utf-8") as stat:
                fields = stat.read().rsplit(")", 1)[1].split()
            self.seconds[thread] = (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
            with open(f"{folder}/{thread}/schedstat", encoding="utf-8") as schedstat:
                self.seconds[thread] = max(self.seconds[thread], int(schedstat.read().split()[0]) / 1e9)
            with open(f"{folder}/{thread}/status", encoding="utf-8") as status:
                found = next(line for line in status if line.startswith("voluntary_ctxt_switches"))
            self.wake_ups[thread] = int(found.split()[1])

    def since(self, before):
        """The seconds and wake-ups of each thread since `before`, and the time between."""
        seconds = {thread: value - before.seconds.get(thread, 0) for thread, value in self.seconds.items()}
        wake_ups = {thread: value - before.wake_ups.get(thread, 0) for thread, value in self.wake_ups.items()}
        return seconds, wake_ups, self.at - before.at


class Resting(unittest.TestCase):
    session = None

    def test_a_playback_costs_little_beyond_mixing_and_ends_idle(self):
        pid = self.session.program.pid
        status, listen = self.session.status(), self.session.button("Listen")
        before = Threads(pid)
        self.session.press(listen)
        # Reading the status line through the bus would cost processor time in the program.
        time.sleep(SECONDS_OF_MAJOR)
        seconds, wake_ups, time_passed = Threads(pid).since(before)
        # All sound threads start with the first note. The mixer is the one that wakes up for every period.
        mixer = max(set(seconds) - set(before.seconds), key=wake_ups.get)
        mixing = seconds.pop(mixer) / time_passed
        beyond = sum(seconds.values()) / time_passed
        print(f"\nwhile a scale plays: mixing {mixing:.2%} of a core, everything else {beyond:.2%}")
        self.assertGreater(wake_ups[mixer], 100 * SECONDS_OF_MAJOR, "a thread mixes")
        self.assertLess(beyond, timely(BEYOND_MIXING))
        self.session.wait_for_standby(status)
        self.assert_idle(pid, SECONDS_TO_REST)

    def test_a_program_without_playback_is_idle(self):
        self.session.restart()
        self.assert_idle(self.session.program.pid, 1)

    def assert_idle(self, pid, seconds_before):
        # After the last sound, the device is paused.
        time.sleep(seconds_before)
        before = Threads(pid)
        # The processor time of two seconds of rest is measured.
        time.sleep(2)
        seconds, wake_ups, time_passed = Threads(pid).since(before)
        used, woken = sum(seconds.values()) / time_passed, sum(wake_ups.values()) / time_passed
        print(f"\nat rest: {used:.3%} of a core, {woken:.1f} wake-ups in a second")
        self.assertLess(used, timely(AT_REST))
        self.assertLessEqual(woken, timely(WAKE_UPS))


if __name__ == "__main__":
    with PlayingSession(sys.argv.pop(1), device="null") as session:
        Resting.session = session
        unittest.main(verbosity=2, warnings="ignore")
