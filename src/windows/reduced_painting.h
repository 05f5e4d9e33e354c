// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Painting at a scale below 1. Qt lays windows out and handles their input at a scale factor below 1, but a painter
// takes such a device for one of scale 1 and paints too large. What is here adds the scale that is missing, so that
// text and lines are painted at their final size and no finished picture is shrunk. User-interface thread; never fails.

#pragma once

#include <QGraphicsEffect>

class QPainter;
class QWidget;

namespace tonalith::windows {

/// Paints a window and everything in it at the device pixel ratio of its screen if that is below 1.
class ReducedPainting : public QGraphicsEffect {
 public:
  /// `window` owns the effect.
  explicit ReducedPainting(QWidget& window);

  /// Gives `widget` this effect if it is a window, has no effect yet, and is on a screen with a ratio below 1.
  static void Install(QWidget& widget);

 protected:
  void draw(QPainter* painter) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& window_;
  bool isRepainting_ = false;
};

}  // namespace tonalith::windows
