// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the search dialog from the menu command until it closes, through an interface for tests. The owner of the
// command owns the dialog, so that it can destroy an open dialog. Throws the failures of the dialog.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/msg_box.h"

namespace tonalith::search {

class SearchDialog {
 public:
  virtual ~SearchDialog() = default;

  /// True if the user closed the dialog in any way.
  [[nodiscard]] virtual bool SearchCancelled() const = 0;
  virtual void SetSearchCancelled(bool cancelled) = 0;
  /// The content of the text box.
  [[nodiscard]] virtual std::string SearchText() const = 0;
  virtual void SetSearchText(const std::string& text) = 0;
  /// Returns when the dialog is hidden.
  virtual void ShowModal() = 0;
  [[nodiscard]] virtual bool IsShown() const = 0;
  virtual void BringToFront() = 0;
};

/// Shows `dialog`, created by `make` if null, and destroys it at the end. It opens with `text`, which becomes the final
/// text of the dialog unless that is blank. If the dialog ends without a cancellation, shows the search text. A dialog
/// that is already shown comes to the front.
void RunSearch(std::unique_ptr<SearchDialog>& dialog, const std::function<std::unique_ptr<SearchDialog>()>& make,
               std::string& text, core::MsgBox& msgBox);

}  // namespace tonalith::search
