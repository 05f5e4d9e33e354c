// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A pitch as a value: a pitch class in an octave. Texts such as "F#" are made of it only for display.

#pragma once

#include "core/note_model.h"

namespace tonalith::core {

/// A pitch in semitones, 12 times its octave in scientific numbering plus its note number (E4 is 52).
struct Pitch {
  int semitones = 0;

  static constexpr Pitch Of(NoteNumber note, int octave) { return {12 * octave + note}; }

  /// 0 (C) to 11 (B).
  [[nodiscard]] constexpr NoteNumber PitchClass() const { return static_cast<NoteNumber>((semitones % 12 + 12) % 12); }
  [[nodiscard]] constexpr int Octave() const { return (semitones - PitchClass()) / 12; }

  friend constexpr bool operator==(const Pitch&, const Pitch&) = default;
};

}  // namespace tonalith::core
