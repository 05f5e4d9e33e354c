// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paints the guitar neck from its geometry: rosewood, inlays, frets, nut, and strings of increasing gauge; for paper an
// outline, which saves ink. Scales to any resolution and looks the same in every theme. Pure functions.

#pragma once

#include <QPointF>
#include <QRectF>
#include <memory>
#include <vector>

#include "paint/drawing_surface.h"

namespace tonalith::views {

/// All in pixels at scale 1.
struct NeckGeometry {
  QRectF wood;
  QRectF nut;
  std::vector<double> frets;    // The middle of each fret wire.
  std::vector<QPointF> inlays;  // Their centres.
  std::vector<double> strings;  // The middle of each string, the thinnest first.
  /// The start of an open string, hidden by the disc of its note. Other strings begin at the nut.
  double openLeft = 0;
  /// For each string, whether the disc of its open note is shown.
  std::vector<bool> open;
  double stringsRight = 0;
};

enum class NeckLook { kWood, kPaper };

void PaintNeck(QPainter& painter, const NeckGeometry& neck, NeckLook look = NeckLook::kWood);

/// The open strings left of the nut. PaintNeck does not paint them on wood, because they change with the scale and the
/// rest does not.
void PaintOpenStrings(QPainter& painter, const NeckGeometry& neck);

/// The neck for paper as an independent picture, positioned by the geometry.
std::shared_ptr<const paint::SurfacePicture> NeckOnPaper(NeckGeometry neck);

}  // namespace tonalith::views
