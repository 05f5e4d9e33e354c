// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "content/degrees.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <tuple>

namespace tonalith::content_tests {
namespace {

constexpr int kHighest = 13;

int OfMajorScale(int number) {
  constexpr std::array<int, 7> kMajor = {0, 2, 4, 5, 7, 9, 11};
  return kMajor[static_cast<std::size_t>(number - 1) % 7] + (number - 1) / 7 * 12;
}

SpelledDegree WithSemitones(int number, int semitones) {
  if (std::abs(semitones - OfMajorScale(number)) > 2) throw std::invalid_argument("more than two accidentals");
  return {number, semitones};
}

}  // namespace

SpelledDegree ReadDegree(std::string_view text) {
  const std::size_t signs = std::min(text.find_first_not_of("b#"), text.size());
  const std::string_view accidental = text.substr(0, signs);
  const std::string_view digits = text.substr(signs);
  int number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = !digits.empty() && digits.front() != '0' && read.ptr == digits.data() + digits.size();
  constexpr std::array<std::string_view, 5> kAccidentals = {"bb", "b", "", "#", "##"};
  const auto* const found = std::ranges::find(kAccidentals, accidental);
  if (!isNumber || number < 1 || number > kHighest || found == kAccidentals.end()) {
    throw std::invalid_argument("no degree: " + std::string(text));
  }
  return {number, OfMajorScale(number) + static_cast<int>(found - kAccidentals.begin()) - 2};
}

std::vector<SpelledDegree> ReadFormula(std::string_view text) {
  std::vector<SpelledDegree> formula;
  while (true) {
    const std::size_t blank = text.find(' ');
    formula.push_back(ReadDegree(text.substr(0, blank)));
    if (blank == std::string_view::npos) return formula;
    text.remove_prefix(blank + 1);
  }
}

std::string ToText(const SpelledDegree& degree) {
  const int alteration = degree.semitones - OfMajorScale(degree.number);
  return std::string(static_cast<std::size_t>(std::abs(alteration)), alteration < 0 ? 'b' : '#') +
         std::to_string(degree.number);
}

std::string ToText(const std::vector<SpelledDegree>& formula) {
  std::string text;
  for (const SpelledDegree& degree : formula) text += (text.empty() ? "" : " ") + ToText(degree);
  return text;
}

std::vector<SpelledDegree> Sorted(std::vector<SpelledDegree> formula) {
  std::ranges::sort(formula, [](const SpelledDegree& a, const SpelledDegree& b) {
    return std::tie(a.semitones, a.number) < std::tie(b.semitones, b.number);
  });
  return formula;
}

std::vector<SpelledDegree> Rotated(const std::vector<SpelledDegree>& formula, std::size_t first) {
  std::vector<SpelledDegree> rotated;
  const SpelledDegree root = formula.at(first);
  for (std::size_t i = 0; i < formula.size(); ++i) {
    SpelledDegree degree = formula[(first + i) % formula.size()];
    if (std::tie(degree.number, degree.semitones) < std::tie(root.number, root.semitones)) {
      degree.number += 7;
      degree.semitones += 12;
    }
    rotated.push_back(WithSemitones(degree.number - root.number + 1, degree.semitones - root.semitones));
  }
  return rotated;
}

void Alter(std::vector<SpelledDegree>& formula, const SpelledDegree& degree) {
  const auto found = std::ranges::find(formula, degree.number, &SpelledDegree::number);
  if (found == formula.end()) throw std::invalid_argument("no degree " + std::to_string(degree.number));
  *found = degree;
}

}  // namespace tonalith::content_tests
