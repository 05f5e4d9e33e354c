// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Paints immediately instead of with the next frame of the screen, and counts paint events, so that missing ones are
// detected.

#pragma once

#include <QObject>

namespace tonalith::bench {

/// Handles all pending events and paints all windows that need it.
void Settle();

/// Counts the painted widgets during its lifetime.
class PaintCounter : public QObject {
 public:
  PaintCounter();
  bool eventFilter(QObject* watched, QEvent* event) override;
  [[nodiscard]] int Count() const { return count_; }

 private:
  int count_ = 0;
};

}  // namespace tonalith::bench
