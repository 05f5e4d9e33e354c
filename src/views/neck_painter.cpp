// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/neck_painter.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "paint/painter_surface.h"

namespace tonalith::views {
namespace {

constexpr double kWoodRadius = 3;
constexpr double kInlayRadius = 7.5;
constexpr double kFretWidth = 3;
constexpr int kFibres = 420;

/// Gauges of a set of strings in pixels, larger than real ones so that they differ visibly. Further strings have the
/// last gauge.
constexpr std::array<double, 6> kGauges = {1.2, 1.6, 2.0, 2.6, 3.2, 3.9};
constexpr std::size_t kPlainStrings = 3;

double GaugeOf(std::size_t index) { return kGauges.at(std::min(index, kGauges.size() - 1)); }

/// A colour at a position from 0 to 1.
struct Stop {
  double at;
  QColor colour;
};
using Blend = std::vector<Stop>;

QColor ColourAt(const Blend& blend, double at) {
  const auto above = std::find_if(blend.begin(), blend.end(), [at](const Stop& stop) { return stop.at >= at; });
  if (above == blend.end()) return blend.back().colour;
  if (above == blend.begin()) return above->colour;
  const Stop& below = *(above - 1);
  const double share = (at - below.at) / (above->at - below.at);
  const auto mix = [share](int a, int b) { return a + qRound((b - a) * share); };
  return {mix(below.colour.red(), above->colour.red()), mix(below.colour.green(), above->colour.green()),
          mix(below.colour.blue(), above->colour.blue())};
}

/// Device dots per pixel of the painter. A degenerate or rotated transform has the minimum.
double DotsPerPixel(const QPainter& painter) {
  constexpr double kFewestDots = 0.25;
  return std::max(kFewestDots, painter.deviceTransform().m22());
}

// Blends are painted as stripes of one device dot and one colour. For areas of this size Qt fills gradient brushes in
// several threads, which takes longer than the rest of the painting.

/// A blend from top to bottom. `inset` returns the inset of a stripe at both ends for its distance to the nearer edge.
template <class Inset>
void FillDownward(QPainter& painter, const QRectF& area, const Blend& blend, Inset inset) {
  const double stripe = 1 / DotsPerPixel(painter);
  const int stripes = qRound(area.height() / stripe);
  for (int i = 0; i < stripes; ++i) {
    const double y = area.top() + i * stripe;
    const double middle = y + stripe / 2;
    const double in = inset(std::min(middle - area.top(), area.bottom() - middle));
    paint::FillSnapped(painter, QRectF(area.left() + in, y, area.width() - 2 * in, stripe),
                       ColourAt(blend, (middle - area.top()) / area.height()));
  }
}

/// A blend from left to right.
void FillAcross(QPainter& painter, const QRectF& area, const Blend& blend) {
  const double stripe = 1 / DotsPerPixel(painter);
  const int stripes = qRound(area.width() / stripe);
  for (int i = 0; i < stripes; ++i) {
    const double x = area.left() + i * stripe;
    paint::FillSnapped(painter, QRectF(x, area.top(), stripe, area.height()),
                       ColourAt(blend, (x + stripe / 2 - area.left()) / area.width()));
  }
}

/// Pseudo-random numbers with a fixed seed.
class Grain {
 public:
  double Next() {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<double>(state_ >> 8U) / 16777216.0;
  }

 private:
  quint32 state_ = 20260U;
};

void PaintWood(QPainter& painter, const QRectF& wood) {
  const Blend rosewood = {{0, QColor(0x53, 0x35, 0x27)},
                          {0.12, QColor(0x4a, 0x2f, 0x22)},
                          {0.55, QColor(0x3b, 0x24, 0x1a)},
                          {1, QColor(0x2c, 0x1a, 0x12)}};
  FillDownward(painter, wood, rosewood, [](double fromEdge) {
    const double up = std::max(0.0, kWoodRadius - fromEdge);
    return kWoodRadius - std::sqrt(kWoodRadius * kWoodRadius - up * up);
  });
  Grain grain;
  const QRectF inside = wood.adjusted(0, kWoodRadius, -kWoodRadius, -kWoodRadius);
  for (int fibre = 0; fibre < kFibres; ++fibre) {
    const double length = 30 + 320 * grain.Next() * grain.Next();
    const double left = inside.left() + (inside.width() + length) * grain.Next() - length;
    const double top = inside.top() + (inside.height() - 1) * grain.Next();
    const QRectF streak = QRectF(left, top, length, 0.5 + grain.Next()).intersected(inside);
    const bool light = grain.Next() > 0.5;
    const int strength = 8 + static_cast<int>(26 * grain.Next());
    paint::FillSnapped(painter, streak,
                       light ? QColor(0x9a, 0x68, 0x4a, strength) : QColor(0x10, 0x08, 0x04, 2 * strength));
  }
}

void PaintInlay(QPainter& painter, QPointF middle) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 90));
  painter.drawEllipse(middle + QPointF(0, 0.8), kInlayRadius + 0.5, kInlayRadius + 0.5);
  QRadialGradient pearl(middle + QPointF(-2, -2.5), kInlayRadius * 1.6);
  pearl.setColorAt(0, QColor(0xfb, 0xf8, 0xf1));
  pearl.setColorAt(0.55, QColor(0xe2, 0xdb, 0xcd));
  pearl.setColorAt(1, QColor(0xb9, 0xb0, 0xa0));
  painter.setBrush(pearl);
  painter.drawEllipse(middle, kInlayRadius, kInlayRadius);
}

void PaintFret(QPainter& painter, double x, const QRectF& wood) {
  const QRectF wire(x - kFretWidth / 2, wood.top(), kFretWidth, wood.height());
  paint::FillSnapped(painter, wire.translated(kFretWidth, 0).adjusted(0, 0, -1.5, 0), QColor(0, 0, 0, 70));
  FillAcross(painter, wire,
             {{0, QColor(0x9a, 0x9d, 0xa3)}, {0.4, QColor(0xf4, 0xf5, 0xf7)}, {1, QColor(0x83, 0x86, 0x8c)}});
}

void PaintNut(QPainter& painter, const QRectF& nut) {
  painter.setPen(QPen(QColor(0xb0, 0xa1, 0x80), 1));
  painter.setBrush(QColor(0xf8, 0xf2, 0xe3));
  painter.drawRoundedRect(nut, 2, 2);
  FillAcross(painter, nut.adjusted(1, 2, -1, -2), {{0, QColor(0xf8, 0xf2, 0xe3)}, {1, QColor(0xdf, 0xd3, 0xb8)}});
}

/// The winding of a string of that length from `left`: for each device dot, the share in the shade between two turns. A
/// dashed line would look the same and take as long to paint as all the wood.
QBrush Winding(double left, double length, double dotsPerPixel) {
  constexpr double kTurn = 2;
  constexpr double kShade = 0.8;
  const auto shadeUpTo = [=](double x) {
    const double turns = std::floor(x / kTurn);
    return turns * kShade + std::min(kShade, x - turns * kTurn);
  };
  QImage dots(static_cast<int>(std::ceil(length * dotsPerPixel)), 1, QImage::Format_ARGB32_Premultiplied);
  auto* const row = reinterpret_cast<QRgb*>(dots.scanLine(0));
  for (int dot = 0; dot < dots.width(); ++dot) {
    const double share = (shadeUpTo((dot + 1) / dotsPerPixel) - shadeUpTo(dot / dotsPerPixel)) * dotsPerPixel;
    row[dot] = qPremultiply(qRgba(0x3c, 0x28, 0x0c, qRound(70 * share)));
  }
  QBrush brush(dots);
  brush.setTransform(QTransform::fromTranslate(left, 0).scale(1 / dotsPerPixel, 1));
  return brush;
}

void PaintString(QPainter& painter, std::size_t index, double y, double left, double right) {
  const double gauge = GaugeOf(index);
  const bool plain = index < kPlainStrings;
  const QRectF string(left, y - gauge / 2, right - left, gauge);
  QLinearGradient metal(0, string.top(), 0, string.bottom());
  metal.setColorAt(0, plain ? QColor(0xf6, 0xf6, 0xf4) : QColor(0xee, 0xd9, 0xab));
  metal.setColorAt(1, plain ? QColor(0x97, 0x97, 0x95) : QColor(0x86, 0x67, 0x33));
  painter.fillRect(string, metal);
  if (!plain) painter.fillRect(string, Winding(string.left(), string.width(), DotsPerPixel(painter)));
}

void PaintStringOnBoard(QPainter& painter, std::size_t index, double y, const NeckGeometry& neck) {
  // No shadow left of the nut.
  const QRectF shadow(neck.nut.right(), y + 1, neck.stringsRight - neck.nut.right(), GaugeOf(index));
  painter.fillRect(shadow, QColor(0, 0, 0, 70));
  PaintString(painter, index, y, neck.nut.left(), neck.stringsRight);
}

bool IsOpen(const NeckGeometry& neck, std::size_t index) { return index < neck.open.size() && neck.open[index]; }

// Colours of the outlined neck. The strings are darker than the frets, because they lead the eye to the discs.
const QColor kBoardLine(0x6e, 0x64, 0x58);
const QColor kFretLine(0x9c, 0x95, 0x8b);
const QColor kInlayFill(0xe9, 0xe5, 0xdc);
const QColor kInlayLine(0xcb, 0xc4, 0xb7);
const QColor kNutFill(0x5c, 0x52, 0x47);
const QColor kStringLine(0x5f, 0x5a, 0x54);

void PaintOutlinedNeck(QPainter& painter, const NeckGeometry& neck) {
  constexpr double kFretLineWidth = 1.5;
  constexpr double kGaugeShare = 0.6;
  painter.setPen(QPen(kInlayLine, 0.75));
  painter.setBrush(kInlayFill);
  for (const QPointF& inlay : neck.inlays) painter.drawEllipse(inlay, kInlayRadius, kInlayRadius);
  for (const double fret : neck.frets) {
    const QRectF wire(fret - kFretLineWidth / 2, neck.wood.top(), kFretLineWidth, neck.wood.height());
    paint::FillSnapped(painter, wire, kFretLine);
  }
  painter.setPen(QPen(kBoardLine, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(neck.wood, kWoodRadius, kWoodRadius);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kNutFill);
  painter.drawRoundedRect(neck.nut.adjusted(1, 0, -1, 0), 1.5, 1.5);
  for (std::size_t index = 0; index < neck.strings.size(); ++index) {
    const double gauge = kGaugeShare * GaugeOf(index);
    const double left = IsOpen(neck, index) ? neck.openLeft : neck.nut.left();
    paint::FillSnapped(painter, {left, neck.strings[index] - gauge / 2, neck.stringsRight - left, gauge}, kStringLine);
  }
}

class NeckPicture : public paint::SurfacePicture {
 public:
  explicit NeckPicture(NeckGeometry neck) : neck_(std::move(neck)) {}
  [[nodiscard]] std::string Name() const override { return "neck"; }
  void PaintOn(QPainter& painter) const override { PaintNeck(painter, neck_, NeckLook::kPaper); }

 private:
  NeckGeometry neck_;
};

}  // namespace

std::shared_ptr<const paint::SurfacePicture> NeckOnPaper(NeckGeometry neck) {
  return std::make_shared<const NeckPicture>(std::move(neck));
}

void PaintNeck(QPainter& painter, const NeckGeometry& neck, NeckLook look) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (look == NeckLook::kPaper) {
    PaintOutlinedNeck(painter, neck);
    painter.restore();
    return;
  }
  // Wood and wires consist of whole dots.
  painter.setRenderHint(QPainter::Antialiasing, false);
  PaintWood(painter, neck.wood);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const QPointF& inlay : neck.inlays) PaintInlay(painter, inlay);
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const double fret : neck.frets) PaintFret(painter, fret, neck.wood);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintNut(painter, neck.nut);
  for (std::size_t index = 0; index < neck.strings.size(); ++index) {
    PaintStringOnBoard(painter, index, neck.strings[index], neck);
  }
  painter.restore();
}

void PaintOpenStrings(QPainter& painter, const NeckGeometry& neck) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (std::size_t index = 0; index < neck.strings.size(); ++index) {
    if (IsOpen(neck, index)) PaintString(painter, index, neck.strings[index], neck.openLeft, neck.nut.left());
  }
  painter.restore();
}

}  // namespace tonalith::views
