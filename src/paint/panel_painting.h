// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The look that buttons, boxes and bars of Tonalith's windows share. Each function paints with the widget's own painter
// and may leave its pen and brush changed. User-interface thread; never fails.

#pragma once

#include <QColor>
#include <QPalette>
#include <QRectF>

class QPainter;

namespace tonalith::paint {

/// A rounded panel, in pixels, with a focus ring in place of the outline where asked for. The fill hides what is below.
void PaintPanel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline, bool focusRing);

/// The sign at the right end of a box that opens a list.
void PaintDropArrow(QPainter& painter, const QRectF& box, const QPalette& palette);

}  // namespace tonalith::paint
