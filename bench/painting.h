// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Painting at once what a window system would ask for with the screen's next frame, and a count of it, so that a step
// whose painting is left out is seen. User-interface thread.

#pragma once

#include <QObject>

namespace tonalith::bench {

/// Handles all events that wait, and paints every window as far as it wants to be painted.
void Settle();

/// Counts the widgets that are painted while it lives.
class PaintCounter : public QObject {
 public:
  PaintCounter();
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] int Count() const { return count_; }

 private:
  int count_ = 0;
};

}  // namespace tonalith::bench
