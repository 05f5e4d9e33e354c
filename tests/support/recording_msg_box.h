// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A message box for tests: records the messages in English and answers from a script, then with the default button of
// the style.

#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/msg_box.h"

namespace tonalith::tests {

class RecordingMsgBox : public core::MsgBox {
 public:
  struct Message {
    std::string text;
    core::MsgBoxStyle style = core::MsgBoxStyle::kOkOnly;
    std::string title;
    bool operator==(const Message&) const = default;
  };

  using MsgBox::Show;
  core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override {
    messages_.push_back({text.English(), style, title.English()});
    if (answers_.empty()) return DefaultAnswer(style);
    const core::MsgBoxAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  void AnswerNext(core::MsgBoxAnswer answer) { answers_.push_back(answer); }
  [[nodiscard]] const std::vector<Message>& Messages() const { return messages_; }
  void Forget() { messages_.clear(); }

  /// The texts only, one per line, for assertions.
  [[nodiscard]] std::string Texts() const {
    std::string all;
    for (const Message& message : messages_) all += message.text + "\n";
    return all;
  }

 private:
  static core::MsgBoxAnswer DefaultAnswer(core::MsgBoxStyle style) {
    const int value = static_cast<int>(style);
    const bool second = (value & static_cast<int>(core::MsgBoxStyle::kDefaultButton2)) != 0;
    switch (value & 0xF) {
      case static_cast<int>(core::MsgBoxStyle::kOkCancel):
        return second ? core::MsgBoxAnswer::kCancel : core::MsgBoxAnswer::kOk;
      case static_cast<int>(core::MsgBoxStyle::kYesNo):
        return second ? core::MsgBoxAnswer::kNo : core::MsgBoxAnswer::kYes;
      default:
        return core::MsgBoxAnswer::kOk;
    }
  }

  std::vector<Message> messages_;
  std::deque<core::MsgBoxAnswer> answers_;
};

}  // namespace tonalith::tests
