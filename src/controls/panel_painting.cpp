// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/panel_painting.h"

#include <QPainter>

#include "controls/colours.h"
#include "controls/theme.h"

namespace tonalith::controls {
namespace {

constexpr qreal kCornerRadius = 6;

}  // namespace

void PaintPanel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline, bool focusRing) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(fill);
  painter.setPen(QPen(focusRing ? QColor(kAccent) : outline, focusRing ? 2.0 : 1.0));
  const qreal inset = focusRing ? 1.0 : 0.5;
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), kCornerRadius, kCornerRadius);
}

void PaintDropArrow(QPainter& painter, const QRectF& box, const QPalette& palette) {
  const QPointF tip(box.right() - 15.0, box.center().y() + 3.0);
  painter.setPen(QPen(SecondaryInk(palette), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({tip + QPointF(-5, -6), tip, tip + QPointF(5, -6)}));
}

}  // namespace tonalith::controls
