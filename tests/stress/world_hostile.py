# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: libraries, packs, sounds and environments that are crafted to do harm.

The program reports the cause, changes no row, and its window responds within a second.
"""

import contextlib
import fcntl
import os
import shutil
import sqlite3
import struct
import time

import world_use as use
from timed import timely
from world_cases import case, require
from world_faults import write

DATABASE = "TonalithDB97.mdb"
PACK = os.path.join("DataPacks", "DataPack_Jazz.mdb")
LONGEST_RESPONSE = 1.0
# Seconds that the program waits for a locked Jet library.
JET_TIMEOUT = 10
NOTE, NOTE_SOUND = "E, string 1, open", os.path.join("Octaves", "28.wav")
OWN_QUERY = "reads the tables with its own query"
QUESTION = "keep these changes"
COLUMNS = "ScaleID, ScaleName, ScaleTypeID, StartNote, ScaleIntervals, Chord, Sort"
VIEW = "CREATE VIEW ScalesQuery AS SELECT Scales.*, ScaleTypeNo, ScaleTypeName FROM Scales JOIN ScaleTypes " \
       "USING (ScaleTypeID);"
ENDLESS = "CREATE VIEW ScalesQuery AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) " \
          "SELECT i AS ScaleID, 'x' AS ScaleName FROM n;"
NO_QUERY = "DROP VIEW ScalesQuery;"
BOMB = "CREATE TRIGGER Bomb AFTER INSERT ON Scales BEGIN DELETE FROM Scales; END;"
# Each view doubles the rows and the memory.
DOUBLING = "ALTER TABLE Scales RENAME TO v0;" + "".join(
    f"CREATE VIEW v{i} AS SELECT * FROM v{i - 1} UNION ALL SELECT * FROM v{i - 1};" for i in range(1, 30))
CALCULATED = "CREATE TABLE Old AS SELECT * FROM Scales; DROP VIEW ScalesQuery; DROP TABLE Scales;" \
    "CREATE TABLE Scales (ScaleID INTEGER PRIMARY KEY, ScaleName TEXT, ScaleTypeID INTEGER, " \
    "ScaleDescription TEXT AS (printf('%.15999000c', 'x')), StartNote TEXT, ScaleIntervals TEXT, Chord, Sort);" \
    f"INSERT INTO Scales ({COLUMNS}) SELECT {COLUMNS} FROM Old; DROP TABLE Old;" + VIEW


def change(path, script):
    with contextlib.closing(sqlite3.connect(path)) as connection, connection:
        connection.executescript(script)


def started(session, script):
    """Starts the program on a library changed by the script and checks the start time; returns the path."""
    stage = session.new_stage()
    path = os.path.join(stage, DATABASE)
    change(path, script)
    start = time.monotonic()
    session.start(stage)
    seconds = time.monotonic() - start
    require(seconds < timely(LONGEST_RESPONSE), f"the window came after {seconds:.1f} s")
    return path


def require_response(session):
    session.until(lambda: True, "the end of earlier messages")
    before = len(session.messages)
    start = time.monotonic()
    session.input.press("ctrl+f")
    session.until(lambda: session.window_named("Search") or len(session.messages) > before, "a response")
    seconds = time.monotonic() - start
    use.leave(session, "Search")
    require(seconds < timely(LONGEST_RESPONSE), f"the window took {seconds:.1f} s for a response")


def foreign_schema(name, script, message, short=False):
    """A schema created by another program: one notice, and scales can be read and saved."""
    @case(f"library with {name}", short=short)
    def run(session):
        path = started(session, script)
        before = use.rows(path, "SELECT * FROM Scales")
        require_response(session)
        require(len(session.messages) == 1 and message in session.messages[0], f"messages: {session.messages}")
        use.walk(session)
        use.add_scale(session, "Campfire minor")
        notices = [text for text in session.messages if QUESTION not in text]
        require(len(notices) == 1, f"more messages: {session.messages}")
        session.close()
        after = use.rows(path, "SELECT * FROM Scales WHERE ScaleName <> 'Campfire minor'")
        require(after == before, "rows have changed")


foreign_schema("an endless stored query", NO_QUERY + ENDLESS, OWN_QUERY, short=True)
foreign_schema("a stored query of others", NO_QUERY + VIEW, OWN_QUERY)
foreign_schema("a trigger that deletes", BOMB, "has triggers that are not Tonalith's", short=True)


@case("library with a stored query and triggers of others")
def only_read(session):
    path = started(session, NO_QUERY + VIEW + BOMB)
    before = use.rows(path, "SELECT * FROM Scales")
    require_response(session)
    require(session.showed("scales cannot be changed"), f"messages: {session.messages}")
    use.walk(session)
    editor = use.open_editor(session)
    use.again(session, "F2", lambda: use.has_keyboard(session, use.field(session, editor, "Scale Name")), "the name")
    session.input.press("alt+a")
    session.input.write("Campfire minor")
    session.input.press("ctrl+Return")
    session.until(lambda: session.showed("These records can only be read, not changed."), "the reason")
    session.kill()
    require(use.rows(path, "SELECT * FROM Scales") == before, "rows have changed")


@case("library of many stored queries")
def doubling(session):
    started(session, NO_QUERY + DOUBLING + "CREATE VIEW Scales AS SELECT * FROM v29;" + VIEW)
    require_response(session)
    require(session.showed("'Scales' is a stored query instead of a table."), f"messages: {session.messages}")
    session.close()


@case("library with calculated fields")
def calculated(session):
    started(session, CALCULATED)
    require_response(session)
    require(session.showed(OWN_QUERY), f"messages: {session.messages}")
    session.input.press("Page_Down", "ctrl+l")
    require_response(session)
    session.close()


@case("library with rows of 16 MB", short=True)
def long_rows(session):
    fields = "ScaleDescription", "ScaleName", "ScaleIntervals", "StartNote"
    path = started(session, "".join(
        f"UPDATE Scales SET {field} = printf('%.15900000c', '1') WHERE ScaleID = {number};"
        for number, field in enumerate(fields, start=2)))
    for _ in range(6):
        require_response(session)
        session.input.press("Page_Down")
    use.open_editor(session)
    use.leave(session, "Scales")
    session.close()
    long = use.rows(path, "SELECT count(*) FROM Scales WHERE length(ScaleName) > 15000000")
    require(long == [(1,)], "the name has been shortened in the library")


@case("library without a free number")
def no_number(session):
    values = "(9223372036854775807, 'Last', 1, '2212221')"
    path = started(session, f"INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID, ScaleIntervals) VALUES {values};")
    cause = "the highest possible record number is in use"
    require(not use.try_scale(session, "Campfire minor"), "the scale was saved")
    require(session.showed(cause), f"messages: {session.messages}")
    require(cause in use.install(session)[-1], f"of the pack: {session.messages}")
    session.close()
    use.require_intact(path, ["Last"])


def pack_case(name, script, message):
    @case(f"pack with {name}")
    def run(session):
        stage = session.new_stage()
        path = os.path.join(stage, DATABASE)
        change(os.path.join(stage, PACK), script)
        rows, size = use.rows(path, "SELECT * FROM Scales"), os.path.getsize(path)
        session.start(stage)
        messages = use.install(session)
        require(len(messages) == 1 and message in messages[0], f"messages: {messages}")
        require_response(session)
        require(use.rows(path, "SELECT * FROM Scales") == rows, "rows have changed")
        require(os.path.getsize(path) == size, "the library has grown")
        session.close()


FIRST = "(SELECT min(ScaleID) FROM Scales)"
pack_case("a pattern of 10,000 digits",
          f"UPDATE Scales SET ScaleIntervals = printf('%.10000c', '1') WHERE ScaleID = {FIRST};",
          "row 1, column 'ScaleIntervals': The pattern of ")
pack_case("a calculated column", "ALTER TABLE Scales ADD COLUMN Extra AS (printf('%.15000000c', 'x'));",
          "The column 'Extra' of the table 'Scales' is calculated in this pack, not stored.")
pack_case("a name of 5 MB", f"UPDATE Scales SET ScaleName = printf('%.5000000c', 'x') WHERE ScaleID = {FIRST};",
          "row 1, column 'ScaleName': The field of ")
pack_case("a stored query for a table", "ALTER TABLE Scales RENAME TO S; CREATE VIEW Scales AS SELECT * FROM S;",
          "'Scales' is a stored query in this pack, not a table.")


@case("sounds with empty chunks and of 57 MB")
def crafted_sounds(session):
    stage = session.new_stage()
    zeros, long = (os.path.join(stage, name) for name in (os.path.join("Audio", "0.wav"), NOTE_SOUND))
    write(zeros, b"RIFF" + struct.pack("<I", 0x7FFFFF00) + b"WAVE")
    os.truncate(zeros, 2 << 30)
    size = 57 << 20
    form = struct.pack("<IHHIIHH", 16, 1, 1, 44100, 44100, 1, 8)
    write(long, b"RIFF" + struct.pack("<I", size + 36) + b"WAVEfmt " + form + b"data" + struct.pack("<I", size))
    os.truncate(long, size + 44)
    session.start(stage)
    session.press(session.showing("push button", lambda node: node.get_name() == NOTE))
    require_response(session)
    session.input.press("ctrl+l")
    session.until(lambda: session.showed("Could not find fmt chunk"), "a message about the sound")
    require_response(session)
    session.close()


def folder_name_case(name, folder):
    @case(f"folder named {name}")
    def run(session):
        place = os.path.join(os.fsencode(session.folder), folder)
        shutil.copytree(os.fsencode(session.new_stage()), place)
        stage = os.fsdecode(place)
        try:
            session.start(stage)
            use.use_everything(session)
            session.close()
            use.require_intact(os.path.join(stage, DATABASE), ["Campfire minor"])
        finally:
            shutil.rmtree(place)


folder_name_case("like a setting", b"x;Mode=Read")
folder_name_case("with invalid encoding", b"\xff\xfe")
folder_name_case("with quotes", b"a'b\"c; Provider=x")


def environment_case(name, message, **environment):
    @case(f"environment with {name}")
    def run(session):
        stage = session.new_stage()
        write(os.path.join(stage, "fonts.conf"), b"<?xml version='1.0'?><fontconfig></fontconfig>")
        session.start(stage, {key: value.replace("STAGE", stage) for key, value in environment.items()})
        require_response(session)
        use.walk(session)
        session.close()
        require(message in session.output() or session.showed(message), f"{message} is missing: {session.messages}")


environment_case("a negative scale", "QT_SCALE_FACTOR is set to '-2'", QT_SCALE_FACTOR="-2")
environment_case("invalid scales", "QT_SCREEN_SCALE_FACTORS is set to", QT_SCREEN_SCALE_FACTORS="-3;abc")
environment_case("no fonts", "Tonalith found no font", FONTCONFIG_FILE="STAGE/fonts.conf")


@case("empty journal")
def empty_journal(session):
    stage = session.new_stage()
    journal = os.path.join(stage, DATABASE + "-journal")
    for content in (b"", b"\0" * 5000):
        write(journal, content)
        session.start(stage)
        session.close()
        require(not os.path.exists(journal), "the journal is there after a start")


@case("Jet library locked by another program")
def locked_jet_library(session):
    stage = session.new_stage()
    path = os.path.join(stage, DATABASE)
    shutil.copy(os.path.join(session.packs, "DataPack_Jet2000.mdb"), path)
    with open(path, "rb") as file:
        before = file.read()
        fcntl.flock(file, fcntl.LOCK_EX)
        start = time.monotonic()
        session.start(stage)
        session.until(lambda: session.showed("file already in use"), "a message about the library")
        seconds = time.monotonic() - start
        require(seconds < timely(JET_TIMEOUT + LONGEST_RESPONSE), f"the message came after {seconds:.1f} s")
        require_response(session)
        session.close()
        file.seek(0)
        require(file.read() == before, "the library has changed")


@case("record changed by another program while it is edited")
def record_changed_elsewhere(session):
    path = started(session, "")
    editor = use.open_editor(session)
    use.again(session, "F2", lambda: use.has_keyboard(session, use.field(session, editor, "Scale Name")), "the name")
    session.input.write("Mine")
    change(path, "UPDATE Scales SET ScaleDescription = 'Theirs' WHERE ScaleName = 'Major';")
    use.apply(session)
    session.until(lambda: session.showed("changed elsewhere") or session.showed("another"), "the message")
    found = use.rows(path, "SELECT ScaleName, ScaleDescription FROM Scales WHERE ScaleID = 1")
    require(found[0][1] == "Theirs", f"the other change is lost: {found}, {session.messages}")
    session.consents = False
    use.leave(session, "Scales")
    session.close()
