// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paints the neck below its notes: wood, frets and strings, cached as one picture for a scale factor, then the open
// strings and the fret numbers, which change. The controls must outlive it.

#pragma once

#include <QColor>
#include <QPixmap>

#include "views/fretboard_controls.h"

namespace tonalith::views {

class FretboardPainter {
 public:
  explicit FretboardPainter(const FretboardControls& controls) : controls_(controls) {}

  /// To be called when lines were moved.
  void DropCache() { neck_ = {}; }
  /// Paints on the view; fret numbers in its font and the secondary colour of its palette.
  void Paint(QPainter& painter, const QWidget& view);

 private:
  void UpdateCache(const NeckGeometry& geometry, const QWidget& view);
  void PaintFretNumbers(QPainter& painter, QFont font, const QColor& colour) const;

  const FretboardControls& controls_;
  QPixmap neck_;
};

}  // namespace tonalith::views
