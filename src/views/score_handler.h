// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Writes a scale as whole notes on a five-line treble staff, on any drawing surface, screen or paper. It keeps nothing
// between calls and has no message of its own: a failure ends it and goes to the caller; what was drawn so far stays.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "paint/drawing_surface.h"

namespace tonalith::views {

/// Draws the staff on `scoreTarget` (nothing at all if that is null), in pixels of the form's client area. `keyIndex`
/// is the index of the key in the key box, `intervals` the semitone counts of the scale's pattern; the closing octave
/// is not drawn. `scaleNotes` (the caption of lblScaleNotes) becomes the note names, each preceded by one blank; it is
/// emptied only after the clef stands. At most core::kMostPatternDigits notes are written. Throws failure 9 for an
/// empty interval list and for a key outside -12..11.
void ScoreHandler(paint::DrawingSurface* scoreTarget, std::int16_t keyIndex, const std::vector<std::int16_t>& intervals,
                  std::string& scaleNotes);

}  // namespace tonalith::views
