# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""A session with real input that reads windows, message boxes, buttons and fields through the accessibility bus.

WindowsSession is a Session with a separate home folder and an empty DataPacks folder; session.packs contains the
original packs. All queries wait for their result and raise SessionFailure after the timeout.
"""

import contextlib
import os
import shutil
import sqlite3

from gi.repository import GLib

from input import Input
from session import Session, children, descendants

FIXTURES = os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "jet", "fixtures")
BOXES = ("dialog", "alert")
NAME_TIP = "The name of the scale"


class WindowsSession(Session):
    """with WindowsSession(stage) as session: session.input sends keys and clicks."""

    def __init__(self, stage):
        super().__init__(stage)
        self.input = None
        self.home = os.path.join(self._folder, "home")
        self.packs = os.path.join(self._folder, "packs")
        self.data_packs = os.path.join(self.stage, "DataPacks")

    def _start(self):
        os.mkdir(self.home)
        os.environ["HOME"] = self.home
        super()._start()
        shutil.move(self.data_packs, self.packs)
        for name in os.listdir(FIXTURES):
            if name.endswith(".mdb"):
                shutil.copy(os.path.join(FIXTURES, name), self.packs)
        os.mkdir(self.data_packs)
        self.input = Input()

    def __exit__(self, *details):
        if self.input:
            self.input.close()
        super().__exit__(*details)

    def wait(self, condition, what):
        """Like Session.wait; a node that is removed while it is read counts as a false result."""
        def answer():
            try:
                return condition()
            except GLib.Error:
                return None

        return super().wait(answer, what)

    def put_packs(self, *names):
        """Replaces the packs of the program by these."""
        shutil.rmtree(self.data_packs)
        os.mkdir(self.data_packs)
        for name in names:
            shutil.copy(os.path.join(self.packs, name), self.data_packs)

    def query(self, statement, *values, path=None):
        """The result rows of a statement, from the database of the program or from `path`."""
        database = path or os.path.join(self.stage, "TonalithDB97.mdb")
        with contextlib.closing(sqlite3.connect(f"file:{database}?mode=ro", uri=True)) as connection:
            return connection.execute(statement, values).fetchall()

    def is_showing(self, node):
        return node.get_state_set().contains(self.atspi.StateType.SHOWING)

    def windows(self):
        """The visible windows of the program."""
        application = self.window.get_application()
        application.clear_cache()
        return [window for window in children(application) if self.is_showing(window)]

    def is_active(self, window):
        """Whether the window has the keyboard and the program knows it.

        A window is visible before the keyboard is moved to it, and a closed one keeps the keyboard for a moment: a key
        sent meanwhile is lost.
        """
        self.input.give_keyboard()
        window.clear_cache()
        return window.get_state_set().contains(self.atspi.StateType.ACTIVE)

    def wait_for_window(self, name):
        """The window with this name, when it has the keyboard."""
        def found():
            return next((each for each in self.windows() if each.get_name() == name and self.is_active(each)), None)

        return self.wait(found, f"the window {name}")

    def wait_for_end_of(self, name):
        """Waits until no window has this name and another one has the keyboard."""
        def is_over():
            windows = self.windows()
            return all(window.get_name() != name for window in windows) and any(map(self.is_active, windows))

        self.wait(is_over, f"the end of {name}")

    def boxes(self):
        """The visible message boxes and their texts."""
        return [(window, self.text_of_box(window)) for window in self.windows() if self.is_box(window)]

    @staticmethod
    def is_box(window):
        return window.get_role_name() in BOXES and window.get_name() in ("Tonalith", "Confirm Deletion")

    @staticmethod
    def text_of_box(window):
        return "".join(node.get_name() for node in children(window) if node.get_role_name() == "label")

    def box(self):
        """The message box that has the keyboard, and its text, or None."""
        return next(((window, text) for window, text in self.boxes() if self.is_active(window)), None)

    def wait_for_box(self, text):
        """The message box that contains this text."""
        def found():
            box = self.box()
            return box and text in box[1] and box[0]

        return self.wait(found, f"the box {text}")

    def wait_for_no_box(self):
        """Waits until no message box is visible and another window has the keyboard."""
        self.wait(lambda: not self.boxes() and any(map(self.is_active, self.windows())), "the end of the message box")

    def find(self, window, role, name):
        """The node of the window with this role and this name or description."""
        def found():
            window.clear_cache()
            for node in descendants(window):
                names = (node.get_name().replace("&", ""), node.get_description())
                if node.get_role_name() == role and name in names and self.is_showing(node):
                    return node
            return None

        return self.wait(found, f"the {role} {name}")

    def showing_label(self, window, start):
        """Whether a label of the window begins with `start`."""
        window.clear_cache()
        return any(node.get_role_name() == "label" and node.get_name().startswith(start) and self.is_showing(node)
                   for node in descendants(window))

    def text_of(self, node):
        node.clear_cache()
        return self.atspi.Text.get_text(node, 0, -1)

    def wait_for_text(self, node, start):
        self.wait(lambda: self.text_of(node).startswith(start), f"the text {start}")

    def wait_for_scale(self, name):
        self.wait(lambda: self.scale() == name, f"the scale {name} in the main window")

    def scale(self):
        """The name of the scale that the main window shows."""
        node = self.find(self.window, "label", NAME_TIP)
        return node.get_name()

    def wait_for_keyboard_in(self, node):
        def has_it():
            node.clear_cache()
            return node.get_state_set().contains(self.atspi.StateType.FOCUSED)

        self.wait(has_it, f"the keyboard in {node.get_name()}")

    def click(self, node):
        place = node.get_extents(self.atspi.CoordType.SCREEN)
        self.input.click(place.x + place.width // 2, place.y + place.height // 2)

    def click_button(self, window, name):
        self.click(self.find(window, "push button", name))

    def choose_from_menu(self, menu, entry):
        opened = self.find(self.window, "menu item", menu)
        self.click(opened)
        self.click(self.find(opened, "menu item", entry))
