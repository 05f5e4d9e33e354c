// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Hidden windows without a window system: any thread posts notices into one queue, the user-interface thread empties
// it. A program with an event loop of its own sets a wake-up call and calls Dispatch from its loop; a program without
// one waits here, asleep. Owned by the program and outlives whoever posts. Dispatch may be entered again from a window
// procedure (a message box runs the loop in the middle of one): the notices that wait are then handled inside.

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

  /// Handles the notices that were waiting when it was called.
  void Dispatch();

  /// Called after each posting, on the posting thread: asks the event loop to call Dispatch soon. The call runs under
  /// the queue's lock, so once SetWakeUp has returned nobody is inside the one before.
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
