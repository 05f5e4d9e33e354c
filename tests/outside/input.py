# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Sends real key and mouse events on the virtual screen, through Xlib and the XTest extension.

The virtual screen has no window manager, so before every key Input gives the keyboard focus to the topmost window if no
window has it. All events use one connection, so they arrive in the order of the calls. Uses the display of the
environment. Raises ValueError for a key that the keyboard of the screen lacks.
"""

import ctypes

MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}
# Keysyms of ISO 8859-1 characters equal their codes; XStringToKeysym needs names for these.
NAMED = {" ": "space", "\n": "Return"}
REVERT_TO_POINTER_ROOT = 1
CURRENT_TIME = 0
VIEWABLE = 2
LEFT_BUTTON = 1


class Attributes(ctypes.Structure):
    """The structure XWindowAttributes."""

    _fields_ = [
        ("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
        ("border_width", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong),
        ("window_class", ctypes.c_int), ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int),
        ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong),
        ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int),
        ("map_state", ctypes.c_int), ("all_event_masks", ctypes.c_long), ("your_event_mask", ctypes.c_long),
        ("do_not_propagate_mask", ctypes.c_long), ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p),
    ]


class Input:
    """input.press("ctrl+e"), input.write("Campfire minor"), input.click(x, y)."""

    def __init__(self):
        self._x = ctypes.CDLL("libX11.so.6")
        self._test = ctypes.CDLL("libXtst.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        self._x.XStringToKeysym.restype = ctypes.c_ulong
        self._x.XkbKeycodeToKeysym.restype = ctypes.c_ulong
        # A window may be closed between query and request; the default handler would end the test.
        handler = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
        self._ignore = handler(lambda *_: 0)
        self._x.XSetErrorHandler(self._ignore)
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(None))
        if not self._display:
            raise OSError("the display cannot be opened")
        self._root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))

    def close(self):
        self._x.XCloseDisplay(self._display)

    def press(self, *chords):
        """A chord is the X name of a key, after optional modifiers: "Tab", "alt+a", "shift+Tab"."""
        for chord in chords:
            *modifiers, name = chord.split("+")
            self._strike([MODIFIERS[modifier] for modifier in modifiers], self._keysym(name))

    def write(self, text):
        for character in text:
            self._strike([], self._keysym(NAMED[character]) if character in NAMED else ord(character))

    def click(self, x, y):
        self._test.XTestFakeMotionEvent(self._display, -1, int(x), int(y), ctypes.c_ulong(0))
        for is_down in (True, False):
            self._test.XTestFakeButtonEvent(self._display, LEFT_BUTTON, is_down, ctypes.c_ulong(0))
        self._x.XSync(self._display, False)

    def _keysym(self, name):
        keysym = self._x.XStringToKeysym(name.encode())
        if not keysym:
            raise ValueError(f"no key is called {name}")
        return keysym

    def _strike(self, modifiers, keysym):
        code = self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(keysym))
        if not code:
            raise ValueError(f"the keyboard has no key for {keysym:#x}")
        if self._x.XkbKeycodeToKeysym(self._display, code, 0, 0) != keysym:
            modifiers = [*modifiers, MODIFIERS["shift"]]
        held = [self._x.XKeysymToKeycode(self._display, ctypes.c_ulong(self._keysym(name))) for name in modifiers]
        self.give_keyboard()
        for key in [*held, code]:
            self._test.XTestFakeKeyEvent(self._display, key, True, ctypes.c_ulong(0))
        for key in [code, *reversed(held)]:
            self._test.XTestFakeKeyEvent(self._display, key, False, ctypes.c_ulong(0))
        self._x.XSync(self._display, False)

    def give_keyboard(self):
        """Moves the keyboard focus to the topmost window if no window has it."""
        has_it, revert_to = ctypes.c_ulong(), ctypes.c_int()
        self._x.XGetInputFocus(self._display, ctypes.byref(has_it), ctypes.byref(revert_to))
        if has_it.value > REVERT_TO_POINTER_ROOT and has_it.value != self._root.value:
            return
        for window in reversed(self._windows()):
            if self._takes_keys(window):
                self._x.XSetInputFocus(self._display, ctypes.c_ulong(window), REVERT_TO_POINTER_ROOT, CURRENT_TIME)
                self._x.XSync(self._display, False)
                return

    def _windows(self):
        """The windows on the screen, topmost last."""
        ignored, count, found = ctypes.c_ulong(), ctypes.c_uint(), ctypes.POINTER(ctypes.c_ulong)()
        self._x.XQueryTree(
            self._display, self._root, *(ctypes.byref(out) for out in (ignored, ignored, found, count))
        )
        windows = found[: count.value]
        if found:
            self._x.XFree(found)
        return windows

    def _takes_keys(self, window):
        attributes = Attributes()
        is_there = self._x.XGetWindowAttributes(self._display, ctypes.c_ulong(window), ctypes.byref(attributes))
        return is_there and attributes.map_state == VIEWABLE and not attributes.override_redirect
