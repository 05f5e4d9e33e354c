// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One note of the guitar, from the finger on the string to a finished sound: pluck, two swings of the string, body,
// fade and level. The same recipe and pitch give the same samples every time. A pure function.

#pragma once

#include <vector>

#include "voice/recipe.h"

namespace tonalith::voice {

/// No sample of a file goes above this.
inline constexpr double kPeakDecibels = -1.0;

struct NoteLength {
  double seconds = 0.0;
  double fadeSeconds = 0.0;
  double silenceSeconds = 0.0;
};

/// Of a file of a set.
NoteLength LengthOf(const SoundSet& set, int number);

/// The samples at 44.1 kHz and the recipe's level, full scale being 1; the first is 0 and so are those of the closing
/// silence. A low or a loud string may go above kPeakDecibels.
std::vector<double> PlayNote(const Guitar& guitar, Pitch pitch, const NoteLength& length);

/// The highest sample, in decibels against full scale.
double PeakDecibels(const std::vector<double>& samples);

}  // namespace tonalith::voice
