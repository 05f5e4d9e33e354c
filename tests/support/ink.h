// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds the painted pixels ("ink") of an image. Coordinates are device dots.

#pragma once

#include <QImage>
#include <QRect>
#include <functional>

class QPainter;

namespace tonalith::tests {

/// A white image of `width` x `height` pixels at a scale factor; the callback paints in pixels at scale 1.
QImage Painted(int width, int height, double scale, const std::function<void(QPainter&)>& paint);

/// The darkness of a dot, 0 (white) to 255 (black); 0 outside the image.
int Darkness(const QImage& image, int x, int y);

/// The bounding box of all dots in `within` that are at least half dark.
QRect InkBox(const QImage& image, const QRect& within);

/// The number of separate dark runs in a line of dots.
int InkRuns(const QImage& image, int y, int fromX, int toX);

}  // namespace tonalith::tests
