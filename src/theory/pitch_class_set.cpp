// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/pitch_class_set.h"

#include <algorithm>

namespace tonalith::theory {
std::optional<PitchClassSet> PitchClassSet::FromPattern(std::string_view pattern) {
  PitchClassSet set;
  int sum = 0;
  for (const char digit : pattern) {
    if (digit < '1' || digit > '9' || sum >= kSemitonesPerOctave) return std::nullopt;
    set.Add(PitchClass(sum));
    sum += digit - '0';
  }
  if (sum != kSemitonesPerOctave) return std::nullopt;
  return set;
}

PitchClassSet PitchClassSet::Mode(int index) const {
  if (IsEmpty()) return {};
  const int place = (index % Size() + Size()) % Size();
  return From(Members()[static_cast<std::size_t>(place)]);
}

PitchClassSet PitchClassSet::Inverted() const {
  PitchClassSet inverted;
  for (const PitchClass member : Members()) inverted.Add(PitchClass(-member.Semitones()));
  return inverted;
}

PitchClassSet PitchClassSet::PrimeForm() const {
  PitchClassSet form = *this;
  for (const PitchClassSet& side : {*this, Inverted()}) {
    // The higher a member, the higher its bit, so the smallest number is the form that is packed to the left.
    for (const PitchClass first : side.Members()) form = std::min(form, side.From(first));
  }
  return form;
}

std::array<int, kSemitonesPerOctave / 2> PitchClassSet::IntervalVector() const {
  std::array<int, kSemitonesPerOctave / 2> counts{};
  for (int interval = 1; interval <= kSemitonesPerOctave / 2; ++interval) {
    const int pairs = (*this & Transposed(interval)).Size();
    // A tritone is found from both of its ends.
    counts[static_cast<std::size_t>(interval - 1)] = interval == kSemitonesPerOctave / 2 ? pairs / 2 : pairs;
  }
  return counts;
}

std::vector<PitchClass> PitchClassSet::Members() const {
  std::vector<PitchClass> members;
  members.reserve(static_cast<std::size_t>(Size()));
  for (int semitone = 0; semitone < kSemitonesPerOctave; ++semitone) {
    if (Contains(PitchClass(semitone))) members.emplace_back(semitone);
  }
  return members;
}

std::vector<int> PitchClassSet::Steps() const {
  const std::vector<PitchClass> members = Members();
  std::vector<int> steps;
  for (std::size_t i = 0; i < members.size(); ++i) {
    const int step = members[i].SemitonesUpTo(members[(i + 1) % members.size()]);
    steps.push_back(step == 0 ? kSemitonesPerOctave : step);
  }
  return steps;
}

std::optional<std::string> PitchClassSet::Pattern() const {
  if (!Contains(PitchClass(0))) return std::nullopt;
  std::string pattern;
  for (const int step : Steps()) {
    if (step > 9) return std::nullopt;
    pattern += static_cast<char>('0' + step);
  }
  return pattern;
}

}  // namespace tonalith::theory
