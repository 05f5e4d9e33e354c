// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_controller.h"

#include <QPointer>
#include <utility>

#include "controls/data_control.h"
#include "core/deferred_failure.h"
#include "search/data_control_scales.h"
#include "search/frm_search.h"
#include "search/next_match.h"
#include "search/search_dialog.h"

namespace tonalith::search {

SearchController::SearchController(core::MsgBox& msgBox) : msgBox_(msgBox) {}

SearchController::~SearchController() = default;

void SearchController::Open(controls::DataControl& data1) {
  const auto make = [&] { return new frmSearch(std::make_unique<DataControlScales>(data1), msgBox_, data1.window()); };
  core::MsgBox& msgBox = msgBox_;
  core::DeferredFailure failure;
  failure.Try([&] { RunSearch(dialog_, make, text_, msgBox); });
  failure.ReportDescription(msgBox);
}

void SearchController::Next(controls::DataControl& data1) {
  if (dialog_.Window() != nullptr || text_.empty()) return Open(data1);
  // A message box of the search processes events, with them further key presses.
  if (std::exchange(isSearching_, true)) return;
  const QPointer<controls::DataControl> place(&data1);
  DataControlScales scales(data1);
  FindNextMatch(scales, text_, msgBox_, data1);
  if (!place.isNull()) isSearching_ = false;
}

void SearchController::Unload() { dialog_.Delete(); }

}  // namespace tonalith::search
