// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help engine of this program: reads a compiled help file and shows it in the help window. There is one help
// window, owned by the calling window. A file that cannot be read is refused with a last error; an open window is
// raised and shows the file's default page. Must outlive its callers.

#pragma once

#include <cstdint>
#include <string>

#include "core/msg_box.h"
#include "help/chm_file.h"
#include "help/frm_help.h"
#include "platform/help_engine.h"
#include "windows/open_once.h"

namespace tonalith::help {

/// The values of LastError.
namespace help_error {
inline constexpr std::uint32_t kNone = 0;
inline constexpr std::uint32_t kInvalidData = 13;
inline constexpr std::uint32_t kInvalidParameter = 87;
}  // namespace help_error

class WindowHelpEngine : public platform::HelpEngine {
 public:
  /// External addresses are opened by `opener`, or by the system's programs if it is empty.
  explicit WindowHelpEngine(core::MsgBox& msgBox, AddressOpener opener = {},
                            const sandbox::Limits& limits = kChmReadingLimits);

  platform::HelpWindowHandle HtmlHelpA(platform::HelpWindowHandle caller, const std::string& file,
                                       std::uint32_t command, std::uintptr_t data) override;
  [[nodiscard]] std::uint32_t LastError() const override { return lastError_; }

  /// The help window; null if it is not open.
  [[nodiscard]] frmHelp* Window() const { return window_.Window(); }

 private:
  core::MsgBox& msgBox_;
  AddressOpener opener_;
  sandbox::Limits limits_;
  windows::OpenOnce<frmHelp> window_;
  std::uint32_t lastError_ = help_error::kNone;
};

}  // namespace tonalith::help
