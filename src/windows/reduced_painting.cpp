// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/reduced_painting.h"

#include <QEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QWidget>
#include <cmath>

namespace tonalith::windows {
namespace {

/// The scale at which `pixels` end with the last of the device's dots: windows have whole dots, so `ratio` may leave a
/// part of the last one over, or cut it off.
double ScaleThatFills(int dots, int pixels, double ratio) {
  const double left = dots - pixels * ratio;
  return std::abs(left) < 1 && pixels > 0 ? static_cast<double>(dots) / pixels : ratio;
}

}  // namespace

ReducedPainting::ReducedPainting(QWidget& window) : QGraphicsEffect(&window), window_(window) {
  window.installEventFilter(this);
}

void ReducedPainting::Install(QWidget& widget) {
  if (!widget.isWindow() || widget.graphicsEffect() != nullptr || widget.devicePixelRatioF() >= 1) return;
  widget.setGraphicsEffect(new ReducedPainting(widget));
}

void ReducedPainting::draw(QPainter* painter) {
  const QPaintDevice& device = *painter->device();
  const double ratio = device.devicePixelRatioF();
  painter->save();
  if (ratio < 1) {
    painter->scale(ScaleThatFills(device.width(), window_.width(), ratio),
                   ScaleThatFills(device.height(), window_.height(), ratio));
  }
  // The source of the effect would be drawn without the painter's scale.
  window_.render(painter, QPoint(), window_.rect(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
  painter->restore();
}

bool ReducedPainting::eventFilter(QObject* watched, QEvent* event) {
  // The parts of a window that Qt asks for do not end where a dot of the screen does, and would leave traces beside
  // them: the window is painted as a whole, which leaves nothing to do for the request.
  if (event->type() == QEvent::UpdateRequest && !isRepainting_) {
    const QScopedValueRollback repainting(isRepainting_, true);
    window_.repaint();
  }
  return QGraphicsEffect::eventFilter(watched, event);
}

}  // namespace tonalith::windows
