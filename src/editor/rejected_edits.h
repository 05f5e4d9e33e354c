// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Edits that left the editor without being saved: by Cancel, by a refusal, by Refresh, or for a version of the scale
// that was saved elsewhere. The latest few are stored so that the user can bring them back.

#pragma once

#include <array>
#include <optional>
#include <vector>

#include "data/record_set.h"
#include "editor/edit_history.h"
#include "editor/edited_scale.h"
#include "editor/new_scale.h"
#include "editor/scale_fields.h"

namespace tonalith::editor {

struct RejectedEdit {
  /// Closing the editor repeats the question for an open edit, not for one that the user has cancelled.
  enum class Decision { kOpen, kByUser };

  /// Nothing for a new record.
  std::optional<data::Bookmark> record;
  /// The record on which Modify brings the edit back; nothing where the form was empty.
  std::optional<data::Bookmark> place;
  std::array<FieldText, kFieldCount> fields;
  core::Value chord;
  /// The notes that only Apply would have saved; nothing where there were none.
  std::optional<NoteSelection> notes;
  EditHistory history;
  /// The sort number that a new record got with its type.
  QString typeSort;
  Decision decision = Decision::kByUser;
};

/// Makes the fields of an edit pending again, on its record, or on a new one when its record was deleted. Throws
/// core::Failure.
void RestoreFields(const RejectedEdit& edit, EditedScale& scale, NewScale& newScale);

class RejectedEdits {
 public:
  void Add(RejectedEdit edit);
  [[nodiscard]] bool IsEmpty() const { return edits_.empty(); }
  /// nullptr when there is none.
  [[nodiscard]] const RejectedEdit* Latest() const { return edits_.empty() ? nullptr : &edits_.back(); }

  /// Each removes and returns the latest edit that matches.
  std::optional<RejectedEdit> TakeLatest();
  std::optional<RejectedEdit> TakeUndecided();
  std::optional<RejectedEdit> TakeAt(const std::optional<data::Bookmark>& place);

 private:
  template <class Matches>
  std::optional<RejectedEdit> Take(Matches matches);

  std::vector<RejectedEdit> edits_;
};

}  // namespace tonalith::editor
