// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paints the guitar neck: rosewood, inlays, fret wire, nut, and strings of growing gauge, from numbers alone. Vector
// drawing at any resolution, the same in every theme. A pure function of its geometry; never fails.

#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

class QPainter;

namespace tonalith::views {

/// All in pixels at scale 1.
struct NeckGeometry {
  QRectF wood;
  QRectF nut;
  std::vector<double> frets;    // The middle of each fret wire.
  std::vector<QPointF> inlays;  // Their middles.
  std::vector<double> strings;  // The middle of each string, the thinnest first.
  double stringsLeft = 0;
  double stringsRight = 0;
};

void PaintNeck(QPainter& painter, const NeckGeometry& neck);

}  // namespace tonalith::views
