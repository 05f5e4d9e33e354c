// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Step words: the name of one interval in tones and semitones. "S" is a semitone, "T" a tone, any other interval is "T"
// and half of the digit (T1.5 is three semitones). The decimal separator is always a point.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tonalith::core {

/// The step word of the character at the 1-based `position` of a pattern. Empty, without a message, for a blank, for a
/// character that is no digit, and for positions outside the pattern.
std::string CNotesToTones(std::string_view pattern, std::ptrdiff_t position);

/// The step words of a pattern, each after two blanks, as the window shows them after "Scale Steps: ".
std::string StepLine(std::string_view pattern);

}  // namespace tonalith::core
