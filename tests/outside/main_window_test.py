# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Checks the main window through assistive technology: captions, descriptions, menus, notes."""

import re
import sys
import unittest
from pathlib import Path

from notes import KEYS, OPEN_STRINGS
from session import Session, children, descendants

# The description of a control is its tooltip.
DESCRIBED_LABELS = {
    "The name of the scale",
    "The scale description",
    "The type of scale",
    "The notes for the scale",
    "The step pattern for the scale in Tones and Semi tones",
    "The 3rd Fret",
    "The 5th Fret",
    "The 7th Fret",
    "The 9th Fret",
    "The 12th Fret",
}
KEY_TIP = "Select Starting Note To Transpose Scale. It is the Key of the scale."
BUTTONS = {"Editor", "Update", "Listen", "Print", "Install..."}
ARROWS = ["First record", "Previous record", "Next record", "Last record"]

NOTE = re.compile(r"([A-G]#?), string ([1-6]), (?:open|fret ([1-9]|1[0-5]))")


def menus_in_the_help():
    """The captions of the menus and their entries, in order, as the help lists them."""
    page = Path(__file__).resolve().parents[2] / "content/help/buttons.html"
    caption = r'<span class="caption">([^<]*)</span>'
    menus = {}
    for section in page.read_text(encoding="utf-8").split("<h2>"):
        heading = re.search(caption + " menu</h2>", section)
        if heading:
            menus[heading[1]] = re.findall("<tr><td>" + caption, section)
    return menus


class MainWindow(unittest.TestCase):
    session = None

    def setUp(self):
        self.nodes = [node for node in descendants(self.session.window) if self.is_showing(node)]

    def is_showing(self, node):
        return node.get_state_set().contains(self.session.atspi.StateType.SHOWING)

    def is_enabled(self, node):
        return node.get_state_set().contains(self.session.atspi.StateType.ENABLED)

    def named(self, role, name):
        found = [node for node in self.nodes if node.get_role_name() == role and node.get_name() == name]
        self.assertEqual(len(found), 1, f"{role} {name}")
        return found[0]

    def test_every_tooltip_is_a_description(self):
        texts = {node.get_description() for node in self.nodes}
        self.assertEqual(DESCRIBED_LABELS - texts, set())

    def test_the_first_record_is_major_in_c(self):
        names = [node.get_name() for node in self.nodes if node.get_description() == "The name of the scale"]
        self.assertEqual(names, ["Major"])
        key = self.key_box()
        self.assertEqual(key.get_description(), KEY_TIP)
        self.assertEqual([item.get_name() for item in descendants(key) if item.get_role_name() == "list item"], KEYS)

    def key_box(self):
        boxes = [node for node in self.nodes if node.get_role_name() == "combo box"]
        self.assertEqual(len(boxes), 1)
        return boxes[0]

    def test_the_step_line_describes_the_pattern(self):
        tip = "The step pattern for the scale in Tones and Semi tones"
        lines = [node.get_name() for node in self.nodes if node.get_description() == tip]
        self.assertEqual([line.split() for line in lines], [["Scale", "Steps:", *"TTSTTTS"]])

    def test_the_status_and_the_heading_of_the_data_control_can_be_read(self):
        texts = {node.get_name() for node in self.nodes}
        self.assertIn("Stopped", texts)
        self.assertIn("Select Scales", texts)

    def test_every_button_exists_once(self):
        for caption in BUTTONS | set(ARROWS):
            self.named("push button", caption)
        self.assertTrue(self.is_enabled(self.named("push button", "Update")))

    def test_the_arrows_are_in_reading_order(self):
        arrows = [self.named("push button", name) for name in ARROWS]
        lefts = [arrow.get_extents(self.session.atspi.CoordType.SCREEN).x for arrow in arrows]
        self.assertEqual(lefts, sorted(lefts))
        self.assertEqual(len(set(lefts)), len(ARROWS))

    def test_the_menus_are_in_order(self):
        bar = next(node for node in self.nodes if node.get_role_name() == "menu bar")
        menus = {}
        for menu in children(bar):
            popups = [child for child in children(menu) if child.get_role_name() == "popup menu"]
            menus[self.caption(menu)] = [self.caption(entry) for popup in popups for entry in children(popup)
                                         if entry.get_role_name() != "separator"]
        self.assertEqual(list(menus.items()), list(menus_in_the_help().items()))

    @staticmethod
    def caption(entry):
        return entry.get_name().replace("&", "")

    def test_every_visible_note_has_its_name_string_and_fret(self):
        notes = [node.get_name() for node in self.nodes if NOTE.fullmatch(node.get_name())]
        major = {"C", "D", "E", "F", "G", "A", "B"}
        expected = []
        for number, open_string in enumerate(OPEN_STRINGS, start=1):
            for fret in range(16):
                note = KEYS[(open_string + fret) % 12]
                if note in major:
                    expected.append(f"{note}, string {number}, " + (f"fret {fret}" if fret else "open"))
        self.assertEqual(sorted(notes), sorted(expected))

    def test_a_note_is_a_button_that_can_be_pressed(self):
        note = self.named("push button", "E, string 1, open")
        actions = [self.session.atspi.Action.get_action_name(note, index)
                   for index in range(self.session.atspi.Action.get_n_actions(note))]
        self.assertIn("Press", actions)

    def test_the_staff_describes_its_clef_and_notes(self):
        texts = [node.get_name() for node in self.nodes if node.get_name().startswith("Treble clef")]
        self.assertEqual(len(texts), 1)
        self.assertEqual(re.findall(r"[A-G]#?", texts[0].split(":", 1)[1]), list("CDEFGAB"))

    def test_a_disabled_button_cannot_be_pressed(self):
        for caption in BUTTONS:
            button = self.named("push button", caption)
            sensitive = button.get_state_set().contains(self.session.atspi.StateType.SENSITIVE)
            self.assertEqual(sensitive, self.is_enabled(button), caption)


if __name__ == "__main__":
    with Session(sys.argv.pop(1)) as session:
        MainWindow.session = session
        unittest.main(verbosity=2, warnings="ignore")
