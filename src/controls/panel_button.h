// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The push button of Tonalith's windows: a flat rounded panel in the palette's colours, or filled with the accent for
// the one main action of a window. Painted, so that it is crisp at any scale factor. Owned by its parent widget.

#pragma once

#include <QPushButton>

namespace tonalith::controls {

class PanelButton : public QPushButton {
  Q_OBJECT

 public:
  enum class Kind { kOrdinary, kMainAction };

  PanelButton(const QString& name, const QString& caption, Kind kind, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

/// The rounded panel that buttons and boxes share, with a focus ring where asked for.
void PaintPanel(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& outline, bool focusRing);

}  // namespace tonalith::controls
