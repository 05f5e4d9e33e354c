// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/frm_scales.h"

#include <QAccessible>
#include <QPointer>

#include "core/deferred_failure.h"
#include "editor/editor_wiring.h"
#include "editor/notice_text.h"
#include "windows/window_front.h"

namespace tonalith::editor {

frmScales::frmScales(const EditorServices& services, QWidget* parent)
    : Window(QStringLiteral("frmScales"), parent, windows::kFixedSizeWindow),
      services_(services),
      scale_(c_, services.msgBox),
      session_(scale_),
      controller_(*this, scale_, session_, services.msgBox) {
  setWindowTitle(tr("Scales"));
  setAttribute(Qt::WA_DeleteOnClose);
  c_ = MakeScalesControls(this, services_.msgBox);
  scale_.Open(services_.database.DatabasePath(), services_.current);
  WireEditor(*this);
  FinishConstruction();
  Form_Load();
}

void frmScales::Form_Load() {
  scale_.ShowPattern();
  UpdateNotes();
  ShowMode();
  c_.picButtons->setEnabled(false);
  c_.picButtons->hide();
  session_.RecordMoved();
  c_.cmdModify->setFocus();
}

// A running command waits for the answer to its question.
bool frmScales::Form_QueryUnload() { return !IsRunning() && controller_.SettleChanges(); }

// SettleChanges has saved or dropped every change before.
void frmScales::Form_Unload() {
  services_.host.EditUpdates();
  services_.host.BringToFront();
}

void frmScales::RecordMoved() {
  // Two records may have the same pattern; then no field changes that would update the notes.
  if (session_.IsOnAnotherRecord()) ShowRecordNotes();
  session_.RecordMoved();
  scale_.ShowType();
  EnableFields();
  ShowNotice();
}

void frmScales::FieldTyped(int index, const QString& before) {
  session_.FieldTyped(index, before);
  if (c_.txtFields.at(static_cast<std::size_t>(index)).binding->IsShortened()) ShowLimit({MessageId::kTextIsShortened});
}

void frmScales::txtFields_Change(int index) {
  UpdateNotes();
  if (index == field::kIntervals) scale_.ShowPattern();
  if (index == field::kScaleTypeId) scale_.ShowType();
  ShowNotice();
}

void frmScales::txtIntervals_Typed(const QString& text) {
  session_.PatternTyped(text);
  c_.txtScaleIntervalTones->setText(QString::fromStdString(StepWordsText(text.toStdString())));
  ShowNotice();
}

void frmScales::UpdateNotes() {
  core::DeferredFailure failure;
  failure.Try([this] { session_.SelectRecordNotes(); });
  failure.ReportDescription(services_.msgBox);
}

void frmScales::ShowRecordNotes() {
  UpdateNotes();
  scale_.ShowPattern();
}

void frmScales::ScaleLabelClick(const std::string& LabelName) {
  const NoteSelection before = SelectedNotes();
  c_.keyboard->Toggle(QString::fromStdString(LabelName));
  if (session_.NotesToggled(before)) ShowNotice();
}

void frmScales::ScaleIntervalBuild() {
  c_.txtIntervals->setText(QString::fromStdString(editor::ScaleIntervalBuild(SelectedNotes())));
}

bool frmScales::NoteExistsInScale(const std::string& strNoteVal) {
  return editor::NoteExistsInScale(strNoteVal, scale_.Pattern(), services_.msgBox);
}

void frmScales::ShowMode() {
  bool isModified = IsInModifyMode();
  SetAllControls(isModified);
}

void frmScales::EnableFields() { editor::EnableFields(c_, IsInModifyMode()); }

bool frmScales::SetAllControls(bool& pIsModified) {
  const bool isModified = pIsModified;
  c_.keyboard->EnableNotes(isModified);
  EnableFields();
  ShowControls(c_, isModified);
  // Kept: see docs/behaviour.md, SetAllControls saves
  const std::string reported = c_.datPrimaryRS->Refusal();
  const QPointer<frmScales> self = this;
  core::MsgBox& msgBox = services_.msgBox;
  core::DeferredFailure failure;
  failure.Try([this] { scale_.UpdateBatch(); });
  if (self.isNull()) return isModified;
  ShowNotice();
  if (failure.Pending() && failure.Pending()->Description() == reported) failure.Clear();
  controls::DataControl::Report(failure, msgBox);
  return isModified;
}

void frmScales::ShowNotice() {
  const QString text = NoticeText(session_.CurrentNotice(), c_);
  if (text == c_.lblNotice->text()) return;
  c_.lblNotice->setText(text);
  if (text.isEmpty()) return;
  QAccessibleEvent alert(c_.lblNotice, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void frmScales::ShowLimit(const Notice& limit) {
  session_.SetLimit(limit);
  ShowNotice();
}

}  // namespace tonalith::editor
