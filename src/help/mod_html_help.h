// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The help command: looks for the help file in the application folder and hands it to the help engine. The file's
// existence is tested first, then whether it lies on a network share, which the engine is not asked to open. What is in
// the way is one message; nothing is tried again and nothing is thrown. User-interface thread.

#pragma once

#include <string>
#include <string_view>

#include "core/msg_box.h"
#include "platform/help_engine.h"

namespace tonalith::help {

inline constexpr std::string_view kHelpFileName = "TLHELP.chm";

/// `appFolder`, a separator where it does not end in one, and the help file's name.
[[nodiscard]] std::string HelpFilePath(const std::string& appFolder);

/// Opens the help file of that folder at its default page, for the window `caller`.
void OpenHelpFile(const std::string& appFolder, core::MsgBox& msgBox, platform::HelpEngine& engine,
                  platform::HelpWindowHandle caller);

}  // namespace tonalith::help
