# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Detects stalls of the system: a separate process wakes up often and measures its delay.

Stalls is a context manager; after its exit, `longest` is the longest delay in seconds.
"""

import select
import subprocess
import sys
import time

INTERVAL = 0.005


class Stalls:
    def __init__(self):
        self.longest = 0.0
        self._watch = None

    def __enter__(self):
        self._watch = subprocess.Popen(
            [sys.executable, "-BSE", __file__], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True
        )
        self._watch.stdout.readline()
        return self

    def __exit__(self, *_):
        self.longest = float(self._watch.communicate()[0])


def watch():
    """Measures until the standard input is closed."""
    longest = 0.0
    print("looking", flush=True)
    before = time.monotonic()
    while not select.select([sys.stdin], [], [], INTERVAL)[0]:
        now = time.monotonic()
        longest = max(longest, now - before - INTERVAL)
        before = now
    print(longest)


if __name__ == "__main__":
    watch()
