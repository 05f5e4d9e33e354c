// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Counts how often a widget is painted.

#pragma once

#include <QEvent>
#include <QWidget>

namespace tonalith::tests {

class PaintCounter : public QObject {
 public:
  /// Counts from now on. The widget may outlive the counter.
  explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
  [[nodiscard]] int Count() const { return count_; }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count_ += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }

 private:
  int count_ = 0;
};

}  // namespace tonalith::tests
