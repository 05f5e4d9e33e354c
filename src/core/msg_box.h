// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Message box interface: a text, a style and a title, answered with a button. The window system implements it in
// platform/qt; tests record it (support/recording_msg_box.h). User-interface thread only. Show returns when the box is
// closed.

#pragma once

#include "core/message.h"

namespace tonalith::core {

/// Style values are added: a set of buttons, an icon and the default button.
enum class MsgBoxStyle : int {
  kOkOnly = 0,
  kOkCancel = 1,
  kYesNo = 4,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kDefaultButton2 = 256,
};

constexpr MsgBoxStyle operator|(MsgBoxStyle a, MsgBoxStyle b) {
  return static_cast<MsgBoxStyle>(static_cast<int>(a) | static_cast<int>(b));
}

enum class MsgBoxAnswer : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

class MsgBox {
 public:
  virtual ~MsgBox() = default;

  /// Shows `text`, translated; a line feed is a line break. An empty title means the title of the application.
  virtual MsgBoxAnswer Show(const Message& text, MsgBoxStyle style, const Message& title) = 0;

  MsgBoxAnswer Show(const Message& text, MsgBoxStyle style = MsgBoxStyle::kOkOnly) { return Show(text, style, {}); }
};

}  // namespace tonalith::core
