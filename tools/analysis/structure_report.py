# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Prints figures of a checkout's structure."""

import argparse
import re
from pathlib import Path

from call_paths import upward_calls
from cpp_classes import classes_of
from mutants import code_lines
from rooms import read_rooms, room_of_file, sources

_LONGEST_CLASSES = 10
_LIKE_SOURCE = (".cpp", ".h", ".py", ".sh")


def main(default_root, arguments):
    """The command line of tools/structure. Returns the exit code."""
    parser = argparse.ArgumentParser(prog="tools/structure", description="Prints figures of a checkout: lines, rooms, "
                                     "permissions, calls to higher rooms, booleans, longest classes.")
    parser.add_argument("path", nargs="?", type=Path, default=default_root, help="the checkout (this one)")
    parser.add_argument("--patch", action="append", default=[], type=Path, metavar="FILE",
                        help="also count the files that this patch touches; may be repeated")
    options = parser.parse_args(arguments)
    if not (options.path / "docs/rooms.tsv").is_file():
        parser.error(f"{options.path} has no docs/rooms.tsv")
    rooms = read_rooms(options.path)
    files = sources(options.path, rooms)
    texts = {file: (options.path / file).read_text(encoding="utf-8") for listed in files.values() for file in listed}
    print_lines(options.path, rooms, files, texts)
    print_permissions(rooms, texts)
    print_upward_calls(upward_calls(options.path, rooms, files))
    print_classes(rooms, files, texts)
    print_patches(options.patch)
    return 0


def print_lines(root, rooms, files, texts):
    """Lines of each room and of the folders beside src/."""
    print("Lines (all; with code)")
    for room in rooms:
        listed = [texts[file] for file in files[room.name]]
        print(f"  {room.name:<20} {sum(map(_lines, listed)):>6} {sum(map(code_lines, listed)):>6}  {len(listed)} files")
    print(f"  {'src, ' + str(len(rooms)) + ' rooms':<20} {sum(map(_lines, texts.values())):>6} "
          f"{sum(map(code_lines, texts.values())):>6}  {len(texts)} files")
    for folder in ("tests", "tools", "bench", "fuzz"):
        paths = [path for path in (root / folder).rglob("*") if path.suffix in _LIKE_SOURCE]
        print(f"  {folder:<20} {sum(_lines(path.read_text(encoding='utf-8')) for path in paths):>6}"
              f"         {len(paths)} files")


def print_permissions(rooms, texts):
    """The rooms and foreign headers that docs/rooms.tsv permits, and those that #include lines use."""
    print("\nPermissions of docs/rooms.tsv: rooms and beginnings of foreign headers that a room may include")
    used = {room.name: used_permissions(room, rooms, texts) for room in rooms}
    granted = {room.name: {*room.rooms, *(f"<{header}>" for header in room.headers)} for room in rooms}
    count = sum(len(granted[room.name] & used[room.name]) for room in rooms)
    print(f"  granted {sum(map(len, granted.values()))}, used {count}")
    for room in rooms:
        for unused in sorted(granted[room.name] - used[room.name]):
            print(f"  unused: {room.name} > {unused}")
        for missing in sorted(used[room.name] - granted[room.name]):
            print(f"  used but not granted: {room.name} > {missing}")


def used_permissions(room, rooms, texts):
    """The other rooms that a room's files include, and of its permitted foreign headers those that they include."""
    used = set()
    for file, text in texts.items():
        if room_of_file(rooms, file) != room:
            continue
        for own, foreign in re.findall(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', text, re.MULTILINE):
            included = room_of_file(rooms, f"src/{own}") if own else None
            if included is not None and included != room:
                used.add(included.name)
            fitting = [header for header in room.headers if foreign and foreign.startswith(header)]
            if fitting:
                used.add(f"<{max(fitting, key=len)}>")
    return used


def print_upward_calls(paths):
    """Calls from a lower to a higher room on the paths of call_paths.py."""
    print("\nCalls from a lower to a higher room; the paths are lists of calls in tools/analysis/call_paths.py")
    for name, (upward, count, missing) in paths.items():
        print(f"  {name}: {len(upward)} of {count}")
        for call in upward:
            print(f"    {call}")
        for call in missing:
            print(f"    not in this checkout, not counted: {call}")


def print_classes(rooms, files, texts):
    """Boolean members, and the classes with most lines."""
    lengths = []
    editor = []
    booleans = 0
    for room in rooms:
        for name, figures in classes_of([texts[file] for file in files[room.name]]).items():
            lengths.append((figures.lines, name, room.name, figures.declared))
            booleans += len(figures.booleans)
            if room.name == "editor":
                editor.extend((name, member) for member in figures.booleans)
    print(f"\nBoolean members of classes: {booleans} in src, {len(editor)} in the editor")
    source = "\n".join(texts[file] for file in files.get("editor", ()))
    for name, member in editor:
        print(f"  {name}::{member}, assigned at {len(_assignments(member, source))} places")
    print("\nLongest classes: lines of the declaration and of the member functions outside of it")
    for lines, name, room, declared in sorted(lengths, reverse=True)[:_LONGEST_CLASSES]:
        print(f"  {lines:>5}  {name} ({room}), {declared} of them in the declaration")


def print_patches(patches):
    """How many files outside content/ and tests/ each patch touches."""
    print("\nFiles that trial changes touch, outside content/ and tests/")
    print("  Make the change in a checkout, save it with `git diff > FILE`, then give `--patch FILE`.")
    for patch in patches:
        touched = touched_files(patch.read_text(encoding="utf-8", errors="replace"))
        outside = [file for file in touched if not file.startswith(("content/", "tests/"))]
        print(f"  {patch.name}: {len(outside)} of {len(touched)}: {', '.join(outside)}")


def touched_files(patch):
    """The sorted paths that a patch in git's format adds, changes, renames or removes."""
    named = re.findall(r"^(?:--- a/|\+\+\+ b/|rename from |rename to )([^\t\n]+)", patch, re.MULTILINE)
    return sorted(set(named))


def _lines(text):
    return text.count("\n")


def _assignments(member, source):
    return re.findall(rf"\b{member}\s*(?:[|&^]?=(?!=)|\{{)|\bexchange\({member}\b", source)
