# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Steps of a user in the program, with real input.

The steps answer all message boxes of the program. They wait for their results; try_everything only requires that the
program keeps responding.
"""

import contextlib
import os
import sqlite3
import time

from windows_session import NAME_TIP
from world_faults import fingerprint

ROW = "SELECT ScaleName, ScaleIntervals FROM Scales WHERE ScaleName = ?"
NAMES = "SELECT ScaleName FROM ScalesQuery ORDER BY ScaleID"
HELP = "Tonalith Help"
FOUND = "Harmonic minor"
# Seconds until a key is pressed again, because a message box may have consumed it.
AGAIN = 1.0


def rows(path, statement, *values):
    with contextlib.closing(sqlite3.connect(f"file:{path}?mode=ro", uri=True, timeout=0.5)) as connection:
        return connection.execute(statement, values).fetchall()


def library(session):
    return os.path.join(session.stage, "TonalithDB97.mdb")


def require_intact(path, earlier=()):
    """Checks the integrity of the library and that it still has the `earlier` names; returns all names."""
    found = rows(path, "PRAGMA integrity_check")
    if found != [("ok",)]:
        raise AssertionError(f"the library is damaged: {found}")
    names = [name for (name,) in rows(path, NAMES)]
    lost = [name for name in earlier if name not in names]
    if lost:
        raise AssertionError(f"the library has lost {lost}")
    halves = rows(path, "SELECT ScaleName FROM Scales WHERE ScaleIntervals IS NULL OR trim(ScaleName) = ''")
    if halves:
        raise AssertionError(f"the library has incomplete records: {halves}")
    return names


def shown_scale(session):
    label = session.showing("label", lambda node: node.get_description() == NAME_TIP)
    return label.get_name() if label else None


def walk(session):
    session.input.press("ctrl+Home")
    session.until(lambda: shown_scale(session) == "Major", "the first scale")
    session.input.press("Page_Down")
    session.until(lambda: shown_scale(session) not in ("Major", "", None), "the second scale")


def listen(session):
    """Starts the playback and waits for the first note; the next steps run during the playback."""
    session.input.press("ctrl+l")
    session.until(lambda: session.status().startswith("Playing: "), "a note")


def again(session, chord, condition, what):
    """Presses the key until the condition is true: a message box may have consumed it."""
    pressed = 0.0

    def has_happened():
        nonlocal pressed
        found = condition()
        if not found and time.monotonic() - pressed > AGAIN:
            session.input.press(chord)
            pressed = time.monotonic()
        return found

    return session.until(has_happened, what)


def open_editor(session):
    return again(session, "ctrl+e", lambda: session.window_named("Scales"), "the editor")


def leave(session, title):
    again(session, "Escape", lambda: not session.window_named(title), f"the end of the window {title}")


def field(session, editor, name):
    return session.showing("text", lambda node: name in (node.get_name(), node.get_description()), editor)


def type_scale(session, editor, name):
    """Adds a record with this name, chooses Apply and confirms the changes."""
    again(session, "F2", lambda: has_keyboard(session, field(session, editor, "Scale Name")), "the box for the name")
    box = field(session, editor, "Scale Name")
    session.input.press("alt+a")
    session.wait(lambda: session.text_of(box) == "" or session.dismiss(), "the new record")
    session.input.write(name)
    session.wait_for_text(box, name)
    apply(session)


def has_keyboard(session, node):
    return node is not None and node.get_state_set().contains(session.atspi.StateType.FOCUSED)


def write_into(session, window, text):
    """Types into the focused text field of the window, replacing the selected text."""
    box = session.until(lambda: session.showing("text", lambda node: has_keyboard(session, node), window), "a box")
    session.input.write(text)
    session.until(lambda: session.text_of(box) == text, f"the text {text}")


def apply(session):
    before = len(session.messages)
    session.input.press("ctrl+Return")
    question = "keep these changes"
    session.until(lambda: any(question in text for text in session.messages[before:]), "the question of Apply")


def add_scale(session, name):
    """Adds a scale in the editor and waits until it is saved."""
    editor = open_editor(session)
    type_scale(session, editor, name)
    session.until(lambda: rows(library(session), ROW, name), f"the scale {name} in the library")
    leave(session, "Scales")


def try_scale(session, name):
    """Like add_scale, but returns False if the program refuses to save. Always closes the editor."""
    before = len(session.messages)
    try:
        editor = open_editor(session)
        session.until(lambda: True, "the end of messages")
        if field(session, editor, "Scale Name") is None or not shown_name(session, editor):
            return False
        type_scale(session, editor, name)
        path = library(session)
        reasons = lambda: [text for text in session.messages[before:] if path in text]
        session.until(lambda: is_saved(path, name) or reasons(), f"{name} in the library, or why not")
        return is_saved(path, name)
    finally:
        session.consents = False
        leave(session, "Scales")
        session.consents = True


def is_saved(path, name):
    """Returns False also if the library cannot be read."""
    try:
        return bool(rows(path, ROW, name))
    except sqlite3.Error:
        return False


def shown_name(session, editor):
    box = field(session, editor, "Scale Name")
    return session.text_of(box)


def digest_of_tree(folder):
    """Maps every path in the folder to its fingerprint."""
    return {os.path.join(path, name): fingerprint(os.path.join(path, name))
            for path, folders, files in os.walk(folder) for name in (*folders, *files) if name != "tonalith"}


def search(session, name):
    window = again(session, "ctrl+f", lambda: session.window_named("Search"), "the search window")
    write_into(session, window, name)
    session.input.press("Return")
    session.until(lambda: shown_scale(session) == name, f"the scale {name} found")
    leave(session, "Search")


def install(session):
    """Installs all packs; returns the messages."""
    before = len(session.messages)
    session.input.press("ctrl+i")
    packs = len(packs_there(session))
    reports = lambda: [text for text in session.messages[before:] if "mporting " in text or "mported " in text]
    session.until(lambda: len(reports()) >= packs and can_install(session), "the end of the import")
    return session.messages[before:]


def packs_there(session):
    folder = os.path.join(session.stage, "DataPacks")
    try:
        return [name for name in os.listdir(folder) if os.path.isfile(os.path.join(folder, name))]
    except OSError:
        return []


def can_install(session):
    button = session.showing("push button", lambda node: node.get_name() == "Install...")
    return button and button.get_state_set().contains(session.atspi.StateType.SENSITIVE)


def open_help(session):
    """Opens and closes the help; returns False if the program shows a message instead."""
    before = len(session.messages)
    session.input.press("alt+h", "Return")
    session.until(lambda: session.window_named(HELP) or len(session.messages) > before, "the help, or why not")
    if not session.window_named(HELP):
        return False
    leave(session, HELP)
    return True


def use_everything(session, name="Campfire minor"):
    """Uses all features of a program with an intact library and checks the results."""
    walk(session)
    listen(session)
    add_scale(session, name)
    search(session, FOUND)
    install(session)
    if not open_help(session):
        raise AssertionError(f"no help: {session.messages}")


def try_everything(session):
    """Uses all features of a program with a broken library; the program must keep responding."""
    session.until(lambda: session.messages, "a message about the library")
    session.input.press("Page_Down", "ctrl+l")
    open_editor(session)
    session.input.press("F2", "alt+a")
    leave(session, "Scales")
    no_scales = "There are no scales to search"
    again(session, "ctrl+f", lambda: session.window_named("Search") or session.showed(no_scales), "the search")
    leave(session, "Search")
    install(session)
    if not open_help(session):
        raise AssertionError(f"no help: {session.messages}")
