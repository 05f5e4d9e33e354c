// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/arrow_button.h"

#include <QPainter>

#include "paint/colours.h"

namespace tonalith::controls {

ArrowButton::ArrowButton(const QString& name, const QString& accessibleName, Kind kind, QWidget* parent)
    : QAbstractButton(parent), kind_(kind) {
  setObjectName(name);
  setAccessibleName(accessibleName);
  setToolTip(accessibleName);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  // A pressed arrow repeats.
  setAutoRepeat(kind == Kind::kPrevious || kind == Kind::kNext);
  setAutoRepeatDelay(400);
  setAutoRepeatInterval(60);
}

QSize ArrowButton::sizeHint() const { return {38, 34}; }

void ArrowButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink = palette().color(QPalette::ButtonText);
  const QRectF box = QRectF(rect()).adjusted(3, 3, -3, -3);
  if (isEnabled() && (underMouse() || isDown())) {
    QColor wash = ink;
    wash.setAlphaF(isDown() ? 0.16F : 0.07F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(wash);
    painter.drawRoundedRect(box, 4, 4);
  }
  // Only for the keyboard: a click shows the position of the pointer already.
  if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
    painter.setPen(QPen(QColor(paint::kAccent), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), 4, 4);
  }
  const bool leftwards = kind_ == Kind::kFirst || kind_ == Kind::kPrevious;
  const bool toTheEnd = kind_ == Kind::kFirst || kind_ == Kind::kLast;
  painter.translate(box.center());
  if (leftwards) painter.scale(-1, 1);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  const qreal shift = toTheEnd ? -1.5 : 0.5;
  painter.drawPolygon(QPolygonF({QPointF(shift - 4, -5), QPointF(shift + 4.5, 0), QPointF(shift - 4, 5)}));
  if (toTheEnd) painter.drawRect(QRectF(3.5, -5, 2, 10));
}

}  // namespace tonalith::controls
