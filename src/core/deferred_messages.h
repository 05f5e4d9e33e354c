// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Keeps messages back until they are wanted: for a procedure whose reports have to wait until everything is in its
// place again. Every one of them is taken for a report and answered with OK. Owned by the procedure; any thread, one at
// a time.

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

  /// Shows and forgets them. Whatever holds the messages may go while one is shown.
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
