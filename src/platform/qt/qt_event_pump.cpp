// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/qt/qt_event_pump.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace tonalith::platform {

void QtEventPump::WaitForEvents() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }

void QtEventPump::WaitForEvents(std::chrono::milliseconds limit) {
  QTimer wakeUp;
  wakeUp.setSingleShot(true);
  wakeUp.start(limit);
  WaitForEvents();
}

QtMessageBridge::QtMessageBridge(WindowMessageQueue& queue) : queue_(queue) {
  queue_.SetWakeUp([this] {
    QMetaObject::invokeMethod(
        this, [this] { queue_.Dispatch(); }, Qt::QueuedConnection);
  });
}

QtMessageBridge::~QtMessageBridge() { queue_.SetWakeUp({}); }

}  // namespace tonalith::platform
