// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The formula of a scale or chord: its degrees in their order, ascending for a scale (1 2 b3 4 5 b6 b7), in thirds for
// a chord (1 3 5 b7 9). No two degrees sound alike.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "theory/degree.h"
#include "theory/parsed.h"
#include "theory/pitch_class_set.h"

namespace tonalith::theory {

class Formula {
 public:
  /// Twelve degrees with accidentals and blanks fit easily.
  static constexpr std::size_t kMostBytes = 200;

  Formula() = default;
  /// Leaves out degrees that sound like an earlier one.
  explicit Formula(const std::vector<Degree>& degrees);
  /// Degrees separated by blanks or commas: "1 b3 4 5 b7".
  [[nodiscard]] static Parsed<Formula> Parse(std::string_view text);

  [[nodiscard]] const std::vector<Degree>& Degrees() const { return degrees_; }
  [[nodiscard]] bool IsEmpty() const { return degrees_.empty(); }
  /// The pattern: bit 0 is the tonic, whether or not the formula contains it.
  [[nodiscard]] PitchClassSet Set() const { return set_; }
  /// "1 b3 4 5 b7".
  [[nodiscard]] std::string ToText() const;
  /// The degree that sounds `semitones` above the tonic, if the formula has it.
  [[nodiscard]] const Degree* At(PitchClass aboveTonic) const;

  /// The pitches, with the tonic at `tonic`: a degree above 8 is in the second octave. In the order of the degrees.
  [[nodiscard]] std::vector<Pitch> PitchesFrom(Pitch tonic) const;

  bool operator==(const Formula&) const = default;

 private:
  std::vector<Degree> degrees_;
  PitchClassSet set_;
};

}  // namespace tonalith::theory
