// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Synthesises one note of the guitar: pluck, two vibrations of the string, body, fade and level. The same recipe and
// pitch always give the same samples.

#pragma once

#include <vector>

#include "voice/recipe.h"

namespace tonalith::voice {

/// The upper limit for the samples of a file, in decibels below full scale.
inline constexpr double kPeakDecibels = -1.0;

struct NoteLength {
  double seconds = 0.0;
  double fadeSeconds = 0.0;
  double silenceSeconds = 0.0;
};

/// The lengths of file `number` of a set.
NoteLength LengthOf(const SoundSet& set, int number);

/// The samples at 44.1 kHz and the recipe's level; full scale is 1. The first sample is 0, as are those of the final
/// silence. A low or loud string may exceed kPeakDecibels.
std::vector<double> PlayNote(const Guitar& guitar, Pitch pitch, const NoteLength& length);

/// The largest absolute sample, in decibels relative to full scale.
double PeakDecibels(const std::vector<double>& samples);

}  // namespace tonalith::voice
