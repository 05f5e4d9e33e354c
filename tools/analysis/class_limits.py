# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The limits of a class: its lines, and one source file for its member functions."""

from collections import defaultdict
from pathlib import Path

from cpp_classes import classes_of, owners_of_definitions

# A longer class has more than one responsibility.
MAX_CLASS_LINES = 300
FOLDERS = ("src", "tools", "bench", "fuzz", "tests")


def read_folders(root):
    """Maps each folder with C++ sources below `root` to the texts of its files by file name."""
    folders = defaultdict(dict)
    for top in FOLDERS:
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                folders[path.parent.relative_to(root).as_posix()][path.name] = path.read_text(encoding="utf-8")
    return dict(folders)


def too_long(folders):
    """The classes over the limit, as texts: lines of the declaration and of the member functions outside of it."""
    return [f"{folder}: {name} has {figures.lines} lines"
            for folder, files in folders.items()
            for name, figures in sorted(classes_of(files.values()).items()) if figures.lines > MAX_CLASS_LINES]


def spread(folders):
    """The classes of headers whose member functions are in several source files of the folder, as texts."""
    found = []
    for folder, files in folders.items():
        in_headers = classes_of(text for name, text in files.items() if Path(name).suffix == ".h")
        sources = defaultdict(list)
        for name, text in files.items():
            if Path(name).suffix == ".cpp":
                for owner in owners_of_definitions(text):
                    sources[owner].append(name)
        found += [f"{folder}: {name} is in {', '.join(sources[name])}"
                  for name in sorted(in_headers) if len(sources[name]) > 1]
    return found
