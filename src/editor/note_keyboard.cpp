// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/note_keyboard.h"

namespace tonalith::editor {
namespace {

constexpr int kGap = 8;
constexpr int kStride = kNoteButtonSize.width() + kGap;

bool IsSharp(int number) { return core::kSharpNotes[static_cast<std::size_t>(number)].size() > 1; }

}  // namespace

NoteKeyboard::NoteKeyboard(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("noteKeyboard"));
  setAccessibleName(tr("Notes"));
  int natural = 0;
  for (int i = 0; i < kNoteCount; ++i) {
    auto* const note = new NoteButton(static_cast<core::NoteNumber>(i), this);
    // A sharp is above the gap between the two naturals beside it.
    const int left = IsSharp(i) ? natural * kStride - kStride / 2 : natural * kStride;
    note->move(left, IsSharp(i) ? 0 : kNoteButtonSize.height() + kGap);
    if (!IsSharp(i)) ++natural;
    notes_[static_cast<std::size_t>(i)] = note;
  }
  setFixedSize(sizeHint());
}

QSize NoteKeyboard::sizeHint() const { return {7 * kStride - kGap, 2 * kNoteButtonSize.height() + kGap}; }

NoteSelection NoteKeyboard::Selected() const {
  NoteSelection notes;
  for (std::size_t i = 0; i < notes.size(); ++i) notes[i] = IsSelected(notes_[i]->Colours());
  return notes;
}

void NoteKeyboard::Select(const NoteSelection& notes) {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    notes_[i]->SetColours(notes[i] ? kSelectedColours : kUnselectedColours);
  }
  if (view_ == View::kSelected) ShowSelected();
}

NoteSelection NoteKeyboard::ByTag(const NoteSelection& notes) const {
  NoteSelection buttons;
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    buttons[i] = notes[static_cast<std::size_t>(core::CNoteToNumber(notes_[i]->Tag()))];
  }
  return buttons;
}

void NoteKeyboard::ColourBackground(const NoteSelection& notes) {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    if (notes[i]) notes_[i]->SetColours({notes_[i]->Colours().fore, kSelectedColours.back});
  }
}

void NoteKeyboard::Toggle(const QString& name) {
  for (NoteButton* const note : notes_) {
    if (note->objectName() == name) note->SetColours(Toggled(note->Colours()));
  }
}

void NoteKeyboard::ShowSelected() {
  view_ = View::kSelected;
  for (NoteButton* const note : notes_) note->setVisible(!IsHiddenInView(note->Colours()));
}

void NoteKeyboard::ShowAll() {
  view_ = View::kAll;
  for (NoteButton* const note : notes_) note->show();
}

void NoteKeyboard::EnableNotes(bool isEnabled) {
  for (NoteButton* const note : notes_) note->setEnabled(isEnabled);
}

}  // namespace tonalith::editor
