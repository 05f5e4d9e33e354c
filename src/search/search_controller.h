// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search commands of the main window: one use of the dialog, and the next match for the text that the dialog was
// left with. Keeps that text while the window lives. Owned by the main window; user-interface thread. Failures are
// shown as their description.

#pragma once

#include <memory>
#include <string>

#include "core/msg_box.h"
#include "search/search_dialog.h"

namespace tonalith::controls {
class DataControl;
}

namespace tonalith::search {

class SearchController {
 public:
  explicit SearchController(core::MsgBox& msgBox) : msgBox_(msgBox) {}

  /// Shows the dialog over the scales of `data1`, with the text of its last use; returns when it is closed. The desk
  /// may be gone then.
  void Open(controls::DataControl& data1);
  /// Makes the next match of the last text current. Opens the dialog while there is no such text. The desk may be gone
  /// when this returns.
  void Next(controls::DataControl& data1);
  /// Destroys a dialog that is still open.
  void Unload() { dialog_.reset(); }

 private:
  core::MsgBox& msgBox_;
  std::unique_ptr<SearchDialog> dialog_;
  std::string text_;
  bool isWalking_ = false;
};

}  // namespace tonalith::search
