// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The message box as a Qt dialog: translated plain text, modal to the active window, with the application's title
// unless one is given.

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
  core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle style, const core::Message& title) override;

 private:
  std::string applicationTitle_;
  QPointer<QWidget> latestWindow_;
};

}  // namespace tonalith::platform
