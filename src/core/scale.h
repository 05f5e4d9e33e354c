// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A scale as a list of values. Neck, staff, playback and editor use this list; note names are made of it only for
// display.

#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "core/pitch.h"

namespace tonalith::core {

struct ScaleNote {
  /// 0 (C) to 11 (B).
  NoteNumber pitchClass = 0;
  /// The number of the note in the scale, from 1. A pitch class that comes again, such as the closing octave, has the
  /// degree of its first note.
  std::int16_t degree = 0;
  Pitch pitch;

  friend bool operator==(const ScaleNote&, const ScaleNote&) = default;
};

using Scale = std::vector<ScaleNote>;

/// The octave of the C from which the start note is counted.
inline constexpr int kStartOctave = 4;

/// The start note, `start` semitones above C4, and one note after each interval. The only function that builds a scale.
/// Throws failure 9 for a negative start and failure 6 for a pitch that is no music any more.
Scale BuildScale(NoteNumber start, std::span<const std::int16_t> intervals);

/// The sharp name of a note.
std::string_view NameOf(const ScaleNote& note);

}  // namespace tonalith::core
