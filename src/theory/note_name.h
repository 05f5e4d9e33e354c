// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Spelled notes: a letter with an accidental, and the same with an octave. Plain values; their texts are in
// note_style.h and note_parser.h.

#pragma once

#include <compare>
#include <cstdint>
#include <optional>

#include "theory/pitch.h"

namespace tonalith::theory {

inline constexpr int kLetters = 7;

enum class Letter : std::uint8_t { kC, kD, kE, kF, kG, kA, kB };

/// The letter `steps` above (or below, if negative).
[[nodiscard]] Letter LetterUp(Letter letter, int steps);

/// The semitones by which an accidental changes a letter are its value.
enum class Accidental : std::int8_t { kDoubleFlat = -2, kFlat = -1, kNatural = 0, kSharp = 1, kDoubleSharp = 2 };

/// A note with a spelling, in any octave: F# and Gb differ.
struct NoteName {
  Letter letter = Letter::kC;
  Accidental accidental = Accidental::kNatural;

  /// This letter with the accidental that gives the pitch class; nothing if that needs more than two flats or sharps.
  [[nodiscard]] static std::optional<NoteName> At(Letter letter, PitchClass pitchClass);

  [[nodiscard]] theory::PitchClass PitchClass() const;
  /// -2 for a double flat to 2 for a double sharp.
  [[nodiscard]] int Alteration() const { return static_cast<int>(accidental); }

  auto operator<=>(const NoteName&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// The name with the fewest accidentals; a black key gets a sharp or a flat.
[[nodiscard]] NoteName SharpName(PitchClass pitchClass);
[[nodiscard]] NoteName FlatName(PitchClass pitchClass);

/// A note with a spelling and an octave. Octaves change between B and C, by the letter: B#3 sounds as C4, which is MIDI
/// 60.
struct SpelledNote {
  NoteName name;
  int octave = 4;

  /// The pitch, spelled with `name`; nothing if the name belongs to another pitch class.
  [[nodiscard]] static std::optional<SpelledNote> At(NoteName name, Pitch pitch);

  /// May be outside the range of MIDI: see Pitch::IsMidi.
  [[nodiscard]] theory::Pitch Pitch() const;

  auto operator<=>(const SpelledNote&) const = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace tonalith::theory
