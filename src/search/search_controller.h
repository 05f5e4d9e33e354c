// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search commands of the main window: the dialog, and the next match of its last text, which is stored while the
// window exists. Owned by the main window. Shows the descriptions of failures.

#pragma once

#include <string>

#include "core/msg_box.h"
#include "windows/open_once.h"

namespace tonalith::controls {
class DataControl;
}

namespace tonalith::search {

class frmSearch;

class SearchController {
 public:
  explicit SearchController(core::MsgBox& msgBox);
  ~SearchController();
  SearchController(const SearchController&) = delete;
  SearchController& operator=(const SearchController&) = delete;

  /// Shows the dialog for the scales of `data1` with its last text; returns when it is closed. The controller may be
  /// destroyed then.
  void Open(controls::DataControl& data1);
  /// Makes the next match of the last text current, or opens the dialog if there is no text. The controller may be
  /// destroyed when this returns.
  void Next(controls::DataControl& data1);
  /// Destroys an open dialog.
  void Unload();

 private:
  core::MsgBox& msgBox_;
  windows::OpenOnce<frmSearch> dialog_;
  std::string text_;
  bool isSearching_ = false;
};

}  // namespace tonalith::search
