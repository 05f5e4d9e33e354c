// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What becomes of changes that are not saved: taken back and made again, set aside and brought back, kept on closing.

#include <utility>

#include "editor/frm_scales.h"

namespace tonalith::editor {
namespace {

constexpr const char* kKeepQuestion =
    QT_TRANSLATE_NOOP("tonalith::editor::frmScales", "Are you sure you want to keep these changes?");
constexpr const char* kOverwriteQuestion =
    QT_TRANSLATE_NOOP("tonalith::editor::frmScales",
                      "This scale has been changed elsewhere since it was read here. Do you want to save your changes "
                      "over it?\n\nNo shows "
                      "the scale as it is now. Ctrl+Z then brings your changes back.");

/// Has the box that has the focus take back its last typing; false where it cannot.
bool UndoInBox(QWidget* box) {
  auto* const line = qobject_cast<QLineEdit*>(box);
  auto* const text = qobject_cast<QPlainTextEdit*>(box);
  if (line != nullptr && line->isUndoAvailable()) {
    line->undo();
    return true;
  }
  if (text == nullptr || !text->document()->isUndoAvailable()) return false;
  text->undo();
  return true;
}

bool RedoInBox(QWidget* box) {
  auto* const line = qobject_cast<QLineEdit*>(box);
  auto* const text = qobject_cast<QPlainTextEdit*>(box);
  if (line != nullptr && line->isRedoAvailable()) {
    line->redo();
    return true;
  }
  if (text == nullptr || !text->document()->isRedoAvailable()) return false;
  text->redo();
  return true;
}

}  // namespace

bool frmScales::HasUnsavedNotes() const {
  return ModifyMode && areNotesChosen_ && editor::ScaleIntervalBuild(SelectedNotes()) != Pattern();
}

bool frmScales::HasUnsavedChanges() const { return c_.datPrimaryRS->IsEditPending() || HasUnsavedNotes(); }

ChangesOfRecord frmScales::Changes() const {
  ChangesOfRecord changes;
  changes.record = c_.datPrimaryRS->CurrentBookmark();
  changes.place = changes.record;
  for (std::size_t i = 0; i < changes.fields.size(); ++i) {
    const TextField& textField = c_.txtFields.at(i);
    if (textField.binding != nullptr) changes.fields.at(i) = {textField.Text(), textField.binding->IsChanged()};
  }
  if (c_.datPrimaryRS->HasRecord()) changes.chord = c_.datPrimaryRS->Recordset()->FieldValue("Chord");
  if (HasUnsavedNotes()) changes.notes = SelectedNotes();
  changes.history = history_;
  changes.newSort = newSort_;
  return changes;
}

bool frmScales::SetChangesAside(bool isWanted) {
  const bool areThere = HasUnsavedChanges();
  ChangesOfRecord changes = Changes();
  history_.Clear();
  areNotesChosen_ = false;
  areNotesTakenBack_ = false;
  if (!areThere) return false;
  c_.datPrimaryRS->CancelUpdate();
  // The form shows another record than a new one from now on.
  if (!changes.record) changes.place = c_.datPrimaryRS->CurrentBookmark();
  changes.isWanted = isWanted;
  setAside_.Add(std::move(changes));
  return true;
}

bool frmScales::StandOn(data::Bookmark record) {
  // A record that is shown already is not read again, so that a change made elsewhere is noticed when it is saved.
  if (c_.datPrimaryRS->CurrentBookmark() != record) c_.datPrimaryRS->SetBookmarkIfThere(record);
  return c_.datPrimaryRS->CurrentBookmark() == record;
}

void frmScales::TypeAgain(const ChangesOfRecord& changes) {
  // What was typed on a record that is gone becomes a new one.
  const bool isNew = !changes.record || !StandOn(*changes.record);
  if (isNew) {
    c_.datPrimaryRS->AddNew(NewRecord());
    newSort_ = Field(field::kSort).Text();
    if (!changes.chord.IsNull()) c_.datPrimaryRS->SetFieldValue("Chord", changes.chord);
  }
  for (int i = field::kName; i < kFieldCount; ++i) {
    const auto& [text, isChanged] = changes.fields.at(static_cast<std::size_t>(i));
    if (i == field::kChord || (!isNew && !isChanged)) continue;
    const bool isSortOfType = i == field::kSort && !changes.record && text == changes.newSort;
    if (isNew && i == field::kScaleTypeId) {
      SetScaleType(text);
    } else if (!isNew || !isSortOfType) {
      Field(i).SetText(text);
    }
  }
  history_ = changes.history;
  if (!changes.notes) return;
  SetSelection(*changes.notes);
  areNotesChosen_ = SelectedNotes() != RecordNotes();
}

void frmScales::BringBack(const ChangesOfRecord& changes) {
  const bool wasUndoing = std::exchange(isUndoing_, true);
  const QPointer<frmScales> self = this;
  const bool isDone = RunAlone([&] { TypeAgain(changes); });
  if (self.isNull()) return;
  isUndoing_ = wasUndoing;
  if (isDone) {
    SetNews(tr("Your changes are here again and not saved yet. Ctrl+Z takes them back."));
  } else if (!HasUnsavedChanges()) {
    setAside_.Add(changes);
  }
  ShowNotice();
}

void frmScales::ApplyStep(int subject, const QString& content) {
  const bool wasUndoing = std::exchange(isUndoing_, true);
  RunAlone([&] {
    news_.clear();
    if (subject == field::kScaleTypeId) return SetScaleType(content);
    if (subject != EditHistory::kNotes) return Field(subject).SetText(content);
    SetSelection(NoteSelection(content.toStdString()));
    areNotesTakenBack_ = false;
    areNotesChosen_ = SelectedNotes() != RecordNotes();
    if (!areNotesChosen_) ShowPattern();
  });
  isUndoing_ = wasUndoing;
}

void frmScales::UndoChange() {
  if (isRunning_ || (ModifyMode && UndoInBox(focusWidget()))) return;
  if (ModifyMode) {
    if (const auto step = history_.Undo()) return ApplyStep(step->subject, step->before);
  }
  if (HasUnsavedChanges() || setAside_.IsEmpty()) return;
  const QPointer<frmScales> self = this;
  if (!ModifyMode) EnterModify();
  if (self.isNull()) return;
  if (const auto changes = setAside_.TakeLatest()) BringBack(*changes);
}

void frmScales::RedoChange() {
  if (!ModifyMode || isRunning_ || RedoInBox(focusWidget())) return;
  if (const auto step = history_.Redo()) ApplyStep(step->subject, step->after);
}

controls::DataControl::Conflict frmScales::DecideConflict() {
  using Conflict = controls::DataControl::Conflict;
  const QPointer<frmScales> self = this;
  const bool wasRunning = std::exchange(isRunning_, true);
  const auto style = core::MsgBoxStyle::kYesNo | core::MsgBoxStyle::kQuestion | core::MsgBoxStyle::kDefaultButton2;
  const auto answer =
      services_.msgBox.Show(tr(kOverwriteQuestion).toStdString(), style, tr("Changed Elsewhere").toStdString());
  if (self.isNull()) return Conflict::kTakeOther;
  isRunning_ = wasRunning;
  if (answer == core::MsgBoxAnswer::kYes) return Conflict::kOverwrite;
  setAside_.Add(Changes());
  history_.Clear();
  areNotesChosen_ = false;
  SetNews(tr("This is the scale as it is now. Ctrl+Z brings your changes back."));
  return Conflict::kTakeOther;
}

bool frmScales::AsksToKeep() {
  return services_.msgBox.Show(tr(kKeepQuestion).toStdString(), core::MsgBoxStyle::kOkCancel) ==
         core::MsgBoxAnswer::kOk;
}

void frmScales::ShowWhatIsWanted() {
  const QPointer<frmScales> self = this;
  while (!self.isNull() && !HasUnsavedChanges()) {
    const auto changes = setAside_.TakeWanted();
    if (!changes) return;
    EnterModify();
    if (!self.isNull()) BringBack(*changes);
  }
}

bool frmScales::SettleChanges() {
  if (isUnloaded_) return true;
  const QPointer<frmScales> self = this;
  for (;;) {
    ShowWhatIsWanted();
    if (self.isNull()) return false;
    if (!HasUnsavedChanges()) return true;
    bool isSettled = false;
    RunAlone([&] {
      const bool isKept = AsksToKeep();
      if (self.isNull()) return;
      if (!isKept) {
        areNotesChosen_ = false;
        c_.datPrimaryRS->CancelUpdate();
      } else if (!HasUnsavedNotes()) {
        c_.datPrimaryRS->UpdateBatch();
      } else {
        ScaleIntervalBuild();
        if (!KeepNotes()) return;
      }
      isSettled = true;
    });
    if (!isSettled || self.isNull()) return false;
  }
}

}  // namespace tonalith::editor
