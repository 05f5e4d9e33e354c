// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include "search/data_control_scales.h"
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
               core::MsgBox& msgBox) {
  if (place != nullptr && place->IsShown()) {
    place->BringToFront();
    return;
  }
  if (place == nullptr) place = make();
  const Unloading unloading(place);
  place->SetSearchCancelled(false);
  place->ShowModal();
  if (place != nullptr && !place->SearchCancelled())
    msgBox.Show(frmSearch::tr("Searching for: ").toStdString() + place->SearchText());
}

void RunSearch(std::unique_ptr<SearchDialog>& place, controls::DataControl& data1, core::MsgBox& msgBox,
               QWidget* parent) {
  const auto make = [&]() -> std::unique_ptr<SearchDialog> {
    return std::make_unique<frmSearch>(std::make_unique<DataControlScales>(data1), msgBox, parent);
  };
  RunSearch(place, make, msgBox);
}

}  // namespace tonalith::search
