# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""What a musician does with the program, one step after the other, whatever the program has to say meanwhile.

The steps work the session's program with input and answer its messages. Those of a program whose library is whole wait
for the result; try_everything wants nothing but a program that goes on answering.
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
# How often Escape is pressed again where a message may have swallowed it.
AGAIN = 1.0


def rows(path, statement, *values):
    with contextlib.closing(sqlite3.connect(f"file:{path}?mode=ro", uri=True, timeout=0.5)) as connection:
        return connection.execute(statement, values).fetchall()


def library(session):
    return os.path.join(session.stage, "TonalithDB97.mdb")


def require_whole(path, earlier=()):
    """The library at the path is in order and has lost nothing of what was there."""
    found = rows(path, "PRAGMA integrity_check")
    if found != [("ok",)]:
        raise AssertionError(f"the library is damaged: {found}")
    names = [name for (name,) in rows(path, NAMES)]
    lost = [name for name in earlier if name not in names]
    if lost:
        raise AssertionError(f"the library has lost {lost}")
    halves = rows(path, "SELECT ScaleName FROM Scales WHERE ScaleIntervals IS NULL OR trim(ScaleName) = ''")
    if halves:
        raise AssertionError(f"the library holds halves of records: {halves}")
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
    """Starts to play; the rest sounds while the next steps go on."""
    session.input.press("ctrl+l")
    session.until(lambda: session.status().startswith("Playing: "), "a note")


def again(session, chord, condition, what):
    """Presses until it has happened: a message may have had the keyboard."""
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
    """A new record with this name, up to Apply and the question whether to keep it."""
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
    """Types into the box of the window that has the keyboard, over what stands selected in it."""
    box = session.until(lambda: session.showing("text", lambda node: has_keyboard(session, node), window), "a box")
    session.input.write(text)
    session.until(lambda: session.text_of(box) == text, f"the text {text}")


def apply(session):
    asked = len(session.said)
    session.input.press("ctrl+Return")
    session.until(lambda: any("keep these changes" in said for said in session.said[asked:]), "the question of Apply")


def add_scale(session, name):
    """A new scale through the editor, saved."""
    editor = open_editor(session)
    type_scale(session, editor, name)
    session.until(lambda: rows(library(session), ROW, name), f"the scale {name} in the library")
    leave(session, "Scales")


def try_scale(session, name):
    """The same where it may be refused: whether it was saved. The editor is left in any case."""
    said = len(session.said)
    try:
        editor = open_editor(session)
        session.until(lambda: True, "the end of messages")
        if field(session, editor, "Scale Name") is None or not shown_name(session, editor):
            return False
        type_scale(session, editor, name)
        path = library(session)
        reasons = lambda: [text for text in session.said[said:] if path in text]
        session.until(lambda: is_saved(path, name) or reasons(), f"{name} in the library, or why not")
        return is_saved(path, name)
    finally:
        session.consents = False
        leave(session, "Scales")
        session.consents = True


def is_saved(path, name):
    """Of a library that may be out of reach."""
    try:
        return bool(rows(path, ROW, name))
    except sqlite3.Error:
        return False


def shown_name(session, editor):
    box = field(session, editor, "Scale Name")
    return session.text_of(box)


def digest_of_tree(folder):
    """Every path under the folder with what stands there."""
    return {os.path.join(path, name): fingerprint(os.path.join(path, name))
            for path, folders, files in os.walk(folder) for name in (*folders, *files) if name != "tonalith"}


def search(session, name):
    window = again(session, "ctrl+f", lambda: session.window_named("Search"), "the search window")
    write_into(session, window, name)
    session.input.press("Return")
    session.until(lambda: shown_scale(session) == name, f"the scale {name} found")
    leave(session, "Search")


def install(session):
    """Installs what there is; what the program has said about it."""
    before = len(session.said)
    session.input.press("ctrl+i")
    packs = len(packs_there(session))
    told = lambda: [said for said in session.said[before:] if "mporting " in said or "mported " in said]
    session.until(lambda: len(told()) >= packs and can_install(session), "the end of the import")
    return session.said[before:]


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
    """Opens the help and closes it again; False when the program has said why there is none."""
    before = len(session.said)
    session.input.press("alt+h", "Return")
    session.until(lambda: session.window_named(HELP) or len(session.said) > before, "the help, or why not")
    if not session.window_named(HELP):
        return False
    leave(session, HELP)
    return True


def use_everything(session, name="Campfire minor"):
    """All of it, with its results, on a library that is whole."""
    walk(session)
    listen(session)
    add_scale(session, name)
    search(session, FOUND)
    install(session)
    if not open_help(session):
        raise AssertionError(f"no help: {session.said}")


def try_everything(session):
    """All of it on a library that is not whole: the program goes on, whatever it says."""
    session.until(lambda: session.said, "a word about the library")
    session.input.press("Page_Down", "ctrl+l")
    open_editor(session)
    session.input.press("F2", "alt+a")
    leave(session, "Scales")
    no_scales = "There are no scales to search"
    again(session, "ctrl+f", lambda: session.window_named("Search") or session.told(no_scales), "the search")
    leave(session, "Search")
    install(session)
    if not open_help(session):
        raise AssertionError(f"no help: {session.said}")
