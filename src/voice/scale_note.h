// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A note of a scale at any pitch, as the file that the sound maker would make of it: the guitar and the length of the
// recipe's set "Audio"; only the lowest strings, which would be too loud, have a lower level. The same pitch gives the
// same bytes every time. Takes a few milliseconds. Safe to call from several threads.

#pragma once

#include <string>

#include "voice/recipe.h"

namespace tonalith::voice {

/// A WAV file that is marked as shipped. A pitch outside kLowestPitch..kHighestPitch sounds as the nearest inside.
std::string RenderScaleNote(Pitch pitch);

}  // namespace tonalith::voice
