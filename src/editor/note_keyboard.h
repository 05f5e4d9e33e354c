// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The twelve note buttons, arranged as the keys of a piano, and the selection that their colours are.

#pragma once

#include <QWidget>
#include <array>

#include "editor/note_button.h"

namespace tonalith::editor {

class NoteKeyboard : public QWidget {
  Q_OBJECT

 public:
  explicit NoteKeyboard(QWidget* parent);

  [[nodiscard]] const std::array<NoteButton*, kNoteCount>& Notes() const { return notes_; }
  [[nodiscard]] QSize sizeHint() const override;

  [[nodiscard]] NoteSelection Selected() const;
  void Select(const NoteSelection& notes);
  /// The buttons whose tags are among the notes.
  [[nodiscard]] NoteSelection ByTag(const NoteSelection& notes) const;
  /// Gives the notes the background of selected ones.
  void ColourBackground(const NoteSelection& notes);
  /// Toggles the button of that object name; an unknown name toggles none.
  void Toggle(const QString& name);

  /// Hides the buttons with the background of unselected ones, also after later selections.
  void ShowSelected();
  void ShowAll();
  void EnableNotes(bool isEnabled);

 private:
  enum class View { kAll, kSelected };

  std::array<NoteButton*, kNoteCount> notes_{};
  View view_ = View::kAll;
};

}  // namespace tonalith::editor
