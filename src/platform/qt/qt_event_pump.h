// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The event loop of Qt as an event pump: waiting sleeps in the loop's own wait. Also joins a notice queue to that loop,
// so that notices posted by other threads are handled between the other events. User-interface thread.

#pragma once

#include <QObject>

#include "platform/event_pump.h"
#include "platform/system/window_message_queue.h"

namespace tonalith::platform {

class QtEventPump : public EventPump {
 public:
  void WaitForEvents() override;
  void WaitForEvents(std::chrono::milliseconds limit) override;
};

/// While it lives, the queue is emptied by the application's event loop.
class QtMessageBridge : public QObject {
  Q_OBJECT

 public:
  explicit QtMessageBridge(WindowMessageQueue& queue);
  ~QtMessageBridge() override;

 private:
  WindowMessageQueue& queue_;
};

}  // namespace tonalith::platform
