// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the ink of a painted picture, for tests that measure what stands on it. Pixels are device dots.

#pragma once

#include <QImage>
#include <QRect>
#include <functional>

class QPainter;

namespace tonalith::tests {

/// A white picture of `width` x `height` pixels at a scale factor, painted on in pixels at scale 1.
QImage Painted(int width, int height, double scale, const std::function<void(QPainter&)>& paint);

/// How dark a dot is, 0 (white) to 255 (black). Outside the picture it is white.
int Darkness(const QImage& image, int x, int y);

/// The box of all dots that are at least half dark, within `within`.
QRect InkBox(const QImage& image, const QRect& within);

/// The number of separate dark runs along a row of dots.
int InkRuns(const QImage& image, int y, int fromX, int toX);

}  // namespace tonalith::tests
