// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The maximum text lengths of a scale record, in characters as core::CharacterCount counts them. All code that writes
// records checks them, so that no text is slow to lay out or to draw.

#pragma once

#include <cstddef>

namespace tonalith::core {

/// The usual limit of text columns in other database programs. The longest shipped name has 52 characters.
inline constexpr std::size_t kLongestName = 255;
inline constexpr std::size_t kLongestTypeName = 255;
/// About two printed pages. The longest shipped description has fewer than 300 characters.
inline constexpr std::size_t kLongestDescription = 8000;
/// Three octaves of semitones. Blanks are not counted.
inline constexpr std::size_t kMostPatternDigits = 36;
/// kMostPatternDigits digits with a blank on each side of every digit.
inline constexpr std::size_t kLongestPattern = 3 * kMostPatternDigits;
/// Twelve degrees with double accidentals and two digits, and the blanks between them, take 59.
inline constexpr std::size_t kLongestFormula = 100;
/// A note name; long enough for text such as "E flat".
inline constexpr std::size_t kLongestStartNote = 32;

}  // namespace tonalith::core
