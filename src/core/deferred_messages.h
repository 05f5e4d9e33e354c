// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Stores messages and shows them later, for a procedure that must restore its state before it reports. All messages are
// assumed to be reports and are answered with OK.

#pragma once

#include <utility>
#include <vector>

#include "core/msg_box.h"

namespace tonalith::core {

class DeferredMessages : public MsgBox {
 public:
  using MsgBox::Show;
  MsgBoxAnswer Show(const Message& text, MsgBoxStyle style, const Message& title) override {
    reports_.push_back({text, style, title});
    return MsgBoxAnswer::kOk;
  }

  /// Shows the messages and removes them. Showing one may destroy the object that owns this one.
  void ShowAll(MsgBox& msgBox) {
    for (const Report& report : std::exchange(reports_, {})) msgBox.Show(report.text, report.style, report.title);
  }

 private:
  struct Report {
    Message text;
    MsgBoxStyle style;
    Message title;
  };
  std::vector<Report> reports_;
};

}  // namespace tonalith::core
