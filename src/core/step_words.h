// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Step words: the name of one interval in tones and semitones. "S" is a semitone, "T" a tone, anything else "T" and the
// half of the digit (T1.5 is three semitones). The decimal separator is always a point. Pure
// functions; any thread; never fail.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tonalith::core {

/// The step word of the character at the 1-based `position` of an interval pattern. Empty, without a message, for a
/// blank, a character that is no digit, and any position outside the pattern.
std::string CNotesToTones(std::string_view pattern, std::ptrdiff_t position);

/// The words of a whole pattern, each preceded by two blanks, as they stand behind "Scale Steps: ".
std::string StepLine(std::string_view pattern);

}  // namespace tonalith::core
