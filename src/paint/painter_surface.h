// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A drawing surface on a QPainter. The transformation of the painter defines the size of a pixel, so drawings are crisp
// on a screen at any scale factor and on a printer at 600 dots per inch: text and glyphs are outlines, lines snap to
// device dots. The painter must outlive the surface and keeps its state.

#pragma once

#include <QBrush>
#include <QPainter>

#include "paint/drawing_surface.h"

namespace tonalith::paint {

class PainterSurface : public DrawingSurface {
 public:
  /// Cls fills the device with `background`; without one it leaves the device unchanged.
  explicit PainterSurface(QPainter& painter, const QBrush& background = Qt::NoBrush)
      : painter_(painter), background_(background) {}

 protected:
  void DoCls() override;
  void DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) override;
  void DoLine(PixelPoint from, PixelPoint to, Bgr colour) override;
  void DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) override;

 private:
  QPainter& painter_;
  QBrush background_;
};

/// Fills a rectangle in pixels at scale 1. Its edges snap to device dots; it is at least one dot thick.
void FillSnapped(QPainter& painter, const QRectF& pixels, const QColor& colour);

}  // namespace tonalith::paint
