# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: the time of day changes by hours, and the process is suspended, during playback and editing.

Only the program sees the other time, through libfaketime, which reads it from a file. The monotonic clock is not
changed: no system sets it, and libfaketime would break timed waits of threads. Without a sound device the program times
the notes itself.
"""

import glob
import os
import signal
import subprocess
import time

import world_use as use
from timed import timely
from world_cases import Skipped, case, require

FAKETIME = "/usr/lib/*/faketime/libfaketimeMT.so.1"
# The offsets of the time of day, in seconds, in sequence.
JUMPS = (5 * 3600, -9 * 3600, 30 * 3600, -26 * 3600)
SILENT = {"ALSOFT_DRIVERS": "none"}
SUSPENSIONS = 3
SUSPENDED_SECONDS = 1.5
# Bounds for the playback of the second scale, in seconds.
SHORTEST_PLAYBACK = 3.5
LONGEST_PLAYBACK = 15.0


@case("clock set", short=True)
def clock_set(session):
    libraries = glob.glob(FAKETIME)
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
    use.require_intact(path, ["Campfire minor"])


@case("process suspended")
def process_suspended(session):
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    session.start(stage, SILENT)
    play(session, [lambda: suspend(session)] * SUSPENSIONS)
    editor = use.open_editor(session)
    use.type_scale(session, editor, "Campfire minor")
    suspend(session)
    session.until(lambda: use.rows(path, use.ROW, "Campfire minor"), "the scale in the library")
    use.leave(session, "Scales")
    session.close()
    use.require_intact(path, ["Campfire minor"])


def suspend(session):
    session.program.send_signal(signal.SIGSTOP)
    # The program is suspended for real time.
    time.sleep(SUSPENDED_SECONDS)
    session.program.send_signal(signal.SIGCONT)


def set_clock(clock, seconds):
    """Replaces the file atomically: the program may read it at any time."""
    with open(clock + ".new", "w", encoding="ascii") as file:
        file.write(f"{seconds:+d}\n")
    os.replace(clock + ".new", clock)


def require_faked(clock, environment):
    """Checks that libfaketime works: another program must see the offsets."""
    for seconds in (0, JUMPS[0], JUMPS[1], 0):
        set_clock(clock, seconds)
        date = subprocess.run(["date", "+%s"], env={**os.environ, **environment}, stdout=subprocess.PIPE, check=True)
        off = int(date.stdout) - time.time()
        require(abs(off - seconds) < 600, f"the clock is {off:.0f} s off, not {seconds}")


def play(session, jumps):
    """Plays the second scale and calls the jumps during the playback."""
    use.walk(session)
    use.listen(session)
    start = time.monotonic()
    for jump in jumps:
        jump()
        session.until(lambda: session.status(), "a response after the jump")
        # The jumps are spread over the playback, which runs in real time.
        time.sleep(0.3)
    session.until(lambda: session.status() == "Standby", "the end of the playback")
    took = time.monotonic() - start
    require(took > SHORTEST_PLAYBACK, f"the jumps have cut the playback down to {took:.1f} s")
    require(took < timely(LONGEST_PLAYBACK), f"the playback took {took:.1f} s")
    require(not session.messages, f"messages: {session.messages}")
