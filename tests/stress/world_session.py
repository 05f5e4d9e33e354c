# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A session that starts one program after the other, each on a stage of its own, and writes down what each one says.

WorldSession is a WindowsSession: one screen, one pair of buses, many programs. Every message box is read, agreed to and
kept in session.said. The end of a program that nobody asked to end is a SessionFailure; what it took at most of memory,
its helper processes included, is in session.peak after its end.
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
from world_faults import heal

# The windows of the program that are dialogs and no messages.
NO_MESSAGES = ("Search", "Print", "Save as PDF", "Scales")
LONGEST_CLOSING = 1.0
# In milliseconds, of one question on the accessibility bus.
LONGEST_REPLY = 10000
# In MiB, of the program or of one of its helper processes.
MOST_MEMORY = 400


class WorldSession(WindowsSession):
    """with WorldSession(stage, folder) as session: session.start(session.new_stage()). The room is a small disk."""

    def __init__(self, stage, folder, room=None):
        super().__init__(stage)
        self.true_stage = stage
        self.folder = folder
        self.room = room
        # Seconds that another program holds a library.
        self.hold = 10
        self.said = []
        self.peak = 0
        self.others = []
        self.application = None
        # Whether questions are answered with OK or with Cancel.
        self.consents = True
        self._numbers = 0
        self._stages = []

    def _start(self):
        # Nobody listens, in real time.
        os.environ["ALSOFT_DRIVERS"] = "null"
        super()._start()
        # A machine with other things to do is no finding.
        self.atspi.set_timeout(LONGEST_REPLY, LONGEST_REPLY)
        self.close()

    def new_stage(self, folder=None, packs=("DataPack_Jazz.mdb",)):
        """A fresh copy of the true stage, with these packs alone."""
        self._numbers += 1
        stage = os.path.join(folder or self.folder, f"stage{self._numbers}")
        os.mkdir(stage)
        self._stages.append(stage)
        for name in os.listdir(self.true_stage):
            true = os.path.join(self.true_stage, name)
            if name == "tonalith" and not folder:
                # Large, and nothing here writes into it.
                os.link(true, os.path.join(stage, name))
            elif os.path.isdir(true):
                shutil.copytree(true, os.path.join(stage, name))
            else:
                shutil.copy2(true, stage)
        for name in os.listdir(os.path.join(stage, "DataPacks")):
            if name not in packs:
                os.remove(os.path.join(stage, "DataPacks", name))
        return stage

    def start(self, stage, environment=None):
        """Another program, in the place of the one before; returns with its window on the screen."""
        self.kill()
        self.said = []
        self.consents = True
        self.open_another(stage, environment)

    def open_another(self, stage, environment=None):
        """Another program beside those that run: from now on the session's own."""
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
        """The program's windows on the screen. The application is known: asking a window for the one that it belongs to
        ends this process too where the program ends in that moment."""
        self.application.clear_cache()
        return [window for window in children(self.application) if self.is_showing(window)]

    def kill(self):
        for program, _ in [*self.others, (self.program, None)]:
            if program and program.returncode is None:
                program.kill()
                self._reap(program)
        self.others = []

    def clean(self):
        """Ends what runs, whatever its state, and removes the stages."""
        self.kill()
        for stage in self._stages:
            for path, folders, _ in os.walk(stage):
                for name in (".", *folders):
                    heal(os.path.join(path, name))
            shutil.rmtree(stage, ignore_errors=True)
        self._stages = []

    def _reap(self, program):
        """Waits for the end of the program and notes its memory."""
        _, status, usage = os.wait4(program.pid, 0)
        program.returncode = os.waitstatus_to_exitcode(status)
        self.peak = usage.ru_maxrss / 1024

    def output(self):
        """Without what the buses say of themselves."""
        return "".join(line for line in super().output().splitlines(True) if "dbus-daemon[" not in line)

    def limit_files(self, size):
        """From now on no file of the program grows beyond this size, as on a disk that is full."""
        highest = resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE)[1]
        resource.prlimit(self.program.pid, resource.RLIMIT_FSIZE, (highest if size is None else size, highest))

    def close(self, programs=()):
        """Asks a window to close as a window manager does, and answers what its program asks; the seconds it takes.

        With several programs any of them may be the one; it is the session's afterwards.
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
                    # A window below a message takes no request.
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
        """The message box that is open and what it says, or None."""
        for window in self.windows():
            if window.get_role_name() in ("dialog", "alert") and window.get_name() not in NO_MESSAGES:
                texts = [node.get_name() for node in children(window) if node.get_role_name() == "label"]
                return window, "".join(texts)
        return None

    def dismiss(self):
        """Writes down what the message box that is open says, and agrees, or not; False without a box."""
        try:
            found = self.box()
            if not found or not found[1]:
                return False
            box, text = found
            buttons = [node for node in descendants(box) if node.get_role_name() == "push button"]
            button = buttons[0] if len(buttons) == 1 else next(filter(self.is_consent, buttons), None)
            if button is None or not self.is_showing(box):
                return False
            self.said.append(text)
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
        """Answers the program's boxes until the condition is true."""
        def answer():
            return not self.dismiss() and condition()

        return self.wait(answer, what)

    def told(self, text):
        return any(text in said for said in self.said)

    def showing(self, role, matches, window=None):
        """The first part of a window, the main one by itself, that shows and matches, or None."""
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
