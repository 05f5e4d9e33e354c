// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The push button of all windows: a flat rounded panel in the colours of the palette, or filled with the accent for the
// only main action of a window. Painted, so that it is crisp at any scale factor.

#pragma once

#include <QPushButton>

namespace tonalith::windows {

class PanelButton : public QPushButton {
  Q_OBJECT

 public:
  enum class Kind { kOrdinary, kMainAction };

  PanelButton(const QString& name, const QString& caption, Kind kind, QWidget* parent);

  [[nodiscard]] Kind ButtonKind() const { return kind_; }
  void SetKind(Kind kind);

  [[nodiscard]] QSize sizeHint() const override;
  /// The font of the caption: the font of the button, reduced if a long caption needs it.
  [[nodiscard]] QFont FittedFont() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Kind kind_;
};

}  // namespace tonalith::windows
