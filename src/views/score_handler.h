// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Writes a scale as whole notes on a treble staff, on any drawing surface. Stateless. A failure is thrown; what was
// drawn before it remains.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "paint/drawing_surface.h"

namespace tonalith::views {

/// Draws the staff on `scoreTarget` (nothing if null), in pixels of the form's client area. `keyIndex` is the index of
/// the key in the key box, `intervals` the semitones of the pattern; the closing octave is not drawn. `scaleNotes` (the
/// caption of lblScaleNotes) becomes the note names, each preceded by one blank; it is cleared only after the clef is
/// drawn. Writes at most core::kMostPatternDigits notes. Throws failure 9 for an empty interval list and for a key
/// outside -12..11.
void ScoreHandler(paint::DrawingSurface* scoreTarget, std::int16_t keyIndex, const std::vector<std::int16_t>& intervals,
                  std::string& scaleNotes);

}  // namespace tonalith::views
