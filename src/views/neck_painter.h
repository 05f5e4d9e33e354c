// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paints the guitar neck: rosewood, inlays, fret wire, nut, and strings of growing gauge, from numbers alone; for paper
// the same neck in outline, which spares ink. Vector drawing at any resolution, the same in every theme. A pure
// function of its geometry; never fails.

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
  std::vector<QPointF> inlays;  // Their middles.
  std::vector<double> strings;  // The middle of each string, the thinnest first.
  /// Where an open string begins, hidden by the disc of its note. A string that is not played open begins at the nut.
  double openLeft = 0;
  /// For each string, whether the disc of its open note is shown.
  std::vector<bool> open;
  double stringsRight = 0;
};

enum class NeckLook { kWood, kPaper };

void PaintNeck(QPainter& painter, const NeckGeometry& neck, NeckLook look = NeckLook::kWood);

/// The pieces of the open strings left of the nut, which PaintNeck leaves out of the wooden neck: they come and go with
/// the scale, the rest stays.
void PaintOpenStrings(QPainter& painter, const NeckGeometry& neck);

/// The neck for paper as a picture that stands by itself, placed as the geometry says.
std::shared_ptr<const paint::SurfacePicture> NeckOnPaper(NeckGeometry neck);

}  // namespace tonalith::views
