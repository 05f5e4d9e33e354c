// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A drawing surface on a painter. The painter's transformation says how large a pixel is on the device, so the same
// drawing is crisp on a screen at any scale factor and on a printer at 600 dots to the inch: text and glyphs are
// outlines, lines snap to whole device dots. The painter belongs to the caller and has to outlive the surface, which
// leaves its state as it was. Never fails.

#pragma once

#include <QBrush>
#include <QPainter>

#include "paint/drawing_surface.h"

namespace tonalith::paint {

class PainterSurface : public DrawingSurface {
 public:
  /// `ground` is what Cls fills the device with; without one, Cls leaves the device as it is.
  explicit PainterSurface(QPainter& painter, const QBrush& ground = Qt::NoBrush) : painter_(painter), ground_(ground) {}

 protected:
  void DoCls() override;
  void DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) override;
  void DoLine(PixelPoint from, PixelPoint to, Bgr colour) override;
  void DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) override;

 private:
  QPainter& painter_;
  QBrush ground_;
};

/// Fills a rectangle in pixels at scale 1 so that its edges fall on device dots and nothing thinner than a dot is lost.
void FillSnapped(QPainter& painter, const QRectF& pixels, const QColor& colour);

}  // namespace tonalith::paint
