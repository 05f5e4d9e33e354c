// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help command: looks for the help file in the application folder and opens it in the help engine. Checks first
// that the file exists, then that it is not on a network share, which is refused. Shows one message on failure, does
// not retry and never throws.

#pragma once

#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "platform/help_engine.h"

namespace tonalith::help {

inline constexpr std::string_view kHelpFileName = "TLHELP.chm";

/// `appFolder`, a separator unless it ends with one, and the help file's name.
[[nodiscard]] std::string HelpFilePath(const std::string& appFolder);

/// Opens the help file of that folder at its default page, for the window `caller`.
void OpenHelpFile(const std::string& appFolder, core::MsgBox& msgBox, platform::HelpEngine& engine,
                  platform::HelpWindowHandle caller);

}  // namespace tonalith::help
