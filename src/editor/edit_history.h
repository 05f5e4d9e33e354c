// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The undo and redo steps of the editor: changes of one field, and changes of the selected notes. Consecutive changes
// of a field are one step; a step that ends where it began is removed.

#pragma once

#include <QString>
#include <optional>
#include <variant>
#include <vector>

#include "editor/scale_editing.h"

namespace tonalith::editor {

struct FieldStep {
  int index = 0;
  QString before;
  QString after;
};

struct NotesStep {
  NoteSelection before;
  NoteSelection after;
};

using EditStep = std::variant<FieldStep, NotesStep>;

class EditHistory {
 public:
  void Add(const FieldStep& step);
  void Add(const NotesStep& step);
  [[nodiscard]] bool CanUndo() const { return !steps_.empty(); }
  [[nodiscard]] bool CanRedo() const { return !undone_.empty(); }
  /// The step to undo; nothing when there is none.
  std::optional<EditStep> Undo();
  /// The step to redo; nothing when there is none.
  std::optional<EditStep> Redo();
  void Clear();

 private:
  std::vector<EditStep> steps_;
  std::vector<EditStep> undone_;
};

}  // namespace tonalith::editor
