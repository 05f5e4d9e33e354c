// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The notes of a chord by their importance: those that every shape contains, and those that may be omitted, and in
// which order.

#pragma once

#include <optional>
#include <vector>

#include "theory/formula.h"
#include "theory/pitch.h"
#include "theory/pitch_class_set.h"

namespace tonalith::instrument {

/// A chord to be played.
struct Chord {
  theory::PitchClass root;
  theory::Formula formula;
  /// The note that must be the lowest, also one that the formula does not contain. Nothing: any note of the chord.
  std::optional<theory::PitchClass> bass;
};

struct ChordTones {
  /// The notes of the formula, counted from C.
  theory::PitchClassSet all;
  /// May be omitted, but each one only together with those before it: the perfect fifth of a chord of four or more
  /// notes, the natural eleventh below a thirteenth, the natural ninth below an eleventh or a thirteenth. The root
  /// comes last, and only if the others are more than the instrument has strings.
  std::vector<theory::PitchClass> omittable;
  /// A bass outside the formula. Only the lowest note of a shape may sound it.
  std::optional<theory::PitchClass> foreignBass;

  /// The notes that no shape lacks.
  [[nodiscard]] theory::PitchClassSet Required() const;
  /// How many notes of the chord are missing from `notes`; nothing if one is missing that must not be.
  [[nodiscard]] std::optional<int> MissingFrom(theory::PitchClassSet notes) const;
};

[[nodiscard]] ChordTones TonesOf(const Chord& chord, int strings);

}  // namespace tonalith::instrument
