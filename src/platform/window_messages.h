// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Hidden windows that receive notices: created with a class name and a caption, their window procedure can be swapped,
// and any thread can post a message to them. A port: notices/ is a queue without a window system, which the program's
// event loop empties, scripted/ records for tests. All functions run on the user-interface thread except PostMessage,
// which any thread may call; window procedures run on the user-interface thread, one notice at a time, in the order of
// posting. A handle of a destroyed window is harmless everywhere: nothing happens.

#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tonalith::platform {

using WindowHandle = std::uintptr_t;
inline constexpr WindowHandle kNoWindow = 0;

/// What a window does with a message; gives the message's result.
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

  /// kNoWindow when no window could be made.
  virtual WindowHandle CreateWindow(const WindowDescription& description) = 0;

  /// Puts a procedure in and gives the previous one back: at first that of the window's class, which answers 0.
  virtual WindowProcedure SetWindowProcedure(WindowHandle window, WindowProcedure procedure) = 0;

  /// Hands a message to a procedure that SetWindowProcedure gave back.
  virtual std::intptr_t CallWindowProcedure(const WindowProcedure& previous, WindowHandle window, std::uint32_t message,
                                            std::uintptr_t wParam, std::intptr_t lParam) = 0;

  /// Destroys the window; notices that are still waiting for it are dropped.
  virtual void DestroyWindow(WindowHandle window) = 0;

  /// Any thread. The notice reaches the window's procedure from the event loop, never from within this call.
  virtual void PostMessage(WindowHandle window, std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
};

}  // namespace tonalith::platform
