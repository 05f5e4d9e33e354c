// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The history of visited targets with their scroll positions. Never empty after the first visit.

#pragma once

#include <cstddef>
#include <vector>

#include "help/help_book.h"

namespace tonalith::help {

class HelpHistory {
 public:
  struct Stop {
    HelpTarget target;
    /// Pixels from the top; -1 to scroll to the target's anchor or the top.
    int scroll = -1;
  };

  /// Adds a target and removes the forward entries. Does nothing for the current target.
  void Visit(const HelpTarget& target);
  /// Stores the scroll position of the current entry.
  void Leave(int scroll);

  [[nodiscard]] bool IsEmpty() const { return stops_.empty(); }
  [[nodiscard]] const Stop& Current() const { return stops_[at_]; }
  [[nodiscard]] bool CanGoBack() const { return at_ > 0; }
  [[nodiscard]] bool CanGoForward() const { return at_ + 1 < stops_.size(); }
  void GoBack();
  void GoForward();
  void Forget();

 private:
  std::vector<Stop> stops_;
  std::size_t at_ = 0;
};

}  // namespace tonalith::help
