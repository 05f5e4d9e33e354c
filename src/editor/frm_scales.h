// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The window of the scale editor. It shows one scale at a time, opens read-only, and between Modify and Apply takes
// changes of the fields and of the twelve note buttons. EditSession has the state, EditController runs the commands;
// the window shows the state and passes events on. It deletes itself when closed; the services have to outlive it.

#pragma once

#include <string>

#include "editor/edit_controller.h"
#include "editor/edit_session.h"
#include "editor/scale_editor.h"
#include "editor/scales_controls.h"
#include "editor/shown_scale.h"
#include "windows/window.h"

namespace tonalith::editor {

class frmScales : public windows::Window<QWidget> {
  Q_OBJECT
  Q_PROPERTY(bool ModifyMode READ IsInModifyMode)

 public:
  frmScales(const EditorServices& services, QWidget* parent);

  /// Shows the step words of the record's pattern, and its notes by the pale green background.
  void ShowTonesForIntervals() { scale_.ShowTones(); }
  void ScaleImageSelect() { c_.keyboard->ShowSelected(); }
  void ScaleImageModify() { c_.keyboard->ShowAll(); }
  /// Toggles the note button of that name; an unknown name toggles none.
  void ScaleLabelClick(const std::string& LabelName);
  void ScaleIntervalBuild();
  void UpdateNotes();
  [[nodiscard]] bool NoteExistsInScale(const std::string& strNoteVal);
  /// Also saves the pending edit. A failure that was shown for this edit already is not shown again.
  bool SetAllControls(bool& pIsModified);

  void cmdAdd_Click() { controller_.Add(); }
  void cmdApply_Click() { controller_.Apply(); }
  void cmdDelete_Click() { controller_.Delete(); }
  void cmdModify_Click() { controller_.Modify(); }
  void cmdRefresh_Click() { controller_.Refresh(); }
  void cmdUpdate_Click() { controller_.Update(); }
  void cmdClose_Click() { close(); }
  void txtFields_Change(int index);
  void Combo1_Click(int item) { controller_.ChooseType(c_.Combo1->NumberAt(item)); }
  void txtIntervals_Typed(const QString& text);
  void UndoChange() { controller_.Undo(); }
  void RedoChange() { controller_.Redo(); }

  /// The user typed into a text box that contained `before`.
  void FieldTyped(int index, const QString& before);
  void RecordMoved();
  void RecordWritten() { services_.host.EditUpdates(); }
  controls::DataControl::Conflict DecideConflict() { return controller_.DecideConflict(); }

  void ShowRecordNotes();
  /// Sets all controls for the mode.
  void ShowMode();
  /// Announces a new notice to assistive technology.
  void ShowNotice();
  void ShowLimit(const Notice& limit);

  [[nodiscard]] const ScalesControls& Controls() const { return c_; }
  [[nodiscard]] bool IsInModifyMode() const { return session_.IsModifying(); }
  [[nodiscard]] NoteSelection SelectedNotes() const { return scale_.SelectedNotes(); }
  /// The edit that undoing would bring back next; nullptr when there is none.
  [[nodiscard]] const RejectedEdit* LatestRejected() const { return session_.Rejected().Latest(); }
  /// Whether a command is running; only its questions take the user's input then.
  [[nodiscard]] bool IsRunning() const { return controller_.IsRunning(); }

 protected:
  void ApplyTheme() override { ApplyInk(c_, palette()); }
  bool Form_QueryUnload() override;
  void Form_Unload() override;

 private:
  void Form_Load();
  void EnableFields();

  EditorServices services_;
  ScalesControls c_;
  ShownScale scale_;
  EditSession session_;
  EditController controller_;
};

}  // namespace tonalith::editor
