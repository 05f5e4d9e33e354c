// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_history.h"

#include <gtest/gtest.h>

namespace tonalith::editor {
namespace {

QString Text(const char* text) { return QLatin1String(text); }

std::string Line(const std::optional<EditHistory::Step>& step) {
  if (!step) return "none";
  return std::to_string(step->subject) + ": " + step->before.toStdString() + " > " + step->after.toStdString();
}

TEST(EditHistory, TakesTheTypingInOneFieldAsOneStep) {
  EditHistory history;
  history.AddField(1, Text("a"), Text("ab"));
  history.AddField(1, Text("ab"), Text("abc"));
  history.AddField(5, Text("C"), Text("D"));
  EXPECT_EQ(Line(history.Undo()), "5: C > D");
  EXPECT_EQ(Line(history.Undo()), "1: a > abc");
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, ForgetsAStepThatComesBackToWhereItBegan) {
  EditHistory history;
  history.AddField(1, Text("a"), Text("ab"));
  history.AddField(1, Text("ab"), Text("a"));
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, KeepsTheNotesThatTypingTookBackAsTheLatestStep) {
  EditHistory history;
  history.AddField(1, Text(""), Text("x"));
  history.AddNotes(Text("101"), Text("111"));
  history.AddField(1, Text("x"), Text("xy"));
  EXPECT_EQ(Line(history.Undo()), "-1: 101 > 111");
  EXPECT_EQ(Line(history.Undo()), "1:  > xy");
}

TEST(EditHistory, MakesAgainWhatWasTakenBackUntilSomethingElseIsDone) {
  EditHistory history;
  history.AddField(1, Text("a"), Text("b"));
  history.AddField(2, Text("c"), Text("d"));
  history.Undo();
  history.Undo();
  EXPECT_EQ(Line(history.Redo()), "1: a > b");
  history.AddNotes(Text("0"), Text("1"));
  EXPECT_EQ(Line(history.Redo()), "none");
  history.Clear();
  EXPECT_EQ(Line(history.Undo()), "none");
}

TEST(EditHistory, MakesNothingAgainOnceSomethingElseIsTyped) {
  for (const int index : {1, 5}) {
    EditHistory history;
    history.AddField(1, Text("a"), Text("b"));
    history.AddField(2, Text("c"), Text("d"));
    history.Undo();
    history.AddField(index, Text("b"), Text("bc"));
    EXPECT_EQ(Line(history.Redo()), "none") << index;
  }
}

}  // namespace
}  // namespace tonalith::editor
