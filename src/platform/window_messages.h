// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Hidden windows that receive messages: created with a class name and a caption, with a replaceable window procedure.
// PostMessage may be called from any thread. Window procedures run on the user-interface thread, one message at a time,
// in the order of posting. Every function ignores the handle of a destroyed window.

#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tonalith::platform {

using WindowHandle = std::uintptr_t;
inline constexpr WindowHandle kNoWindow = 0;

/// Handles a message of a window and returns the message's result.
using WindowProcedure = std::function<std::intptr_t(WindowHandle window, std::uint32_t message, std::uintptr_t wParam,
                                                    std::intptr_t lParam)>;

struct WindowDescription {
  std::string className;
  std::string caption;
  std::uint32_t extendedStyle = 0;
  std::uint32_t style = 0;
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

class WindowMessages {
 public:
  virtual ~WindowMessages() = default;

  /// Returns kNoWindow if no window could be created.
  virtual WindowHandle CreateWindow(const WindowDescription& description) = 0;

  /// Sets the procedure and returns the previous one: initially that of the window's class, which returns 0.
  virtual WindowProcedure SetWindowProcedure(WindowHandle window, WindowProcedure procedure) = 0;

  /// Passes a message to a procedure that SetWindowProcedure returned.
  virtual std::intptr_t CallWindowProcedure(const WindowProcedure& previous, WindowHandle window, std::uint32_t message,
                                            std::uintptr_t wParam, std::intptr_t lParam) = 0;

  /// Destroys the window and drops its pending messages.
  virtual void DestroyWindow(WindowHandle window) = 0;

  /// Any thread. The message is delivered from the event loop, never from within this call.
  virtual void PostMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace tonalith::platform
