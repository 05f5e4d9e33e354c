// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The message box as the program sees it: a text, a style and a title, answered with a button. A port: the window
// system implements it in platform/, tests record it (core/recording_msg_box.h). Called on the user-interface thread
// only; Show returns when the box is closed.

#pragma once

#include <string>

namespace tonalith::core {

/// Style values add up: a set of buttons, an icon and the default button.
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

  /// Shows `text` (UTF-8; a line feed is a line break). An empty title stands for the application's title.
  virtual MsgBoxAnswer Show(const std::string& text, MsgBoxStyle style, const std::string& title) = 0;

  MsgBoxAnswer Show(const std::string& text, MsgBoxStyle style = MsgBoxStyle::kOkOnly) { return Show(text, style, {}); }
};

}  // namespace tonalith::core
