// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Hidden windows without a window system: any thread posts messages into one queue, the user-interface thread handles
// them. A program with its own event loop sets a wake-up callback and calls Dispatch from its loop; other programs call
// WaitForEvents. Must outlive all posting threads. Dispatch is reentrant: a window procedure that runs the event loop
// (a message box) handles the pending messages inside.

#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>

#include "platform/event_pump.h"
#include "platform/window_messages.h"

namespace tonalith::platform {

class WindowMessageQueue : public WindowMessages, public EventPump {
 public:
  WindowHandle CreateWindow(const WindowDescription& description) override;
  WindowProcedure SetWindowProcedure(WindowHandle window, WindowProcedure procedure) override;
  std::intptr_t CallWindowProcedure(const WindowProcedure& previous, WindowHandle window, std::uint32_t message,
                                    std::uintptr_t wParam, std::intptr_t lParam) override;
  void DestroyWindow(WindowHandle window) override;
  void PostMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) override;

  void WaitForEvents() override;
  void WaitForEvents(std::chrono::milliseconds limit) override;

  /// Handles the messages that were pending at the call.
  void Dispatch();

  /// Sets the callback that runs after each post, on the posting thread, and makes the event loop call Dispatch. It
  /// runs under the queue's lock, so after SetWakeUp returns the previous callback is not running.
  void SetWakeUp(std::function<void()> wakeUp);

 private:
  struct Message {
    WindowHandle window = kNoWindow;
    std::uint32_t message = 0;
    std::uintptr_t wParam = 0;
    std::intptr_t lParam = 0;
  };

  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<Message> messages_;
  std::map<WindowHandle, WindowProcedure> windows_;
  WindowHandle lastWindow_ = kNoWindow;
  std::function<void()> wakeUp_;
};

}  // namespace tonalith::platform
