// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The neck that tests play on: six strings in standard tuning, sixteen positions each, as the program starts with.

#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "core/note_model.h"

namespace tonalith::tests {

inline constexpr int kPositions = 16;
/// The note numbers of the open strings, the highest string first.
inline constexpr std::array<int, 6> kOpenStrings{4, 11, 7, 2, 9, 4};
inline constexpr int kNeckNotes = kPositions * static_cast<int>(kOpenStrings.size());

/// The name of a note of the neck, from 0 to kNeckNotes - 1.
inline std::string NoteOfStandardTuning(int index) {
  const int note = kOpenStrings.at(static_cast<std::size_t>(index / kPositions)) + index % kPositions;
  return std::string(core::kSharpNotes.at(static_cast<std::size_t>(note % 12)));
}

}  // namespace tonalith::tests
