# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Requests a window to close as a window manager does when the user clicks the close button.

The virtual screen has no window manager, so this sends the request through Xlib. Uses the display of the environment.
"""

import contextlib
import ctypes

CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    """A client message event, padded to the size of the XEvent union."""

    _fields_ = [
        ("type", ctypes.c_int),
        ("serial", ctypes.c_ulong),
        ("send_event", ctypes.c_int),
        ("display", ctypes.c_void_p),
        ("window", ctypes.c_ulong),
        ("message_type", ctypes.c_ulong),
        ("format", ctypes.c_int),
        ("data", ctypes.c_long * 5),
        ("rest", ctypes.c_long * 24),
    ]


class Screen:
    """A connection to the display."""

    def __init__(self):
        self._x = ctypes.CDLL("libX11.so.6")
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XDefaultRootWindow.restype = ctypes.c_ulong
        self._x.XInternAtom.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(None))
        if not self._display:
            raise OSError("the display cannot be opened")

    def close(self):
        self._x.XCloseDisplay(self._display)

    def window_titled(self, title):
        return next((window for window in self._windows() if self._title(window) == title), None)

    def ask_to_close(self, window):
        """Returns after the X server has the request."""
        protocols, delete = (
            self._x.XInternAtom(self._display, name, False) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW")
        )
        event = ClientMessage(
            type=CLIENT_MESSAGE, window=window, message_type=protocols, format=32, data=(delete, 0, 0, 0, 0)
        )
        self._x.XSendEvent(self._display, ctypes.c_ulong(window), False, ctypes.c_long(0), ctypes.byref(event))
        self._x.XSync(self._display, False)

    def _windows(self):
        root = ctypes.c_ulong(self._x.XDefaultRootWindow(self._display))
        ignored, count, found = ctypes.c_ulong(), ctypes.c_uint(), ctypes.POINTER(ctypes.c_ulong)()
        self._x.XQueryTree(
            self._display, root, *(ctypes.byref(out) for out in (ignored, ignored, found, count))
        )
        windows = found[: count.value]
        if found:
            self._x.XFree(found)
        return windows

    def _title(self, window):
        name = ctypes.c_char_p()
        if not self._x.XFetchName(self._display, ctypes.c_ulong(window), ctypes.byref(name)):
            return None
        title = name.value.decode("utf-8", "replace")
        self._x.XFree(name)
        return title


def open_screen():
    return contextlib.closing(Screen())
