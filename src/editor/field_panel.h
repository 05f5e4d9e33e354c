// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rounded panel around a text box or a list box, painted like the buttons beside it, with the focus ring while the
// box has the focus, and flat while its content cannot be changed. Takes the box as its child; hidden and shown with
// it. Owned by its parent widget; user-interface thread.

#pragma once

#include <QWidget>

namespace tonalith::editor {

class FieldPanel : public QWidget {
  Q_OBJECT

 public:
  FieldPanel(QWidget* box, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* box_;
};

}  // namespace tonalith::editor
