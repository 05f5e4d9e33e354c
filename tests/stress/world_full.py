# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Cases: a full disk during editing, adding, importing and saving a page, and the recovery afterwards.

There are two kinds: a full temporary file system, if root could mount one, and a limit on the file size. Any user can
set the limit, and it causes a different error.
"""

import contextlib
import os

import world_use as use
from world_cases import Skipped, case, require

FULL_DISK = "The disk that holds '{}' is full. Nothing was saved."
DISK_ERROR = "The file '{}' could not be read or written, because the disk reports an error."
PACKS = ("DataPack_Jazz.mdb", "DataPack_World.mdb")


class SmallDisk:
    """The small disk of the session, filled with a file of zeros."""

    message = FULL_DISK

    def __init__(self, session):
        if not session.small_disk:
            raise Skipped("only root can make a small disk, and only where mounting is allowed")
        self._filler = os.path.join(session.small_disk, "filler")
        self.stage = session.new_stage(session.small_disk, PACKS)

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
    """A limit on the file size below the size of every database."""

    message = DISK_ERROR

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
        earlier = use.require_intact(path)
        session.start(disk.stage)
        add_and_change(session, disk, path, earlier)
        import_packs(session, disk, path)
        save_page(session, disk)
        session.close()
        use.require_intact(path, [*earlier, "Campfire minor", "Midnight major"])

    return run


def add_and_change(session, disk, path, earlier):
    """An edit that cannot be saved stays in the editor, and Apply saves it after space is available."""
    use.walk(session)
    use.add_scale(session, "Campfire minor")
    editor = use.open_editor(session)
    with disk.full(session):
        use.type_scale(session, editor, "Midnight major")
        session.until(lambda: session.showed(disk.message.format(path)), "a message about the disk")
        use.require_intact(path, [*earlier, "Campfire minor"])
        require(not use.rows(path, use.ROW, "Midnight major"), "a scale was saved that the program calls not saved")
    session.input.press("F2")
    use.apply(session)
    session.until(lambda: use.rows(path, use.ROW, "Midnight major"), "the scale saved with free space")
    use.leave(session, "Scales")
    session.messages.clear()


def import_packs(session, disk, path):
    before = use.require_intact(path)
    with disk.full(session):
        messages = use.install(session)
    for pack in PACKS:
        errors = [text for text in messages if text.startswith("Error importing ") and pack in text]
        require(errors and disk.message.format(path) in errors[0], f"messages about {pack}: {messages}")
    require(use.require_intact(path) == before, "an import that failed has left rows")
    messages = use.install(session)
    require(all(text.startswith("Imported data pack: ") for text in messages), f"with free space: {messages}")
    require(len(use.require_intact(path, before)) > len(before), "the packs are not there")


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
                session.until(lambda: session.showed(f"The file {page} could not be written: "), "the message")
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
