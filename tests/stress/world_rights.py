# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: read-only folders and libraries, revoked permissions, and files that are removed, changed or locked while the
program runs."""

import contextlib
import os
import shutil
import sqlite3
import time

import world_use as use
from timed import timely
from world_cases import case, require
from world_faults import FAULTS

READ_ONLY = "Cannot update. The database '{}' or its folder is read-only."
NO_ACCESS = "The file '{}' or its folder does not allow this access."
NOT_OPENED = "The file '{}' cannot be opened: Permission denied."
NOT_REACHED = "The file '{}' cannot be reached: Permission denied."
NOT_FOUND = "Could not find file '{}'."
NO_FORMAT = "Unrecognized database format '{}'."
IN_USE = "Could not use '{}'; file already in use."
# The maximum response time to a key, in seconds, while another program has locked the library.
LONGEST_RESPONSE = 2.0


def started(session):
    """Starts the program on a new stage; returns the path of the library and its names."""
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    earlier = use.require_intact(path)
    session.start(stage)
    use.walk(session)
    return path, earlier


def refused_scale(session, path, name, *reasons):
    """Checks that a scale cannot be saved and that the program reports the reason."""
    if use.try_scale(session, name):
        raise AssertionError(f"{name} was saved where nothing can be")
    require(any(session.showed(text.format(path)) for text in reasons), f"no message names {path}: {session.messages}")


@case("folder read-only", short=True)
def folder_read_only(session):
    """A program in a folder that its user cannot write uses a folder of the user."""
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    before = use.digest_of_tree(stage)
    data = os.path.join(session.folder, "data")
    os.chmod(stage, 0o555)
    session.start(stage, {"XDG_DATA_HOME": data})
    session.stage = os.path.join(data, "tonalith")
    try:
        use.use_everything(session)
        session.close()
        use.require_intact(use.library(session), use.require_intact(path))
        require(use.digest_of_tree(stage) == before, "the program has written where it may not")
    finally:
        shutil.rmtree(data, ignore_errors=True)


@case("library read-only")
def library_read_only(session):
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    os.chmod(path, 0o444)
    session.start(stage)
    use.walk(session)
    use.listen(session)
    refused_scale(session, path, "Campfire minor", READ_ONLY)
    use.search(session, use.FOUND)
    use.install(session)
    require(session.showed("Error importing "), f"messages about the pack: {session.messages}")
    require(session.showed(READ_ONLY.format(path)), f"messages about the pack: {session.messages}")
    os.chmod(path, 0o644)
    use.add_scale(session, "Campfire minor")
    session.close()
    use.require_intact(path, ["Campfire minor"])


@case("permissions of the library revoked", short=True)
def library_revoked(session):
    path, earlier = started(session)
    os.chmod(path, 0)
    refused_scale(session, path, "Campfire minor", NOT_OPENED)
    os.chmod(path, 0o644)
    require_recovery(session, path, earlier)


@case("permissions of the folder revoked")
def folder_revoked(session):
    path, earlier = started(session)
    for mode, reasons in ((0o555, (READ_ONLY, NO_ACCESS)), (0, (NOT_OPENED, NOT_REACHED, NO_ACCESS))):
        os.chmod(session.stage, mode)
        session.messages.clear()
        refused_scale(session, path, "Campfire minor", *reasons)
        os.chmod(session.stage, 0o755)
    require_recovery(session, path, earlier)


def require_recovery(session, path, earlier):
    """After the fault is undone, Update shows the library again and a scale can be saved."""
    session.input.press("F5")
    session.until(lambda: use.shown_scale(session), "the scales again")
    use.add_scale(session, "Midnight major")
    session.close()
    use.require_intact(path, [*earlier, "Midnight major"])


@case("folder renamed while running")
def folder_renamed(session):
    path, earlier = started(session)
    moved = session.stage + ".moved"
    os.rename(session.stage, moved)
    try:
        refused_scale(session, path, "Campfire minor", NOT_FOUND)
        use.install(session)
        require(not use.open_help(session), "the help is open")
        require(session.showed("Cannot find help file:\n"), f"messages about the help: {session.messages}")
    finally:
        os.rename(moved, session.stage)
    require_recovery(session, path, earlier)


@case("folder removed while running", short=True)
def folder_removed(session):
    path, _ = started(session)
    shutil.rmtree(session.stage)
    refused_scale(session, path, "Campfire minor", NOT_FOUND)
    session.input.press("F5", "Page_Down", "ctrl+l", "ctrl+Home")
    use.install(session)
    session.close()
    require(not os.path.exists(session.stage), "the program has made its folder again")


@case("library replaced while running")
def library_replaced(session):
    """The open library is replaced: Update shows the new one, which gets new scales; the old one does not change."""
    path, earlier = started(session)
    other = path + ".other"
    shutil.copy2(path, other)
    with contextlib.closing(sqlite3.connect(other)) as connection, connection:
        connection.execute("UPDATE Scales SET ScaleName = 'Replaced' WHERE ScaleName = 'Major'")
    os.rename(path, path + ".first")
    os.rename(other, path)
    session.input.press("F5", "ctrl+Home")
    session.until(lambda: use.shown_scale(session) == "Replaced", "the library that is there now")
    use.add_scale(session, "Campfire minor")
    session.close()
    use.require_intact(path, ["Replaced", "Campfire minor"])
    require(use.require_intact(path + ".first") == earlier, "the library that was there before has changed")


@case("library damaged while running")
def library_damaged(session):
    path, earlier = started(session)
    os.rename(path, path + ".true")
    FAULTS["noise4096"](path)
    refused_scale(session, path, "Campfire minor", NO_FORMAT)
    os.replace(path + ".true", path)
    require_recovery(session, path, earlier)


@case("library locked by another program", short=True)
def library_locked(session):
    path, earlier = started(session)
    with contextlib.closing(sqlite3.connect(path, isolation_level=None)) as other:
        other.execute("BEGIN EXCLUSIVE")
        end = time.monotonic() + session.lock_seconds
        longest = max(menu_response(session), refused_update(session, path))
        refused_scale(session, path, "Campfire minor", IN_USE)
        while time.monotonic() < end:
            longest = max(longest, menu_response(session), refused_update(session, path))
        require(longest < timely(LONGEST_RESPONSE), f"the window took {longest:.1f} s for a response")
        print(f"         while the library is locked the window responds in {longest:.2f} s at most")
        other.execute("ROLLBACK")
    require_recovery(session, path, earlier)


def refused_update(session, path):
    """Seconds from the key for Update to the error message."""
    session.messages.clear()
    start = time.monotonic()
    session.input.press("F5")
    session.until(lambda: session.showed(IN_USE.format(path)), "a message about the library")
    return time.monotonic() - start


def menu_response(session):
    """Seconds from the key for the search to its window or to an error message."""
    session.until(lambda: True, "the end of earlier messages")
    before = len(session.messages)
    start = time.monotonic()
    session.input.press("ctrl+f")
    session.until(lambda: session.window_named("Search") or len(session.messages) > before, "a response")
    seconds = time.monotonic() - start
    use.leave(session, "Search")
    return seconds


@case("missing home folder")
def no_home(session):
    """The folders for settings, data, caches and temporary files are missing."""
    nowhere = os.path.join(session.folder, "nowhere")
    names = ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR")
    stage = session.new_stage()
    session.start(stage, dict.fromkeys(names, nowhere))
    use.use_everything(session)
    session.close()
    use.require_intact(os.path.join(stage, "TonalithDB97.mdb"))
