// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rounded panel around a text box or a list box, painted like the buttons beside it, with the focus ring while the
// box has the focus, and flat while its content cannot be changed. Takes the box as its child; hidden and shown with
// it. Owned by its parent widget; user-interface thread; never fails.

#pragma once

#include <QWidget>

namespace tonalith::windows {

class FieldPanel : public QWidget {
  Q_OBJECT

 public:
  /// `room` is kept free above and below the box, in pixels.
  FieldPanel(QWidget* box, QWidget* parent, int room = 5);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* box_;
};

}  // namespace tonalith::windows
