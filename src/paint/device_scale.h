// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Where the pixels of a painter and the dots of its device meet at a scale that is no whole number. User-interface
// thread; never fails.

#pragma once

#include <QRect>

class QPainter;

namespace tonalith::paint {

/// Scales `painter`, which has just begun to paint on an image or a pixmap, to the device pixel ratio of that device if
/// that is below 1. Such a painter takes the ratio for 1; it has any larger one already.
void ScaleToDevice(QPainter& painter);

/// The whole dots of the device that `pixels` of `painter` cover. Empty if the painter does more than move and scale.
[[nodiscard]] QRect DotsOf(const QPainter& painter, const QRectF& pixels);

/// Moves the origin of `painter` to the nearest whole dot, so that a finished picture is copied dot by dot.
void SnapOrigin(QPainter& painter);

}  // namespace tonalith::paint
