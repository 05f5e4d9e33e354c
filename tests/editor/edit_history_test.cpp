// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_history.h"

#include <gtest/gtest.h>

namespace tonalith::editor {
namespace {

QString Text(const char* text) { return QLatin1String(text); }

NoteSelection Notes(unsigned bits) { return {bits}; }

std::string Line(const std::optional<EditStep>& step) {
  if (!step) return "none";
  if (const auto* const notes = std::get_if<NotesStep>(&*step)) {
    return "notes: " + std::to_string(notes->before.to_ulong()) + " > " + std::to_string(notes->after.to_ulong());
  }
  const auto& field = std::get<FieldStep>(*step);
  return std::to_string(field.index) + ": " + field.before.toStdString() + " > " + field.after.toStdString();
}

TEST(EditHistory, CombinesTypingInOneFieldIntoOneStep) {
  EditHistory history;
  history.Add(FieldStep{1, Text("a"), Text("ab")});
  history.Add(FieldStep{1, Text("ab"), Text("abc")});
  history.Add(FieldStep{5, Text("C"), Text("D")});
  EXPECT_EQ(Line(history.Undo()), "5: C > D");
  EXPECT_EQ(Line(history.Undo()), "1: a > abc");
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, RemovesAStepThatReturnsToItsStart) {
  EditHistory history;
  history.Add(FieldStep{1, Text("a"), Text("ab")});
  history.Add(FieldStep{1, Text("ab"), Text("a")});
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, KeepsNotesThatTypingRevertedAsTheLatestStep) {
  EditHistory history;
  history.Add(FieldStep{1, Text(""), Text("x")});
  history.Add(NotesStep{Notes(5), Notes(7)});
  history.Add(FieldStep{1, Text("x"), Text("xy")});
  EXPECT_EQ(Line(history.Undo()), "notes: 5 > 7");
  EXPECT_EQ(Line(history.Undo()), "1:  > xy");
}

TEST(EditHistory, RedoesUntilTheNextChange) {
  EditHistory history;
  history.Add(FieldStep{1, Text("a"), Text("b")});
  history.Add(FieldStep{2, Text("c"), Text("d")});
  history.Undo();
  history.Undo();
  EXPECT_EQ(Line(history.Redo()), "1: a > b");
  history.Add(NotesStep{Notes(0), Notes(1)});
  EXPECT_EQ(Line(history.Redo()), "none");
  history.Clear();
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, RedoesNothingAfterTyping) {
  for (const int index : {1, 5}) {
    EditHistory history;
    history.Add(FieldStep{1, Text("a"), Text("b")});
    history.Add(FieldStep{2, Text("c"), Text("d")});
    history.Undo();
    history.Add(FieldStep{index, Text("b"), Text("bc")});
    EXPECT_EQ(Line(history.Redo()), "none") << index;
  }
}

}  // namespace
}  // namespace tonalith::editor
