// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/degree.h"

#include <array>
#include <cstdlib>

#include "theory/accidental_text.h"

namespace tonalith::theory {
namespace {

constexpr std::array<int, kLetters> kMajorScale = {0, 2, 4, 5, 7, 9, 11};
// Longer numbers are above Degree::kHighestNumber.
constexpr std::size_t kMostDigits = 2;

}  // namespace

Parsed<Degree> Degree::Parse(std::string_view text) {
  if (text.empty()) return {ParseReason::kEmpty, 0};
  std::string_view rest = text;
  Degree degree;
  while (const std::optional<int> sign = TakeAccidentalSign(rest)) {
    degree.alteration += *sign;
    if (std::abs(degree.alteration) > kMostAccidentals) return {ParseReason::kTooManyAccidentals, 0};
  }
  const std::size_t digitsAt = text.size() - rest.size();
  degree.number = 0;
  std::size_t digits = 0;
  for (; digits < rest.size() && rest[digits] >= '0' && rest[digits] <= '9'; ++digits) {
    if (digits == kMostDigits) return {ParseReason::kUnknownDegree, digitsAt};
    degree.number = degree.number * 10 + (rest[digits] - '0');
  }
  if (degree.number < 1 || degree.number > kHighestNumber) return {ParseReason::kUnknownDegree, digitsAt};
  if (digits < rest.size()) return {ParseReason::kUnknownDegree, digitsAt + digits};
  return degree;
}

std::string Degree::ToText() const { return AsciiAccidentals(alteration) + std::to_string(number); }

int Degree::Semitones() const {
  const int octave = (number - 1) / kLetters;
  return octave * kSemitonesPerOctave + kMajorScale[static_cast<std::size_t>(SimpleNumber() - 1)] + alteration;
}

std::optional<NoteName> Degree::Above(NoteName tonic) const {
  return NoteName::At(LetterUp(tonic.letter, number - 1), tonic.PitchClass().Up(Semitones()));
}

}  // namespace tonalith::theory
