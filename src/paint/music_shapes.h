// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Built-in outlines of the three glyphs of the staff, for systems without a music font. Ten units per staff space, y
// downward, the G line of the clef at y = 0. Use the winding fill rule.

#pragma once

#include <QPainterPath>

namespace tonalith::paint::shapes {

QPainterPath TrebleClef();
QPainterPath WholeNote();
QPainterPath Sharp();

}  // namespace tonalith::paint::shapes
