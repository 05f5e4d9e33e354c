# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Upper bounds of times and shares, as support/timed.h has them for the other tests."""

import os

OUT_OF_PROPORTION = 20


def timely(promised):
    """The promise itself on a machine that does nothing else (TONALITH_TIMED is set), else far more."""
    return promised if "TONALITH_TIMED" in os.environ else promised * OUT_OF_PROPORTION
