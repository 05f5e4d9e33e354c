// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The neck as data: open strings as pitches and a number of positions. The only place that defines the number of
// strings and their tuning; everything counted, named, drawn or played by string and position is derived from it. Notes
// are numbered string by string, the highest string first, and along each string from the open string.

#pragma once

#include <cstdint>
#include <vector>

#include "core/note_model.h"

namespace tonalith::core {

/// A pitch in semitones, 12 times its octave in scientific numbering plus its note number (E4 is 52).
struct Pitch {
  std::int16_t semitones = 0;
  static constexpr Pitch Of(NoteNumber note, int octave) { return {static_cast<std::int16_t>(12 * octave + note)}; }
};

struct Neck {
  /// The highest string first.
  std::vector<Pitch> openStrings;
  /// Positions on each string, including the open string.
  int positions = 0;

  [[nodiscard]] int Strings() const { return static_cast<int>(openStrings.size()); }
  [[nodiscard]] int Notes() const { return Strings() * positions; }

  /// Six strings in standard tuning, E4 B3 G3 D3 A2 E2, open and with frets 1 to 15.
  static Neck Standard();
};

}  // namespace tonalith::core
