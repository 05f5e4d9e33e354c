# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Upper bounds of times and shares, like support/timed.h."""

import os

LOADED_FACTOR = 20


def timely(bound):
    """The bound itself on an idle system (TONALITH_TIMED is set), otherwise a multiple of it."""
    return bound if "TONALITH_TIMED" in os.environ else bound * LOADED_FACTOR
