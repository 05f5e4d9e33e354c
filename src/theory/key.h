// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Keys: the signature of a scale on a tonic, and which of two names of a tonic is easier to read.
//
// The modes of the major scale have the signature of their parent. Natural, harmonic and melodic minor share one. A
// scale of five notes has the signature of its parent: the major scale that a black-key pentatonic belongs to;
// otherwise the only diatonic scale that contains it, or of several the one nearest to major and minor on the same
// tonic; otherwise the minor scale if the harmonic or melodic one contains it. Chords and other scales have no
// signature.

#pragma once

#include <cstdint>
#include <optional>

#include "theory/formula.h"
#include "theory/note_name.h"
#include "theory/pitch_class_set.h"

namespace tonalith::theory {

enum class SetKind : std::uint8_t { kScale, kChord };

/// The most accidentals of a key signature.
inline constexpr int kMostSignatureAccidentals = 7;

/// The place of a note in the circle of fifths: C is 0, G 1, F -1, F# 6. It is the signature of its major key.
[[nodiscard]] int FifthsOf(NoteName note);

/// The sharps (positive) or flats (negative) of the scale's key, also above seven. Nothing for a set that has no key.
[[nodiscard]] std::optional<int> TheoreticalSignature(NoteName tonic, PitchClassSet pattern);

/// How many accidentals a reader meets: those of the signature, or else those of the spelled notes, double ones as two.
[[nodiscard]] int AccidentalCount(NoteName tonic, const Formula& formula, SetKind kind);

/// The name of a tonic with the fewest accidentals: Bb major, but G# minor. Equal ones are F#, Db, Eb, Ab and Bb; a
/// name without an accidental precedes.
[[nodiscard]] NoteName ConventionalTonic(PitchClass tonic, const Formula& formula, SetKind kind);

/// The other of kTonics with the same pitch: Gb for F#. Nothing for those that have one name only.
[[nodiscard]] std::optional<NoteName> EnharmonicTonic(NoteName tonic);

struct Key {
  NoteName tonic;
  /// -7 (flats) to 7 (sharps); nothing if the set has no signature or one of more accidentals.
  std::optional<int> signature;
  /// The conventional tonic, if this key has more than seven accidentals and the other has fewer.
  std::optional<NoteName> alternative;
};

[[nodiscard]] Key KeyOf(NoteName tonic, const Formula& formula, SetKind kind);

}  // namespace tonalith::theory
