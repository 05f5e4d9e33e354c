# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A session that starts several programs in sequence, each on a separate stage, and records their messages.

WorldSession is a WindowsSession: one screen and one pair of buses for all programs. It records every message box in
session.messages and accepts it. An unexpected exit of a program is a SessionFailure. After an exit, session.peak is
the peak memory in MiB of the program and its child processes.
"""

import os
import resource
import select
import shutil
import subprocess
import time

from gi.repository import GLib

from close_request import open_screen
from playing import STATUS
from session import SessionFailure, children, descendants
from timed import timely
from windows_session import WindowsSession
from world_faults import restore_permissions

# The dialogs of the program that are not message boxes.
NO_MESSAGES = ("Search", "Print", "Save as PDF", "Scales")
LONGEST_CLOSING = 1.0
# The timeout of one call on the accessibility bus, in milliseconds.
LONGEST_REPLY = 10000
# In MiB, for the program and each of its child processes.
MOST_MEMORY = 400


class WorldSession(WindowsSession):
    """with WorldSession(stage, folder) as session: session.start(session.new_stage())."""

    def __init__(self, stage, folder, small_disk=None):
        super().__init__(stage)
        self.original_stage = stage
        self.folder = folder
        self.small_disk = small_disk
        # How long another program locks a library, in seconds.
        self.lock_seconds = 10
        self.messages = []
        self.peak = 0
        self.others = []
        self.application = None
        # Whether message boxes are answered with OK or with Cancel.
        self.consents = True
        self._numbers = 0
        self._stages = []

    def _start(self):
        # No sound device, but real-time playback.
        os.environ["ALSOFT_DRIVERS"] = "null"
        super()._start()
        # A busy system must not cause failures.
        self.atspi.set_timeout(LONGEST_REPLY, LONGEST_REPLY)
        self.close()

    def new_stage(self, folder=None, packs=("DataPack_Jazz.mdb",)):
        """Makes a copy of the original stage with only these packs."""
        self._numbers += 1
        stage = os.path.join(folder or self.folder, f"stage{self._numbers}")
        os.mkdir(stage)
        self._stages.append(stage)
        for name in os.listdir(self.original_stage):
            original = os.path.join(self.original_stage, name)
            if name == "tonalith" and not folder:
                # Large, and never written.
                os.link(original, os.path.join(stage, name))
            elif os.path.isdir(original):
                shutil.copytree(original, os.path.join(stage, name))
            else:
                shutil.copy2(original, stage)
        for name in os.listdir(os.path.join(stage, "DataPacks")):
            if name not in packs:
                os.remove(os.path.join(stage, "DataPacks", name))
        return stage

    def start(self, stage, environment=None):
        """Ends the current program, starts another one and waits for its window."""
        self.kill()
        self.messages = []
        self.consents = True
        self.open_another(stage, environment)

    def open_another(self, stage, environment=None):
        """Starts an additional program, which becomes the current one of the session."""
        if self.program and self.program.returncode is None:
            self.others.append((self.program, self.window))
        self.stage = stage
        with open(self._log, "ab") as log:
            self.program = subprocess.Popen(
                [os.path.join(stage, "tonalith")], stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                env={**os.environ, **(environment or {})}
            )
        self._processes.append(self.program)
        self.window = None
        self.window = self.wait(self._find_window, "the window of the program")

    def _find_window(self):
        for application in children(self.atspi.get_desktop(0)):
            if application.get_process_id() != self.program.pid:
                continue
            application.clear_cache()
            for window in children(application):
                if window.get_role_name() == "frame" and window.get_name() == "Tonalith" and self.is_showing(window):
                    self.application = application
                    return window
        return None

    def windows(self):
        """The visible windows of the program. Uses the cached application: querying a window for its application would
        end this process if the program exits at that moment."""
        self.application.clear_cache()
        return [window for window in children(self.application) if self.is_showing(window)]

    def kill(self):
        for program, _ in [*self.others, (self.program, None)]:
            if program and program.returncode is None:
                program.kill()
                self._reap(program)
        self.others = []

    def clean(self):
        """Kills all programs and removes the stages."""
        self.kill()
        for stage in self._stages:
            for path, folders, _ in os.walk(stage):
                for name in (".", *folders):
                    restore_permissions(os.path.join(path, name))
            shutil.rmtree(stage, ignore_errors=True)
        self._stages = []

    def _reap(self, program):
        """Waits for the end of the program and records its peak memory."""
        _, status, usage = os.wait4(program.pid, 0)
        program.returncode = os.waitstatus_to_exitcode(status)
        self.peak = usage.ru_maxrss / 1024

    def output(self):
        """The output without the lines of the D-Bus daemons."""
        return "".join(line for line in super().output().splitlines(True) if "dbus-daemon[" not in line)

    def limit_files(self, size):
        """Limits the size of files that the program writes, which simulates a full disk; None removes the limit."""
        highest = resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE)[1]
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, (highest if size is None else size, highest))

    def close(self, programs=()):
        """Requests a window to close as a window manager does, and answers all message boxes; returns the seconds.

        With several programs, any of them may receive the request; it becomes the current one.
        """
        def ask():
            with open_screen() as screen:
                window = screen.window_titled("Tonalith")
                if window is not None:
                    screen.ask_to_close(window)

        programs = programs or [self.program]
        watch = select.poll()
        handles = {os.pidfd_open(program.pid): program for program in programs}
        try:
            for handle in handles:
                watch.register(handle, select.POLLIN)
            start = time.monotonic()
            ask()
            while not (ended := watch.poll(200)):
                if time.monotonic() - start > timely(LONGEST_CLOSING):
                    raise SessionFailure(f"the program does not end when it is asked to; {self.output()}")
                if self.dismiss():
                    # A window below a message box ignores the request.
                    ask()
            self.program = handles[ended[0][0]]
        finally:
            for handle in handles:
                os.close(handle)
        return self._require_good_end(time.monotonic() - start)

    def _require_good_end(self, seconds):
        self._reap(self.program)
        if self.program.returncode != 0:
            raise SessionFailure(f"the program ended with {self.program.returncode}; {self.output()}")
        if self.peak > MOST_MEMORY:
            raise SessionFailure(f"the program took {self.peak:.0f} MiB of memory, {MOST_MEMORY} are allowed")
        return seconds

    def box(self):
        """The open message box and its text, or None."""
        for window in self.windows():
            if window.get_role_name() in ("dialog", "alert") and window.get_name() not in NO_MESSAGES:
                texts = [node.get_name() for node in children(window) if node.get_role_name() == "label"]
                return window, "".join(texts)
        return None

    def dismiss(self):
        """Records the text of the open message box and answers it; returns False without a box."""
        try:
            found = self.box()
            if not found or not found[1]:
                return False
            box, text = found
            buttons = [node for node in descendants(box) if node.get_role_name() == "push button"]
            button = buttons[0] if len(buttons) == 1 else next(filter(self.is_consent, buttons), None)
            if button is None or not self.is_showing(box):
                return False
            self.messages.append(text)
            self.press(button)
        except GLib.Error:
            return False
        self.wait(lambda: not self.is_open(box), f"the end of the message {text}")
        return True

    def is_consent(self, node):
        names = ("OK", "Yes") if self.consents else ("Cancel", "No")
        return node.get_role_name() == "push button" and node.get_name().replace("&", "") in names

    def is_open(self, box):
        try:
            box.clear_cache()
            return box in self.windows() and self.is_showing(box)
        except GLib.Error:
            return False

    def press(self, button):
        action = self.atspi.Action
        names = [action.get_action_name(button, index) for index in range(action.get_n_actions(button))]
        action.do_action(button, names.index("Press"))

    def until(self, condition, what):
        """Answers message boxes until the condition is true."""
        def answer():
            return not self.dismiss() and condition()

        return self.wait(answer, what)

    def showed(self, text):
        return any(text in message for message in self.messages)

    def showing(self, role, matches, window=None):
        """The first visible matching node of a window, by default the main window, or None."""
        window = window or self.window
        window.clear_cache()
        for node in descendants(window):
            if node.get_role_name() == role and matches(node) and self.is_showing(node):
                return node
        return None

    def status(self):
        node = self.showing("label", lambda label: label.get_name().startswith(STATUS))
        return node.get_name() if node else ""

    def window_named(self, name):
        return next((window for window in self.windows() if window.get_name() == name), None)
