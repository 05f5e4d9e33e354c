# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The names of the notes and the tuning of the neck, for the tests of the running program."""

KEYS = ["C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"]

# The note numbers of the open strings, from string 1 to 6.
OPEN_STRINGS = [KEYS.index(note) for note in ("E", "B", "G", "D", "A", "E")]
