// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Stores messages and shows them later, for a procedure that must restore its state before it reports. All messages are
// assumed to be reports and are answered with OK.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/msg_box.h"

namespace tonalith::core {

class DeferredMessages : public MsgBox {
 public:
  using MsgBox::Show;
  MsgBoxAnswer Show(const std::string& text, MsgBoxStyle style, const std::string& title) override {
    messages_.push_back({text, style, title});
    return MsgBoxAnswer::kOk;
  }

  /// Shows the messages and removes them. Showing one may destroy the object that owns this one.
  void ShowAll(MsgBox& msgBox) {
    for (const Message& message : std::exchange(messages_, {})) msgBox.Show(message.text, message.style, message.title);
  }

 private:
  struct Message {
    std::string text;
    MsgBoxStyle style;
    std::string title;
  };
  std::vector<Message> messages_;
};

}  // namespace tonalith::core
