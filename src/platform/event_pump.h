// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The event loop for code that has to wait in the middle of a procedure. A port: the window system implements it, the
// notice queue does for programs without windows. User-interface thread only. Waiting sleeps; whatever arrives is
// handled inside the call, so the caller has to expect that anything in the program changed when it returns.

#pragma once

#include <chrono>

namespace tonalith::platform {

class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Sleeps until at least one event has arrived, handles all that are pending and returns. Returns at once when events
  /// are pending already.
  virtual void WaitForEvents() = 0;

  /// The same, but returns after `limit` even if nothing arrived.
  virtual void WaitForEvents(std::chrono::milliseconds limit) = 0;
};

}  // namespace tonalith::platform
