// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_history.h"

#include <utility>

namespace tonalith::editor {
namespace {

std::optional<EditHistory::Step> MoveLast(std::vector<EditHistory::Step>& from, std::vector<EditHistory::Step>& to) {
  if (from.empty()) return std::nullopt;
  to.push_back(std::move(from.back()));
  from.pop_back();
  return to.back();
}

}  // namespace

void EditHistory::AddField(int index, const QString& before, const QString& after) {
  undone_.clear();
  // Typing sends the notes back to the record's pattern; that step stays the latest one while the typing goes on.
  const bool behindNotes = steps_.size() > 1 && steps_.back().subject == kNotes;
  const std::size_t back = behindNotes ? 2 : 1;
  if (steps_.size() >= back && steps_[steps_.size() - back].subject == index) {
    const auto step = steps_.end() - static_cast<std::ptrdiff_t>(back);
    step->after = after;
    if (step->before == after) steps_.erase(step);
    return;
  }
  steps_.push_back({index, before, after});
}

void EditHistory::AddNotes(const QString& before, const QString& after) {
  undone_.clear();
  steps_.push_back({kNotes, before, after});
}

std::optional<EditHistory::Step> EditHistory::Undo() { return MoveLast(steps_, undone_); }

std::optional<EditHistory::Step> EditHistory::Redo() { return MoveLast(undone_, steps_); }

void EditHistory::Clear() {
  steps_.clear();
  undone_.clear();
}

}  // namespace tonalith::editor
