# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The real program in a hostile world: files that are not what they were, full disks, lost rights, other clocks.

world_test.py STAGE [--short] [--only CASE]... [--list]: the stage is the folder with the built program and its content;
it is copied, never changed. --short is the slice for every day; --only does one case again. Ends with 1 and a list of
what was found. Root has all rights, so the cases run as another user when root starts them; root makes a small disk for
that user first, where it may.
"""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
OUTSIDE = os.path.join(HERE, os.pardir, "outside")
# Nobody: owns nothing on any system.
PLAIN_USER = 65534
ROOM_MIB = 160


def as_plain_user(arguments):
    """Runs this again without root's rights, on copies that the plain user can read; its exit code."""
    base = tempfile.mkdtemp(prefix="tonalith-world-")
    room = os.path.join(base, "room")
    is_mounted = False
    try:
        for folder in (base, room):
            os.makedirs(folder, exist_ok=True)
            os.chown(folder, PLAIN_USER, PLAIN_USER)
        is_mounted = mount(room)
        scripts = copy_scripts(os.path.join(base, "scripts"))
        shutil.copytree(arguments.stage, os.path.join(base, "true"))
        give(os.path.join(base, "true"))
        test = os.path.join(scripts, "stress", "world_test.py")
        command = ["setpriv", "--pdeathsig", "TERM", f"--reuid={PLAIN_USER}", f"--regid={PLAIN_USER}", "--clear-groups",
                   "env", f"HOME={base}", f"TMPDIR={base}", sys.executable, "-B", test, os.path.join(base, "true"),
                   *as_given(arguments)]
        return subprocess.call([*command, "--room", room] if is_mounted else command, cwd=base)
    finally:
        if is_mounted:
            subprocess.run(["umount", "-l", room], check=False)
        shutil.rmtree(base, ignore_errors=True)


def as_given(arguments):
    options = ["--short"] * arguments.short + ["--list"] * arguments.list
    return [*options, *(f"--only={name}" for name in arguments.only), f"--called={sys.argv[0]} {arguments.stage}"]


def mount(room):
    options = f"size={ROOM_MIB}m,uid={PLAIN_USER},gid={PLAIN_USER},mode=700"
    command = ["mount", "-t", "tmpfs", "-o", options, "tonalith-world", room]
    return subprocess.run(command, check=False, stderr=subprocess.DEVNULL).returncode == 0


def copy_scripts(place):
    """The checkout may lie where only its owner can read."""
    for name in ("stress", "outside", "jet/fixtures"):
        shutil.copytree(os.path.join(HERE, os.pardir, name), os.path.join(place, name))
    return place


def give(folder):
    for path, folders, files in os.walk(folder):
        for name in (".", *folders, *files):
            os.chown(os.path.join(path, name), PLAIN_USER, PLAIN_USER)


def run_cases(arguments):
    """Runs the chosen cases in one session; the findings, as pairs of a case and what was found."""
    from world_session import WorldSession

    findings, skipped = [], []
    chosen = choose(arguments)
    with tempfile.TemporaryDirectory(prefix="tonalith-world-", ignore_cleanup_errors=True) as folder:
        with WorldSession(os.path.abspath(arguments.stage), folder, arguments.room) as session:
            if arguments.short:
                session.hold = 2
            for name in chosen:
                run_case(session, name, findings, skipped)
    for name, why in skipped:
        print(f"skipped: {name}: {why}")
    return findings


def run_case(session, name, findings, skipped):
    from world_cases import CASES, Skipped

    start = time.monotonic()
    outcome = "good"
    try:
        CASES[name](session)
    except Skipped as why:
        outcome = "skipped"
        skipped.append((name, why))
    except Exception as finding:  # Whatever it is, the other cases run on; it is told at the end.
        outcome = "FOUND"
        findings.append((name, f"{type(finding).__name__}: {finding}\n  said: {session.said}"))
    session.clean()
    print(f"{outcome:8}{time.monotonic() - start:6.1f} s {session.peak:6.0f} MiB  {name}", flush=True)


def choose(arguments):
    from world_cases import CASES, SHORT

    unknown = [name for name in arguments.only if name not in CASES]
    if unknown:
        raise SystemExit(f"no case is called {', '.join(unknown)}")
    return arguments.only or [name for name in CASES if name in SHORT or not arguments.short]


def end_in_order(*_):
    """A request to end leaves no screen, no disk and no program behind."""
    raise SystemExit("ended from outside")


def main():
    signal.signal(signal.SIGTERM, end_in_order)
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("stage")
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--only", action="append", default=[], metavar="CASE")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--room", help="a small disk of its own")
    parser.add_argument("--called", help="how the test was called, to be told where something was found")
    arguments = parser.parse_args()
    if os.geteuid() == 0:
        return as_plain_user(arguments)
    sys.path.insert(0, OUTSIDE)
    import world_clock, world_files, world_full, world_hostile, world_rights, world_two  # Each enters its cases.
    from world_cases import CASES

    if arguments.list:
        print("\n".join(CASES))
        return 0
    called = arguments.called or f"{sys.argv[0]} {arguments.stage}"
    start = time.monotonic()
    findings = run_cases(arguments)
    print(f"{time.monotonic() - start:.0f} s, {len(findings)} findings")
    for name, finding in findings:
        print(f"\nfound in: {name}\n  {finding}\n  repeat: {called} --only '{name}'")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
