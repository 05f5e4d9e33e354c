// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/painter_surface.h"

#include <algorithm>
#include <cmath>

#include "paint/music_font.h"

namespace tonalith::paint {
namespace {

/// Restores the state of the painter at the end of the scope.
class PainterStateGuard {
 public:
  explicit PainterStateGuard(QPainter& painter) : painter_(painter) { painter_.save(); }
  ~PainterStateGuard() { painter_.restore(); }
  PainterStateGuard(const PainterStateGuard&) = delete;
  PainterStateGuard& operator=(const PainterStateGuard&) = delete;

 private:
  QPainter& painter_;
};

struct Span {
  double from = 0;
  double length = 0;
};

/// A span of device dots. Thin spans have the same thickness at every position, so that equal lines look equal; long
/// spans have both ends rounded.
Span Snapped(double from, double to) {
  constexpr double kThin = 8;
  const double start = std::round(from);
  const double length = to - from < kThin ? std::round(to - from) : std::round(to) - start;
  return {start, std::max(1.0, length)};
}

}  // namespace

void FillSnapped(QPainter& painter, const QRectF& pixels, const QColor& colour) {
  const QTransform toDevice = painter.deviceTransform();
  if (toDevice.type() > QTransform::TxScale) {
    painter.fillRect(pixels, colour);
    return;
  }
  const QRectF device = toDevice.mapRect(pixels);
  const Span across = Snapped(device.left(), device.right());
  const Span down = Snapped(device.top(), device.bottom());
  const QTransform fromDevice = toDevice.inverted();
  // Snapped rectangles need no antialiasing, but Qt would take the slow path.
  const bool isSmooth = painter.testRenderHint(QPainter::Antialiasing);
  if (isSmooth) painter.setRenderHint(QPainter::Antialiasing, false);
  // Above this height Qt starts threads to blend the lines, which is slower than the blending.
  constexpr int kDotsAtOnce = 64;
  const int dots = qRound(down.length);
  for (int done = 0; done < dots; done += kDotsAtOnce) {
    const QRectF slab(across.from, down.from + done, across.length, std::min(kDotsAtOnce, dots - done));
    painter.fillRect(fromDevice.mapRect(slab), colour);
  }
  if (isSmooth) painter.setRenderHint(QPainter::Antialiasing);
}

void PainterSurface::DoCls() {
  if (background_.style() == Qt::NoBrush) return;
  const PainterStateGuard guard(painter_);
  painter_.resetTransform();
  painter_.fillRect(painter_.viewport(), background_);
}

void PainterSurface::DoPrint(PixelPoint at, std::string_view text, const SurfaceFont& font, Bgr colour) {
  const PainterStateGuard guard(painter_);
  painter_.setRenderHint(QPainter::Antialiasing);
  const QColor ink(ToRgb(colour));
  if (IsMusicFont(font)) {
    painter_.translate(at.x, at.y);
    painter_.fillPath(MusicFont::Shared().Outline(text, EmPixels(font.size)), ink);
    return;
  }
  painter_.setPen(ink);
  painter_.setFont(ToQFont(font));
  painter_.drawText(QPointF(at.x, at.y + CellOf(font).baseline),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void PainterSurface::DoLine(PixelPoint from, PixelPoint to, Bgr colour) {
  const PainterStateGuard guard(painter_);
  const QColor ink(ToRgb(colour));
  if (from.x != to.x && from.y != to.y) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(ink, 1));
    painter_.drawLine(QPointF(from.x + 0.5, from.y + 0.5), QPointF(to.x + 0.5, to.y + 0.5));
    return;
  }
  const auto [left, right] = std::minmax(from.x, to.x);
  const auto [top, bottom] = std::minmax(from.y, to.y);
  FillSnapped(painter_, {left, top, std::max(1.0, right - left), std::max(1.0, bottom - top)}, ink);
}

void PainterSurface::DoPaintPicture(PixelPoint at, const std::shared_ptr<const SurfacePicture>& picture) {
  const PainterStateGuard guard(painter_);
  painter_.translate(at.x, at.y);
  picture->PaintOn(painter_);
}

}  // namespace tonalith::paint
