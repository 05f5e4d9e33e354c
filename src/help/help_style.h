// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The style sheet of a help page, generated from the window's palette and font size, so that pages are readable with
// light and dark palettes.

#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

namespace tonalith::help {

/// `pixels` is the font size.
[[nodiscard]] QString PageStyle(const QPalette& palette, double pixels);

/// The background of a search match. Text has a contrast of at least 4.5:1 on it.
[[nodiscard]] QColor HitBackground(const QPalette& palette);

/// The maximum line width for good readability, in pixels, for that font size.
[[nodiscard]] int ColumnWidth(double pixels);

/// Mixes the page's background with `share` of its text colour.
[[nodiscard]] QColor Tint(const QPalette& palette, float share);

}  // namespace tonalith::help
