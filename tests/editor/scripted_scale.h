// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A scale for tests of EditSession, without widgets and without a library: two records with text fields and one pending
// edit. Reports field changes and moves to the session like the form, and logs its calls. Notes are written as in "C D#
// G".

#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/msg_box.h"
#include "editor/edited_scale.h"
#include "editor/scale_fields.h"
#include "support/recording_msg_box.h"

namespace tonalith::editor {

class EditSession;

NoteSelection Notes(const std::string& names);
std::string Names(const NoteSelection& notes);

class ScriptedScale : public EditedScale {
 public:
  ScriptedScale();

  /// The session that is informed of changes and moves.
  void Attach(EditSession& session) { session_ = &session; }
  /// Types into a field, as the user does.
  void Type(int index, const std::string& text);
  void Toggle(const std::string& names);
  void MoveToRecord(std::int64_t key);
  void Delete(std::int64_t key);
  /// The next call that writes or moves fails with this text.
  void FailNext(const std::string& text) { failure_ = text; }
  /// The next sort number of type 1; that of type 2 is twice this.
  void SetSortUnit(std::int64_t unit) { sortUnit_ = unit; }
  /// The calls since the last call of this function.
  std::string Calls();
  [[nodiscard]] std::string Text(int index) const { return texts_.at(static_cast<std::size_t>(index)).toStdString(); }
  [[nodiscard]] std::string Selected() const { return Names(selected_); }

  [[nodiscard]] std::optional<data::Bookmark> Bookmark() const override { return current_; }
  [[nodiscard]] bool IsEditPending() const override { return isNew_ || texts_ != Saved(); }
  [[nodiscard]] FieldText Field(int index) const override;
  void SetField(int index, const QString& text) override;
  [[nodiscard]] core::Value Content(const std::string& field) const override;
  void SetContent(const std::string& field, const core::Value& value) override;
  void MoveTo(data::Bookmark record) override;
  void AddNew(const FieldValues& contents) override;
  void UpdateBatch() override;
  void CancelUpdate() override;
  [[nodiscard]] std::optional<std::int64_t> FirstTypeId() const override { return 1; }
  [[nodiscard]] std::int64_t NextSortNumber(std::int64_t typeId) const override { return sortUnit_ * typeId; }
  [[nodiscard]] NoteSelection SelectedNotes() const override { return selected_; }
  void SelectNotes(const NoteSelection& notes) override { selected_ = notes; }
  [[nodiscard]] NoteSelection RecordNotes() override;
  void ShowPattern() override { calls_ += "ShowPattern "; }
  void KeepPattern() override;

 private:
  using Texts = std::array<QString, kFieldCount>;

  [[nodiscard]] Texts Saved() const;
  void Show(const Texts& texts);
  void Moved();
  void Log(const std::string& call);

  EditSession* session_ = nullptr;
  std::vector<std::optional<Texts>> records_;
  std::optional<data::Bookmark> current_;
  /// The record to show again when a new one is dropped.
  std::optional<data::Bookmark> before_;
  bool isNew_ = false;
  Texts texts_;
  core::Value chord_;
  std::int64_t sortUnit_ = 10;
  NoteSelection selected_;
  std::string failure_;
  std::string calls_;
};

}  // namespace tonalith::editor
