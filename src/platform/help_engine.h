// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The engine that shows compiled help files. A port: the help room implements it with a window of its own, tests script
// it (platform/scripted). User-interface thread. A call may throw whatever its implementation throws; a refusal is the
// handle kNoHelpWindow or a last error other than 0.

#pragma once

#include <cstdint>
#include <string>

namespace tonalith::platform {

/// A window as the system numbers it.
using HelpWindowHandle = std::uintptr_t;

inline constexpr HelpWindowHandle kNoHelpWindow = 0;
/// The command that opens a file at its default page.
inline constexpr std::uint32_t kDisplayTopic = 0;

class HelpEngine {
 public:
  virtual ~HelpEngine() = default;

  /// Carries out `command` on the help file of that full path, for the window `caller`. Returns the handle of the help
  /// window.
  virtual HelpWindowHandle HtmlHelpA(HelpWindowHandle caller, const std::string& file, std::uint32_t command,
                                     std::uintptr_t data) = 0;
  /// What the latest call left behind; 0 when it has succeeded.
  [[nodiscard]] virtual std::uint32_t LastError() const = 0;
};

}  // namespace tonalith::platform
