// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_icon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>

#include "paint/colours.h"

namespace tonalith::app {
namespace {

constexpr QRgb kWoodTop = 0xFF5A3626;
constexpr QRgb kWoodBottom = 0xFF341D15;
constexpr QRgb kWire = 0xFFCFC6B8;
constexpr QRgb kString = 0xFFE9DFC9;
/// Below this size only three strings and one fret fit.
constexpr int kFullSize = 32;
constexpr int kLargestWindowIcon = 64;

/// Moves the middle of a line so that its edges are on whole pixels.
double OnPixels(double middle, double width) {
  const double edge = std::round(middle - width / 2);
  return edge + width / 2;
}

double LineWidth(int size, double share) { return std::max(1.0, std::round(size * share)); }

void PaintBackground(QPainter& painter, int size) {
  QLinearGradient wood(0, 0, 0, size);
  wood.setColorAt(0, QColor::fromRgba(kWoodTop));
  wood.setColorAt(1, QColor::fromRgba(kWoodBottom));
  painter.setPen(Qt::NoPen);
  painter.setBrush(wood);
  const double radius = size * 0.19;
  painter.drawRoundedRect(QRectF(0, 0, size, size), radius, radius);
}

void PaintLines(QPainter& painter, int size) {
  const bool isFull = size >= kFullSize;
  painter.setBrush(QColor::fromRgba(kWire));
  const double wire = LineWidth(size, 0.035);
  const auto drawFret = [&](double at) {
    painter.drawRect(QRectF(OnPixels(size * at, wire) - wire / 2, 0, wire, size));
  };
  drawFret(isFull ? 0.54 : 0.5);
  painter.setBrush(QColor::fromRgba(kString));
  const int strings = isFull ? 4 : 3;
  for (int string = 0; string < strings; ++string) {
    const double gauge = LineWidth(size, 0.014 + 0.007 * string);
    // Between the rounded corners.
    const double middle = OnPixels(size * (0.22 + 0.56 * string / (strings - 1)), gauge);
    painter.drawRect(QRectF(0, middle - gauge / 2, size, gauge));
  }
}

/// The key note at the bottom left, another note at the top right.
void PaintNotes(QPainter& painter, int size) {
  const bool isFull = size >= kFullSize;
  const double rim = isFull ? size * 0.03 : 1.0;
  const double key = std::round(size * (isFull ? 0.36 : 0.44));
  const double disc = std::round(size * (isFull ? 0.30 : 0.38));
  const QRectF keyPlace(std::round(size * 0.12), size - std::round(size * 0.12) - key, key, key);
  const QRectF discPlace(size - std::round(size * 0.12) - disc, std::round(size * 0.12), disc, disc);
  const auto note = [&](const QRectF& place, QRgb colour, QRgb rimColour, double radius) {
    painter.setBrush(QColor::fromRgba(rimColour));
    painter.drawRoundedRect(place, radius, radius);
    painter.setBrush(QColor::fromRgba(colour));
    painter.drawRoundedRect(place.adjusted(rim, rim, -rim, -rim), radius - rim, radius - rim);
  };
  note(keyPlace, paint::kAccent, paint::kAccentRim, std::max(key * 0.27, 2.0));
  note(discPlace, paint::kNote, paint::kNoteRim, disc / 2);
}

}  // namespace

void PaintProgramIcon(QPainter& painter, int size) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  PaintBackground(painter, size);
  PaintLines(painter, size);
  PaintNotes(painter, size);
  painter.restore();
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : kIconSizes) {
    if (size > kLargestWindowIcon) continue;
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    PaintProgramIcon(painter, size);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace tonalith::app
