// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A message box that returns OK and records whether the busy pointer was shown.

#pragma once

#include <QGuiApplication>
#include <optional>

#include "core/msg_box.h"

namespace tonalith::search {

struct PointerWatchingMsgBox : core::MsgBox {
  using MsgBox::Show;
  core::MsgBoxAnswer Show(const core::Message& /*text*/, core::MsgBoxStyle /*style*/,
                          const core::Message& /*title*/) override {
    wasBusy = QGuiApplication::overrideCursor() != nullptr;
    return core::MsgBoxAnswer::kOk;
  }

  /// Empty before the first message.
  std::optional<bool> wasBusy;
};

}  // namespace tonalith::search
