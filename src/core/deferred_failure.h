// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the steps of a procedure that continues after a failure. Each step goes through Try. A failing step is
// abandoned, its failure replaces the pending one, and the next step runs. At its end the procedure reports or clears
// the pending failure. Created on the stack of one procedure.

#pragma once

#include <optional>
#include <utility>

#include "core/failure.h"
#include "core/msg_box.h"

namespace tonalith::core {

class DeferredFailure {
 public:
  /// Runs `step`. Returns whether it succeeded; otherwise its failure is pending.
  template <class Step>
  bool Try(Step&& step) {
    try {
      std::forward<Step>(step)();
      return true;
    } catch (const std::exception&) {
      pending_ = Failure::FromCurrentException();
      return false;
    }
  }

  [[nodiscard]] const std::optional<Failure>& Pending() const { return pending_; }
  void Clear() { pending_.reset(); }

  /// Shows and clears the pending failure, if any: its description only.
  void ReportDescription(MsgBox& msgBox, MsgBoxStyle style = MsgBoxStyle::kOkOnly);
  /// As ReportDescription, with number, ": " and description.
  void ReportNumberAndDescription(MsgBox& msgBox, MsgBoxStyle style = MsgBoxStyle::kOkOnly);

 private:
  std::optional<Failure> pending_;
};

}  // namespace tonalith::core
