// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/panel_painting.h"

#include <QPainter>

#include "paint/colours.h"
#include "paint/theme.h"

namespace tonalith::paint {
namespace {

constexpr qreal kCornerRadius = 6;

}  // namespace

void PaintPanel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline, bool focusRing) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  // Fills two shapes instead of stroking one: Qt is much slower at computing a stroke.
  painter.setBrush(focusRing ? QColor(kAccent) : outline);
  painter.drawRoundedRect(rect, kCornerRadius, kCornerRadius);
  const qreal line = focusRing ? 2.0 : 1.0;
  painter.setBrush(fill);
  painter.drawRoundedRect(rect.adjusted(line, line, -line, -line), kCornerRadius - line, kCornerRadius - line);
}

void PaintDropArrow(QPainter& painter, const QRectF& box, const QPalette& palette) {
  const QPointF tip(box.right() - 15.0, box.center().y() + 3.0);
  painter.setPen(QPen(SecondaryText(palette), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygonF({tip + QPointF(-5, -6), tip, tip + QPointF(5, -6)}));
}

}  // namespace tonalith::paint
