// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the editor's commands one at a time. A message box processes events, so a second command can start, or the
// editor can be destroyed, while one runs; a runner may be destroyed during Run.

#pragma once

#include <functional>
#include <memory>

#include "core/msg_box.h"

namespace tonalith::editor {

class CommandRunner {
 public:
  /// While one of these exists, a command is running.
  class Scope {
   public:
    explicit Scope(const CommandRunner& runner) : running_(runner.running_) { ++*running_; }
    ~Scope() { --*running_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    std::shared_ptr<int> running_;
  };

  [[nodiscard]] bool IsRunning() const { return *running_ > 0; }
  /// Runs a command and shows the failure that ends it. False when it failed.
  bool Run(const std::function<void()>& command, core::MsgBox& msgBox) const;

 private:
  std::shared_ptr<int> running_ = std::make_shared<int>(0);
};

}  // namespace tonalith::editor
