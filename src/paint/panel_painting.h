// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The common look of buttons, boxes and bars. The functions may change the pen and brush of the painter.

#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>

class QPainter;

namespace tonalith::paint {

/// A rounded panel, in pixels, with an outline or a focus ring. The fill is opaque.
void PaintPanel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline, bool focusRing);

/// The arrow at the right end of a drop-down box.
void PaintDropArrow(QPainter& painter, const QRectF& box, const QPalette& palette);

}  // namespace tonalith::paint
