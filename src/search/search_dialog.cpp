// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include "core/text.h"
#include "search/frm_search.h"

namespace tonalith::search {
namespace {

/// Unloads what is in the place by then: the owner may have been quicker.
class Unloading {
 public:
  explicit Unloading(std::unique_ptr<SearchDialog>& place) : place_(place) {}
  ~Unloading() { place_.reset(); }
  Unloading(const Unloading&) = delete;
  Unloading& operator=(const Unloading&) = delete;

 private:
  std::unique_ptr<SearchDialog>& place_;
};

}  // namespace

void RunSearch(std::unique_ptr<SearchDialog>& place, const std::function<std::unique_ptr<SearchDialog>()>& make,
               std::string& text, core::MsgBox& msgBox) {
  if (place != nullptr && place->IsShown()) {
    place->BringToFront();
    return;
  }
  if (place == nullptr) place = make();
  const Unloading unloading(place);
  place->SetSearchCancelled(false);
  place->SetSearchText(text);
  place->ShowModal();
  // Without its dialog the command's owner has gone, and the text with it.
  if (place == nullptr) return;
  if (!core::Trim(place->SearchText()).empty()) text = place->SearchText();
  if (!place->SearchCancelled()) msgBox.Show(frmSearch::tr("Searching for: ").toStdString() + place->SearchText());
}

}  // namespace tonalith::search
