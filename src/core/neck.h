// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The instrument as data: open strings as pitches and a number of positions. The start of the program chooses it and
// passes it on; everything counted, named, drawn or played by string and position is derived from it. Notes are
// numbered string by string, the highest string first, and along each string from the open string.

#pragma once

#include <vector>

#include "core/pitch.h"

namespace tonalith::core {

struct Neck {
  /// The highest string first.
  std::vector<Pitch> openStrings;
  /// Positions on each string, including the open string.
  int positions = 0;

  [[nodiscard]] int Strings() const { return static_cast<int>(openStrings.size()); }
  [[nodiscard]] int Notes() const { return Strings() * positions; }
  /// The pitch of note `index`, 0 to Notes() - 1. Throws std::out_of_range for any other index.
  [[nodiscard]] Pitch PitchAt(int index) const {
    return {openStrings.at(static_cast<std::size_t>(index / positions)).semitones + index % positions};
  }

  /// Six strings in standard tuning, E4 B3 G3 D3 A2 E2, open and with frets 1 to 15.
  static Neck Standard();
};

}  // namespace tonalith::core
