// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The window's colours, derived from the system's palette: a light system gets a warm paper ground, a dark one a warm
// dark ground, and text keeps the system's own lightness. Pure functions of a palette; any thread.

#pragma once

#include <QColor>
#include <QPalette>

namespace tonalith::paint {

[[nodiscard]] bool IsDark(const QPalette& palette);

/// The system's palette on Tonalith's ground. A palette of strong contrast (black on white or white on black, as
/// accessibility themes have it) comes back unchanged.
[[nodiscard]] QPalette WarmPalette(const QPalette& system);

/// Ink for what stands second: descriptions, fret numbers. At least 4.5:1 on the window ground.
[[nodiscard]] QColor SecondaryText(const QPalette& palette);
/// The sienna of the scale's type and note names. At least 4.5:1 on the window ground.
[[nodiscard]] QColor SiennaText(const QPalette& palette);
/// The outline of buttons and boxes.
[[nodiscard]] QColor OutlineColour(const QPalette& palette);

}  // namespace tonalith::paint
