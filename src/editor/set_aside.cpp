// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/set_aside.h"

#include <algorithm>
#include <utility>

namespace tonalith::editor {
namespace {

/// More than anybody remembers having set aside.
constexpr std::size_t kMostKept = 10;

}  // namespace

void SetAside::Add(ChangesOfRecord changes) {
  if (kept_.size() == kMostKept) kept_.erase(kept_.begin());
  kept_.push_back(std::move(changes));
}

template <class Fits>
std::optional<ChangesOfRecord> SetAside::Take(Fits fits) {
  const auto found = std::find_if(kept_.rbegin(), kept_.rend(), fits);
  if (found == kept_.rend()) return std::nullopt;
  ChangesOfRecord changes = std::move(*found);
  kept_.erase(std::next(found).base());
  return changes;
}

std::optional<ChangesOfRecord> SetAside::TakeLatest() {
  return Take([](const ChangesOfRecord&) { return true; });
}

std::optional<ChangesOfRecord> SetAside::TakeWanted() {
  return Take([](const ChangesOfRecord& changes) { return changes.isWanted; });
}

std::optional<ChangesOfRecord> SetAside::TakeAt(const std::optional<data::Bookmark>& place) {
  return Take([&](const ChangesOfRecord& changes) { return changes.place == place; });
}

}  // namespace tonalith::editor
