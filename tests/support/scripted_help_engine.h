// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A fake of the help engine: records each call as a line and returns the scripted result.

#pragma once

#include <optional>
#include <string>

#include "core/failure.h"
#include "platform/help_engine.h"

namespace tonalith::tests {

class ScriptedHelpEngine : public platform::HelpEngine {
 public:
  platform::HelpWindowHandle HtmlHelpA(platform::HelpWindowHandle caller, const std::string& file,
                                       std::uint32_t command, std::uintptr_t data) override {
    record_ += "HtmlHelpA " + std::to_string(caller) + " " + file + " " + std::to_string(command) + " " +
               std::to_string(data) + "\n";
    if (broken_) throw core::Failure(*broken_);
    return handle_;
  }
  [[nodiscard]] std::uint32_t LastError() const override {
    record_ += "LastError\n";
    return lastError_;
  }

  void Answer(platform::HelpWindowHandle handle, std::uint32_t lastError) {
    handle_ = handle;
    lastError_ = lastError;
  }
  /// The next calls throw.
  void Break(core::Failure failure) { broken_ = std::move(failure); }
  [[nodiscard]] const std::string& Record() const { return record_; }

 private:
  mutable std::string record_;
  platform::HelpWindowHandle handle_ = 1;
  std::uint32_t lastError_ = 0;
  std::optional<core::Failure> broken_;
};

}  // namespace tonalith::tests
