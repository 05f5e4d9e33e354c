// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The interval from a lower note up to a higher one, with its spelling: a diminished fourth and a major third sound
// alike, but differ.

#pragma once

#include <compare>
#include <optional>
#include <string>

#include "theory/degree.h"
#include "theory/note_name.h"

namespace tonalith::theory {

struct Interval {
  /// Letters up: 0 is a prime, 7 an octave.
  int steps = 0;
  int semitones = 0;

  /// From `lower` up to the nearest `upper`, less than an octave by letters: B to C is a second.
  [[nodiscard]] static Interval Between(NoteName lower, NoteName upper);
  /// With octaves; negative if `upper` is below.
  [[nodiscard]] static Interval Between(const SpelledNote& lower, const SpelledNote& upper);
  /// From the tonic up to its degree: b3 is a minor third.
  [[nodiscard]] static Interval To(const Degree& degree);

  /// The note at this interval above; nothing if that needs more than two sharps or flats.
  [[nodiscard]] std::optional<NoteName> Above(NoteName lower) const;
  /// What completes the octave: a major third becomes a minor sixth. Compound intervals are reduced first.
  [[nodiscard]] Interval Inverted() const;

  /// "P5", "M3", "m7", "A4", "d5", "AA4", "dd7"; "-m3" downwards. More alterations repeat the letter.
  [[nodiscard]] std::string ToText() const;

  auto operator<=>(const Interval&) const = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace tonalith::theory
