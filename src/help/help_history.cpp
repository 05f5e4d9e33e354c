// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_history.h"

namespace tonalith::help {

void HelpHistory::Visit(const HelpTarget& target) {
  if (!IsEmpty() && Current().target == target) {
    stops_[at_] = {target};
    return;
  }
  if (!IsEmpty()) stops_.resize(at_ + 1);
  stops_.push_back({target});
  at_ = stops_.size() - 1;
}

void HelpHistory::Leave(int scroll) {
  if (!IsEmpty()) stops_[at_].scroll = scroll;
}

void HelpHistory::GoBack() {
  if (CanGoBack()) --at_;
}

void HelpHistory::GoForward() {
  if (CanGoForward()) ++at_;
}

void HelpHistory::Forget() {
  stops_.clear();
  at_ = 0;
}

}  // namespace tonalith::help
