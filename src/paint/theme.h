// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The colours of windows, derived from the palette of the system: a light system gets a warm paper background, a dark
// one a warm dark background; text keeps the lightness of the system.

#pragma once

#include <QColor>
#include <QPalette>

namespace tonalith::paint {

[[nodiscard]] bool IsDark(const QPalette& palette);

/// The palette of the system with the background of Tonalith. A high-contrast palette (black on white or white on
/// black, as in accessibility themes) is returned unchanged.
[[nodiscard]] QPalette WarmPalette(const QPalette& system);

/// Secondary text: descriptions, fret numbers. At least 4.5:1 on the window background.
[[nodiscard]] QColor SecondaryText(const QPalette& palette);
/// The sienna of the type of the scale and of note names. At least 4.5:1 on the window background.
[[nodiscard]] QColor SiennaText(const QPalette& palette);
/// The outline of buttons and boxes.
[[nodiscard]] QColor OutlineColour(const QPalette& palette);

}  // namespace tonalith::paint
