// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads chord names in words ("Dominant 7 flat 9") and chord symbols without their root ("7b9") and calculates the
// notes that they stand for, without looking at the tables. Pure functions; a text outside the grammar throws
// std::invalid_argument.
//
// The rules: a bare number from 7 up stacks thirds on the triad, major ones after "major", minor ones otherwise, and
// diminished ones on a diminished chord. A thirteenth leaves out the eleventh unless the third is minor. A suspended
// note takes the place of the third. An altered degree takes the place of the natural one, an added one joins it.
// An altered chord has both altered fifths and both altered ninths.

#pragma once

#include <string_view>

#include "content/pitch_class_set.h"

namespace tonalith::content_tests {

/// The notes of a chord named in words. What stands in parentheses is an alias and is passed over.
PitchClassSet ChordFromWords(std::string_view name);

/// The notes of a chord symbol without its root. Parentheses are passed over.
PitchClassSet ChordFromSymbol(std::string_view symbol);

}  // namespace tonalith::content_tests
