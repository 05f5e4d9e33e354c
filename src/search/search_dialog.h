// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// One use of the search dialog, from the menu command to its end, and what it needs of the dialog. The owner of the
// command keeps the dialog's place, so that it can unload a dialog that is still there when it goes itself.
// User-interface thread; failures are the dialog's own.

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/msg_box.h"

namespace tonalith::search {

class SearchDialog {
 public:
  virtual ~SearchDialog() = default;

  /// Set by every way out that the user has.
  [[nodiscard]] virtual bool SearchCancelled() const = 0;
  virtual void SetSearchCancelled(bool cancelled) = 0;
  /// What stands in the text box.
  [[nodiscard]] virtual std::string SearchText() const = 0;
  virtual void SetSearchText(const std::string& text) = 0;
  /// Returns when the dialog is hidden.
  virtual void ShowModal() = 0;
  [[nodiscard]] virtual bool IsShown() const = 0;
  virtual void BringToFront() = 0;
};

/// Shows the dialog in `place`, made by `make` if there is none, and unloads it when it is over. It opens with `text`,
/// which takes the dialog's text at the end unless that is blank. If the dialog ended in another way than by the user's
/// cancelling, says what was searched for. A dialog that is shown already comes to the front.
void RunSearch(std::unique_ptr<SearchDialog>& place, const std::function<std::unique_ptr<SearchDialog>()>& make,
               std::string& text, core::MsgBox& msgBox);

}  // namespace tonalith::search
