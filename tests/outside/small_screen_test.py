# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The main window on a screen that is smaller than its layout: small_screen_test.py STAGE WIDTHxHEIGHT SCALE.

The window is scaled down to fit on the screen. If the smallest scale does not fit, the window has scroll bars. Notes
must react at the position where they are painted.
"""

import ctypes
import os
import sys
import unittest

from input import Input
from session import Session, descendants

# The width of the window, 1080 pixels, at the smallest scale, 0.7, plus its frame.
SMALLEST_WITHOUT_SCROLL_BARS = 760


def largest_window():
    """The size of the largest window in physical pixels: the accessibility bus uses logical ones."""
    x11 = ctypes.CDLL("libX11.so.6")
    window, number = ctypes.c_ulong, ctypes.c_uint
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XDefaultRootWindow.restype = window
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    root, parent, children, count = window(), window(), ctypes.POINTER(window)(), number()
    top = window(x11.XDefaultRootWindow(display))
    x11.XQueryTree(display, top, *map(ctypes.byref, (root, parent, children, count)))
    sizes = []
    for index in range(count.value):
        left, up, (width, height, border, depth) = ctypes.c_int(), ctypes.c_int(), (number() for _ in range(4))
        answers = (root, left, up, width, height, border, depth)
        x11.XGetGeometry(display, window(children[index]), *map(ctypes.byref, answers))
        sizes.append((width.value, height.value))
    x11.XCloseDisplay(display)
    return max(sizes, key=lambda size: size[0] * size[1])


class SmallScreen(unittest.TestCase):
    session = None
    screen = (0, 0)
    scale = 1.0

    def extents(self, node):
        return node.get_extents(self.session.atspi.CoordType.SCREEN)

    def nodes(self, role):
        return [node for node in descendants(self.session.window) if node.get_role_name() == role]

    def test_the_window_is_no_larger_than_the_screen(self):
        width, height = largest_window()
        self.assertGreater(width, self.screen[0] / 2)
        self.assertLessEqual(width, self.screen[0])
        self.assertLessEqual(height, self.screen[1])

    def test_every_button_is_on_the_screen_or_can_be_scrolled_to(self):
        if self.nodes("scroll bar"):
            self.assertLess(self.screen[0], SMALLEST_WITHOUT_SCROLL_BARS * self.scale, "a smaller scale would fit")
            return
        window = self.extents(self.session.window)
        buttons = self.nodes("push button")
        self.assertTrue(buttons)
        for button in buttons:
            place = self.extents(button)
            self.assertLessEqual(place.x + place.width, window.x + window.width, button.get_name())
            self.assertLessEqual(place.y + place.height, window.y + window.height, button.get_name())

    def test_a_click_reaches_the_note_under_the_pointer(self):
        # The accessibility bus divides positions by the scale of the program.
        scale = largest_window()[0] / self.extents(self.session.window).width
        input = Input()
        for name in ("C, string 2, fret 1", "A, string 5, fret 12"):
            note = next(node for node in self.nodes("push button") if node.get_name() == name)
            place = self.extents(note)
            input.click((place.x + place.width / 2) * scale, (place.y + place.height / 2) * scale)
            focused = self.session.atspi.StateType.FOCUSED
            self.session.wait(lambda: note.get_state_set().contains(focused), f"focus on {name}")
        input.close()


if __name__ == "__main__":
    stage, size, scale = sys.argv[1:4]
    del sys.argv[1:4]
    SmallScreen.screen = tuple(int(side) for side in size.split("x"))
    SmallScreen.scale = float(scale)
    os.environ["QT_SCALE_FACTOR"] = scale
    with Session(stage, screen=size) as session:
        SmallScreen.session = session
        unittest.main(verbosity=2, warnings="ignore")
