# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""The list of cases: a case is a function of the session, known by its name, that throws when something is wrong."""

CASES = {}
SHORT = set()


class Skipped(Exception):
    """This machine cannot do the case; the text says why."""


def case(name, short=False):
    """Enters the function under this name; `short` puts it into the short run too."""
    def enter(function):
        CASES[name] = function
        if short:
            SHORT.add(name)
        return function

    return enter


def require(condition, finding):
    if not condition:
        raise AssertionError(finding)
