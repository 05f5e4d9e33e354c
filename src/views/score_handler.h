// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Writes a scale as whole notes on a treble staff, on any drawing surface. Stateless. A failure is thrown; what was
// drawn before it remains.

#pragma once

#include <string>

#include "core/scale.h"
#include "paint/drawing_surface.h"

namespace tonalith::views {

/// Draws the staff on `scoreTarget` (nothing if null), in pixels of the form's client area. The closing octave is not
/// drawn. `scaleNotes` (the caption of lblScaleNotes) becomes the note names, each preceded by one blank; it is cleared
/// only after the clef is drawn. Writes at most core::kMostPatternDigits notes. Throws failure 9 for a scale without
/// intervals and for a pitch class outside 0..11.
void ScoreHandler(paint::DrawingSurface* scoreTarget, const core::Scale& scale, std::string& scaleNotes);

}  // namespace tonalith::views
