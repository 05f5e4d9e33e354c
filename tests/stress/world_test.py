# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Tests the real program with faults of its environment: invalid files, full disks, missing permissions, clock changes.

world_test.py STAGE [--short] [--only CASE]... [--list]: the stage is the folder with the built program and its content;
it is copied, never changed. --short runs a subset, --only one case. The exit status is 1 if a case fails; the end lists
the failures. If started by root, the cases run as an unprivileged user, because root bypasses permissions; root
first mounts a small disk for that user, if permitted.
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
# The user "nobody", who owns no files.
UNPRIVILEGED_USER = 65534
SMALL_DISK_MIB = 160


def as_unprivileged_user(arguments):
    """Runs this script again as an unprivileged user, on copies that this user can read; returns its exit code."""
    base = tempfile.mkdtemp(prefix="tonalith-world-")
    disk = os.path.join(base, "disk")
    is_mounted = False
    try:
        for folder in (base, disk):
            os.makedirs(folder, exist_ok=True)
            os.chown(folder, UNPRIVILEGED_USER, UNPRIVILEGED_USER)
        is_mounted = mount(disk)
        scripts = copy_scripts(os.path.join(base, "scripts"))
        shutil.copytree(arguments.stage, os.path.join(base, "true"))
        change_owner(os.path.join(base, "true"))
        test = os.path.join(scripts, "stress", "world_test.py")
        command = ["setpriv", "--pdeathsig", "TERM", f"--reuid={UNPRIVILEGED_USER}", f"--regid={UNPRIVILEGED_USER}",
                   "--clear-groups", "env", f"HOME={base}", f"TMPDIR={base}", sys.executable, "-B", test,
                   os.path.join(base, "true"), *options_of(arguments)]
        return subprocess.call([*command, "--small-disk", disk] if is_mounted else command, cwd=base)
    finally:
        if is_mounted:
            subprocess.run(["umount", "-l", disk], check=False)
        shutil.rmtree(base, ignore_errors=True)


def options_of(arguments):
    options = ["--short"] * arguments.short + ["--list"] * arguments.list
    return [*options, *(f"--only={name}" for name in arguments.only), f"--called={sys.argv[0]} {arguments.stage}"]


def mount(disk):
    options = f"size={SMALL_DISK_MIB}m,uid={UNPRIVILEGED_USER},gid={UNPRIVILEGED_USER},mode=700"
    command = ["mount", "-t", "tmpfs", "-o", options, "tonalith-world", disk]
    return subprocess.run(command, check=False, stderr=subprocess.DEVNULL).returncode == 0


def copy_scripts(place):
    """Copies the scripts: only the owner may be able to read the checkout."""
    for name in ("stress", "outside", "jet/fixtures"):
        shutil.copytree(os.path.join(HERE, os.pardir, name), os.path.join(place, name))
    return place


def change_owner(folder):
    for path, folders, files in os.walk(folder):
        for name in (".", *folders, *files):
            os.chown(os.path.join(path, name), UNPRIVILEGED_USER, UNPRIVILEGED_USER)


def run_cases(arguments):
    """Runs the chosen cases in one session; returns the failures as pairs of case and text."""
    from world_session import WorldSession

    findings, skipped = [], []
    chosen = choose(arguments)
    with tempfile.TemporaryDirectory(prefix="tonalith-world-", ignore_cleanup_errors=True) as folder:
        with WorldSession(os.path.abspath(arguments.stage), folder, arguments.small_disk) as session:
            if arguments.short:
                session.lock_seconds = 2
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
    except Exception as finding:  # The other cases still run.
        outcome = "FOUND"
        findings.append((name, f"{type(finding).__name__}: {finding}\n  messages: {session.messages}"))
    session.clean()
    print(f"{outcome:8}{time.monotonic() - start:6.1f} s {session.peak:6.0f} MiB  {name}", flush=True)


def choose(arguments):
    from world_cases import CASES, SHORT

    unknown = [name for name in arguments.only if name not in CASES]
    if unknown:
        raise SystemExit(f"no case is called {', '.join(unknown)}")
    return arguments.only or [name for name in CASES if name in SHORT or not arguments.short]


def exit_cleanly(*_):
    """Exits through the context managers, which remove the screen, the disk and the programs."""
    raise SystemExit("ended from outside")


def main():
    signal.signal(signal.SIGTERM, exit_cleanly)
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("stage")
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--only", action="append", default=[], metavar="CASE")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--small-disk", help="a small disk for the cases")
    parser.add_argument("--called", help="the original command, for the list of failures")
    arguments = parser.parse_args()
    if os.geteuid() == 0:
        return as_unprivileged_user(arguments)
    sys.path.insert(0, OUTSIDE)
    import world_clock, world_files, world_full, world_hostile, world_rights, world_two  # Each registers its cases.
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
