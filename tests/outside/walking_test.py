# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Navigation in the library: arrows, keys, key box, names, and a click on a note.

The expected records are read with plain SQL from the copy of the database that the program has opened.
"""

import contextlib
import os
import re
import sqlite3
import sys
import unittest

from notes import KEYS
from session import Session, descendants

NOTE = re.compile(r"([A-G]#?), string [1-6], (?:open|fret \d+)")
NAME_TIP = "The name of the scale"
TYPE_TIP = "The type of scale"


class Walking(unittest.TestCase):
    session = None

    @classmethod
    def setUpClass(cls):
        database = os.path.join(cls.session.stage, "TonalithDB97.mdb")
        with contextlib.closing(sqlite3.connect(f"file:{database}?mode=ro", uri=True)) as connection:
            cls.records = connection.execute(
                "SELECT ScaleName, ScaleTypeName, ScaleIntervals FROM ScalesQuery ORDER BY ScaleID"
            ).fetchall()

    def setUp(self):
        self.press("First record")
        self.expect(0, "C")

    def nodes(self):
        showing = self.session.atspi.StateType.SHOWING
        return [node for node in descendants(self.session.window) if node.get_state_set().contains(showing)]

    def described(self, tip):
        return next((node.get_name() for node in self.nodes() if node.get_description() == tip), None)

    def button(self, name):
        return next(node for node in self.nodes() if node.get_role_name() == "push button" and node.get_name() == name)

    def press(self, name):
        action = self.session.atspi.Action
        button = self.button(name)
        names = [action.get_action_name(button, index) for index in range(action.get_n_actions(button))]
        self.assertTrue(action.do_action(button, names.index("Press")))

    def visible_notes(self):
        return {match.group(1) for match in (NOTE.fullmatch(node.get_name()) for node in self.nodes()) if match}

    def expect(self, row, key):
        """Checks the name, the type and the notes of a record in a key."""
        name, kind, pattern = self.records[row]
        number = KEYS.index(key)
        notes = {key}
        for step in pattern:
            number += int(step)
            notes.add(KEYS[number % 12])
        self.session.wait(lambda: self.described(NAME_TIP) == name, f"the name {name}")
        self.session.wait(lambda: self.visible_notes() == notes, f"the notes {sorted(notes)} on the neck")
        self.assertEqual(self.described(TYPE_TIP), kind)

    def type_keys(self, *names):
        """Presses and releases keys of the keyboard of the virtual screen."""
        atspi = self.session.atspi
        for name in names:
            keyval = KEYVALS.get(name)
            if keyval is None:
                atspi.generate_keyboard_event(0, name, atspi.KeySynthType.STRING)
            else:
                atspi.generate_keyboard_event(keyval, None, atspi.KeySynthType.SYM)

    def type_with_control(self, name):
        atspi = self.session.atspi
        atspi.generate_keyboard_event(CONTROL_KEYCODE, None, atspi.KeySynthType.PRESS)
        self.type_keys(name)
        atspi.generate_keyboard_event(CONTROL_KEYCODE, None, atspi.KeySynthType.RELEASE)

    def click(self, node):
        """A real click. Without a window manager the keyboard focus follows the pointer."""
        place = node.get_extents(self.session.atspi.CoordType.SCREEN)
        x, y = place.x + place.width // 2, place.y + place.height // 2
        self.assertTrue(self.session.atspi.generate_mouse_event(x, y, "b1c"))

    def choose_key(self, text):
        box = next(node for node in self.nodes() if node.get_role_name() == "combo box")
        field = next(node for node in descendants(box) if node.get_role_name() == "text")
        self.click(field)
        self.session.atspi.EditableText.set_text_contents(field, "")
        self.type_keys(text)

    def tearDown(self):
        self.choose_key("C")

    def test_next_and_previous_move_by_one_record(self):
        for row in (1, 2, 3):
            self.press("Next record")
            self.expect(row, "C")
        self.press("Previous record")
        self.expect(2, "C")

    def test_last_and_first_stop_at_the_ends(self):
        self.press("Last record")
        self.expect(len(self.records) - 1, "C")
        self.press("First record")
        self.expect(0, "C")

    def test_page_keys_and_control_home_and_end_move_too(self):
        self.click(next(node for node in self.nodes() if node.get_description() == NAME_TIP))
        self.type_keys("Page_Down")
        self.expect(1, "C")
        self.type_keys("Page_Down")
        self.expect(2, "C")
        self.type_keys("Page_Up")
        self.expect(1, "C")
        self.type_with_control("End")
        self.expect(len(self.records) - 1, "C")
        self.type_with_control("Home")
        self.expect(0, "C")

    def test_a_typed_key_transposes_the_same_record(self):
        self.choose_key("D")
        self.expect(0, "D")
        self.press("Next record")
        self.expect(1, "D")

    def test_a_typed_flat_becomes_an_item_on_enter(self):
        self.choose_key("bb")
        self.type_keys("Return")
        self.expect(0, "A#")

    def test_the_data_control_reports_its_position(self):
        bar = next(node for node in self.nodes() if node.get_name() == "Select Scales" and node.get_child_count() > 0)
        for row, command in enumerate(["First record", "Next record", "Next record"]):
            self.press(command)
            expected = f"{row + 1} of {len(self.records)}"
            self.session.wait(lambda wanted=expected: bar.get_description() == wanted, f"the position {expected}")

    def test_update_stays_on_the_record(self):
        self.press("Next record")
        self.expect(1, "C")
        self.press("Update")
        self.expect(1, "C")

    def test_a_pressed_note_does_not_prevent_navigation(self):
        self.press("E, string 1, open")
        self.press("Next record")
        self.expect(1, "C")


# X11 keysyms, and the keycode of the left Control key.
KEYVALS = {"Page_Up": 0xFF55, "Page_Down": 0xFF56, "Home": 0xFF50, "End": 0xFF57, "Return": 0xFF0D}
CONTROL_KEYCODE = 37

if __name__ == "__main__":
    with Session(sys.argv.pop(1)) as session:
        Walking.session = session
        unittest.main(verbosity=2, warnings="ignore")
