// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/mod_html_help.h"

#include <filesystem>
#include <system_error>

#include "core/deferred_failure.h"
#include "core/paths.h"
#include "help/messages.h"

namespace tonalith::help {
namespace {

using core::MsgBoxStyle;

bool IsFile(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

/// Returns whether the engine shows the file. An exception counts as a refusal.
bool Opens(platform::HelpEngine& engine, platform::HelpWindowHandle caller, const std::string& path) {
  platform::HelpWindowHandle window = platform::kNoHelpWindow;
  std::uint32_t lastError = 0;
  core::DeferredFailure failure;
  failure.Try([&] { window = engine.HtmlHelpA(caller, path, platform::kDisplayTopic, 0); });
  failure.Try([&] { lastError = engine.LastError(); });
  return window != platform::kNoHelpWindow && lastError == 0;
}

}  // namespace

std::string HelpFilePath(const std::string& appFolder) {
  std::string path = appFolder;
  if (path.empty() || path.back() != core::kPathSeparator) path += core::kPathSeparator;
  return path.append(kHelpFileName);
}

void OpenHelpFile(const std::string& appFolder, core::MsgBox& msgBox, platform::HelpEngine& engine,
                  platform::HelpWindowHandle caller) {
  const std::string path = HelpFilePath(appFolder);
  if (!IsFile(path)) {
    msgBox.Show({MessageId::kFileMissing, path}, MsgBoxStyle::kCritical, MessageId::kFileMissingTitle);
    return;
  }
  if (core::IsNetworkPath(path)) {
    msgBox.Show(MessageId::kNetworkShare, MsgBoxStyle::kExclamation, {});
    return;
  }
  // Kept: see docs/behaviour.md, Help names an engine that is not used.
  if (!Opens(engine, caller, path)) {
    msgBox.Show(MessageId::kEngineFailed, MsgBoxStyle::kCritical, MessageId::kEngineFailedTitle);
  }
}

}  // namespace tonalith::help
