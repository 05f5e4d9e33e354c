// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Runs the commands of the scale editor: what the buttons, the keys and closing do. One command runs at a time; its
// failure is shown once. A message box processes events, and the form may be destroyed meanwhile.

#pragma once

#include <QObject>
#include <functional>

#include "controls/data_control.h"
#include "editor/command_runner.h"
#include "editor/edit_session.h"

namespace tonalith::editor {

class frmScales;
class ShownScale;

class EditController : public QObject {
 public:
  /// All have to outlive it.
  EditController(frmScales& form, ShownScale& scale, EditSession& session, core::MsgBox& msgBox)
      : form_(form), scale_(scale), session_(session), msgBox_(msgBox) {}

  /// Whether a command is running; only its questions take the user's input then.
  [[nodiscard]] bool IsRunning() const { return runner_.IsRunning(); }

  void Modify();
  void Apply();
  void Add();
  void Update();
  void Refresh();
  void Delete();
  void ChooseType(const QString& typeId);
  void Undo();
  void Redo();
  /// Asks what becomes of unsaved changes. Whether the form may close.
  bool SettleChanges();
  /// Asks what becomes of an edit whose record was changed elsewhere.
  controls::DataControl::Conflict DecideConflict();

 private:
  /// Runs a command unless one is running, and shows the failure that ends it. False when it did not complete.
  bool RunAlone(const std::function<void()>& command);
  void EnterModify();
  void LeaveModify();
  [[nodiscard]] bool AsksToKeep();
  /// Saves the notes of an Apply; false after the message that one note is too few.
  bool KeepNotes();
  /// Makes an edit pending again. A failure is shown and the edit stays rejected.
  void BringBack(const RejectedEdit& edit);
  void BringBackUndecided();

  frmScales& form_;
  ShownScale& scale_;
  EditSession& session_;
  core::MsgBox& msgBox_;
  CommandRunner runner_;
};

}  // namespace tonalith::editor
