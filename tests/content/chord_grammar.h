// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads chord names in words ("Dominant 7 flat 9") and chord symbols ("C7b9") and reckons the notes that they stand
// for, without looking at the tables. Pure functions; a text outside the grammar throws std::invalid_argument.
//
// The rules: a bare number from 7 up stacks thirds on the triad, major ones after "major", minor ones otherwise, and
// diminished ones on a diminished chord. A thirteenth leaves out the eleventh unless the third is minor. A suspended
// note takes the place of the third. An altered degree takes the place of the natural one, an added one joins it.

#pragma once

#include <string_view>

#include "content/pitch_class_set.h"

namespace tonalith::content_tests {

/// The notes of a chord named in words. What stands in parentheses is an alias and is passed over.
PitchClassSet ChordFromWords(std::string_view name);

/// The notes of a chord symbol on C.
PitchClassSet ChordFromSymbol(std::string_view symbol);

}  // namespace tonalith::content_tests
