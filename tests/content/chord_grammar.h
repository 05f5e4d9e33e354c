// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Parses chord names ("Dominant 7 flat 9") and chord symbols without their root ("7b9") and calculates their notes,
// independently of the tables. Throws std::invalid_argument for a text outside the grammar.
//
// The rules: a bare number from 7 up stacks thirds on the triad, major ones after "major", minor ones otherwise, and
// diminished ones on a diminished chord. A thirteenth leaves out the eleventh unless the third is minor. A suspended
// note replaces the third. An altered degree replaces the natural one; an added degree does not replace any.
// An altered chord has both altered fifths and both altered ninths.

#pragma once

#include <string_view>

#include "content/pitch_class_set.h"

namespace tonalith::content_tests {

/// The notes of a chord name. Ignores text in parentheses: it is an alias.
PitchClassSet ChordFromWords(std::string_view name);

/// The notes of a chord symbol without its root. Ignores parentheses.
PitchClassSet ChordFromSymbol(std::string_view symbol);

}  // namespace tonalith::content_tests
