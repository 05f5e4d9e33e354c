# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Uses the windows by keyboard alone and by mouse alone: editor, search, packs, print, help.

By mouse, only names are typed. Results are checked on the screen, in the database and in the PDF file.
"""

import os
import re
import sys
import unittest

from close_request import open_screen
from windows_session import WindowsSession

KEEP = "Are you sure you want to keep these changes?"
DELETE = "Are you sure you want to delete this record?"
WHAT_NEXT = "Modify (F2) to change this scale or add one, Escape to close."
PATTERN_OF = "SELECT ScaleIntervals FROM Scales WHERE ScaleName = ?"
NAMES = "SELECT ScaleName FROM ScalesQuery ORDER BY ScaleID"
FERRYMAN = "Ferryman's Lament"
FIXTURE_ROWS = 270


class WindowsCase(unittest.TestCase):
    session = None

    def setUp(self):
        self.session.wait(lambda: len(self.session.windows()) == 1, "the main window alone on the screen")
        self.input = self.session.input
        self.input.press("ctrl+Home")
        self.session.wait_for_scale("Major")

    def pattern(self, name):
        rows = self.session.query(PATTERN_OF, name)
        return rows[0][0] if rows else None


class Editor(WindowsCase):
    def open(self, step):
        step()
        return self.session.wait_for_window("Scales")

    def open_by_keyboard(self):
        editor = self.open(lambda: self.input.press("ctrl+e"))
        self.input.press("F2")
        self.session.wait_for_keyboard_in(self.session.find(editor, "text", "Scale Name"))
        return editor

    def open_by_mouse(self):
        editor = self.open(lambda: self.session.click_button(self.session.window, "Editor"))
        self.session.click_button(editor, "Modify")
        return editor

    def click_notes(self, editor, *notes):
        for note in notes:
            self.session.click(self.session.find(editor, "check box", note))

    def wait_for_saved(self, editor, name, pattern):
        self.session.find(editor, "label", f"Saved: {name}. {WHAT_NEXT}")
        self.assertEqual(self.pattern(name), pattern)
        self.assertEqual(self.pattern("Major"), "2212221", "the record that was there before is as it was")

    def test_by_keyboard_a_scale_is_created_changed_and_deleted(self):
        session, input, name = self.session, self.input, "Campfire minor"
        editor = self.open_by_keyboard()
        # A fast user does not wait after Alt+A.
        input.press("alt+a")
        input.write(name)
        session.wait_for_text(session.find(editor, "text", "Scale Name"), name)
        # Escape closes the open list of types, not the editor.
        types = session.find(editor, "combo box", "Major and minor scales")
        input.press("Tab")
        session.wait_for_keyboard_in(types)
        input.press("alt+Down", "Page_Down", "Escape")
        session.wait_for_keyboard_in(types)
        # Tab past the type number to C, then from note to note: D# on, E off, A off, A# on, B off.
        input.press("Tab", "Tab", *["Tab"] * 3, "space", "Tab", "space", *["Tab"] * 5, "space", "Tab", "space", "Tab",
                    "space")
        session.find(editor, "label", "Apply saves 212232: T S T T T1.5 T")
        input.press("ctrl+Return")
        session.wait_for_box(KEEP)
        input.press("Return")
        self.wait_for_saved(editor, name, "212232")
        input.press("Escape")
        session.wait_for_end_of("Scales")
        input.press("ctrl+End")
        session.wait_for_scale(name)

        editor = self.open_by_keyboard()
        input.press(*["Tab"] * 3, *["Tab"] * 5, "space")
        session.find(editor, "label", "Apply saves 21432: T S T2 T1.5 T")
        input.press("ctrl+Return")
        session.wait_for_box(KEEP)
        input.press("Return")
        self.wait_for_saved(editor, name, "21432")
        input.press("Escape")
        session.wait_for_end_of("Scales")

        # Apply shows the first record again.
        input.press("ctrl+End")
        session.wait_for_scale(name)
        self.open_by_keyboard()
        for answer in ("Return", "alt+y"):
            input.press("alt+d")
            session.wait_for_box(DELETE)
            self.assertEqual(self.pattern(name), "21432", "No is the default")
            input.press(answer)
            session.wait_for_no_box()
        session.wait(lambda: self.pattern(name) is None, "the deletion")
        input.press("Escape")
        session.wait_for_end_of("Scales")

    def test_by_mouse_a_scale_is_created_changed_and_deleted(self):
        session, name = self.session, "Midnight major"
        editor = self.open_by_mouse()
        session.click_button(editor, "Add")
        field = session.find(editor, "text", "Scale Name")
        session.wait_for_text(field, "")
        session.wait_for_keyboard_in(field)
        self.input.write(name)
        session.wait_for_text(field, name)
        self.click_notes(editor, "E", "D#", "A", "B", "A#")
        session.find(editor, "label", "Apply saves 212232: T S T T T1.5 T")
        self.apply_by_mouse(editor)
        self.wait_for_saved(editor, name, "212232")
        session.click_button(editor, "Modify")
        session.click_button(editor, "Close")
        session.wait_for_end_of("Scales")
        session.click_button(session.window, "Last record")
        session.wait_for_scale(name)

        editor = self.open_by_mouse()
        self.click_notes(editor, "F")
        self.apply_by_mouse(editor)
        self.wait_for_saved(editor, name, "21432")
        session.click_button(editor, "Last record")
        session.wait_for_text(session.find(editor, "text", "Scale Name"), name)
        session.click_button(editor, "Modify")
        session.click_button(editor, "Delete")
        session.click_button(session.wait_for_box(DELETE), "Yes")
        session.wait_for_no_box()
        session.wait(lambda: self.pattern(name) is None, "the deletion")
        session.click_button(editor, "Close")
        session.wait_for_end_of("Scales")

    def test_by_screen_reader_a_note_is_selected_and_deselected(self):
        session, action = self.session, self.session.atspi.Action
        editor = self.open_by_mouse()
        note = session.find(editor, "check box", "A#")
        is_checked = lambda: note.get_state_set().contains(session.atspi.StateType.CHECKED)
        toggle = [action.get_action_name(note, index) for index in range(action.get_n_actions(note))].index("Toggle")
        action.do_action(note, toggle)
        session.wait(is_checked, "the selected note")
        session.wait(lambda: session.showing_label(editor, "Apply saves 22122111"), "what Apply would save")
        action.do_action(note, toggle)
        session.wait(lambda: not is_checked(), "the note as it was")
        session.wait(lambda: not session.showing_label(editor, "Apply saves 22122111"), "the notice as it was")
        session.click_button(editor, "Close")
        session.wait_for_end_of("Scales")

    def apply_by_mouse(self, editor):
        self.session.click_button(editor, "Apply")
        self.session.click_button(self.session.wait_for_box(KEEP), "OK")
        self.session.wait_for_no_box()


class Search(WindowsCase):
    PIECE = "*har*minor"
    WRAPPED = "You have searched all the records once"

    def setUp(self):
        super().setUp()
        self.names = [row[0] for row in self.session.query(NAMES)]
        self.matches = [name for name in self.names if re.search("har.*minor", name, re.IGNORECASE)]
        self.assertGreater(len(self.matches), 1)

    def visit_all(self, search, step):
        """Visits every match in order and the first one again, with the text about the wrap."""
        for name in [*self.matches, self.matches[0]]:
            step()
            self.session.wait_for_scale(name)
        self.session.find(search, "label", self.WRAPPED)

    def test_by_keyboard_every_match_is_found_in_order(self):
        session, input = self.session, self.input
        input.press("ctrl+f")
        search = session.wait_for_window("Search")
        input.write(self.PIECE)
        self.visit_all(search, lambda: input.press("Return"))
        input.write("qqq")
        input.press("Return")
        session.wait_for_box("No matches found.")
        input.press("Return")
        session.wait_for_no_box()
        input.press("Escape")
        session.wait_for_end_of("Search")
        self.assertEqual(session.scale(), self.matches[0])

    def test_by_mouse_every_match_is_found_in_order(self):
        session, input = self.session, self.input
        session.choose_from_menu("Tools", "Search")
        search = session.wait_for_window("Search")
        input.write(self.PIECE)
        self.visit_all(search, lambda: session.click_button(search, "Search"))
        # A click leaves the text selected, so the next text replaces it.
        input.write("qqq")
        session.click_button(search, "Search")
        session.click_button(session.wait_for_box("No matches found."), "OK")
        session.wait_for_no_box()
        session.click_button(search, "Cancel")
        session.wait_for_end_of("Search")
        self.assertEqual(session.scale(), self.matches[0])


class Packs(WindowsCase):
    def install(self, names, start, answer):
        """Installs these packs and answers each message; returns the added names."""
        before = self.library()
        self.session.put_packs(*names)
        start()
        left = set(names)
        while left:
            box, text = self.session.wait(self.session.box, f"a message on one of {sorted(left)}")
            self.assertRegex(text, "^Imported data pack: \n")
            name = os.path.basename(text)
            left.remove(name)
            answer(box)
            self.session.wait(lambda: all(name not in other for _, other in self.session.boxes()), f"the end of {text}")
        self.session.wait(self.can_install, "the end of the import")
        self.session.wait_for_no_box()
        return self.library() - before

    def library(self):
        return {row[0] for row in self.session.query(NAMES)}

    def can_install(self):
        button = self.session.find(self.session.window, "push button", "Install...")
        return button.get_state_set().contains(self.session.atspi.StateType.SENSITIVE)

    def names_in(self, pack):
        path = os.path.join(self.session.packs, pack)
        return {row[0] for row in self.session.query("SELECT ScaleName FROM Scales", path=path)}

    def test_by_keyboard_packs_are_installed(self):
        gained = self.install(
            ["DataPack_Jet2000.mdb", "DataPack_Melakarta.mdb", "DataPack_Jazz.mdb"],
            lambda: self.input.press("ctrl+i"),
            lambda _: self.input.press("Return"),
        )
        self.assertIn(FERRYMAN, gained)
        for pack in ("Melakarta", "Jazz"):
            self.assertEqual(self.names_in(f"DataPack_{pack}.mdb") - self.library(), set())
        self.input.press("ctrl+End")
        self.session.wait_for_scale(self.session.query(NAMES)[-1][0])

    def test_by_mouse_packs_are_installed(self):
        session = self.session
        gained = self.install(
            ["DataPack_Jet2003.mdb", "DataPack_World.mdb", "DataPack_Symmetric.mdb", "DataPack_PitchClassSets.mdb"],
            lambda: session.click_button(session.window, "Install..."),
            lambda box: session.click_button(box, "OK"),
        )
        self.assertEqual(sum(name.startswith("Fixture Row ") for name in gained), FIXTURE_ROWS)
        for pack in ("World", "Symmetric", "PitchClassSets"):
            self.assertEqual(self.names_in(f"DataPack_{pack}.mdb") - self.library(), set())
        session.click_button(session.window, "Last record")
        session.wait_for_scale(session.query(NAMES)[-1][0])


class Print(WindowsCase):
    def saved(self, dialog, path):
        """Waits for the message of the preview; returns the size of the page in points."""
        self.session.find(dialog, "label", f"Saved as {path}")
        with open(path, "rb") as file:
            content = file.read()
        self.assertTrue(content.startswith(b"%PDF-") and content.rstrip().endswith(b"%%EOF"))
        boxes = re.findall(rb"/MediaBox \[0 0 (\d+)[.\d]* (\d+)[.\d]*\]", content)
        self.assertEqual(len(boxes), 1, "one page")
        return tuple(int(number) for number in boxes[0])

    def test_by_keyboard_a_page_is_saved_and_left_unprinted(self):
        session, input, path = self.session, self.input, os.path.join(self.session.home, "letter")
        input.press("ctrl+p")
        dialog = session.wait_for_window("Print")
        input.press("alt+p", "End")
        session.find(dialog, "combo box", "Letter")
        input.press("alt+s")
        session.wait_for_window("Save as PDF")
        input.press("Escape")
        session.wait_for_end_of("Save as PDF")
        self.assertEqual(os.listdir(session.home), [])
        input.press("alt+s")
        session.wait_for_window("Save as PDF")
        input.write(path)
        input.press("Return")
        session.wait_for_end_of("Save as PDF")
        self.assertEqual(self.saved(dialog, path + ".pdf"), (792, 612))
        input.press("Escape")
        session.wait_for_end_of("Print")
        os.remove(path + ".pdf")

    def test_by_mouse_a_page_is_saved_and_left_unprinted(self):
        session, path = self.session, os.path.join(self.session.home, "Major in C.pdf")
        session.click_button(session.window, "Print")
        dialog = session.wait_for_window("Print")
        session.click(session.find(dialog, "combo box", "Landscape"))
        session.click(session.find(session.window.get_application(), "list item", "Portrait"))
        session.find(dialog, "combo box", "Portrait")
        session.click_button(dialog, "Save as PDF...")
        session.click_button(session.wait_for_window("Save as PDF"), "Save")
        session.wait_for_end_of("Save as PDF")
        width, height = self.saved(dialog, path)
        self.assertLess(width, height)
        session.click_button(dialog, "Close")
        session.wait_for_end_of("Print")
        os.remove(path)


class Help(WindowsCase):
    TITLE = "Tonalith Help"

    def page(self, window):
        return self.session.find(window, "label", "Help page")

    def test_by_keyboard_the_help_is_read(self):
        session, input = self.session, self.input
        input.press("alt+h", "Return")
        window = session.wait_for_window(self.TITLE)
        page = self.page(window)
        session.wait_for_text(page, "Welcome to Tonalith")
        session.wait_for_keyboard_in(page)
        input.press("Tab", "Return")
        session.wait_for_text(page, "First steps")
        input.press("alt+Left")
        session.wait_for_text(page, "Welcome to Tonalith")
        input.press("ctrl+f")
        input.write("neck")
        places = len(re.findall("neck", session.text_of(page), re.IGNORECASE))
        session.find(window, "label", f"{places} places")
        input.press("Escape", "alt+s")
        session.wait_for_keyboard_in(session.find(window, "text", "Search all pages"))
        input.write("wildcards list")
        input.press("Return")
        session.wait_for_text(page, "Wildcards")
        input.press("ctrl+plus")
        session.find(window, "label", "110 %")
        input.press("ctrl+0")
        session.find(window, "label", "100 %")
        input.press("Escape")
        session.wait_for_end_of(self.TITLE)

    def click_word(self, page, word):
        at = self.session.text_of(page).index(word) + 1
        place = self.session.atspi.Text.get_character_extents(page, at, self.session.atspi.CoordType.SCREEN)
        self.input.click(place.x + place.width // 2, place.y + place.height // 2)

    def test_by_mouse_the_help_is_read(self):
        session = self.session
        session.choose_from_menu("Help", "Help")
        window = session.wait_for_window(self.TITLE)
        page = self.page(window)
        session.wait_for_text(page, "Welcome to Tonalith")
        self.click_word(page, "First steps")
        session.wait_for_text(page, "First steps")
        session.click_button(window, "Back")
        session.wait_for_text(page, "Welcome to Tonalith")
        session.click_button(window, "Find in this page")
        session.wait_for_keyboard_in(session.find(window, "text", "Find in this page"))
        session.click_button(window, "Close the find bar")
        session.click(session.find(window, "page tab", "Search"))
        session.wait_for_keyboard_in(session.find(window, "text", "Search all pages"))
        self.input.write("wildcards list")
        session.click(session.find(window, "list item", "Wildcards"))
        session.wait_for_text(page, "Wildcards")
        session.click_button(window, "Larger text")
        session.find(window, "label", "110 %")
        session.click_button(window, "Smaller text")
        session.find(window, "label", "100 %")
        # The window manager would draw the close button.
        with open_screen() as screen:
            screen.ask_to_close(screen.window_titled(self.TITLE))
        session.wait_for_end_of(self.TITLE)


if __name__ == "__main__":
    with WindowsSession(sys.argv.pop(1)) as session:
        WindowsCase.session = session
        unittest.main(verbosity=2, warnings="ignore")
