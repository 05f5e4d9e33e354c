// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The way that a reader has taken through a help file, for going back and forward: places, and how far each was
// scrolled when it was left. Never empty after the first visit; forgotten with the window. One thread; never fails.

#pragma once

#include <cstddef>
#include <vector>

#include "help/help_book.h"

namespace tonalith::help {

class HelpHistory {
 public:
  struct Stop {
    HelpTarget place;
    /// Pixels from the top; -1 as long as the place itself says where the page begins.
    int scroll = -1;
  };

  /// A step onwards: what lay ahead is forgotten. Visiting the current place again is no step.
  void Visit(const HelpTarget& place);
  /// Keeps where the current stop is left.
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
