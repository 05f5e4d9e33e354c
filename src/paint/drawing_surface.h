// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The drawing interface of the views: clear, current position, print, line, picture and text size, in twips or pixels.
// Implementations record, paint on the screen at any scale factor, or paint a printed page. The base class stores the
// state (scale mode, position, font, colour) and passes drawing steps in pixels to the implementation. One pixel is 15
// twips or 1/96 inch, never a device dot. A line at a pixel coordinate is centred half a pixel further.

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "paint/colours.h"
#include "paint/drawing_surface_font.h"
#include "paint/twips.h"

class QPainter;

namespace tonalith::paint {

enum class ScaleMode { kTwips = 1, kPixels = 3 };

/// A position or an extent in pixels at scale 1.
struct PixelPoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// A picture that can be painted at any resolution.
class SurfacePicture {
 public:
  virtual ~SurfacePicture() = default;
  /// The name in a recording.
  [[nodiscard]] virtual std::string Name() const = 0;
  /// Paints it with its top left corner at the painter's origin, in pixels at scale 1.
  virtual void PaintOn(QPainter& painter) const = 0;
};

class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  /// Clears the surface and moves the current position to its top left corner.
  void Cls();
  void SetScaleMode(ScaleMode mode);
  [[nodiscard]] ScaleMode GetScaleMode() const { return scaleMode_; }

  /// The current position, in the unit of the scale mode.
  void SetCurrentX(double x) { position_.x = ToPixels(x); }
  void SetCurrentY(double y) { position_.y = ToPixels(y); }
  [[nodiscard]] double CurrentX() const { return FromPixels(position_.x); }
  [[nodiscard]] double CurrentY() const { return FromPixels(position_.y); }

  /// Prints UTF-8 text with the top left corner of its cell at the current position, which then moves to the start of
  /// the next line.
  void Print(std::string_view text);
  /// A line one pixel wide, without its last pixel. The current position moves to its end.
  void Line(double x1, double y1, double x2, double y2);
  void PaintPicture(const std::shared_ptr<const SurfacePicture>& picture, double x, double y);

  /// Extents in the unit of the scale mode.
  [[nodiscard]] double TextWidth(std::string_view text) const { return FromPixels(WidthOf(font_, text)); }
  [[nodiscard]] double TextHeight(std::string_view text) const;

  void SetFontName(std::string name) { font_.name = std::move(name); }
  void SetFontSize(FontSize size) { font_.size = size; }
  void SetFontBold(bool bold) { font_.bold = bold; }
  [[nodiscard]] const SurfaceFont& Font() const { return font_; }
  void SetForeColor(Bgr colour) { foreColor_ = colour; }

 protected:
  virtual void DoCls() = 0;
  virtual void DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) = 0;
  virtual void DoLine(PixelPoint from, PixelPoint to, Bgr colour) = 0;
  virtual void DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) = 0;

 private:
  [[nodiscard]] double ToPixels(double value) const;
  [[nodiscard]] double FromPixels(double value) const;

  ScaleMode scaleMode_ = ScaleMode::kTwips;
  PixelPoint position_;
  SurfaceFont font_;
  Bgr foreColor_ = kBlack;
};

}  // namespace tonalith::paint
