// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/chord_tones.h"

#include <algorithm>

namespace tonalith::instrument {
namespace {

constexpr theory::Degree kFifth{5, 0};
constexpr theory::Degree kNinth{9, 0};
constexpr theory::Degree kEleventh{11, 0};
constexpr theory::Degree kThirteenth{13, 0};
/// A triad without its fifth is an interval.
constexpr int kFewestNotesWithoutFifth = 3;

bool Has(const Chord& chord, theory::Degree degree) {
  const auto& degrees = chord.formula.Degrees();
  return std::find(degrees.begin(), degrees.end(), degree) != degrees.end();
}

}  // namespace

theory::PitchClassSet ChordTones::Required() const {
  theory::PitchClassSet required = all;
  for (const theory::PitchClass pitchClass : omittable) required.Remove(pitchClass);
  return required;
}

std::optional<int> ChordTones::MissingFrom(theory::PitchClassSet notes) const {
  theory::PitchClassSet missing = all - notes;
  int count = 0;
  for (const theory::PitchClass pitchClass : omittable) {
    if (missing.IsEmpty() || !missing.Contains(pitchClass)) break;
    missing.Remove(pitchClass);
    ++count;
  }
  return missing.IsEmpty() ? std::optional(count) : std::nullopt;
}

ChordTones TonesOf(const Chord& chord, int strings) {
  ChordTones tones;
  tones.all = chord.formula.Set().Transposed(chord.root.Semitones());
  const bool hasThirteenth = Has(chord, kThirteenth);
  const bool hasEleventh = Has(chord, kEleventh);
  const auto omit = [&](theory::Degree degree) {
    if (Has(chord, degree)) tones.omittable.push_back(chord.root.Up(degree.Semitones()));
  };
  if (chord.formula.Set().Size() > kFewestNotesWithoutFifth) omit(kFifth);
  if (hasThirteenth) omit(kEleventh);
  if (hasThirteenth || hasEleventh) omit(kNinth);
  if (chord.bass && !tones.all.Contains(*chord.bass)) tones.foreignBass = chord.bass;
  const int needed = tones.Required().Size() + (tones.foreignBass ? 1 : 0);
  if (needed > strings && tones.all.Contains(chord.root)) tones.omittable.push_back(chord.root);
  return tones;
}

}  // namespace tonalith::instrument
