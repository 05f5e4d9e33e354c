// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/command_runner.h"

#include "controls/data_control.h"
#include "core/deferred_failure.h"

namespace tonalith::editor {

bool CommandRunner::Run(const std::function<void()>& command, core::MsgBox& msgBox) const {
  const Scope scope(*this);
  core::DeferredFailure failure;
  const bool isDone = failure.Try(command);
  controls::DataControl::Report(failure, msgBox);
  return isDone;
}

}  // namespace tonalith::editor
