// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The event loop for code that waits inside a procedure. Waiting blocks without polling. Events are handled inside the
// call, so the caller must expect any state of the program to have changed when it returns.

#pragma once

#include <chrono>

namespace tonalith::platform {

class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Blocks until at least one event is pending, handles all pending events and returns. Does not block if events are
  /// already pending.
  virtual void WaitForEvents() = 0;

  /// As above, but returns after `limit` even without an event.
  virtual void WaitForEvents(std::chrono::milliseconds limit) = 0;
};

}  // namespace tonalith::platform
