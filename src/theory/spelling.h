// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Spells the notes of a scale or chord. Up to seven notes take the letters of their degrees, so a scale of seven notes
// uses each letter once and a smaller one the letters of its parent scale; a note beyond a double sharp or double flat
// is respelled. Eight notes and more ascend by letter, without double accidentals and without a letter three times. All
// twelve notes are in sharps or flats, as the tonic is.

#pragma once

#include <array>
#include <vector>

#include "theory/formula.h"
#include "theory/note_name.h"
#include "theory/pitch_class_set.h"

namespace tonalith::theory {

/// The tonics in common use: the circle of fifths from C to C#, then the flat side, then G#, D# and A#.
inline constexpr std::array<NoteName, 18> kTonics = {{{Letter::kC, Accidental::kNatural},
                                                      {Letter::kG, Accidental::kNatural},
                                                      {Letter::kD, Accidental::kNatural},
                                                      {Letter::kA, Accidental::kNatural},
                                                      {Letter::kE, Accidental::kNatural},
                                                      {Letter::kB, Accidental::kNatural},
                                                      {Letter::kF, Accidental::kSharp},
                                                      {Letter::kC, Accidental::kSharp},
                                                      {Letter::kF, Accidental::kNatural},
                                                      {Letter::kB, Accidental::kFlat},
                                                      {Letter::kE, Accidental::kFlat},
                                                      {Letter::kA, Accidental::kFlat},
                                                      {Letter::kD, Accidental::kFlat},
                                                      {Letter::kG, Accidental::kFlat},
                                                      {Letter::kC, Accidental::kFlat},
                                                      {Letter::kG, Accidental::kSharp},
                                                      {Letter::kD, Accidental::kSharp},
                                                      {Letter::kA, Accidental::kSharp}}};

/// One name for each degree, in their order. Any tonic is allowed.
[[nodiscard]] std::vector<NoteName> Spell(NoteName tonic, const Formula& formula);

/// Degrees for a scale that has no formula, by the same rules: seven notes have the numbers 1 to 7 if two accidentals
/// suffice for each; otherwise the simplest degrees that ascend. Bit 0 of the pattern is the tonic.
[[nodiscard]] Formula DeriveScaleFormula(PitchClassSet pattern);

/// Degrees in thirds for a chord that has no formula: 1 3 5 b7 9. Bit 0 of the pattern is the root.
[[nodiscard]] Formula DeriveChordFormula(PitchClassSet pattern);

}  // namespace tonalith::theory
