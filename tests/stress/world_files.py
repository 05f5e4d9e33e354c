# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: every file and folder that the program reads, replaced or damaged.

The program starts or reports the invalid file; it keeps running, closes on request, stays within its memory limit and
does not change the file. The fixed messages about sounds and the help do not name the sound file.
"""

import os
import shutil
import struct

import world_use as use
from world_cases import case, require
from world_faults import FAULTS, FOLDER_FAULTS, SPARSE, fingerprint, restore_permissions, write

DATABASE = "TonalithDB97.mdb"
COMPANIONS = ("-journal", "-wal", "-shm")
COMPANION_FAULTS = ("noise4096", "noise1048576", "empty", "folder", "sparse", "loop", "pipe", "locked")
SHORT = ("noise4096", "absent", "folder", "pipe", "sparse", "locked")
# Only tested for the library: other files are read like with more noise.
REDUNDANT_FAULTS = ("noise1", "noise100")
# Faults that do not affect the needed content.
HARMLESS = ("extended",)
JET = "DataPack_Jet2000.mdb"
PACK = os.path.join("DataPacks", "DataPack_Jazz.mdb")
JET_PACK = os.path.join("DataPacks", JET)
FIRST_SOUND = os.path.join("Audio", "0.wav")
# The open first string is E4, number 28 in the folder.
NOTE, NOTE_SOUND = "E, string 1, open", os.path.join("Octaves", "28.wav")
HELP = "TLHELP.chm"
FOLDERS = ("Audio", "Octaves", "DataPacks")
SOUND_WORDS = ("Cannot open file", "Cannot descend", "Incorrect format", "Could not find fmt chunk",
               "Could not descend into data", "Not enough data", "Could not read full buffer")
HELP_WORDS = ("Cannot find help file:\n", "The Help engine (hhctrl.ocx) failed to start.")


def require_untouched(path, before):
    after = fingerprint(path)
    require(after == before, f"{path} was {before} and is {after}")


def damage(stage, name, fault):
    path = os.path.join(stage, name)
    FAULTS[fault](path)
    return path, fingerprint(path)


def library_case(fault):
    def run(session):
        stage = session.new_stage()
        path, before = damage(stage, DATABASE, fault)
        session.start(stage)
        if fault in HARMLESS:
            use.use_everything(session)
            session.close()
            use.require_intact(path)
            return
        use.try_everything(session)
        require(session.showed(f"'{path}'"), f"no message names {path}: {session.messages}")
        require(session.showed(f"Error importing {os.path.join(stage, PACK)}"), f"the pack: {session.messages}")
        session.close()
        require_untouched(path, before)
        beside = [name for name in os.listdir(stage) if name.startswith(DATABASE)]
        require(beside in ([], [DATABASE]), f"the program has created {beside}")
        restore_permissions(path)

    return run


def companion_case(ending, fault):
    """Damages a file that SQLite creates next to a database; the library itself must stay intact."""
    def run(session):
        stage = session.new_stage()
        path = os.path.join(stage, DATABASE)
        earlier = use.require_intact(path)
        companion, _ = damage(stage, DATABASE + ending, fault)
        session.start(stage)
        session.until(lambda: True, "a response")
        if session.messages or use.shown_scale(session) != "Major":
            use.try_everything(session)
            require(session.showed(path), f"no message names {path}: {session.messages}")
        else:
            use.walk(session)
            is_saved = use.try_scale(session, "Campfire minor")
            require(is_saved or session.showed(path), f"no message names {path}: {session.messages}")
            use.install(session)
        session.close()
        if os.path.lexists(companion):
            restore_permissions(companion)
            FAULTS["absent"](companion)
        use.require_intact(path, earlier)

    return run


def content_case(fault):
    """Damages a sound, a note, a pack and the help at the same time; the library is intact."""
    def run(session):
        stage = session.new_stage()
        shutil.copy(os.path.join(session.packs, JET), os.path.join(stage, JET_PACK))
        damaged = [damage(stage, name, fault) for name in (FIRST_SOUND, NOTE_SOUND, PACK, JET_PACK, HELP)]
        session.start(stage)
        use.walk(session)
        listens(session, fault)
        note = session.showing("push button", lambda node: node.get_name() == NOTE)
        if note:
            session.press(note)
        use.add_scale(session, "Campfire minor")
        use.search(session, use.FOUND)
        messages = use.install(session)
        is_listed = fault not in ("absent", "folder", "loop", "pipe")
        for pack in (PACK, JET_PACK):
            # A Jet file must not have additional bytes at its end.
            outcome = "Imported data pack: \n" if fault in HARMLESS and pack == PACK else "Error importing "
            require(not is_listed or any(text.startswith(outcome + os.path.join(stage, pack)) for text in messages),
                    f"messages about {pack}: {messages}")
        opened = use.open_help(session)
        require(not opened and session.messages[-1].startswith(HELP_WORDS), f"help: {session.messages}")
        session.close()
        for path, before in damaged:
            require_untouched(path, before)
            restore_permissions(path)
        use.require_intact(os.path.join(stage, DATABASE))

    return run


def listens(session, fault):
    before = len(session.messages)
    session.input.press("ctrl+l")
    if fault in HARMLESS:
        session.until(lambda: session.status() == "Playing: C", "the first note")
    else:
        session.until(lambda: len(session.messages) > before, "a message about the first sound")
        require(session.messages[before].startswith(SOUND_WORDS), f"messages about the sound: {session.messages}")
        session.until(lambda: session.status().startswith("Playing: "), "the next note")


def folder_case(fault):
    def run(session):
        stage = session.new_stage()
        damaged = []
        for name in FOLDERS:
            path = os.path.join(stage, name)
            FOLDER_FAULTS[fault](path)
            damaged.append((path, fingerprint(path)))
        session.start(stage)
        use.walk(session)
        session.input.press("ctrl+l")
        session.until(lambda: session.showed("Cannot open file"), "a message about the sounds")
        session.until(lambda: session.status() in ("Stopped", "Standby"), "the end of the playback")
        use.add_scale(session, "Campfire minor")
        use.install(session)
        if fault in ("loop", "locked"):
            # Without packs, install() may return before the import begins.
            packs = "The folder '" + os.path.join(stage, "DataPacks")
            session.until(lambda: session.showed(packs), "a message about the packs")
        require(use.open_help(session), f"no help: {session.messages}")
        session.close()
        for path, before in damaged:
            require_untouched(path, before)
            restore_permissions(path)

    return run


def optional_files_case(fault):
    """Damages the settings of the sound library and the music font; the program needs neither."""
    def run(session):
        stage = session.new_stage()
        os.mkdir(os.path.join(stage, "fonts"))
        damaged = [damage(stage, name, fault) for name in ("alsoft.conf", os.path.join("fonts", "Euterpe.ttf"))]
        session.start(stage, {"ALSOFT_CONF": os.path.join(stage, "alsoft.conf")})
        use.walk(session)
        use.listen(session)
        session.close()
        for path, before in damaged:
            require_untouched(path, before)
            restore_permissions(path)

    return run


@case("library half a Jet file")
def half_a_jet_library(session):
    """A truncated Jet library is neither converted nor changed."""
    stage = session.new_stage()
    path = os.path.join(stage, DATABASE)
    shutil.copy(os.path.join(session.packs, JET), path)
    before = damage(stage, DATABASE, "half")[1]
    session.start(stage)
    use.try_everything(session)
    expected = f"The Jet database '{path}' cannot be converted, and nothing was changed."
    require(session.showed(expected), f"messages: {session.messages}")
    session.close()
    require_untouched(path, before)


@case("sound with a false length")
def oversized_sound(session):
    """A sparse sound file of nearly four gigabytes."""
    stage = session.new_stage()
    length = 0xFFFFFF00
    head = b"RIFF" + struct.pack("<I", length) + b"WAVEfmt " + struct.pack("<IHHIIHH", 16, 1, 1, 44100, 88200, 2, 16)
    for name in (FIRST_SOUND, NOTE_SOUND):
        path = os.path.join(stage, name)
        write(path, head + b"data" + struct.pack("<I", length - 36))
        os.truncate(path, SPARSE)
    session.start(stage)
    session.press(session.showing("push button", lambda node: node.get_name() == NOTE))
    use.walk(session)
    session.input.press("ctrl+l")
    session.until(lambda: session.messages, "a message about the sound")
    require(session.messages[0] == "Could not read full buffer", f"messages about the sound: {session.messages}")
    session.close()


@case("no fault", short=True)
def no_fault(session):
    stage = session.new_stage()
    earlier = use.require_intact(os.path.join(stage, DATABASE))
    session.start(stage)
    use.use_everything(session)
    session.close()
    require(len(use.require_intact(os.path.join(stage, DATABASE), earlier)) > len(earlier) + 1, "the pack is not there")


for name in FAULTS:
    case(f"library {name}", short=name in SHORT)(library_case(name))
    if name not in REDUNDANT_FAULTS:
        case(f"content {name}", short=name in SHORT)(content_case(name))
        case(f"optional files {name}", short=name == "pipe")(optional_files_case(name))
for name in FOLDER_FAULTS:
    case(f"folders {name}", short=name == "locked")(folder_case(name))
for ending in COMPANIONS:
    for name in COMPANION_FAULTS if ending != "-shm" else ("noise4096", "folder", "pipe", "locked"):
        case(f"library{ending} {name}", short=name == "pipe")(companion_case(ending, name))
