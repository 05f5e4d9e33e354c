// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How a page of help looks: the style sheet of the window's text, made of its palette and the size of its letters, so
// that light and dark systems both get a page that can be read. Pure functions; any thread; never fail.

#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

namespace tonalith::help {

/// For letters of `pixels` in height.
[[nodiscard]] QString PageStyle(const QPalette& palette, double pixels);

/// The ground of a place that was searched for. Text keeps at least 4.5:1 on it.
[[nodiscard]] QColor HitGround(const QPalette& palette);

/// The widest line that reads well, in pixels, for letters of that height.
[[nodiscard]] int ColumnWidth(double pixels);

/// `share` of the way from the page's ground to its ink.
[[nodiscard]] QColor Tint(const QPalette& palette, float share);

}  // namespace tonalith::help
