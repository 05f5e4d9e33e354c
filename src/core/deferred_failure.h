// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the steps of a procedure that has to go on past a failure. Each step goes through Try; a failing step is
// abandoned, the latest failure stays pending, the next step runs. At its end the procedure reports what is pending in
// the form that it owes, or clears it. Lives on the stack of one procedure; not shared between threads.

#pragma once

#include <optional>
#include <utility>

#include "core/failure.h"
#include "core/msg_box.h"

namespace tonalith::core {

class DeferredFailure {
 public:
  /// Runs `step`. Returns true when it ran to its end; otherwise its failure is pending now.
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

  /// Shows the pending failure's description, if there is one, and clears it.
  void ReportDescription(MsgBox& msgBox, MsgBoxStyle style = MsgBoxStyle::kOkOnly);
  /// The same with number, ": " and description.
  void ReportNumberAndDescription(MsgBox& msgBox, MsgBoxStyle style = MsgBoxStyle::kOkOnly);

 private:
  std::optional<Failure> pending_;
};

}  // namespace tonalith::core
