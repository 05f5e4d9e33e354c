// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale in the editor as its state machine sees it: the current record with its pending edit, and the note buttons.
// The colours of the buttons are the selection, so nothing else stores it. Functions that read or write the library
// throw core::Failure.

#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/value.h"
#include "data/record_set.h"
#include "editor/scale_editing.h"

namespace tonalith::editor {

struct FieldText {
  QString text;
  /// The text differs from what the record contains.
  bool isChanged = false;
};

class EditedScale {
 public:
  using FieldValues = std::vector<std::pair<std::string, core::Value>>;

  virtual ~EditedScale() = default;

  /// Nothing for a new record, and nothing without a record.
  [[nodiscard]] virtual std::optional<data::Bookmark> Bookmark() const = 0;
  [[nodiscard]] virtual bool IsEditPending() const = 0;
  /// The text of a field of scale_fields.h; empty for the check box.
  [[nodiscard]] virtual FieldText Field(int index) const = 0;
  virtual void SetField(int index, const QString& text) = 0;
  /// A field of the record by its name in the library; null without a record.
  [[nodiscard]] virtual core::Value Content(const std::string& field) const = 0;
  virtual void SetContent(const std::string& field, const core::Value& value) = 0;

  /// Stays on the current record when the other one does not exist.
  virtual void MoveTo(data::Bookmark record) = 0;
  virtual void AddNew(const FieldValues& contents) = 0;
  /// Writes the pending edit, if there is one.
  virtual void UpdateBatch() = 0;
  /// Drops the pending edit, if there is one.
  virtual void CancelUpdate() = 0;

  /// The first of the scale types; nothing in a library without types.
  [[nodiscard]] virtual std::optional<std::int64_t> FirstTypeId() const = 0;
  /// The sort number of the next new scale of a type.
  [[nodiscard]] virtual std::int64_t NextSortNumber(std::int64_t typeId) const = 0;

  [[nodiscard]] virtual NoteSelection SelectedNotes() const = 0;
  virtual void SelectNotes(const NoteSelection& notes) = 0;
  /// The notes of the record's pattern; none without a record. Reports a pattern that cannot be built.
  [[nodiscard]] virtual NoteSelection RecordNotes() = 0;
  /// Shows the record's pattern in the pattern box and as step words.
  virtual void ShowPattern() = 0;
  /// Copies the pattern box into the record's pattern.
  virtual void KeepPattern() = 0;
};

}  // namespace tonalith::editor
