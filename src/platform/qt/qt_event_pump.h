// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Qt's event loop as an event pump, and the bridge that makes it handle the messages of a WindowMessageQueue.

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

/// While this object exists, the application's event loop dispatches the queue.
class QtMessageBridge : public QObject {
  Q_OBJECT

 public:
  explicit QtMessageBridge(WindowMessageQueue& queue);
  ~QtMessageBridge() override;

 private:
  WindowMessageQueue& queue_;
};

}  // namespace tonalith::platform
