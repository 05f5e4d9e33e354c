# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Faults: functions that replace or damage the file or folder at a path.

fingerprint() describes the content of a path, so that a test can detect changes.
"""

import hashlib
import os
import random
import shutil
import stat

SEED = 20260
GIB = 1 << 30
SPARSE = 8 * GIB
NOISES = (1, 100, 4096, 1 << 20)


def remove(path):
    if os.path.isdir(path) and not os.path.islink(path):
        shutil.rmtree(path)
    elif os.path.lexists(path):
        os.remove(path)


def write(path, content):
    remove(path)
    with open(path, "wb") as file:
        file.write(content)


def noise(size):
    return lambda path: write(path, random.Random(SEED + size).randbytes(size))


def sparse(path):
    write(path, b"")
    os.truncate(path, SPARSE)


def extended(path):
    """The file, extended by a hole to more than the disk has."""
    if not os.path.exists(path):
        write(path, b"\0" * 4096)
    os.truncate(path, SPARSE)


def folder(path):
    remove(path)
    os.mkdir(path)


def loop(path):
    remove(path)
    os.symlink(os.path.basename(path), path)


def pipe(path):
    remove(path)
    os.mkfifo(path)


def locked(path):
    if not os.path.exists(path):
        write(path, b"not for you")
    os.chmod(path, 0)


def half(path):
    if not os.path.exists(path):
        write(path, b"half")
    os.truncate(path, os.path.getsize(path) // 2)


FAULTS = {
    **{f"noise{size}": noise(size) for size in NOISES},
    "absent": remove,
    "empty": lambda path: write(path, b""),
    "folder": folder,
    "sparse": sparse,
    "extended": extended,
    "loop": loop,
    "pipe": pipe,
    "locked": locked,
    "half": half,
}
# The faults that can also replace a folder.
FOLDER_FAULTS = {name: FAULTS[name] for name in ("noise4096", "absent", "empty", "loop", "pipe", "locked")}


def fingerprint(path):
    """Kind, size, mode and a hash of the first 4 MiB: the rest of a sparse file is a hole."""
    try:
        status = os.lstat(path)
    except FileNotFoundError:
        return "absent"
    kind = stat.S_IFMT(status.st_mode)
    if kind == stat.S_IFLNK:
        return "link", os.readlink(path)
    if kind == stat.S_IFDIR:
        return "folder", stat.S_IMODE(status.st_mode)
    if kind != stat.S_IFREG:
        return "special", kind
    return "file", status.st_size, stat.S_IMODE(status.st_mode), digest(path)


def digest(path):
    """The hash, or the modification time if the file cannot be read."""
    if not os.access(path, os.R_OK):
        return os.stat(path).st_mtime_ns
    with open(path, "rb") as file:
        return hashlib.sha256(file.read(1 << 22)).hexdigest()


def restore_permissions(path):
    """Undoes a fault of the permissions, so that the folder can be removed."""
    if os.path.lexists(path) and not os.path.islink(path):
        os.chmod(path, 0o755 if os.path.isdir(path) else 0o644)
