// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Undo and redo with the standard keys.

#include <QTest>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

class Undo : public ScaleEditorTest {
 protected:
  void Key(QWidget* where, Qt::Key key) {
    where->setFocus();
    QTest::keyClick(where, key, Qt::ControlModifier);
  }
  QWidget* Box(int index) { return C().txtFields.at(static_cast<std::size_t>(index)).box; }
};

TEST_F(Undo, UndoesAndRedoesTypingInItsBox) {
  Open();
  Press(C().cmdModify);
  for (const int index : {1, 2}) {
    const std::string before = Field(index);
    Type(index, "X");
    Key(Box(index), Qt::Key_Z);
    EXPECT_EQ(Field(index), before);
    EXPECT_FALSE(C().datPrimaryRS->IsEditPending()) << index;
    Key(Box(index), Qt::Key_Y);
    EXPECT_EQ(Field(index), before + "X");
    Key(Box(index), Qt::Key_Z);
  }
}

TEST_F(Undo, UndoesTheLastFieldFromAnywhereInTheForm) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  Replace(5, "D");
  Key(C().cmdApply, Qt::Key_Z);
  EXPECT_EQ(Field(5), "C");
  EXPECT_EQ(Field(1), "MajorX");
  Key(Box(7), Qt::Key_Z);
  EXPECT_EQ(Field(1), "Major") << "a box with nothing to undo leaves the key to the form";
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
  Key(C().cmdApply, Qt::Key_Y);
  Key(C().cmdApply, Qt::Key_Y);
  EXPECT_EQ(Field(1), "MajorX");
  EXPECT_EQ(Field(5), "D");
}

TEST_F(Undo, UndoesToggledNotes) {
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  Key(C().Note(0), Qt::Key_Z);
  EXPECT_EQ(SelectedNotes(), "C D E F G A");
  Key(C().Note(0), Qt::Key_Z);
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(Notice(), kEditHint);
  Key(C().Note(0), Qt::Key_Y);
  EXPECT_EQ(SelectedNotes(), "C D E F G A");
}

TEST_F(Undo, RestoresNotesThatTypingReverted) {
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  Type(1, "XY");
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  Key(C().Note(0), Qt::Key_Z);
  EXPECT_EQ(SelectedNotes(), "C D E F G A A#");
  EXPECT_EQ(Field(1), "MajorXY");
}

TEST_F(Undo, UndoesAChosenType) {
  Open();
  Press(C().cmdModify);
  Form().Combo1_Click(1);
  EXPECT_EQ(Field(3), "2");
  Key(C().Combo1, Qt::Key_Z);
  EXPECT_EQ(Field(3), "1");
  EXPECT_EQ(C().Combo1->currentText(), QStringLiteral("Scales"));
}

TEST_F(Undo, EndsWithTheRecord) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  PressArrow("Next record");
  Key(C().cmdApply, Qt::Key_Z);
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
}

TEST_F(Undo, DoesNothingWhileTheFormIsReadOnly) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Natural Minor");
  box_.AnswerNext(core::MsgBoxAnswer::kOk);
  Press(C().cmdApply);
  Key(C().cmdModify, Qt::Key_Z);
  EXPECT_EQ(Field(1), "Natural Minor");
}

TEST_F(Undo, ModifyShowsTheSavedNotesAgain) {
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  ASSERT_EQ(SelectedNotes(), "C D E F G A A#");
  Form().cmdModify_Click();
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212221"));
  EXPECT_TRUE(Form().IsInModifyMode());
}

TEST_F(Undo, OnlyABatchUpdateWritesAnEdit) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  C().datPrimaryRS->Recordset()->Update();
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
  C().datPrimaryRS->UpdateBatch();
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "MajorX");
}

}  // namespace
}  // namespace tonalith::editor
