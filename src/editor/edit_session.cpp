// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_session.h"

#include <utility>

#include "core/text.h"

namespace tonalith::editor {
namespace {

Notice ChosenNotice(const NoteSelection& selected) {
  if (selected.none()) return {MessageId::kNoNoteSelected};
  const MessageId id = selected.count() == 1 ? MessageId::kOneNote : MessageId::kApplySaves;
  return {id, QString::fromStdString(ScaleIntervalBuild(selected))};
}

}  // namespace

/// While one of these exists, changes come from a step and are no new steps.
class EditSession::FromHistory {
 public:
  explicit FromHistory(EditSession& session)
      : session_(session), before_(std::exchange(session.source_, ChangeSource::kHistory)) {}
  ~FromHistory() { session_.source_ = before_; }
  FromHistory(const FromHistory&) = delete;
  FromHistory& operator=(const FromHistory&) = delete;

 private:
  EditSession& session_;
  ChangeSource before_;
};

bool EditSession::AreNotesUnlikePattern(const NoteSelection& selected) const {
  return IsModifying() && notes_ == NotesState::kChosen && ScaleIntervalBuild(selected) != Pattern();
}

bool EditSession::HasUnsavedNotes() const { return AreNotesUnlikePattern(scale_.SelectedNotes()); }

bool EditSession::HasUnsavedChanges() const { return scale_.IsEditPending() || HasUnsavedNotes(); }

Notice EditSession::CurrentNotice() {
  if (limit_) return *limit_;
  const NoteSelection selected = scale_.SelectedNotes();
  const bool isTooShort = IsModifying() && notes_ == NotesState::kChosen && selected.count() <= 1;
  if (isTooShort || AreNotesUnlikePattern(selected)) return outcome_ ? *outcome_ : ChosenNotice(selected);
  if (notes_ == NotesState::kTakenBack) return {MessageId::kNotesTakenBack};
  if (!IsModifying() && selected != scale_.RecordNotes()) {
    return {MessageId::kPatternNotKept, scale_.Field(field::kIntervals).text};
  }
  if (outcome_) return *outcome_;
  if (scale_.IsEditPending()) return {MessageId::kNotSavedYet};
  return {IsModifying() ? MessageId::kModifyHint : MessageId::kViewingHint};
}

void EditSession::EnterModify() {
  notes_ = NotesState::kOfRecord;
  outcome_.reset();
  // Kept: see docs/behaviour.md, Modify never leaves the mode
  if (mode_ == Mode::kModifying) mode_ = Mode::kViewing;
  if (mode_ == Mode::kViewing) mode_ = Mode::kModifying;
}

void EditSession::RecordMoved() {
  if (IsOnAnotherRecord()) {
    history_.Clear();
    notes_ = NotesState::kOfRecord;
    outcome_.reset();
  }
  limit_.reset();
  shown_ = scale_.Bookmark();
}

void EditSession::FieldTyped(int index, const QString& before) {
  outcome_.reset();
  limit_.reset();
  history_.Add(FieldStep{index, before, scale_.Field(index).text});
}

void EditSession::TypeChosen(const QString& typeId) {
  const QString before = scale_.Field(field::kScaleTypeId).text;
  newScale_.SetType(scale_, typeId);
  outcome_.reset();
  const QString after = scale_.Field(field::kScaleTypeId).text;
  if (after != before) history_.Add(FieldStep{field::kScaleTypeId, before, after});
}

bool EditSession::NotesToggled(const NoteSelection& before) {
  const NoteSelection selected = scale_.SelectedNotes();
  if (selected == before) return false;
  outcome_.reset();
  notes_ = NotesState::kChosen;
  history_.Add(NotesStep{before, selected});
  return true;
}

void EditSession::PatternTyped(const QString& pattern) {
  const NoteSelection before = scale_.SelectedNotes();
  const NoteSelection typed = NotesOfTyped(pattern.toStdString());
  scale_.SelectNotes(typed);
  outcome_.reset();
  limit_.reset();
  notes_ = NotesState::kChosen;
  if (typed != before) history_.Add(NotesStep{before, typed});
}

void EditSession::SelectRecordNotes() {
  const NoteSelection before = scale_.SelectedNotes();
  const NoteSelection notes = scale_.RecordNotes();
  scale_.SelectNotes(notes);
  if (notes_ != NotesState::kChosen) return;
  notes_ = before == notes ? NotesState::kOfRecord : NotesState::kTakenBack;
  if (notes_ == NotesState::kOfRecord) return;
  scale_.ShowPattern();
  if (source_ == ChangeSource::kUser) history_.Add(NotesStep{before, notes});
}

void EditSession::Update() {
  const NoteSelection selected = scale_.SelectedNotes();
  const bool areChosen = notes_ == NotesState::kChosen;
  scale_.UpdateBatch();
  // Saving gives a new record its number, which selects the record's notes.
  if (!areChosen) return;
  scale_.SelectNotes(selected);
  notes_ = NotesState::kChosen;
}

bool EditSession::CanKeepNotes() const {
  // Kept: see docs/behaviour.md, Apply tests the old pattern
  return core::CharacterCount(Pattern()) > 1 && scale_.SelectedNotes().any();
}

void EditSession::KeepNotes() {
  ForgetChosenNotes();
  scale_.KeepPattern();
  scale_.UpdateBatch();
}

void EditSession::DropChanges() {
  ForgetChosenNotes();
  scale_.CancelUpdate();
}

void EditSession::ForgetChosenNotes() {
  if (notes_ == NotesState::kChosen) notes_ = NotesState::kOfRecord;
}

void EditSession::Undo() {
  if (const auto step = history_.Undo()) std::visit([this](const auto& s) { ApplyStep(s, s.before); }, *step);
}

void EditSession::Redo() {
  if (const auto step = history_.Redo()) std::visit([this](const auto& s) { ApplyStep(s, s.after); }, *step);
}

void EditSession::ApplyStep(const FieldStep& step, const QString& text) {
  const FromHistory scope(*this);
  outcome_.reset();
  if (step.index == field::kScaleTypeId) {
    newScale_.SetType(scale_, text);
  } else {
    scale_.SetField(step.index, text);
  }
}

void EditSession::ApplyStep(const NotesStep& /*step*/, const NoteSelection& notes) {
  outcome_.reset();
  scale_.SelectNotes(notes);
  notes_ = notes == scale_.RecordNotes() ? NotesState::kOfRecord : NotesState::kChosen;
  if (notes_ == NotesState::kOfRecord) scale_.ShowPattern();
}

RejectedEdit EditSession::Snapshot() const {
  RejectedEdit edit;
  edit.record = scale_.Bookmark();
  edit.place = edit.record;
  for (int i = 0; i < kFieldCount; ++i) edit.fields.at(static_cast<std::size_t>(i)) = scale_.Field(i);
  edit.chord = scale_.Content("Chord");
  if (HasUnsavedNotes()) edit.notes = scale_.SelectedNotes();
  edit.history = history_;
  edit.typeSort = newScale_.TypeSort();
  return edit;
}

bool EditSession::Reject(RejectedEdit::Decision decision) {
  const bool hasChanges = HasUnsavedChanges();
  RejectedEdit edit = Snapshot();
  history_.Clear();
  notes_ = NotesState::kOfRecord;
  if (!hasChanges) return false;
  scale_.CancelUpdate();
  // In place of a new record, the form shows another one from now on.
  if (!edit.record) edit.place = scale_.Bookmark();
  edit.decision = decision;
  rejected_.Add(std::move(edit));
  return true;
}

void EditSession::RejectForOtherVersion() {
  rejected_.Add(Snapshot());
  history_.Clear();
  ForgetChosenNotes();
  outcome_ = Notice{MessageId::kShowsOtherVersion};
}

void EditSession::BringBack(const RejectedEdit& edit) {
  RestoreFields(edit, scale_, newScale_);
  history_ = edit.history;
  if (!edit.notes) return;
  scale_.SelectNotes(*edit.notes);
  if (*edit.notes != scale_.RecordNotes()) {
    notes_ = NotesState::kChosen;
  } else {
    ForgetChosenNotes();
  }
}

}  // namespace tonalith::editor
