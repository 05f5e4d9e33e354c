// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Which finger stops which string. Rules: at most four fingers; a barre is one finger on several strings of one fret,
// and each string under it is stopped at its fret or above. A barre is used where fingers alone do not suffice, and at
// the lowest fret of neighbouring strings if no open string is on the treble side of it, as players do (F 133211, Dm7
// xx0211; but A x02220 takes three fingers). The lowest fret gets the index finger; within a fret, fingers go from the
// lowest string up; frets further away get a further finger if one is left.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "instrument/frets.h"

namespace tonalith::instrument {

inline constexpr int kFingers = 4;
/// Finger 0 of an open or muted string.
inline constexpr int kNoFinger = 0;

struct Barre {
  int fret = 1;
  /// Indices of the outer strings that it stops; fromString is nearer to the player's face.
  int fromString = 0;
  int toString = 0;

  bool operator==(const Barre&) const = default;
};

struct Fingering {
  /// One per string: 1 (index) to 4 (little finger), or kNoFinger.
  std::vector<int> fingers;
  std::vector<Barre> barres;
  /// How many fingers are used.
  int count = 0;

  bool operator==(const Fingering&) const = default;
};

/// Nothing if more than four fingers are needed. At most Instrument::kMostStrings strings.
[[nodiscard]] std::optional<Fingering> FingeringOf(const Frets& frets);

}  // namespace tonalith::instrument
