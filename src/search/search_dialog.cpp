// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include "core/text.h"
#include "search/frm_search.h"
#include "search/messages.h"

namespace tonalith::search {

void RunSearch(windows::OpenOnce<frmSearch>& dialog, const std::function<frmSearch*()>& make, std::string& text,
               core::MsgBox& msgBox) {
  if (dialog.Raise()) return;
  const QPointer<frmSearch> form = dialog.Put(make());
  form->SetSearchCancelled(false);
  form->SetSearchText(text);
  // If the owner is destroyed meanwhile, `dialog` and `text` are destroyed with it.
  windows::RunModal(form, [&](const frmSearch& shown) {
    if (!core::Trim(shown.SearchText()).empty()) text = shown.SearchText();
    // Kept: see docs/behaviour.md, The search dialog hides instead of closing
    if (!shown.SearchCancelled()) msgBox.Show({MessageId::kSearchingFor, shown.SearchText()});
  });
}

}  // namespace tonalith::search
