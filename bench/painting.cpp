// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "painting.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tonalith::bench {

void Settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  for (QWidget* const shown : QApplication::topLevelWidgets()) {
    QEvent update(QEvent::UpdateRequest);
    if (shown->isVisible()) QCoreApplication::sendEvent(shown, &update);
  }
}

PaintCounter::PaintCounter() { QApplication::instance()->installEventFilter(this); }

bool PaintCounter::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Paint) ++count_;
  return false;
}

}  // namespace tonalith::bench
