// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/rejected_edits.h"

#include <algorithm>
#include <utility>

namespace tonalith::editor {
namespace {

/// Bounds the memory; a user is unlikely to remember more edits than these.
constexpr std::size_t kMostEdits = 10;

}  // namespace

void RestoreFields(const RejectedEdit& edit, EditedScale& scale, NewScale& newScale) {
  // A record that is shown already is not read again, so that saving detects a change made elsewhere.
  if (edit.record && scale.Bookmark() != edit.record) scale.MoveTo(*edit.record);
  const bool isNew = !edit.record || scale.Bookmark() != edit.record;
  if (isNew) {
    newScale.Add(scale);
    if (!edit.chord.IsNull()) scale.SetContent("Chord", edit.chord);
  }
  for (int i = field::kName; i < kFieldCount; ++i) {
    const auto& [text, isChanged] = edit.fields.at(static_cast<std::size_t>(i));
    if (i == field::kChord || (!isNew && !isChanged)) continue;
    const bool isSortOfType = i == field::kSort && !edit.record && text == edit.typeSort;
    if (isNew && i == field::kScaleTypeId) {
      newScale.SetType(scale, text);
    } else if (!isNew || !isSortOfType) {
      scale.SetField(i, text);
    }
  }
}

void RejectedEdits::Add(RejectedEdit edit) {
  if (edits_.size() == kMostEdits) edits_.erase(edits_.begin());
  edits_.push_back(std::move(edit));
}

template <class Matches>
std::optional<RejectedEdit> RejectedEdits::Take(Matches matches) {
  const auto found = std::find_if(edits_.rbegin(), edits_.rend(), matches);
  if (found == edits_.rend()) return std::nullopt;
  RejectedEdit edit = std::move(*found);
  edits_.erase(std::next(found).base());
  return edit;
}

std::optional<RejectedEdit> RejectedEdits::TakeLatest() {
  return Take([](const RejectedEdit&) { return true; });
}

std::optional<RejectedEdit> RejectedEdits::TakeUndecided() {
  return Take([](const RejectedEdit& edit) { return edit.decision == RejectedEdit::Decision::kOpen; });
}

std::optional<RejectedEdit> RejectedEdits::TakeAt(const std::optional<data::Bookmark>& place) {
  return Take([&](const RejectedEdit& edit) { return edit.place == place; });
}

}  // namespace tonalith::editor
