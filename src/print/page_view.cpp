// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/page_view.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tonalith::print {
namespace {

/// The margin around the sheet, for its shadow.
constexpr double kMargin = 10;
constexpr int kShadowSteps = 6;
const QColor kSheetRim(0xc8, 0xc2, 0xb8);
const QColor kFrame(0xb4, 0xad, 0xa3);

void PaintShadow(QPainter& painter, const QRectF& sheet) {
  painter.setPen(Qt::NoPen);
  for (int step = kShadowSteps; step > 0; --step) {
    painter.setBrush(QColor(0, 0, 0, 10));
    painter.drawRoundedRect(sheet.adjusted(-step, 2 - step, step, 2 + step), step, step);
  }
}

}  // namespace

FrameShape::FrameShape(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FrameShape::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QPen pen(kFrame, 1);
  pen.setDashPattern({3, 3});
  painter.setPen(pen);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

PageView::PageView(const QString& name, const QString& shape, QWidget* parent)
    : QWidget(parent), shape_(new FrameShape(shape, this)) {
  setObjectName(name);
}

void PageView::Show(const platform::Sheet& sheet, std::vector<PaintedPicture> painted) {
  sheet_ = sheet;
  painted_ = std::move(painted);
  UpdateShape();
  update();
}

QRectF PageView::SheetRect() const {
  const QRectF available = QRectF(rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  if (sheet_.width <= 0 || sheet_.height <= 0 || available.isEmpty()) return {};
  const double factor = std::min(available.width() / sheet_.width, available.height() / sheet_.height);
  QRectF sheet(0, 0, std::floor(sheet_.width * factor), std::floor(sheet_.height * factor));
  sheet.moveTo(std::floor(available.center().x() - sheet.width() / 2),
               std::floor(available.center().y() - sheet.height() / 2));
  return sheet;
}

void PageView::UpdateShape() {
  const QRectF sheet = SheetRect();
  shape_->setVisible(!sheet.isEmpty());
  if (sheet.isEmpty()) return;
  const double factor = sheet.width() / sheet_.width;
  const platform::PrintRect& inner = sheet_.printable;
  shape_->setGeometry(QRectF(sheet.left() + inner.left * factor, sheet.top() + inner.top * factor, inner.width * factor,
                             inner.height * factor)
                          .toRect());
}

void PageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  UpdateShape();
}

void PageView::paintEvent(QPaintEvent* /*event*/) {
  const QRectF sheet = SheetRect();
  if (sheet.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintShadow(painter, sheet);
  painter.fillRect(sheet, Qt::white);
  painter.setPen(QPen(kSheetRim, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(sheet.adjusted(-0.5, -0.5, 0.5, 0.5));
  painter.setClipRect(sheet);
  painter.translate(sheet.topLeft());
  painter.scale(sheet.width() / sheet_.width, sheet.width() / sheet_.width);
  painter.translate(sheet_.printable.left, sheet_.printable.top);
  for (const PaintedPicture& painted : painted_) {
    painter.save();
    painter.translate(painted.place.left, painted.place.top);
    painter.scale(painted.place.width / painted.picture->Width(), painted.place.height / painted.picture->Height());
    painted.picture->PaintOn(painter);
    painter.restore();
  }
}

}  // namespace tonalith::print
