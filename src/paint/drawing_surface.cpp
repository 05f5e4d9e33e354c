// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/drawing_surface.h"

namespace tonalith::paint {

void DrawingSurface::Cls() {
  position_ = {};
  DoCls();
}

void DrawingSurface::SetScaleMode(ScaleMode mode) { scaleMode_ = mode; }

void DrawingSurface::Print(std::string_view text) {
  DoPrint(position_, text, font_, foreColor_);
  position_ = {0, position_.y + CellOf(font_).height};
}

void DrawingSurface::Line(double x1, double y1, double x2, double y2) {
  const PixelPoint from{ToPixels(x1), ToPixels(y1)};
  position_ = {ToPixels(x2), ToPixels(y2)};
  DoLine(from, position_, foreColor_);
}

void DrawingSurface::PaintPicture(const std::shared_ptr<const SurfacePicture>& picture, double x, double y) {
  if (picture) DoPaintPicture({ToPixels(x), ToPixels(y)}, picture);
}

double DrawingSurface::TextHeight(std::string_view /*text*/) const { return FromPixels(CellOf(font_).height); }

double DrawingSurface::ToPixels(double value) const {
  return scaleMode_ == ScaleMode::kTwips ? value / kTwipsPerPixel : value;
}

double DrawingSurface::FromPixels(double value) const {
  return scaleMode_ == ScaleMode::kTwips ? value * kTwipsPerPixel : value;
}

}  // namespace tonalith::paint
