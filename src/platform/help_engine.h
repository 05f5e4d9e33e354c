// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Shows compiled help files. Implemented by the help room with its own window. A call may throw any exception of its
// implementation; a refusal is reported by the handle kNoHelpWindow or a last error other than 0.

#pragma once

#include <cstdint>
#include <string>

namespace tonalith::platform {

/// A native window handle.
using HelpWindowHandle = std::uintptr_t;

inline constexpr HelpWindowHandle kNoHelpWindow = 0;
/// The command that opens a file at its default page.
inline constexpr std::uint32_t kDisplayTopic = 0;

class HelpEngine {
 public:
  virtual ~HelpEngine() = default;

  /// Executes `command` on the help file with that full path, for the window `caller`. Returns the handle of the help
  /// window.
  virtual HelpWindowHandle HtmlHelpA(HelpWindowHandle caller, const std::string& file, std::uint32_t command,
                                     std::uintptr_t data) = 0;
  /// The error of the latest call; 0 after success.
  [[nodiscard]] virtual std::uint32_t LastError() const = 0;
};

}  // namespace tonalith::platform
