// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What can be undone on the editor's form: changes of fields and of the selected notes, the latest first. Changes of
// one field that follow each other are one step, and a step that comes back to where it began is none. Holds texts
// only; the form applies them. Plain value; one thread.

#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tonalith::editor {

class EditHistory {
 public:
  /// The step's subject where it is not the index of a field.
  static constexpr int kNotes = -1;

  struct Step {
    int subject = kNotes;
    QString before;
    QString after;
  };

  void AddField(int index, const QString& before, const QString& after);
  void AddNotes(const QString& before, const QString& after);
  /// The step to take back; nothing when there is none.
  std::optional<Step> Undo();
  /// The step to make again; nothing when there is none.
  std::optional<Step> Redo();
  void Clear();

 private:
  std::vector<Step> steps_;
  std::vector<Step> undone_;
};

}  // namespace tonalith::editor
