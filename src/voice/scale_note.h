// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Renders a note of a scale at any pitch as the sound maker would: with the guitar and the length of the recipe's set
// "Audio". Only the lowest strings, which would be too loud, get a lower level. The same pitch always gives the same
// bytes. Takes a few milliseconds.

#pragma once

#include <string>

#include "voice/recipe.h"

namespace tonalith::voice {

/// A WAV file with the checksum of a shipped recording. A pitch outside kLowestPitch..kHighestPitch is clamped.
std::string RenderScaleNote(Pitch pitch);

}  // namespace tonalith::voice
