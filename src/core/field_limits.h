// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The longest texts that a scale record may hold. Everything that writes records checks them, so that no text is long
// enough to make drawing or laying it out slow. Lengths count characters as core::CharacterCount does. Constants only.

#pragma once

#include <cstddef>

namespace tonalith::core {

/// What text columns of other database programs hold. The longest name that we ship has 52 characters.
inline constexpr std::size_t kLongestName = 255;
inline constexpr std::size_t kLongestTypeName = 255;
/// About two printed pages. The longest description that we ship has fewer than 300 characters.
inline constexpr std::size_t kLongestDescription = 8000;
/// Three octaves of semitones. Blanks do not count here.
inline constexpr std::size_t kMostPatternDigits = 36;
/// The same with a blank on each side of every digit.
inline constexpr std::size_t kLongestPattern = 3 * kMostPatternDigits;
/// A note name; leaves room for words such as "E flat".
inline constexpr std::size_t kLongestStartNote = 32;

}  // namespace tonalith::core
