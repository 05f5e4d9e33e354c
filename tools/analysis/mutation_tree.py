# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A private copy of the project in which mutants are built and tested.

It stays in build/mutate between runs; a run first copies what has changed, which also removes a mutant that an
interrupted run left there.
"""

import fcntl
import filecmp
import hashlib
import os
import re
import resource
import shutil
import signal
import subprocess
from pathlib import Path

# Without warnings, which could reject a mutant, and without debug information, which would make equal code differ.
_SETTINGS = ("-DTONALITH_TESTS_WHOLE=ON", "-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O2 -DNDEBUG")
_PRESET = "dev"
# A mutant may allocate without end. The programs need less than a tenth of it.
_MEMORY_LIMIT_BYTES = 4 << 30
_GRACE_SECONDS = 5
_SKIPPED = {"build", ".git", ".cache", "__pycache__"}


class BuildFailure(Exception):
    """A configuration or a build that failed; the text is its output."""


class Tree:
    """The copy in `folder`. Only one program at a time can use it: a second one gets a BlockingIOError."""

    def __init__(self, origin, folder):
        self.origin = origin
        self.root = folder / "tree"
        self.binaries = self.root / "build" / _PRESET
        folder.mkdir(parents=True, exist_ok=True)
        self._lock = open(folder / "lock", "w", encoding="utf-8")
        fcntl.flock(self._lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        self._isolation = _isolation()

    def update(self):
        """Makes the copy equal to the project. Files with equal content keep their time, so they are not built again."""
        ours = _files(self.origin)
        for path in _files(self.root) - ours:
            (self.root / path).unlink()
        for path in ours:
            source, copy = self.origin / path, self.root / path
            if not copy.exists() or not filecmp.cmp(source, copy, shallow=False):
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, copy)
            elif source.stat().st_mode != copy.stat().st_mode:
                shutil.copymode(source, copy)

    def configure(self):
        """Configures the copy by the preset. Raises BuildFailure."""
        self._run(["cmake", "--preset", _PRESET, *_SETTINGS])

    def build(self, targets=()):
        """Builds the targets, or everything. Raises BuildFailure."""
        self._run(["cmake", "--build", "--preset", _PRESET, *(["--target", *targets] if targets else [])])

    def write(self, path, text):
        """Writes one source file of the copy."""
        (self.root / path).write_text(text, encoding="utf-8")

    def objects(self, targets=()):
        """Maps the object files of the targets, or of all targets, to a hash of their content."""
        folders = {f"{target}.dir" for target in targets}
        found = {}
        for file in self.binaries.rglob("*.o"):
            if not folders or folders.intersection(file.parts):
                found[file] = hashlib.sha256(file.read_bytes()).digest()
        return found

    def test_names(self):
        """The names of all tests that ctest knows."""
        return re.findall(r"^\s*Test\s+#\d+: (\S+)", self._run(["ctest", "--preset", _PRESET, "-N"]), re.MULTILINE)

    def test(self, names, seconds, fail_fast=True):
        """Runs tests; they end with the first failure, or after `seconds`. Returns the names of those that failed.

        A run that takes too long has no names to report: it gives ["a hang"].
        """
        pattern = "^(" + "|".join(re.escape(name) for name in names) + ")$"
        command = [*self._isolation, "ctest", "--preset", _PRESET, "-R", pattern]
        environment = dict(os.environ)
        if fail_fast:
            command.append("--stop-on-failure")
            environment["GTEST_FAIL_FAST"] = "1"
        code, output = _output(command, self.root, environment, seconds, _limit_memory)
        if code is None:
            return ["a hang"]
        if code == 0:
            return []
        return re.findall(r"^\s*\d+ - (\S+) \(", output, re.MULTILINE) or ["ctest"]

    def _run(self, command):
        code, output = _output(command, self.root, None, None, None)
        if code != 0:
            raise BuildFailure(output)
        return output


def _output(command, folder, environment, seconds, prepare):
    """Runs a command; gives its exit code, None after a timeout, and its output. Leaves no process of it behind."""
    with subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace", start_new_session=True,
                          preexec_fn=prepare) as process:
        try:
            output, _ = process.communicate(timeout=seconds)
            return process.returncode, output
        except subprocess.TimeoutExpired:
            return None, ""
        finally:
            if process.poll() is None:
                _end(process, graceful=seconds is None)


def _end(process, graceful):
    """Ends a process and its children. A build gets the time to remove what it has half written."""
    if graceful:
        os.killpg(process.pid, signal.SIGTERM)
        try:
            process.wait(_GRACE_SECONDS)
            return
        except subprocess.TimeoutExpired:
            pass
    os.killpg(process.pid, signal.SIGKILL)
    process.wait()


def _limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (_MEMORY_LIMIT_BYTES, _MEMORY_LIMIT_BYTES))


def _isolation():
    """The beginning of a command that runs the rest in process ids of its own, where the system allows that.

    A mutant of the code that ends a child process then reaches no other process, and nothing outlives a test run.
    """
    options = ["--pid", "--fork", "--kill-child", "--mount-proc"]
    for unshare in (["unshare", *options], ["unshare", "--user", "--map-root-user", *options]):
        if shutil.which("unshare") and subprocess.run([*unshare, "true"], capture_output=True, check=False).returncode == 0:
            return unshare
    return []


def _files(root):
    found = set()
    for folder, folders, files in os.walk(root):
        folders[:] = [name for name in folders if name not in _SKIPPED]
        found.update((Path(folder) / name).relative_to(root) for name in files)
    return found
