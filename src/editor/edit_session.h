// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The state of the scale editor, without widgets: the mode, which notes are selected and why, the steps to undo, the
// edits that were rejected, and the notice. The form reports what the user does and shows what follows. Functions that
// read or write the record throw core::Failure and then leave the session valid.

#pragma once

#include <optional>

#include "editor/edit_history.h"
#include "editor/edited_scale.h"
#include "editor/new_scale.h"
#include "editor/notice.h"
#include "editor/rejected_edits.h"
#include "editor/scale_fields.h"

namespace tonalith::editor {

class EditSession {
 public:
  /// The scale has to outlive the session.
  explicit EditSession(EditedScale& scale) : scale_(scale) {}

  [[nodiscard]] bool IsModifying() const { return mode_ == Mode::kModifying; }
  /// Whether there are notes that only Apply would save.
  [[nodiscard]] bool HasUnsavedNotes() const;
  [[nodiscard]] bool HasUnsavedChanges() const;
  [[nodiscard]] Notice CurrentNotice();

  void EnterModify();
  void LeaveModify() { mode_ = Mode::kViewing; }

  /// Whether the record is another one than at the last RecordMoved.
  [[nodiscard]] bool IsOnAnotherRecord() const { return scale_.Bookmark() != shown_; }
  void RecordMoved();
  /// A text box was typed into; it contained `before`.
  void FieldTyped(int index, const QString& before);
  void TypeChosen(const QString& typeId);
  /// Note buttons were pressed; `before` was selected. False when the selection is the same.
  bool NotesToggled(const NoteSelection& before);
  /// Selects the notes of a pattern that was typed.
  void PatternTyped(const QString& pattern);
  /// Selects the notes of the record. Unsaved notes become a step to undo.
  void SelectRecordNotes();

  void Add() { newScale_.Add(scale_); }
  /// Writes the pending edit; unsaved notes stay selected.
  void Update();
  /// Whether Apply can save the notes: the record's pattern and the selection must not be too short.
  [[nodiscard]] bool CanKeepNotes() const;
  /// Saves the pattern box as the record's pattern.
  void KeepNotes();
  /// Drops what is not saved for good.
  void DropChanges();

  [[nodiscard]] bool CanUndo() const { return history_.CanUndo(); }
  [[nodiscard]] bool CanRedo() const { return history_.CanRedo(); }
  void Undo();
  void Redo();

  [[nodiscard]] RejectedEdits& Rejected() { return rejected_; }
  [[nodiscard]] const RejectedEdits& Rejected() const { return rejected_; }
  /// Moves what is not saved from the form to the rejected edits; false when there is nothing.
  bool Reject(RejectedEdit::Decision decision);
  /// Copies the edit to the rejected edits; the caller shows the version of the record that was saved elsewhere.
  void RejectForOtherVersion();
  /// Makes an edit pending again, on its record, or on a new one when its record was deleted.
  void BringBack(const RejectedEdit& edit);

  /// Sets the outcome of a command. The next change replaces it.
  void SetOutcome(const Notice& outcome) { outcome_ = outcome; }
  /// Sets what a text box has refused. The next change or command removes it.
  void SetLimit(const Notice& limit) { limit_ = limit; }
  void ClearLimit() { limit_.reset(); }

 private:
  enum class Mode { kViewing, kModifying };
  enum class NotesState {
    /// The selection is the record's pattern.
    kOfRecord,
    /// The user has selected notes since.
    kChosen,
    /// The record's pattern has replaced the user's selection.
    kTakenBack,
  };
  enum class ChangeSource { kUser, kHistory };
  class FromHistory;

  [[nodiscard]] std::string Pattern() const { return scale_.Field(field::kIntervals).text.toStdString(); }
  [[nodiscard]] bool AreNotesUnlikePattern(const NoteSelection& selected) const;
  [[nodiscard]] RejectedEdit Snapshot() const;
  void ForgetChosenNotes();
  void ApplyStep(const FieldStep& step, const QString& text);
  void ApplyStep(const NotesStep& step, const NoteSelection& notes);

  EditedScale& scale_;
  Mode mode_ = Mode::kViewing;
  NotesState notes_ = NotesState::kOfRecord;
  ChangeSource source_ = ChangeSource::kUser;
  std::optional<data::Bookmark> shown_;
  NewScale newScale_;
  EditHistory history_;
  RejectedEdits rejected_;
  std::optional<Notice> outcome_;
  std::optional<Notice> limit_;
};

}  // namespace tonalith::editor
