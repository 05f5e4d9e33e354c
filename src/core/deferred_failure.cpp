// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/deferred_failure.h"

namespace tonalith::core {

void DeferredFailure::ReportDescription(MsgBox& msgBox, MsgBoxStyle style) {
  // Cleared before the box is shown: the box runs the event loop, which must not report the failure again.
  if (const std::optional<Failure> failure = std::exchange(pending_, std::nullopt)) {
    msgBox.Show(failure->Text(), style);
  }
}

void DeferredFailure::ReportNumberAndDescription(MsgBox& msgBox, MsgBoxStyle style) {
  if (const std::optional<Failure> failure = std::exchange(pending_, std::nullopt)) {
    msgBox.Show(failure->NumberAndText(), style);
  }
}

}  // namespace tonalith::core
