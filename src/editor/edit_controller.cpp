// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_controller.h"

#include <QCoreApplication>
#include <QPointer>

#include "editor/frm_scales.h"
#include "editor/messages.h"
#include "editor/undo_keys.h"

namespace tonalith::editor {
namespace {

using Decision = RejectedEdit::Decision;

/// Yes and No, a question icon, No as the default.
constexpr auto kConfirmDeletion = static_cast<core::MsgBoxStyle>(276);

}  // namespace

bool EditController::RunAlone(const std::function<void()>& command) {
  if (IsRunning()) return false;
  const QPointer<EditController> self = this;
  session_.ClearLimit();
  const bool isDone = runner_.Run(command, msgBox_);
  if (self.isNull()) return false;
  form_.ShowNotice();
  return isDone;
}

void EditController::EnterModify() {
  const ScalesControls& c = form_.Controls();
  c.picButtons->setEnabled(true);
  form_.ShowRecordNotes();
  form_.ScaleImageModify();
  session_.EnterModify();
  const QPointer<EditController> self = this;
  form_.ShowMode();
  if (self.isNull()) return;
  QWidget* const name = c.txtFields[field::kName].box;
  (name->isEnabled() ? name : c.cmdAdd)->setFocus();
}

void EditController::Modify() {
  if (IsRunning()) return;
  const bool wasPending = scale_.IsEditPending();
  const QPointer<EditController> self = this;
  EnterModify();
  if (self.isNull() || wasPending) return;
  if (const auto edit = session_.Rejected().TakeAt(scale_.Bookmark())) BringBack(*edit);
}

bool EditController::AsksToKeep() {
  return msgBox_.Show(MessageId::kKeepQuestion, core::MsgBoxStyle::kOkCancel) == core::MsgBoxAnswer::kOk;
}

bool EditController::KeepNotes() {
  if (!session_.CanKeepNotes()) {
    msgBox_.Show(MessageId::kMoreNotesNeeded, core::MsgBoxStyle::kInformation);
    return false;
  }
  session_.KeepNotes();
  return true;
}

void EditController::Apply() {
  if (IsRunning()) return;
  const QPointer<EditController> self = this;
  RunAlone([&] {
    form_.ScaleImageSelect();
    form_.ScaleIntervalBuild();
    const bool isKept = AsksToKeep();
    if (self.isNull()) return;
    if (!isKept) {
      if (session_.Reject(Decision::kByUser)) session_.SetOutcome({MessageId::kNotKept});
      return;
    }
    const QString name = scale_.Field(field::kName).text;
    if (KeepNotes()) {
      form_.Controls().datPrimaryRS->MoveFirst();
      session_.SetOutcome({MessageId::kSaved, name});
    } else if (!self.isNull() && session_.Reject(Decision::kOpen)) {
      session_.SetOutcome({MessageId::kNotSaved});
    }
  });
  // Kept: see docs/behaviour.md, Apply leaves the mode on Cancel too
  if (!self.isNull()) LeaveModify();
}

void EditController::LeaveModify() {
  const QPointer<EditController> self = this;
  // User input waits until the mode has changed: a command that it starts could take long.
  RunAlone([] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
  if (self.isNull()) return;
  session_.LeaveModify();
  form_.ShowMode();
  if (!self.isNull()) form_.Controls().cmdModify->setFocus();
}

void EditController::Add() {
  const bool isAdded = RunAlone([this] {
    // The pending edit is saved first: the new sort number has to follow its number too.
    scale_.UpdateBatch();
    session_.Add();
  });
  if (isAdded) form_.Controls().txtFields[field::kName].box->setFocus();
}

void EditController::Update() {
  RunAlone([this] { session_.Update(); });
}

void EditController::Refresh() {
  if (IsRunning()) return;
  const bool isRejected = session_.Reject(Decision::kOpen);
  const QPointer<EditController> self = this;
  RunAlone([this] {
    form_.Controls().datPrimaryRS->Refresh();
    form_.ShowRecordNotes();
    scale_.LoadTypes();
  });
  if (self.isNull() || !isRejected) return;
  session_.SetOutcome({MessageId::kLibraryRead});
  form_.ShowNotice();
}

void EditController::Delete() {
  const QPointer<EditController> self = this;
  RunAlone([&] {
    const auto answer = msgBox_.Show(MessageId::kDeleteQuestion, kConfirmDeletion, MessageId::kDeleteTitle);
    if (answer == core::MsgBoxAnswer::kYes && !self.isNull()) form_.Controls().datPrimaryRS->Delete();
  });
}

void EditController::ChooseType(const QString& typeId) {
  RunAlone([&] { session_.TypeChosen(typeId); });
}

void EditController::Undo() {
  if (IsRunning() || (session_.IsModifying() && UndoInBox(form_.focusWidget()))) return;
  if (session_.IsModifying() && session_.CanUndo()) {
    RunAlone([this] { session_.Undo(); });
    return;
  }
  if (session_.HasUnsavedChanges() || session_.Rejected().IsEmpty()) return;
  const QPointer<EditController> self = this;
  if (!session_.IsModifying()) EnterModify();
  if (self.isNull()) return;
  if (const auto edit = session_.Rejected().TakeLatest()) BringBack(*edit);
}

void EditController::Redo() {
  if (!session_.IsModifying() || IsRunning() || RedoInBox(form_.focusWidget())) return;
  if (session_.CanRedo()) RunAlone([this] { session_.Redo(); });
}

void EditController::BringBack(const RejectedEdit& edit) {
  const QPointer<EditController> self = this;
  const bool isDone = RunAlone([&] { session_.BringBack(edit); });
  if (self.isNull()) return;
  if (isDone) {
    session_.SetOutcome({MessageId::kBroughtBack});
  } else if (!session_.HasUnsavedChanges()) {
    session_.Rejected().Add(edit);
  }
  form_.ShowNotice();
}

void EditController::BringBackUndecided() {
  const QPointer<EditController> self = this;
  while (!self.isNull() && !session_.HasUnsavedChanges()) {
    const auto edit = session_.Rejected().TakeUndecided();
    if (!edit) return;
    EnterModify();
    if (!self.isNull()) BringBack(*edit);
  }
}

bool EditController::SettleChanges() {
  const QPointer<EditController> self = this;
  for (;;) {
    BringBackUndecided();
    if (self.isNull()) return false;
    if (!session_.HasUnsavedChanges()) return true;
    bool isSettled = false;
    RunAlone([&] {
      const bool isKept = AsksToKeep();
      if (self.isNull()) return;
      if (!isKept) {
        session_.DropChanges();
      } else if (!session_.HasUnsavedNotes()) {
        scale_.UpdateBatch();
      } else {
        form_.ScaleIntervalBuild();
        if (!KeepNotes()) return;
      }
      isSettled = true;
    });
    if (!isSettled || self.isNull()) return false;
  }
}

controls::DataControl::Conflict EditController::DecideConflict() {
  using Conflict = controls::DataControl::Conflict;
  const QPointer<EditController> self = this;
  const CommandRunner::Scope scope(runner_);
  const auto style = core::MsgBoxStyle::kYesNo | core::MsgBoxStyle::kQuestion | core::MsgBoxStyle::kDefaultButton2;
  const auto answer = msgBox_.Show(MessageId::kOverwriteQuestion, style, MessageId::kOverwriteTitle);
  if (self.isNull()) return Conflict::kTakeOther;
  if (answer == core::MsgBoxAnswer::kYes) return Conflict::kOverwrite;
  session_.RejectForOtherVersion();
  return Conflict::kTakeOther;
}

}  // namespace tonalith::editor
