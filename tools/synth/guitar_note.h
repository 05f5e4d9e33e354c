// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One note of the guitar, from the finger on the string to a finished sound: pluck, two swings of the string, body,
// fade and level. The same recipe and pitch give the same samples every time. A pure function; it throws RecipeError
// where the recipe asks for what cannot be: a note that would come closer to full scale than kPeakDecibels.

#pragma once

#include <vector>

#include "synth/recipe.h"

namespace tonalith::synth {

/// No sample goes above this.
inline constexpr double kPeakDecibels = -1.0;

struct NoteLength {
  double seconds = 0.0;
  double fadeSeconds = 0.0;
  double silenceSeconds = 0.0;
};

/// The samples at 44.1 kHz, full scale being 1; the first is 0 and so are those of the closing silence.
std::vector<double> PlayNote(const Guitar& guitar, Pitch pitch, const NoteLength& length);

}  // namespace tonalith::synth
