// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The three signs of the staff as shapes of the program's own, for a system on which no font has them. Ten units to a
// staff space, y downward, the clef's G line at y = 0. Filled by the winding rule. Pure functions.

#pragma once

#include <QPainterPath>

namespace tonalith::paint::shapes {

QPainterPath TrebleClef();
QPainterPath WholeNote();
QPainterPath Sharp();

}  // namespace tonalith::paint::shapes
