# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: every file and folder that the program reads, replaced by what it is not.

The program starts or says which file is wrong; it goes on, ends when it is asked to, stays small, and leaves what it
found as it was. A sound or a help file that is wrong is told in the words of the product, which name no sound file.
"""

import os
import shutil
import struct

import world_use as use
from world_cases import case, require
from world_faults import FAULTS, FOLDER_FAULTS, SPARSE, fingerprint, heal, write

DATABASE = "TonalithDB97.mdb"
COMPANIONS = ("-journal", "-wal", "-shm")
COMPANION_FAULTS = ("noise4096", "noise1048576", "empty", "folder", "sparse", "loop", "pipe", "locked")
SHORT = ("noise4096", "absent", "folder", "pipe", "sparse", "locked")
# What tells no more than other noise, except in the place of a library.
SMALL_NOISES = ("noise1", "noise100")
# Faults that leave everything there that is needed.
HARMLESS = ("swollen",)
JET = "DataPack_Jet2000.mdb"
PACK = os.path.join("DataPacks", "DataPack_Jazz.mdb")
JET_PACK = os.path.join("DataPacks", JET)
FIRST_SOUND = os.path.join("Audio", "0.wav")
# The open first string, E in the third octave of the folder.
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
            use.require_whole(path)
            return
        use.try_everything(session)
        require(session.told(f"'{path}'"), f"nothing that was said names {path}: {session.said}")
        require(session.told(f"Error importing {os.path.join(stage, PACK)}"), f"no word about the pack: {session.said}")
        session.close()
        require_untouched(path, before)
        beside = [name for name in os.listdir(stage) if name.startswith(DATABASE)]
        require(beside in ([], [DATABASE]), f"the program has made {beside}")
        heal(path)

    return run


def companion_case(ending, fault):
    """What the engine keeps beside a database belongs to the engine; the library itself must not suffer."""
    def run(session):
        stage = session.new_stage()
        path = os.path.join(stage, DATABASE)
        earlier = use.require_whole(path)
        companion, _ = damage(stage, DATABASE + ending, fault)
        session.start(stage)
        session.until(lambda: True, "an answer")
        if session.said or use.shown_scale(session) != "Major":
            use.try_everything(session)
            require(session.told(path), f"nothing that was said names {path}: {session.said}")
        else:
            use.walk(session)
            is_saved = use.try_scale(session, "Campfire minor")
            require(is_saved or session.told(path), f"nothing that was said names {path}: {session.said}")
            use.install(session)
        session.close()
        if os.path.lexists(companion):
            heal(companion)
            FAULTS["absent"](companion)
        use.require_whole(path, earlier)

    return run


def content_case(fault):
    """A sound, a note, a pack and the help at the same time; the library is whole."""
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
        said = use.install(session)
        is_listed = fault not in ("absent", "folder", "loop", "pipe")
        for pack in (PACK, JET_PACK):
            # Behind the end of a Jet file nothing may follow.
            outcome = "Imported data pack: \n" if fault in HARMLESS and pack == PACK else "Error importing "
            require(not is_listed or any(text.startswith(outcome + os.path.join(stage, pack)) for text in said),
                    f"the program says of {pack}: {said}")
        opened = use.open_help(session)
        require(not opened and session.said[-1].startswith(HELP_WORDS), f"the program says of the help: {session.said}")
        session.close()
        for path, before in damaged:
            require_untouched(path, before)
            heal(path)
        use.require_whole(os.path.join(stage, DATABASE))

    return run


def listens(session, fault):
    before = len(session.said)
    session.input.press("ctrl+l")
    if fault in HARMLESS:
        session.until(lambda: session.status() == "Playing: C", "the first note")
    else:
        session.until(lambda: len(session.said) > before, "a word about the first sound")
        require(session.said[before].startswith(SOUND_WORDS), f"the program says of the sound: {session.said}")
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
        session.until(lambda: session.told("Cannot open file"), "a word about the sounds")
        session.until(lambda: session.status() in ("Stopped", "Standby"), "the end of the playback")
        use.add_scale(session, "Campfire minor")
        use.install(session)
        if fault in ("loop", "locked"):
            # With no pack to wait for, the installation may not even have begun.
            packs = "The folder '" + os.path.join(stage, "DataPacks")
            session.until(lambda: session.told(packs), "a word about the packs")
        require(use.open_help(session), f"no help: {session.said}")
        session.close()
        for path, before in damaged:
            require_untouched(path, before)
            heal(path)

    return run


def surroundings_case(fault):
    """The settings of the sound library and the music font beside the program; neither is needed."""
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
            heal(path)

    return run


@case("library half a Jet file")
def half_a_jet_library(session):
    """A file that would be converted if it were whole stays as it is."""
    stage = session.new_stage()
    path = os.path.join(stage, DATABASE)
    shutil.copy(os.path.join(session.packs, JET), path)
    before = damage(stage, DATABASE, "half")[1]
    session.start(stage)
    use.try_everything(session)
    require(session.told(f"The Jet database '{path}' cannot be converted, and nothing was changed."), session.said)
    session.close()
    require_untouched(path, before)


@case("promising sound")
def promising_sound(session):
    """A sound of nearly four gigabytes, most of them a hole."""
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
    session.until(lambda: session.said, "a word about the sound")
    require(session.said[0] == "Could not read full buffer", f"the program says of the sound: {session.said}")
    session.close()


@case("nothing wrong", short=True)
def nothing_wrong(session):
    stage = session.new_stage()
    earlier = use.require_whole(os.path.join(stage, DATABASE))
    session.start(stage)
    use.use_everything(session)
    session.close()
    require(len(use.require_whole(os.path.join(stage, DATABASE), earlier)) > len(earlier) + 1, "the pack is not there")


for name in FAULTS:
    case(f"library {name}", short=name in SHORT)(library_case(name))
    if name not in SMALL_NOISES:
        case(f"content {name}", short=name in SHORT)(content_case(name))
        case(f"surroundings {name}", short=name == "pipe")(surroundings_case(name))
for name in FOLDER_FAULTS:
    case(f"folders {name}", short=name == "locked")(folder_case(name))
for ending in COMPANIONS:
    for name in COMPANION_FAULTS if ending != "-shm" else ("noise4096", "folder", "pipe", "locked"):
        case(f"library{ending} {name}", short=name == "pipe")(companion_case(ending, name))
