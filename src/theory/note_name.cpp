// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/note_name.h"

#include <array>

namespace tonalith::theory {
namespace {

constexpr std::array<int, kLetters> kLetterSemitones = {0, 2, 4, 5, 7, 9, 11};
constexpr int kOctavesBelowMidiZero = 1;

int SemitonesOf(Letter letter) { return kLetterSemitones[static_cast<std::size_t>(letter)]; }

NoteName NameWithin(PitchClass pitchClass, Accidental accidental) {
  const int natural = pitchClass.Semitones() - static_cast<int>(accidental);
  for (int letter = 0; letter < kLetters; ++letter) {
    if (kLetterSemitones[letter] == pitchClass.Semitones()) return {static_cast<Letter>(letter), Accidental::kNatural};
  }
  for (int letter = 0; letter < kLetters; ++letter) {
    if (kLetterSemitones[letter] == natural) return {static_cast<Letter>(letter), accidental};
  }
  return {};
}

}  // namespace

Letter LetterUp(Letter letter, int steps) {
  const int sum = (static_cast<int>(letter) + steps) % kLetters;
  return static_cast<Letter>((sum + kLetters) % kLetters);
}

std::optional<NoteName> NoteName::At(Letter letter, theory::PitchClass pitchClass) {
  // The shortest way round the octave, -5 to 6 semitones.
  int alteration = theory::PitchClass(SemitonesOf(letter)).SemitonesUpTo(pitchClass);
  if (alteration > kSemitonesPerOctave / 2) alteration -= kSemitonesPerOctave;
  if (alteration < static_cast<int>(Accidental::kDoubleFlat) ||
      alteration > static_cast<int>(Accidental::kDoubleSharp)) {
    return std::nullopt;
  }
  return NoteName{letter, static_cast<Accidental>(alteration)};
}

theory::PitchClass NoteName::PitchClass() const { return theory::PitchClass(SemitonesOf(letter) + Alteration()); }

NoteName SharpName(PitchClass pitchClass) { return NameWithin(pitchClass, Accidental::kSharp); }
NoteName FlatName(PitchClass pitchClass) { return NameWithin(pitchClass, Accidental::kFlat); }

std::optional<SpelledNote> SpelledNote::At(NoteName name, theory::Pitch pitch) {
  if (name.PitchClass() != pitch.Class()) return std::nullopt;
  // Without its accidental the note is on its letter, which decides the octave.
  const int natural = pitch.Midi() - name.Alteration() - SemitonesOf(name.letter);
  return SpelledNote{name, natural / kSemitonesPerOctave - kOctavesBelowMidiZero};
}

theory::Pitch SpelledNote::Pitch() const {
  return theory::Pitch((octave + kOctavesBelowMidiZero) * kSemitonesPerOctave + SemitonesOf(name.letter) +
                       name.Alteration());
}

}  // namespace tonalith::theory
