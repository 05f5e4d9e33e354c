# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: a clock that is set for hours, forward and back, and a machine that stands still, while a scale plays and
while one is edited.

The program alone sees the other time of day, through libfaketime, which reads it from a file again and again. Its
steady clock is left alone: that one is never set, and libfaketime breaks the waiting of threads where it changes it.
Without a sound device the program keeps the time of the notes by itself.
"""

import glob
import os
import signal
import subprocess
import time

import world_use as use
from timed import timely
from world_cases import Skipped, case, require

LIBRARIES = "/usr/lib/*/faketime/libfaketimeMT.so.1"
# Seconds that the time of day is off, one jump after the other.
JUMPS = (5 * 3600, -9 * 3600, 30 * 3600, -26 * 3600)
SILENT = {"ALSOFT_DRIVERS": "none"}
STOPS = 3
STANDSTILL = 1.5
# Seconds that the notes of the second scale last at least, and that they may take.
SHORTEST_PLAYBACK = 3.5
LONGEST_PLAYBACK = 15.0


@case("clock set", short=True)
def clock_set(session):
    libraries = glob.glob(LIBRARIES)
    if not libraries:
        raise Skipped("libfaketime is not installed")
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    clock = os.path.join(session.folder, "clock")
    faked = {"LD_PRELOAD": libraries[0], "FAKETIME_TIMESTAMP_FILE": clock, "FAKETIME_NO_CACHE": "1",
             "FAKETIME_DONT_FAKE_MONOTONIC": "1"}
    require_faked(clock, faked)
    session.start(stage, {**faked, **SILENT})
    play(session, [lambda seconds=seconds: set_clock(clock, seconds) for seconds in JUMPS])
    editor = use.open_editor(session)
    set_clock(clock, JUMPS[0])
    use.type_scale(session, editor, "Campfire minor")
    set_clock(clock, JUMPS[1])
    session.until(lambda: use.rows(path, use.ROW, "Campfire minor"), "the scale in the library")
    use.leave(session, "Scales")
    use.search(session, use.FOUND)
    session.close()
    use.require_whole(path, ["Campfire minor"])


@case("machine stands still")
def machine_stands_still(session):
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    session.start(stage, SILENT)
    play(session, [lambda: stand_still(session)] * STOPS)
    editor = use.open_editor(session)
    use.type_scale(session, editor, "Campfire minor")
    stand_still(session)
    session.until(lambda: use.rows(path, use.ROW, "Campfire minor"), "the scale in the library")
    use.leave(session, "Scales")
    session.close()
    use.require_whole(path, ["Campfire minor"])


def stand_still(session):
    session.program.send_signal(signal.SIGSTOP)
    time.sleep(STANDSTILL)
    session.program.send_signal(signal.SIGCONT)


def set_clock(clock, seconds):
    """The whole file at once: the program may read it at any moment."""
    with open(clock + ".new", "w", encoding="ascii") as file:
        file.write(f"{seconds:+d}\n")
    os.replace(clock + ".new", clock)


def require_faked(clock, environment):
    """Another program sees the jumps: without that nothing here would show anything."""
    for seconds in (0, JUMPS[0], JUMPS[1], 0):
        set_clock(clock, seconds)
        date = subprocess.run(["date", "+%s"], env={**os.environ, **environment}, stdout=subprocess.PIPE, check=True)
        off = int(date.stdout) - time.time()
        require(abs(off - seconds) < 600, f"the clock is {off:.0f} s off, not {seconds}")


def play(session, jumps):
    """Plays the second scale, with these jumps while it sounds."""
    use.walk(session)
    use.listen(session)
    start = time.monotonic()
    for jump in jumps:
        jump()
        session.until(lambda: session.status(), "an answer after the jump")
        time.sleep(0.3)
    session.until(lambda: session.status() == "Standby", "the end of the playback")
    took = time.monotonic() - start
    require(took > SHORTEST_PLAYBACK, f"the jumps have cut the playback down to {took:.1f} s")
    require(took < timely(LONGEST_PLAYBACK), f"the playback took {took:.1f} s")
    require(not session.said, f"the program says {session.said}")
