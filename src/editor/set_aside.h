// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Changes that were taken off the editor's form without being saved, so that they can be brought back: what was typed
// on one record, the notes that were chosen on it, and what could be undone. The latest few are kept. Plain values; one
// thread; never fails.

#pragma once

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "data/record_set.h"
#include "editor/edit_history.h"
#include "editor/scale_editing.h"
#include "editor/scales_controls.h"

namespace tonalith::editor {

struct ChangesOfRecord {
  struct Field {
    QString text;
    bool isChanged = false;
  };

  /// Nothing for a new record.
  std::optional<data::Bookmark> record;
  /// The record on which Modify brings the changes back; nothing where the form was empty.
  std::optional<data::Bookmark> place;
  std::array<Field, kFieldCount> fields;
  core::Value chord;
  /// The notes that waited for Apply; nothing where none did.
  std::optional<NoteSelection> notes;
  EditHistory history;
  /// The sort number that a new record was given with its type.
  QString newSort;
  /// The user has not decided against these changes.
  bool isWanted = false;
};

class SetAside {
 public:
  void Add(ChangesOfRecord changes);
  [[nodiscard]] bool IsEmpty() const { return kept_.empty(); }
  /// The latest changes; nothing where there are none.
  [[nodiscard]] const ChangesOfRecord* Latest() const { return kept_.empty() ? nullptr : &kept_.back(); }

  /// Each takes the latest changes that fit.
  std::optional<ChangesOfRecord> TakeLatest();
  std::optional<ChangesOfRecord> TakeWanted();
  std::optional<ChangesOfRecord> TakeAt(const std::optional<data::Bookmark>& place);

 private:
  template <class Fits>
  std::optional<ChangesOfRecord> Take(Fits fits);

  std::vector<ChangesOfRecord> kept_;
};

}  // namespace tonalith::editor
