# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A session that records the sound of the program, and can restart and close it.

The recording is written while the program runs and is complete after its exit.
"""

import os
import select
import shutil
import subprocess
import tempfile
import time

from close_request import open_screen
from recorded import Recording
from session import Session, descendants

SETTINGS = "[general]\nsample-type = float32\nfrequency = 44100\ndither = false\n[wave]\nfile = "
STATUS = ("Stopped", "Standby", "Loaded", "Playing: ")
# The timeout for the exit of the program, in seconds.
TIMEOUT = 20


class PlayingSession(Session):
    """with PlayingSession(stage) as session: session.recording() is the sound of the program.

    `device` is a driver of OpenAL Soft; only "wave" records.
    """

    def __init__(self, stage, device="wave"):
        super().__init__(stage)
        self._recording_folder = tempfile.mkdtemp(prefix="tonalith-recording-")
        self._path = os.path.join(self._recording_folder, "out.wav")
        settings = os.path.join(self._recording_folder, "alsoft.conf")
        with open(settings, "w", encoding="utf-8") as file:
            file.write(SETTINGS + self._path + "\n")
        os.environ.update(ALSOFT_DRIVERS=device, ALSOFT_CONF=settings)

    def __exit__(self, *details):
        super().__exit__(*details)
        shutil.rmtree(self._recording_folder, ignore_errors=True)

    def restart(self):
        """Kills the program and starts it again on the same stage."""
        self.program.kill()
        self.program.wait()
        with open(self._log, "ab") as log:
            self.program = subprocess.Popen(
                [os.path.join(self.stage, "tonalith")], stdin=subprocess.DEVNULL, stdout=log, stderr=log
            )
        self._processes.append(self.program)
        self.window = self.wait(self._find_window, "the window of the program that was started again")

    def close(self):
        """Closes the window as a user does; returns the seconds from the request to the exit."""
        if self.program.poll() is not None:
            return 0
        with open_screen() as screen:
            window = screen.window_titled("Tonalith")
            start = time.monotonic()
            screen.ask_to_close(window)
            seconds = ended(self.program, start)
        if self.program.returncode != 0:
            raise AssertionError(f"the program ended with {self.program.returncode}; {self.output()}")
        return seconds

    def recording(self):
        self.close()
        return Recording(self._path)

    def nodes(self):
        showing = self.atspi.StateType.SHOWING
        return [node for node in descendants(self.window) if node.get_state_set().contains(showing)]

    def button(self, name, window=None):
        return next(
            node
            for node in (descendants(window) if window else self.nodes())
            if node.get_role_name() == "push button" and node.get_name().replace("&", "") == name
        )

    def press(self, button):
        action = self.atspi.Action
        names = [action.get_action_name(button, index) for index in range(action.get_n_actions(button))]
        action.do_action(button, names.index("Press"))

    def status(self):
        """The label of the status line."""
        return next(node for node in self.nodes() if node.get_name().startswith(STATUS))

    @staticmethod
    def text(node):
        """The current name of a node."""
        node.clear_cache()
        return node.get_name()

    def wait_for_standby(self, status):
        self.wait(lambda: self.text(status) == "Standby", "the end of the playback")

    def dialog(self):
        """The open message box, or None."""
        application = self.window.get_application()
        for index in range(application.get_child_count()):
            window = application.get_child_at_index(index)
            if window is not None and window.get_role_name() in ("dialog", "alert"):
                return window
        return None

    def choose_key(self, key):
        """Types a key into the key box. Without a window manager the keyboard focus follows the pointer."""
        box = next(node for node in self.nodes() if node.get_role_name() == "combo box")
        field = next(node for node in descendants(box) if node.get_role_name() == "text")
        place = field.get_extents(self.atspi.CoordType.SCREEN)
        self.atspi.generate_mouse_event(place.x + place.width // 2, place.y + place.height // 2, "b1c")
        self.atspi.EditableText.set_text_contents(field, "")
        self.atspi.generate_keyboard_event(0, key, self.atspi.KeySynthType.STRING)


def ended(process, start):
    """Waits for the exit of a child process without polling; returns the seconds since `start`."""
    handle = os.pidfd_open(process.pid)
    try:
        watch = select.poll()
        watch.register(handle, select.POLLIN)
        if not watch.poll(TIMEOUT * 1000):
            raise AssertionError("the process does not end")
        seconds = time.monotonic() - start
    finally:
        os.close(handle)
    process.wait()
    return seconds
