# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""What the whole program does with sound, in lines of the table that bench/run makes: sound.py STAGE recorded|unheard

Recorded: the gaps and the height of a scale that is played, and how soon a program ends that is closed while it plays.
Unheard: what playing costs beyond mixing, on a device that may stop mixing, and that the program comes to rest again.
"""

import math
import os
import statistics
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "outside"))

from playing import PlayingSession  # noqa: E402: the tests' folder has to be known first
from recorded import samples_of  # noqa: E402
from resting_test import SECONDS_OF_MAJOR, SECONDS_TO_REST, Threads  # noqa: E402

QUICK = "TONALITH_BENCH_QUICK" in os.environ
CLOSINGS = 1 if QUICK else 7


def tell(what, measured, bound, unit, ours=""):
    verdict = "met" if measured <= bound else "missed"
    words = [f"{number} {unit}".strip() for number in (f"{measured:.3g}", f"{bound:g}")]
    print("row", what, *words, verdict, ours, "", sep="\t", flush=True)


def listen(session):
    """Presses Listen and waits for the first note; the status line."""
    status = session.status()
    session.press(session.button("Listen"))
    session.wait(lambda: session.text(status).startswith("Playing: "), "the first note")
    return status


def recorded(session):
    session.wait_for_standby(listen(session))
    recording = session.recording()
    sounds = recording.sounds()
    gaps = [1000 * (after[0] - before[1]) / recording.rate for before, after in zip(sounds, sounds[1:])]
    longest = f"longest {max(gaps):.3g} ms of {len(gaps)}"
    tell("gap between two notes of a scale that is played, median", statistics.median(gaps), 30, "ms", longest)
    first, _ = samples_of(os.path.join(session.stage, "Audio", "0.wav"))
    begin, end = sounds[0]
    height = max(map(abs, recording.left[begin:end])) / max(map(abs, first))
    tell("difference between the height of a note and its file's", abs(20 * math.log10(height)), 0.1, "dB")
    times = []
    for number in range(CLOSINGS):
        session.restart()
        listen(session)
        time.sleep(0.07 * number)
        times.append(1000 * session.close())
    longest = f"longest {max(times):.3g} ms of {len(times)}"
    tell("closing while a scale plays, to the end of the process", statistics.median(times), 200, "ms", longest)


def unheard(session):
    pid = session.program.pid
    status, button = session.status(), session.button("Listen")
    before = Threads(pid)
    session.press(button)
    # Reading the status line over the bus would add load to the program.
    time.sleep(SECONDS_OF_MAJOR)
    seconds, wake_ups, passed = Threads(pid).since(before)
    mixer = max(set(seconds) - set(before.seconds), key=wake_ups.get)
    mixing = seconds.pop(mixer) / passed
    beyond = sum(seconds.values()) / passed
    tell("processor beyond mixing while a scale plays", 100 * beyond, 5, "%", f"mixing {100 * mixing:.2f} %")
    session.wait_for_standby(status)
    time.sleep(SECONDS_TO_REST)
    before = Threads(pid)
    time.sleep(2)
    seconds, wake_ups, passed = Threads(pid).since(before)
    tell("wake-ups in a second at rest after playing", sum(wake_ups.values()) / passed, 0, "")
    tell("processor at rest after playing", 100 * sum(seconds.values()) / passed, 0.1, "%")


if __name__ == "__main__":
    MEASURE, DEVICE = {"recorded": (recorded, "wave"), "unheard": (unheard, "null")}[sys.argv[2]]
    with PlayingSession(sys.argv[1], device=DEVICE) as current:
        MEASURE(current)
