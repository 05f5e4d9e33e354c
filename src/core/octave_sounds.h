// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The recordings of single notes in the folder Octaves: file n is the note n semitones above the lowest recorded one.

#pragma once

#include <cstdint>

#include "core/pitch.h"

namespace tonalith::core {

/// The range of the recordings: four octaves, files 0 to 47. It covers six strings in standard tuning up to fret 19.
inline constexpr Pitch kLowestRecorded = Pitch::Of(0, 2);
inline constexpr Pitch kHighestRecorded = Pitch::Of(11, 5);

/// The number of the file of a pitch. Outside the range it is that of its pitch class in the lowest octave.
/// Kept: see docs/behaviour.md, Octaves outside 2 to 5 play the lowest file
constexpr std::int16_t OctaveFileNumber(Pitch pitch) {
  const bool isRecorded = pitch.semitones >= kLowestRecorded.semitones && pitch.semitones <= kHighestRecorded.semitones;
  return isRecorded ? static_cast<std::int16_t>(pitch.semitones - kLowestRecorded.semitones) : pitch.PitchClass();
}

}  // namespace tonalith::core
