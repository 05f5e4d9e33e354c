# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: no room on the disk, while editing, adding, importing and saving a page; and room again.

Two kinds of full disk: a small one of its own, filled up, where root could make one; and a limit on the size of files,
which every user can set and which fails another way.
"""

import contextlib
import os

import world_use as use
from world_cases import Skipped, case, require

FULL_DISK = "The disk that holds '{}' is full. Nothing was saved."
DISK_ERROR = "The file '{}' could not be read or written, because the disk reports an error."
PACKS = ("DataPack_Jazz.mdb", "DataPack_World.mdb")


class SmallDisk:
    """The session's room; full while a file of zeros takes what there is."""

    words = FULL_DISK

    def __init__(self, session):
        if not session.room:
            raise Skipped("only root can make a small disk, and only where mounting is allowed")
        self._filler = os.path.join(session.room, "filler")
        self.stage = session.new_stage(session.room, PACKS)

    @contextlib.contextmanager
    def full(self, _):
        with open(self._filler, "wb", buffering=0) as file:
            block = bytes(1 << 20)
            while block:
                with contextlib.suppress(OSError):
                    while file.write(block) == len(block):
                        pass
                block = block[: len(block) // 2]
        try:
            yield
        finally:
            os.remove(self._filler)


class SizeLimit:
    """No file may grow beyond a size below that of every database."""

    words = DISK_ERROR

    def __init__(self, session):
        self.stage = session.new_stage(packs=PACKS)

    @contextlib.contextmanager
    def full(self, session):
        session.limit_files(2048)
        try:
            yield
        finally:
            session.limit_files(None)


def full_case(kind):
    def run(session):
        disk = kind(session)
        path = os.path.join(disk.stage, "TonalithDB97.mdb")
        earlier = use.require_whole(path)
        session.start(disk.stage)
        add_and_change(session, disk, path, earlier)
        import_packs(session, disk, path)
        save_page(session, disk)
        session.close()
        use.require_whole(path, [*earlier, "Campfire minor", "Midnight major"])

    return run


def add_and_change(session, disk, path, earlier):
    """What could not be saved stays in the editor and is saved by Apply when there is room."""
    use.walk(session)
    use.add_scale(session, "Campfire minor")
    editor = use.open_editor(session)
    with disk.full(session):
        use.type_scale(session, editor, "Midnight major")
        session.until(lambda: session.told(disk.words.format(path)), "a word about the disk")
        use.require_whole(path, [*earlier, "Campfire minor"])
        require(not use.rows(path, use.ROW, "Midnight major"), "a scale was saved that the program calls not saved")
    session.input.press("F2")
    use.apply(session)
    session.until(lambda: use.rows(path, use.ROW, "Midnight major"), "the scale saved when there is room")
    use.leave(session, "Scales")
    session.said.clear()


def import_packs(session, disk, path):
    before = use.require_whole(path)
    with disk.full(session):
        said = use.install(session)
    for pack in PACKS:
        told = [text for text in said if text.startswith("Error importing ") and pack in text]
        require(told and disk.words.format(path) in told[0], f"of {pack} the program says {said}")
    require(use.require_whole(path) == before, "an import that failed has left something behind")
    said = use.install(session)
    require(all(text.startswith("Imported data pack: ") for text in said), f"with room again: {said}")
    require(len(use.require_whole(path, before)) > len(before), "the packs are not there")


def save_page(session, disk):
    page = os.path.join(disk.stage, "page.pdf")
    session.input.press("ctrl+p")
    dialog = session.until(lambda: session.window_named("Print"), "the print window")
    for is_full in (True, False):
        with disk.full(session) if is_full else contextlib.nullcontext():
            session.press(session.until(lambda: save_button(session, dialog), "the button Save as PDF"))
            window = session.until(lambda: session.window_named("Save as PDF"), "the file dialog")
            use.write_into(session, window, page)
            session.input.press("Return")
            session.until(lambda: not session.window_named("Save as PDF"), "the end of the file dialog")
            if is_full:
                session.until(lambda: session.told(f"The file {page} could not be written: "), "a word about the page")
        require(not (is_full and os.path.exists(page)), "half a page was left")
    session.until(lambda: os.path.exists(page), "the page")
    with open(page, "rb") as file:
        content = file.read()
    require(content.startswith(b"%PDF-") and content.rstrip().endswith(b"%%EOF"), "the page is not whole")
    use.leave(session, "Print")


def save_button(session, dialog):
    return session.showing("push button", lambda node: node.get_name().replace("&", "") == "Save as PDF...", dialog)


case("disk full", short=True)(full_case(SmallDisk))
case("files limited")(full_case(SizeLimit))
