// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/interval.h"

#include <array>
#include <cstdlib>

namespace tonalith::theory {
namespace {

/// The semitones of the major or perfect interval of each number.
constexpr std::array<int, kLetters> kLargeSemitones = {0, 2, 4, 5, 7, 9, 11};

bool IsPerfect(int simpleSteps) { return simpleSteps == 0 || simpleSteps == 3 || simpleSteps == 4; }

/// The quality for a difference in semitones from the major or perfect interval.
std::string QualityOf(int simpleSteps, int difference) {
  if (difference > 0) return std::string(static_cast<std::size_t>(difference), 'A');
  if (IsPerfect(simpleSteps)) {
    return difference == 0 ? "P" : std::string(static_cast<std::size_t>(-difference), 'd');
  }
  if (difference == 0) return "M";
  return difference == -1 ? "m" : std::string(static_cast<std::size_t>(-difference - 1), 'd');
}

}  // namespace

Interval Interval::Between(NoteName lower, NoteName upper) {
  SpelledNote high{upper, 0};
  if (upper.letter < lower.letter) ++high.octave;
  return Between(SpelledNote{lower, 0}, high);
}

Interval Interval::Between(const SpelledNote& lower, const SpelledNote& upper) {
  const auto place = [](const SpelledNote& note) {
    return note.octave * kLetters + static_cast<int>(note.name.letter);
  };
  return {place(upper) - place(lower), upper.Pitch().Midi() - lower.Pitch().Midi()};
}

Interval Interval::To(const Degree& degree) { return {degree.number - 1, degree.Semitones()}; }

std::optional<NoteName> Interval::Above(NoteName lower) const {
  return NoteName::At(LetterUp(lower.letter, steps), lower.PitchClass().Up(semitones));
}

Interval Interval::Inverted() const {
  const int octaves = steps / kLetters - (steps % kLetters < 0 ? 1 : 0);
  const int simpleSteps = steps - octaves * kLetters;
  return {kLetters - simpleSteps, kSemitonesPerOctave - (semitones - octaves * kSemitonesPerOctave)};
}

std::string Interval::ToText() const {
  const bool down = steps < 0 || (steps == 0 && semitones < 0);
  const int upSteps = std::abs(steps);
  const int upSemitones = down ? -semitones : semitones;
  const int simpleSteps = upSteps % kLetters;
  const int large = kLargeSemitones[static_cast<std::size_t>(simpleSteps)] + upSteps / kLetters * kSemitonesPerOctave;
  return (down ? "-" : "") + QualityOf(simpleSteps, upSemitones - large) + std::to_string(upSteps + 1);
}

}  // namespace tonalith::theory
