// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rounded panel around a text box or a list box, painted like a button, with a focus ring if the box has the focus,
// and flat if its content is read-only. The box becomes its child; both are shown and hidden together.

#pragma once

#include <QWidget>

namespace tonalith::windows {

class FieldPanel : public QWidget {
  Q_OBJECT

 public:
  /// `padding` is the free space above and below the box, in pixels.
  FieldPanel(QWidget* box, QWidget* parent, int padding = 5);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* box_;
};

}  // namespace tonalith::windows
