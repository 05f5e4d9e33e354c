// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Ends a command: a message for the standard error stream, and the exit code.

#pragma once

#include <exception>
#include <string>
#include <utility>

#include "core/message.h"

namespace tonalith::cli {

class Refusal : public std::exception {
 public:
  Refusal(int exitCode, const core::Message& message) : exitCode_(exitCode), text_(message.English()) {}

  [[nodiscard]] int ExitCode() const { return exitCode_; }
  [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

 private:
  int exitCode_;
  std::string text_;
};

}  // namespace tonalith::cli
