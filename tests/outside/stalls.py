# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Notices when the machine stands still: a process of its own that wakes up often and sees how late it is.

Stalls is a context manager; once it is left, `longest` is the longest delay, in seconds, while it was open.
"""

import select
import subprocess
import sys
import time

LOOK = 0.005


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
    """Looks until the standard input ends."""
    longest = 0.0
    print("looking", flush=True)
    before = time.monotonic()
    while not select.select([sys.stdin], [], [], LOOK)[0]:
        now = time.monotonic()
        longest = max(longest, now - before - LOOK)
        before = now
    print(longest)


if __name__ == "__main__":
    watch()
