// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_history.h"

#include <utility>

namespace tonalith::editor {
namespace {

std::optional<EditStep> MoveLast(std::vector<EditStep>& from, std::vector<EditStep>& to) {
  if (from.empty()) return std::nullopt;
  to.push_back(std::move(from.back()));
  from.pop_back();
  return to.back();
}

}  // namespace

void EditHistory::Add(const FieldStep& step) {
  undone_.clear();
  // Typing resets the notes to the record's pattern; that step stays the latest one while the typing continues.
  const bool isNotesStepLast = steps_.size() > 1 && std::holds_alternative<NotesStep>(steps_.back());
  const std::size_t distance = isNotesStepLast ? 2 : 1;
  if (steps_.size() >= distance) {
    const auto place = steps_.end() - static_cast<std::ptrdiff_t>(distance);
    auto* const last = std::get_if<FieldStep>(&*place);
    if (last != nullptr && last->index == step.index) {
      last->after = step.after;
      if (last->before == last->after) steps_.erase(place);
      return;
    }
  }
  steps_.emplace_back(step);
}

void EditHistory::Add(const NotesStep& step) {
  undone_.clear();
  steps_.emplace_back(step);
}

std::optional<EditStep> EditHistory::Undo() { return MoveLast(steps_, undone_); }

std::optional<EditStep> EditHistory::Redo() { return MoveLast(undone_, steps_); }

void EditHistory::Clear() {
  steps_.clear();
  undone_.clear();
}

}  // namespace tonalith::editor
