# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""What playing costs the processor, and that a program that has played comes to rest.

The sound goes to OpenAL Soft's null device: unlike the writer of wave files it may stop mixing between sounds, as the
devices of a sound card do.
"""

import os
import sys
import time
import unittest

from playing import PlayingSession
from timed import timely

# The shares of one core that are allowed: beyond mixing, while a scale plays; and of a program at rest.
BEYOND_MIXING = 0.05
AT_REST = 0.005
# Wake-ups in a second that are allowed at rest, of all threads together.
WAKE_UPS = 2
SECONDS_OF_MAJOR = 8 * 0.6
# The device goes on for two seconds after the last sound.
SECONDS_TO_REST = 2.5


class Threads:
    """Processor seconds and wake-ups of a process's threads at this moment."""

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
        """What was used from then to now by each thread: seconds, wake-ups; and the time between."""
        seconds = {thread: value - before.seconds.get(thread, 0) for thread, value in self.seconds.items()}
        wake_ups = {thread: value - before.wake_ups.get(thread, 0) for thread, value in self.wake_ups.items()}
        return seconds, wake_ups, self.at - before.at


class Resting(unittest.TestCase):
    session = None

    def test_a_playback_costs_little_beyond_mixing_and_is_followed_by_rest(self):
        pid = self.session.program.pid
        status, listen = self.session.status(), self.session.button("Listen")
        before = Threads(pid)
        self.session.press(listen)
        # Reading the status line over the bus would be work for the program.
        time.sleep(SECONDS_OF_MAJOR)
        seconds, wake_ups, time_passed = Threads(pid).since(before)
        # All threads of the sound begin with the first note. The one that wakes up for every period is the mixer's.
        mixer = max(set(seconds) - set(before.seconds), key=wake_ups.get)
        mixing = seconds.pop(mixer) / time_passed
        beyond = sum(seconds.values()) / time_passed
        print(f"\nwhile a scale plays: mixing {mixing:.2%} of a core, everything else {beyond:.2%}")
        self.assertGreater(wake_ups[mixer], 100 * SECONDS_OF_MAJOR, "a thread mixes")
        self.assertLess(beyond, timely(BEYOND_MIXING))
        self.session.wait_for_standby(status)
        self.assert_rest(pid, SECONDS_TO_REST)

    def test_a_program_that_has_not_played_rests(self):
        self.session.restart()
        self.assert_rest(self.session.program.pid, 1)

    def assert_rest(self, pid, seconds_before):
        time.sleep(seconds_before)
        before = Threads(pid)
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
