# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The registry of cases: a case has a name and is a function of the session that raises an exception on failure."""

CASES = {}
SHORT = set()


class Skipped(Exception):
    """The case cannot run on this system; the text is the reason."""


def case(name, short=False):
    """Registers a function under this name; `short` includes it in the short run."""
    def enter(function):
        CASES[name] = function
        if short:
            SHORT.add(name)
        return function

    return enter


def require(condition, finding):
    if not condition:
        raise AssertionError(finding)
