// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The form itself: its parts, its procedures, and how it follows the current record. The commands are beside it.

#include "editor/frm_scales.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>

#include "paint/theme.h"
#include "windows/window_front.h"

namespace tonalith::editor {
namespace {

std::string StepType(const QString& typeNumber) {
  return typeNumber.trimmed().isEmpty() ? "1" : typeNumber.toStdString();
}

QList<QKeySequence> RedoKeys() {
  QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
  const QKeySequence common(Qt::CTRL | Qt::Key_Y);
  if (!keys.contains(common)) keys.append(common);
  return keys;
}

}  // namespace

frmScales::frmScales(const EditorServices& services, QWidget* parent)
    : QWidget(parent, windows::kFixedSizeWindow), services_(services), patternNotes_(services.msgBox) {
  setObjectName(QStringLiteral("frmScales"));
  setWindowTitle(tr("Scales"));
  setAttribute(Qt::WA_DeleteOnClose);
  setPalette(paint::WarmPalette(QApplication::palette()));
  c_ = MakeScalesControls(this, services_.msgBox);
  ApplyInk(c_, palette());
  OpenRecords();
  WireFields();
  WireLimits();
  WireHandlers();
  AddShortcuts();
  Form_Load();
}

void frmScales::OpenRecords() {
  c_.datPrimaryRS->SetConnectionString(data::FullConnectionString(services_.database.DatabasePath()));
  c_.datPrimaryRS->SetRecordSource(std::string(data::kAllScalesStatement));
  c_.datPrimaryRS->SetLockType(data::LockType::kBatchOptimistic);
  core::DeferredFailure failure;
  const bool isOpen = failure.Try([this] { c_.datPrimaryRS->Refresh(); });
  if (isOpen) {
    if (services_.current) failure.Try([this] { c_.datPrimaryRS->SetBookmarkIfThere(*services_.current); });
    failure.Try([this] { LoadTypes(); });
  }
  failure.ReportDescription(services_.msgBox);
}

void frmScales::LoadTypes() {
  c_.Combo1->SetTypes(ReadScaleTypes(c_.datPrimaryRS->ConnectionString()));
  c_.Combo1->Show(Field(field::kScaleTypeId).Text());
}

void frmScales::WireFields() {
  for (int i = 0; i < kFieldCount; ++i) {
    const TextField& textField = Field(i);
    if (textField.binding == nullptr) continue;
    connect(textField.binding, &controls::FieldBinding::Edited, this,
            [this, i](const QString& before) { TakeTyped(i, before); });
    connect(textField.binding, &controls::FieldBinding::Changed, this, [this, i] { txtFields_Change(i); });
    textField.box->installEventFilter(this);
  }
  c_.txtIntervals->installEventFilter(this);
}

void frmScales::WireHandlers() {
  for (NoteButton* const note : c_.keyboard->Notes()) {
    // note0_Click to note11_Click.
    connect(note, &QAbstractButton::clicked, this, [this, note] { ScaleLabelClick(note->objectName().toStdString()); });
  }
  const auto press = [this](const windows::PanelButton* button, void (frmScales::*handler)()) {
    connect(button, &QAbstractButton::clicked, this, handler);
  };
  press(c_.cmdModify, &frmScales::cmdModify_Click);
  press(c_.cmdApply, &frmScales::cmdApply_Click);
  press(c_.cmdAdd, &frmScales::cmdAdd_Click);
  press(c_.cmdUpdate, &frmScales::cmdUpdate_Click);
  press(c_.cmdDelete, &frmScales::cmdDelete_Click);
  press(c_.cmdRefresh, &frmScales::cmdRefresh_Click);
  press(c_.cmdClose, &frmScales::cmdClose_Click);
  connect(c_.Combo1, &QComboBox::activated, this, &frmScales::Combo1_Click);
  connect(c_.txtIntervals, &QLineEdit::textEdited, this, &frmScales::txtIntervals_Typed);
  c_.datPrimaryRS->OnConflict([this] { return DecideConflict(); });
  connect(c_.datPrimaryRS, &controls::DataControl::Moved, this, &frmScales::TakeMove);
  connect(c_.datPrimaryRS, &controls::DataControl::Written, this, [this] { services_.host.EditUpdates(); });
}

void frmScales::AddShortcuts() {
  using controls::DataControl;
  const auto add = [this](const QList<QKeySequence>& keys, auto&& run) {
    auto* const shortcut = new QShortcut(this);
    shortcut->setKeys(keys);
    connect(shortcut, &QShortcut::activated, this, run);
  };
  add({Qt::Key_PageUp}, [this] { c_.datPrimaryRS->RunMove(&DataControl::MovePrevious); });
  add({Qt::Key_PageDown}, [this] { c_.datPrimaryRS->RunMove(&DataControl::MoveNext); });
  add({Qt::Key_F2}, [this] { c_.cmdModify->click(); });
  add({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}, [this] { c_.cmdApply->click(); });
  add({Qt::Key_Escape}, [this] { cmdClose_Click(); });
  add(QKeySequence::keyBindings(QKeySequence::Undo), [this] { UndoChange(); });
  add(RedoKeys(), [this] { RedoChange(); });
  c_.cmdModify->setToolTip(tr("Change this scale (F2)"));
  c_.cmdApply->setToolTip(tr("Keep the selected notes (Ctrl+Enter)"));
}

void frmScales::Form_Load() {
  ShowPattern();
  UpdateNotes();
  ModifyMode = false;
  SetAllControls(ModifyMode);
  c_.picButtons->setEnabled(false);
  c_.picButtons->hide();
  shown_ = c_.datPrimaryRS->CurrentBookmark();
  c_.cmdModify->setFocus();
}

// Everything that is pending has been settled by then.
void frmScales::Form_Unload() {
  isUnloaded_ = true;
  services_.host.EditUpdates();
  services_.host.BringToFront();
}

void frmScales::closeEvent(QCloseEvent* event) {
  // Not in the middle of a command: its question stands on the screen and wants an answer first.
  if (isRunning_ || !SettleChanges()) {
    event->ignore();
    return;
  }
  if (!isUnloaded_) Form_Unload();
  QWidget::closeEvent(event);
}

void frmScales::ApplyTheme() {
  setPalette(paint::WarmPalette(QApplication::palette()));
  ApplyInk(c_, palette());
}

bool frmScales::event(QEvent* event) {
  // The application's palette does not reach changeEvent.
  if (event->type() == QEvent::ApplicationPaletteChange && c_.keyboard != nullptr) ApplyTheme();
  return QWidget::event(event);
}

bool frmScales::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    // The form undoes what a box has forgotten, so the keys are the form's in every box.
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.matches(QKeySequence::Undo) || RedoKeys().contains(QKeySequence(key.keyCombination()))) {
      event->ignore();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void frmScales::TakeMove() {
  const std::optional<data::Bookmark> current = c_.datPrimaryRS->CurrentBookmark();
  if (current != shown_) {
    // Two records may have the same pattern, and no field changes then that would show it.
    ShowRecordNotes();
    history_.Clear();
    areNotesTakenBack_ = false;
    news_.clear();
  }
  limit_.clear();
  shown_ = current;
  c_.Combo1->Show(Field(field::kScaleTypeId).Text());
  EnableFields();
  ShowNotice();
}

void frmScales::TakeTyped(int index, const QString& before) {
  news_.clear();
  limit_.clear();
  if (Field(index).binding->IsShortened()) {
    ShowLimit(tr("The library holds more of this text than is shown. Saving replaces all of it."));
  }
  if (!isUndoing_) history_.AddField(index, before, Field(index).Text());
}

void frmScales::txtFields_Change(int index) {
  UpdateNotes();
  if (index == field::kIntervals) ShowPattern();
  if (index == field::kScaleTypeId) c_.Combo1->Show(Field(index).Text());
  ShowNotice();
}

void frmScales::ShowPattern() {
  c_.txtIntervals->setText(Field(field::kIntervals).Text());
  ShowTonesForIntervals();
}

void frmScales::ShowRecordNotes() {
  UpdateNotes();
  ShowPattern();
}

NoteSelection frmScales::SelectedNotes() const {
  NoteSelection notes;
  for (int i = 0; i < kNoteCount; ++i) notes[static_cast<std::size_t>(i)] = IsSelected(c_.Note(i)->Colours());
  return notes;
}

NoteSelection frmScales::RecordNotes() {
  if (!c_.datPrimaryRS->HasRecord()) return {};
  return patternNotes_.Of(StepType(Field(field::kScaleTypeId).Text()), Pattern());
}

void frmScales::SetSelection(const NoteSelection& notes) {
  for (int i = 0; i < kNoteCount; ++i) {
    c_.Note(i)->SetColours(notes[static_cast<std::size_t>(i)] ? kSelectedColours : kUnselectedColours);
  }
  if (showsOnlySelected_) ScaleImageSelect();
}

void frmScales::UpdateNotes() {
  core::DeferredFailure failure;
  failure.Try([this] {
    const NoteSelection before = SelectedNotes();
    NoteSelection notes;
    const NoteSelection record = RecordNotes();
    for (int i = 0; i < kNoteCount; ++i) {
      notes[static_cast<std::size_t>(i)] = record[static_cast<std::size_t>(core::CNoteToNumber(c_.Note(i)->Tag()))];
    }
    SetSelection(notes);
    if (!std::exchange(areNotesChosen_, false) || before == notes) return;
    areNotesTakenBack_ = true;
    ShowPattern();
    if (!isUndoing_) {
      history_.AddNotes(QString::fromStdString(before.to_string()), QString::fromStdString(notes.to_string()));
    }
  });
  failure.ReportDescription(services_.msgBox);
}

void frmScales::ShowTonesForIntervals() {
  core::DeferredFailure failure;
  failure.Try([this] {
    c_.txtScaleIntervalTones->setText(QString::fromStdString(StepWordsText(Pattern())));
    c_.txtScaleIntervalTones->setCursorPosition(0);
    const NoteSelection record = RecordNotes();
    for (int i = 0; i < kNoteCount; ++i) {
      NoteButton* const note = c_.Note(i);
      if (!record[static_cast<std::size_t>(core::CNoteToNumber(note->Tag()))]) continue;
      note->SetColours({note->Colours().fore, kSelectedColours.back});
    }
  });
  failure.Clear();
}

void frmScales::ScaleImageSelect() {
  showsOnlySelected_ = true;
  for (NoteButton* const note : c_.keyboard->Notes()) note->setVisible(!IsHiddenInView(note->Colours()));
}

void frmScales::ScaleImageModify() {
  showsOnlySelected_ = false;
  for (NoteButton* const note : c_.keyboard->Notes()) note->show();
}

void frmScales::ScaleLabelClick(const std::string& LabelName) {
  const NoteSelection before = SelectedNotes();
  for (NoteButton* const note : c_.keyboard->Notes()) {
    if (note->objectName().toStdString() == LabelName) note->SetColours(Toggled(note->Colours()));
  }
  if (SelectedNotes() == before) return;
  news_.clear();
  areNotesChosen_ = true;
  areNotesTakenBack_ = false;
  history_.AddNotes(QString::fromStdString(before.to_string()), QString::fromStdString(SelectedNotes().to_string()));
  ShowNotice();
}

void frmScales::ScaleIntervalBuild() {
  c_.txtIntervals->setText(QString::fromStdString(editor::ScaleIntervalBuild(SelectedNotes())));
}

bool frmScales::NoteExistsInScale(const std::string& strNoteVal) {
  return editor::NoteExistsInScale(strNoteVal, Pattern(), services_.msgBox);
}

void frmScales::EnableFields() {
  const bool canType = ModifyMode && c_.datPrimaryRS->HasRecord();
  for (int i = 1; i < kFieldCount; ++i) {
    if (i != field::kChord) Field(i).box->setEnabled(canType);
  }
  c_.Combo1->setEnabled(canType);
  c_.txtIntervals->setReadOnly(!canType);
  c_.cmdDelete->setEnabled(c_.datPrimaryRS->HasRecord());
}

bool frmScales::SetAllControls(bool& pIsModified) {
  const bool isModified = pIsModified;
  for (NoteButton* const note : c_.keyboard->Notes()) note->setEnabled(isModified);
  EnableFields();
  Field(field::kScaleId).box->setEnabled(false);
  c_.chkFields->hide();
  Field(field::kIntervals).box->hide();
  c_.txtScaleType->setVisible(!isModified);
  c_.Combo1->setVisible(isModified);
  c_.cmdApply->setEnabled(isModified);
  c_.picButtons->setVisible(isModified);
  c_.picButtons->setEnabled(isModified);
  const std::string told = c_.datPrimaryRS->Refusal();
  const QPointer<frmScales> self = this;
  core::MsgBox& msgBox = services_.msgBox;
  core::DeferredFailure failure;
  failure.Try([this] { c_.datPrimaryRS->UpdateBatch(); });
  if (self.isNull()) return isModified;
  ShowNotice();
  // What was told about the edit, just as it is, is not told a second time.
  if (failure.Pending() && failure.Pending()->Description() == told) failure.Clear();
  controls::DataControl::Report(failure, msgBox);
  return isModified;
}

}  // namespace tonalith::editor
