# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The main window on a screen that is smaller than its layout: small_screen_test.py STAGE WIDTHxHEIGHT SCALE.

On a desktop that is scaled up the program is drawn smaller, so that all of the window is on the screen. Where that is
impossible the window has scroll bars and is no larger than the screen.
"""

import ctypes
import os
import sys
import unittest

from session import Session, descendants


def largest_window():
    """Width and height of the largest window on the screen, in pixels of the screen: the accessibility bus has others."""
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
            self.assertEqual(self.scale, 1.0, "a desktop that is scaled up has room for a smaller scale")
            return
        window = self.extents(self.session.window)
        buttons = self.nodes("push button")
        self.assertTrue(buttons)
        for button in buttons:
            place = self.extents(button)
            self.assertLessEqual(place.x + place.width, window.x + window.width, button.get_name())
            self.assertLessEqual(place.y + place.height, window.y + window.height, button.get_name())


if __name__ == "__main__":
    stage, size, scale = sys.argv[1:4]
    del sys.argv[1:4]
    SmallScreen.screen = tuple(int(side) for side in size.split("x"))
    SmallScreen.scale = float(scale)
    os.environ["QT_SCALE_FACTOR"] = scale
    with Session(stage, screen=size) as session:
        SmallScreen.session = session
        unittest.main(verbosity=2, warnings="ignore")
