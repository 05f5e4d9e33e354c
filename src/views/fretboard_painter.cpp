// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/fretboard_painter.h"

#include <QPainter>
#include <QWidget>
#include <utility>

#include "paint/device_scale.h"
#include "paint/theme.h"

namespace tonalith::views {
namespace {

constexpr int kFretNumberPixels = 12;

}  // namespace

void FretboardPainter::UpdateCache(const NeckGeometry& geometry, const QWidget& view) {
  const double scale = view.devicePixelRatioF();
  if (!neck_.isNull() && neck_.devicePixelRatio() == scale) return;
  neck_ = QPixmap(view.size() * scale);
  neck_.setDevicePixelRatio(scale);
  neck_.fill(Qt::transparent);
  QPainter painter(&neck_);
  paint::ScaleToDevice(painter);
  painter.translate(-controls_.Area().topLeft());
  PaintNeck(painter, geometry);
}

void FretboardPainter::Paint(QPainter& painter, const QWidget& view) {
  const NeckGeometry geometry = controls_.Geometry();
  UpdateCache(geometry, view);
  paint::SnapOrigin(painter);
  painter.drawPixmap(QPointF(0, 0), neck_);
  painter.save();
  painter.translate(-controls_.Area().topLeft());
  PaintOpenStrings(painter, geometry);
  PaintFretNumbers(painter, view.font(), paint::SecondaryText(view.palette()));
  painter.restore();
}

void FretboardPainter::PaintFretNumbers(QPainter& painter, QFont font, const QColor& colour) const {
  font.setPixelSize(kFretNumberPixels);
  painter.setFont(font);
  painter.setPen(colour);
  for (const int fret : controls_.Layout().NumberedFrets()) {
    if (!controls_.IsNumberShown(fret)) continue;
    painter.drawText(controls_.FretNumberBox(fret), Qt::AlignCenter, QString::number(fret));
  }
}

}  // namespace tonalith::views
