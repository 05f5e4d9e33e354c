// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The panel around a text box, painted like the buttons beside it and with the focus ring while the box has the focus.
// Takes the text box as its child. Owned by its parent widget; user-interface thread.

#pragma once

#include <QWidget>

class QLineEdit;

namespace tonalith::search {

class TextPanel : public QWidget {
  Q_OBJECT

 public:
  TextPanel(QLineEdit* text, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* text_;
};

}  // namespace tonalith::search
