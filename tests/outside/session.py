# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A screen, a session bus, an accessibility bus and a running Tonalith, all private to one test.

Session is a context manager that owns all processes and folders and removes them at its exit. The program runs on a
copy of the stage, so a test may change the database. A failed start raises SessionFailure with the output of the
processes. Only one Session per process: the accessibility library reads its environment once.
"""

import os
import shutil
import subprocess
import tempfile
import time


class SessionFailure(Exception):
    """The program or a service did not start or respond."""


class Session:
    """with Session(stage) as session: session.window is the main window on the accessibility bus."""

    def __init__(self, stage, seconds=30, screen="1600x1000"):
        self._stage = stage
        self._seconds = seconds
        self._screen = screen
        self._processes = []
        self._folder = tempfile.mkdtemp(prefix="tonalith-outside-")
        self._log = os.path.join(self._folder, "log")
        self.stage = os.path.join(self._folder, "stage")
        self.program = None
        self.window = None
        self.atspi = None

    def __enter__(self):
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            if process.stdout:
                process.stdout.close()
        shutil.rmtree(self._folder, ignore_errors=True)

    def wait(self, condition, what):
        """The first true result of condition; raises SessionFailure after the timeout."""
        end = time.monotonic() + self._seconds
        while time.monotonic() < end:
            answer = condition()
            if answer:
                return answer
            if self.program and self.program.poll() is not None:
                raise SessionFailure(f"the program ended with {self.program.returncode}; {self.output()}")
            # Polls: the bus has no event for an arbitrary condition.
            time.sleep(0.05)
        raise SessionFailure(f"{what} did not happen; {self.output()}")

    def output(self):
        with open(self._log, encoding="utf-8", errors="replace") as log:
            return "what the processes wrote: " + log.read()

    def _start(self):
        shutil.copytree(self._stage, self.stage)
        runtime = os.path.join(self._folder, "runtime")
        os.mkdir(runtime, 0o700)
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_ACCESSIBILITY", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE"):
            os.environ.pop(name, None)
        os.environ.update(
            XDG_RUNTIME_DIR=runtime,
            XDG_DATA_HOME=os.path.join(self._folder, "data"),
            XDG_CONFIG_HOME=os.path.join(self._folder, "config"),
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )
        screen = self._spawn_and_read(
            ["Xvfb", "-displayfd", "1", "-screen", "0", self._screen + "x24", "-nolisten", "tcp", "-noreset"]
        )
        os.environ["DISPLAY"] = ":" + screen
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._spawn_and_read(
            ["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1"]
        )
        # Imported here, because it reads the addresses above from the environment.
        import gi

        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi

        self.atspi = Atspi
        Atspi.init()
        with open(self._log, "ab") as log:
            self.program = subprocess.Popen(
                [os.path.join(self.stage, "tonalith")], stdin=subprocess.DEVNULL, stdout=log, stderr=log
            )
        self._processes.append(self.program)
        self.window = self.wait(self._find_window, "the window Tonalith on the accessibility bus")

    def _spawn_and_read(self, command):
        with open(self._log, "ab") as log:
            process = subprocess.Popen(
                command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=log, text=True
            )
        self._processes.append(process)
        line = process.stdout.readline().strip()
        if not line:
            raise SessionFailure(f"{command[0]} did not start; {self.output()}")
        return line

    def _find_window(self):
        desktop = self.atspi.get_desktop(0)
        for application in children(desktop):
            for window in children(application):
                if window.get_name() == "Tonalith" and window.get_state_set().contains(self.atspi.StateType.SHOWING):
                    return window
        return None


def children(node):
    """The current children of a node."""
    found = (node.get_child_at_index(index) for index in range(node.get_child_count()))
    return [child for child in found if child is not None]


def descendants(node):
    for child in children(node):
        yield child
        yield from descendants(child)
