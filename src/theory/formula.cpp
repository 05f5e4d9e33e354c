// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/formula.h"

#include <algorithm>

namespace tonalith::theory {

Formula::Formula(const std::vector<Degree>& degrees) {
  for (const Degree& degree : degrees) {
    if (set_.Contains(degree.PitchClass())) continue;
    degrees_.push_back(degree);
    set_.Add(degree.PitchClass());
  }
}

Parsed<Formula> Formula::Parse(std::string_view text) {
  constexpr std::string_view kSeparators = " \t,";
  if (text.size() > kMostBytes) return {ParseReason::kTooLong, kMostBytes};
  Formula formula;
  std::size_t at = text.find_first_not_of(kSeparators);
  while (at != std::string_view::npos) {
    const std::size_t end = std::min(text.find_first_of(kSeparators, at), text.size());
    const Parsed<Degree> degree = Degree::Parse(text.substr(at, end - at));
    if (!degree) return {degree.Error().reason, at + degree.Error().byte};
    if (formula.set_.Contains(degree->PitchClass())) return {ParseReason::kDegreeTwice, at};
    formula.degrees_.push_back(*degree);
    formula.set_.Add(degree->PitchClass());
    at = text.find_first_not_of(kSeparators, end);
  }
  if (formula.IsEmpty()) return {ParseReason::kEmpty, 0};
  return formula;
}

std::string Formula::ToText() const {
  std::string text;
  for (const Degree& degree : degrees_) text += (text.empty() ? "" : " ") + degree.ToText();
  return text;
}

const Degree* Formula::At(PitchClass aboveTonic) const {
  const auto found = std::ranges::find(degrees_, aboveTonic, &Degree::PitchClass);
  return found == degrees_.end() ? nullptr : &*found;
}

std::vector<Pitch> Formula::PitchesFrom(Pitch tonic) const {
  std::vector<Pitch> pitches;
  pitches.reserve(degrees_.size());
  for (const Degree& degree : degrees_) pitches.push_back(tonic.Up(degree.Semitones()));
  return pitches;
}

}  // namespace tonalith::theory
