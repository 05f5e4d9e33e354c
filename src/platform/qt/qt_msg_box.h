// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The message box as a Qt dialog: plain text, window-modal over whatever window is active, the application's title
// where none is given. Owned by main; user-interface thread; does not fail.

#pragma once

#include <QPointer>
#include <QWidget>
#include <string>

#include "core/msg_box.h"

namespace tonalith::platform {

class QtMsgBox : public core::MsgBox {
 public:
  explicit QtMsgBox(std::string applicationTitle) : applicationTitle_(std::move(applicationTitle)) {}

  using core::MsgBox::Show;
  core::MsgBoxAnswer Show(const std::string& text, core::MsgBoxStyle style, const std::string& title) override;

 private:
  std::string applicationTitle_;
  QPointer<QWidget> latestWindow_;
};

}  // namespace tonalith::platform
