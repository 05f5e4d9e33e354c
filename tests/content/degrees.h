// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Formulas of the tables as numbers, read without the code of the program. Throws std::invalid_argument for text that
// the comment at the top of scales.tsv does not allow.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tonalith::content_tests {

struct SpelledDegree {
  /// 1 to 13.
  int number = 0;
  /// Above the root: 14 for 9, 3 for b3.
  int semitones = 0;

  /// The letter, counted from that of the root, from 0.
  [[nodiscard]] int Letter() const { return (number - 1) % 7; }
  bool operator==(const SpelledDegree&) const = default;
};

/// "b3", "#11" or "bb7".
SpelledDegree ReadDegree(std::string_view text);
/// Degrees separated by one blank each.
std::vector<SpelledDegree> ReadFormula(std::string_view text);

std::string ToText(const SpelledDegree& degree);
std::string ToText(const std::vector<SpelledDegree>& formula);

/// In ascending order.
std::vector<SpelledDegree> Sorted(std::vector<SpelledDegree> formula);

/// The mode that starts on the degree `first`, counted from 0.
std::vector<SpelledDegree> Rotated(const std::vector<SpelledDegree>& formula, std::size_t first);

/// Replaces the degree with the same number by another accidental; throws if there is none.
void Alter(std::vector<SpelledDegree>& formula, const SpelledDegree& degree);

}  // namespace tonalith::content_tests
