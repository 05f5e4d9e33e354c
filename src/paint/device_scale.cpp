// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/device_scale.h"

#include <QPainter>
#include <cmath>

namespace tonalith::paint {

void ScaleToDevice(QPainter& painter) {
  const double ratio = painter.device()->devicePixelRatioF();
  if (ratio < 1) painter.scale(ratio, ratio);
}

QRect DotsOf(const QPainter& painter, const QRectF& pixels) {
  const QTransform toDevice = painter.deviceTransform();
  if (toDevice.type() > QTransform::TxScale) return {};
  const QRectF dots = toDevice.mapRect(pixels);
  return {QPoint(qRound(dots.left()), qRound(dots.top())), QPoint(qRound(dots.right()) - 1, qRound(dots.bottom()) - 1)};
}

void SnapOrigin(QPainter& painter) {
  const QTransform toDevice = painter.deviceTransform();
  if (toDevice.type() > QTransform::TxScale || !toDevice.isInvertible()) return;
  const QPointF dot(std::round(toDevice.dx()), std::round(toDevice.dy()));
  painter.translate(toDevice.inverted().map(dot));
}

}  // namespace tonalith::paint
