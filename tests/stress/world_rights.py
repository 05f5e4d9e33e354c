# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: folders and libraries that may only be read, rights that are taken away, and files that go, change or are held
by another program while the program runs."""

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
# How long, in seconds, the window may take from a key to what it does while another program holds the library.
LONGEST_ANSWER = 2.0


def started(session):
    """A fresh stage with the program on it; the path of the library and what is in it."""
    stage = session.new_stage()
    path = os.path.join(stage, "TonalithDB97.mdb")
    earlier = use.require_whole(path)
    session.start(stage)
    use.walk(session)
    return path, earlier


def refused_scale(session, path, name, *words):
    """A scale that cannot be saved: the program says why, and it is not there."""
    if use.try_scale(session, name):
        raise AssertionError(f"{name} was saved where nothing can be")
    require(any(session.told(text.format(path)) for text in words), f"nothing was said of {path}: {session.said}")


@case("folder read-only", short=True)
def folder_read_only(session):
    """A program that lies where its user may not write works in a folder of the user's."""
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
        use.require_whole(use.library(session), use.require_whole(path))
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
    require(session.told("Error importing ") and session.told(READ_ONLY.format(path)), f"of the pack: {session.said}")
    os.chmod(path, 0o644)
    use.add_scale(session, "Campfire minor")
    session.close()
    use.require_whole(path, ["Campfire minor"])


@case("rights of the library revoked", short=True)
def library_revoked(session):
    path, earlier = started(session)
    os.chmod(path, 0)
    refused_scale(session, path, "Campfire minor", NOT_OPENED)
    os.chmod(path, 0o644)
    recover(session, path, earlier)


@case("rights of the folder revoked")
def folder_revoked(session):
    path, earlier = started(session)
    for mode, words in ((0o555, (READ_ONLY, NO_ACCESS)), (0, (NOT_OPENED, NOT_REACHED, NO_ACCESS))):
        os.chmod(session.stage, mode)
        session.said.clear()
        refused_scale(session, path, "Campfire minor", *words)
        os.chmod(session.stage, 0o755)
    recover(session, path, earlier)


def recover(session, path, earlier):
    """Once all is as it was, Update shows the library again and a scale is saved."""
    session.input.press("F5")
    session.until(lambda: use.shown_scale(session), "the scales again")
    use.add_scale(session, "Midnight major")
    session.close()
    use.require_whole(path, [*earlier, "Midnight major"])


@case("folder renamed while running")
def folder_renamed(session):
    path, earlier = started(session)
    moved = session.stage + ".moved"
    os.rename(session.stage, moved)
    try:
        refused_scale(session, path, "Campfire minor", NOT_FOUND)
        use.install(session)
        require(not use.open_help(session) and session.told("Cannot find help file:\n"), f"of the help: {session.said}")
    finally:
        os.rename(moved, session.stage)
    recover(session, path, earlier)


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
    """Another library in the place of the one that is open: Update shows it, scales go into it, neither is harmed."""
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
    use.require_whole(path, ["Replaced", "Campfire minor"])
    require(use.require_whole(path + ".first") == earlier, "the library that was there before has changed")


@case("library damaged while running")
def library_damaged(session):
    path, earlier = started(session)
    os.rename(path, path + ".true")
    FAULTS["noise4096"](path)
    refused_scale(session, path, "Campfire minor", NO_FORMAT)
    os.replace(path + ".true", path)
    recover(session, path, earlier)


@case("library held by another program", short=True)
def library_held(session):
    path, earlier = started(session)
    with contextlib.closing(sqlite3.connect(path, isolation_level=None)) as other:
        other.execute("BEGIN EXCLUSIVE")
        end = time.monotonic() + session.hold
        longest = max(answer_of_menus(session), refused_update(session, path))
        refused_scale(session, path, "Campfire minor", IN_USE)
        while time.monotonic() < end:
            longest = max(longest, answer_of_menus(session), refused_update(session, path))
        require(longest < timely(LONGEST_ANSWER), f"the window took {longest:.1f} s for an answer")
        print(f"         while the library is held the window answers in {longest:.2f} s at most")
        other.execute("ROLLBACK")
    recover(session, path, earlier)


def refused_update(session, path):
    """Seconds from the key for Update to the word why there is none."""
    session.said.clear()
    start = time.monotonic()
    session.input.press("F5")
    session.until(lambda: session.told(IN_USE.format(path)), "a word about the library")
    return time.monotonic() - start


def answer_of_menus(session):
    """Seconds from the key for the search to its window, or to the word why there is none."""
    session.until(lambda: True, "the end of earlier messages")
    before = len(session.said)
    start = time.monotonic()
    session.input.press("ctrl+f")
    session.until(lambda: session.window_named("Search") or len(session.said) > before, "an answer")
    seconds = time.monotonic() - start
    use.leave(session, "Search")
    return seconds


@case("home that is not there")
def no_home(session):
    """No home, no folder for settings, data or caches."""
    nowhere = os.path.join(session.folder, "nowhere")
    names = ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR")
    stage = session.new_stage()
    session.start(stage, dict.fromkeys(names, nowhere))
    use.use_everything(session)
    session.close()
    use.require_whole(os.path.join(stage, "TonalithDB97.mdb"))
