// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A degree of a scale or chord relative to the major scale of its tonic: 1, b3, #11, bb7. Above 8 it is in the second
// octave, as chord symbols use it.

#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "theory/note_name.h"
#include "theory/parsed.h"
#include "theory/pitch.h"

namespace tonalith::theory {

struct Degree {
  /// The highest number of a chord symbol.
  static constexpr int kHighestNumber = 13;
  /// As many flats or sharps as a note may have.
  static constexpr int kMostAccidentals = 2;

  /// 1 to kHighestNumber.
  int number = 1;
  /// Semitones relative to the major scale: -kMostAccidentals to kMostAccidentals.
  int alteration = 0;

  /// Reads "b3", "#11", "bb7" and the signs of Unicode.
  [[nodiscard]] static Parsed<Degree> Parse(std::string_view text);

  /// ASCII: "b3", "#11", "bb7".
  [[nodiscard]] std::string ToText() const;
  /// Semitones above the tonic: 14 for 9, -1 for b1.
  [[nodiscard]] int Semitones() const;
  /// The place in the octave above the tonic.
  [[nodiscard]] theory::PitchClass PitchClass() const { return theory::PitchClass(Semitones()); }
  /// The number within the first octave: 2 for 9.
  [[nodiscard]] int SimpleNumber() const { return (number - 1) % kLetters + 1; }

  /// The note of this degree above `tonic`, on the letter of its number; nothing if that needs more than two sharps or
  /// flats.
  [[nodiscard]] std::optional<NoteName> Above(NoteName tonic) const;

  auto operator<=>(const Degree&) const = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace tonalith::theory
