// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The edited scale over the controls of the form: the data control, the bound text boxes, the note buttons and the
// pattern box.

#pragma once

#include "core/msg_box.h"
#include "editor/edited_scale.h"
#include "editor/scales_controls.h"

namespace tonalith::editor {

class ShownScale : public EditedScale {
 public:
  /// Both have to outlive it. The controls may be made later.
  ShownScale(const ScalesControls& controls, core::MsgBox& msgBox)
      : c_(controls), msgBox_(msgBox), patternNotes_(msgBox) {}

  /// Opens the records and shows `current`, or the first one. Reports its failures.
  void Open(const std::string& databasePath, std::optional<data::Bookmark> current);
  void LoadTypes();
  void ShowType() { c_.Combo1->Show(Field(field::kScaleTypeId).text); }
  [[nodiscard]] std::string Pattern() const { return Field(field::kIntervals).text.toStdString(); }
  /// Shows the step words of the record's pattern, and its notes by the background of their buttons. A failure ends it
  /// silently.
  void ShowTones();

  [[nodiscard]] std::optional<data::Bookmark> Bookmark() const override;
  [[nodiscard]] bool IsEditPending() const override { return c_.datPrimaryRS->IsEditPending(); }
  [[nodiscard]] FieldText Field(int index) const override;
  void SetField(int index, const QString& text) override;
  [[nodiscard]] core::Value Content(const std::string& field) const override;
  void SetContent(const std::string& field, const core::Value& value) override;
  void MoveTo(data::Bookmark record) override { c_.datPrimaryRS->SetBookmarkIfExists(record); }
  void AddNew(const FieldValues& contents) override { c_.datPrimaryRS->AddNew(contents); }
  void UpdateBatch() override { c_.datPrimaryRS->UpdateBatch(); }
  void CancelUpdate() override { c_.datPrimaryRS->CancelUpdate(); }
  [[nodiscard]] std::optional<std::int64_t> FirstTypeId() const override;
  [[nodiscard]] std::int64_t NextSortNumber(std::int64_t typeId) const override;
  [[nodiscard]] NoteSelection SelectedNotes() const override { return c_.keyboard->Selected(); }
  void SelectNotes(const NoteSelection& notes) override { c_.keyboard->Select(notes); }
  [[nodiscard]] NoteSelection RecordNotes() override;
  void ShowPattern() override;
  void KeepPattern() override;

 private:
  const ScalesControls& c_;
  core::MsgBox& msgBox_;
  PatternNotes patternNotes_;
};

}  // namespace tonalith::editor
