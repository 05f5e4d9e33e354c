// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the editor's buttons and keys do.

#include <QCoreApplication>
#include <utility>

#include "core/text.h"
#include "editor/frm_scales.h"

namespace tonalith::editor {
namespace {

constexpr const char* kDeleteQuestion =
    QT_TRANSLATE_NOOP("tonalith::editor::frmScales",
                      "Are you sure you want to delete this record? You will not be able to undo the deletion!");
/// Yes and No with a question icon, No being the default.
constexpr auto kConfirmDeletion = static_cast<core::MsgBoxStyle>(276);

/// A new scale is the major scale, to be bent into what it is going to be.
constexpr const char* kNewStartNote = "C";
constexpr const char* kNewIntervals = "2212221";

}  // namespace

bool frmScales::RunAlone(const std::function<void()>& command) {
  if (std::exchange(isRunning_, true)) return false;
  // A question lets events through, and with them the end of the program.
  const QPointer<frmScales> self = this;
  core::MsgBox& msgBox = services_.msgBox;
  core::DeferredFailure failure;
  limit_.clear();
  const bool isDone = failure.Try(command);
  controls::DataControl::Report(failure, msgBox);
  if (self.isNull()) return false;
  isRunning_ = false;
  ShowNotice();
  return isDone;
}

void frmScales::EnterModify() {
  c_.picButtons->setEnabled(true);
  ShowRecordNotes();
  areNotesTakenBack_ = false;
  news_.clear();
  ScaleImageModify();
  // Modify never leaves the mode: pressed again, it enters it again.
  if (ModifyMode) ModifyMode = false;
  if (!ModifyMode) ModifyMode = true;
  const QPointer<frmScales> self = this;
  SetAllControls(ModifyMode);
  if (self.isNull()) return;
  if (Field(field::kName).box->isEnabled()) {
    Field(field::kName).box->setFocus();
  } else {
    c_.cmdAdd->setFocus();
  }
}

void frmScales::cmdModify_Click() {
  if (isRunning_) return;
  const bool wasPending = c_.datPrimaryRS->IsEditPending();
  const QPointer<frmScales> self = this;
  EnterModify();
  if (self.isNull() || wasPending) return;
  if (const auto changes = setAside_.TakeAt(c_.datPrimaryRS->CurrentBookmark())) BringBack(*changes);
}

bool frmScales::KeepNotes() {
  const bool hasNotes = SelectedNotes().any();
  if (core::CharacterCount(Pattern()) <= 1 || !hasNotes) {
    services_.msgBox.Show(tr("A scale or chord requires more than one note.").toStdString(),
                          core::MsgBoxStyle::kInformation);
    return false;
  }
  areNotesChosen_ = false;
  Field(field::kIntervals).box->setEnabled(true);
  Field(field::kIntervals).SetText(c_.txtIntervals->text());
  Field(field::kIntervals).box->setEnabled(false);
  c_.datPrimaryRS->UpdateBatch();
  return true;
}

void frmScales::cmdApply_Click() {
  if (isRunning_) return;
  const QPointer<frmScales> self = this;
  RunAlone([&] {
    ScaleImageSelect();
    ScaleIntervalBuild();
    const bool isKept = AsksToKeep();
    if (self.isNull()) return;
    if (!isKept) {
      if (SetChangesAside(false)) SetNews(tr("Not kept. Modify (F2) brings your changes back."));
      return;
    }
    const QString name = Field(field::kName).Text();
    if (KeepNotes()) {
      c_.datPrimaryRS->MoveFirst();
      SetNews(tr("Saved: %1").arg(name) + QStringLiteral(". ") + ViewingHint());
    } else if (!self.isNull() && SetChangesAside(true)) {
      SetNews(tr("Not saved. Modify (F2) brings your changes back."));
    }
  });
  if (self.isNull()) return;
  // Input waits for the end of the mode: what it opens could stay open for long.
  RunAlone([] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); });
  if (self.isNull()) return;
  ModifyMode = false;
  SetAllControls(ModifyMode);
  if (!self.isNull()) c_.cmdModify->setFocus();
}

controls::DataControl::FieldValues frmScales::NewRecord() const {
  core::Value type =
      c_.datPrimaryRS->HasRecord() ? c_.datPrimaryRS->Recordset()->FieldValue("ScaleTypeID") : core::Value::Null();
  if (type.IsNull() && c_.Combo1->count() > 0) type = std::int64_t{c_.Combo1->NumberAt(0).toLongLong()};
  core::Value sort;
  if (!type.IsNull()) sort = NextSortNumber(c_.datPrimaryRS->ConnectionString(), type.AsInt());
  return {{"ScaleTypeID", type},
          {"StartNote", kNewStartNote},
          {"ScaleIntervals", kNewIntervals},
          {"Chord", core::Value::YesNo(false)},
          {"Sort", sort}};
}

void frmScales::cmdAdd_Click() {
  const bool isAdded = RunAlone([this] {
    // Saved first, because the new record's sort number comes after those that are there.
    c_.datPrimaryRS->UpdateBatch();
    c_.datPrimaryRS->AddNew(NewRecord());
    newSort_ = Field(field::kSort).Text();
  });
  if (isAdded) Field(field::kName).box->setFocus();
}

void frmScales::cmdUpdate_Click() {
  RunAlone([this] {
    const NoteSelection chosen = SelectedNotes();
    const bool areChosen = areNotesChosen_;
    c_.datPrimaryRS->UpdateBatch();
    // Saving fills in the new record's number, which sets the buttons; notes that wait for Apply go on waiting.
    if (!areChosen) return;
    SetSelection(chosen);
    areNotesChosen_ = true;
    areNotesTakenBack_ = false;
  });
}

void frmScales::cmdRefresh_Click() {
  if (isRunning_) return;
  const bool areChangesAffected = SetChangesAside(true);
  const QPointer<frmScales> self = this;
  RunAlone([this] {
    c_.datPrimaryRS->Refresh();
    ShowRecordNotes();
    LoadTypes();
  });
  if (self.isNull() || !areChangesAffected) return;
  SetNews(tr("The library was read again. Ctrl+Z brings your changes back."));
  ShowNotice();
}

void frmScales::cmdDelete_Click() {
  const QPointer<frmScales> self = this;
  RunAlone([&] {
    const auto answer = services_.msgBox.Show(tr(kDeleteQuestion).toStdString(), kConfirmDeletion,
                                              tr("Confirm Deletion").toStdString());
    if (answer == core::MsgBoxAnswer::kYes && !self.isNull()) c_.datPrimaryRS->Delete();
  });
}

void frmScales::Combo1_Click(int item) {
  RunAlone([&] {
    const TextField& type = Field(field::kScaleTypeId);
    const QString before = type.Text();
    SetScaleType(c_.Combo1->NumberAt(item));
    news_.clear();
    if (type.Text() != before) history_.AddField(field::kScaleTypeId, before, type.Text());
  });
}

void frmScales::SetScaleType(const QString& typeNumber) {
  Field(field::kScaleTypeId).SetText(typeNumber);
  // The sort number of a new record goes with its type until somebody chooses one.
  const TextField& sort = Field(field::kSort);
  if (c_.datPrimaryRS->CurrentBookmark() || sort.Text() != newSort_) return;
  sort.SetText(QString::number(NextSortNumber(c_.datPrimaryRS->ConnectionString(), typeNumber.toLongLong())));
  newSort_ = sort.Text();
}

void frmScales::txtIntervals_Typed(const QString& text) {
  const NoteSelection before = SelectedNotes();
  const NoteSelection typed = NotesOfTyped(text.toStdString());
  SetSelection(typed);
  c_.txtScaleIntervalTones->setText(QString::fromStdString(StepWordsText(text.toStdString())));
  news_.clear();
  limit_.clear();
  areNotesChosen_ = true;
  areNotesTakenBack_ = false;
  if (typed != before) {
    history_.AddNotes(QString::fromStdString(before.to_string()), QString::fromStdString(typed.to_string()));
  }
  ShowNotice();
}

}  // namespace tonalith::editor
