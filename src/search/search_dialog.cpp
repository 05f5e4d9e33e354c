// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include "core/text.h"
#include "search/frm_search.h"

namespace tonalith::search {
namespace {

/// Destroys the dialog at the end of the scope, unless the owner has done so.
class DialogUnloader {
 public:
  explicit DialogUnloader(std::unique_ptr<SearchDialog>& dialog) : dialog_(dialog) {}
  ~DialogUnloader() { dialog_.reset(); }
  DialogUnloader(const DialogUnloader&) = delete;
  DialogUnloader& operator=(const DialogUnloader&) = delete;

 private:
  std::unique_ptr<SearchDialog>& dialog_;
};

}  // namespace

void RunSearch(std::unique_ptr<SearchDialog>& dialog, const std::function<std::unique_ptr<SearchDialog>()>& make,
               std::string& text, core::MsgBox& msgBox) {
  if (dialog != nullptr && dialog->IsShown()) {
    dialog->BringToFront();
    return;
  }
  if (dialog == nullptr) dialog = make();
  const DialogUnloader unloader(dialog);
  dialog->SetSearchCancelled(false);
  dialog->SetSearchText(text);
  dialog->ShowModal();
  // No dialog: its owner was destroyed, and `text` with it.
  if (dialog == nullptr) return;
  if (!core::Trim(dialog->SearchText()).empty()) text = dialog->SearchText();
  // Kept: see docs/behaviour.md, The search dialog hides instead of closing
  if (!dialog->SearchCancelled()) msgBox.Show(frmSearch::tr("Searching for: ").toStdString() + dialog->SearchText());
}

}  // namespace tonalith::search
