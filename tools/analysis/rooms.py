# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Reads docs/rooms.tsv and tells which files and which test programs belong to a room."""

import re
from dataclasses import dataclass
from pathlib import Path


@dataclass(frozen=True)
class Room:
    """A row of docs/rooms.tsv. `rank` is its position in the table, from the bottom up; paths are relative."""

    rank: int
    name: str
    target: str
    folder: str
    rooms: tuple
    libraries: tuple
    headers: tuple


def read_rooms(root):
    """The rooms of the checkout at `root`, lowest first."""
    rows = []
    for line in (root / "docs/rooms.tsv").read_text(encoding="utf-8").splitlines():
        columns = line.split("\t")
        if line.startswith("#") or len(columns) < 6 or columns[0] == "room":
            continue
        lists = [tuple(column.split()) if column != "-" else () for column in columns[3:6]]
        rows.append(Room(len(rows), columns[0], columns[1], columns[2].rstrip("/"), *lists))
    return rows


def room_of_file(rooms, path):
    """The room with the deepest folder that holds `path`; None where there is no such room."""
    holding = [room for room in rooms if path == room.folder or path.startswith(room.folder + "/")]
    return max(holding, key=lambda room: len(room.folder), default=None)


def sources(root, rooms):
    """Maps each room's name to the sorted relative paths of its C++ files."""
    files = {room.name: [] for room in rooms}
    for path in sorted((root / "src").rglob("*")):
        if path.suffix in (".cpp", ".h"):
            relative = path.relative_to(root).as_posix()
            room = room_of_file(rooms, relative)
            if room is not None:
                files[room.name].append(relative)
    return files


@dataclass(frozen=True)
class TestProgram:
    """One tonalith_test(...): its name, its folder below tests/ and what it links."""

    name: str
    folder: str
    links: tuple

    @property
    def target(self):
        """The CMake target that builds it."""
        return f"tonalith_{self.name}_tests"


def read_test_programs(root):
    """All test programs of the checkout at `root`."""
    programs = []
    for file in sorted((root / "tests").rglob("CMakeLists.txt")):
        text = re.sub(r"#.*", "", file.read_text(encoding="utf-8"))
        folder = file.parent.relative_to(root / "tests").as_posix()
        for arguments in re.findall(r"\btonalith_test\s*\(([^()]*)\)", text):
            words = arguments.split()
            links = words[words.index("LINKS") + 1:] if "LINKS" in words else []
            programs.append(TestProgram(words[0], folder, tuple(links)))
    return programs


def own_tests(room, programs):
    """The room's own test programs.

    Those in the room's folder of tests/ that link the room; otherwise those of any folder that link it; otherwise all
    of the room's folder. The folder of src/platform/qt is tests/platform.
    """
    folder = Path(room.folder).parts[1]
    in_folder = [program for program in programs if Path(program.folder).parts[:1] == (folder,)]
    linking = [program for program in programs if room.target in program.links]
    return [program for program in in_folder if program in linking] or linking or in_folder


def targets(room, files, tests):
    """The CMake targets of a room with these source files and of its test programs. Headers alone are no library."""
    libraries = [room.target] if any(file.endswith(".cpp") for file in files) else []
    return [*libraries, *(test.target for test in tests)]
