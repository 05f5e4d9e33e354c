// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rejecting and restoring edits: with Cancel, with Refresh, and after another program has changed the record.

#include <QTest>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kCancel = core::MsgBoxAnswer::kCancel;
constexpr auto kYes = core::MsgBoxAnswer::kYes;
constexpr auto kNo = core::MsgBoxAnswer::kNo;

constexpr const char* kBack = "Your changes are here again and not saved yet. Ctrl+Z takes them back.";
constexpr const char* kOverwrite =
    "This scale has been changed elsewhere since it was read here. Do you want to save your changes over it?\n\nNo "
    "shows "
    "the scale as it is now. Ctrl+Z then brings your changes back.\n";

class RejectedEditTest : public ScaleEditorTest {
 protected:
  void CancelApply() {
    box_.AnswerNext(kCancel);
    Press(C().cmdApply);
    Messages();
  }
  void Undo() {
    C().cmdClose->setFocus();
    QTest::keyClick(form_.data(), Qt::Key_Z, Qt::ControlModifier);
  }
  std::string AllRows() { return Rows("SELECT * FROM Scales"); }
};

TEST_F(RejectedEditTest, CancelWritesNothingAndModifyRestoresTextsAndNotes) {
  Open();
  const std::string before = AllRows();
  Press(C().cmdModify);
  Type(1, "X");
  ClickNotes("B A#");
  CancelApply();
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Field(1), "Major");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
  EXPECT_EQ(Notice(), "Not kept. Modify (F2) brings your changes back.");
  Press(C().cmdModify);
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Field(1), "MajorX");
  EXPECT_EQ(SelectedNotes(), "C D E F G A A#");
  EXPECT_EQ(Notice(), kBack);
  Undo();
  Undo();
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  Undo();
  EXPECT_EQ(Field(1), "Major");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
}

TEST_F(RejectedEditTest, CancelRejectsANewRecordToo) {
  Open(2);
  const std::string before = AllRows();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Mine");
  Form().Combo1_Click(1);
  ClickNotes("B A#");
  CancelApply();
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Field(1), "Natural Minor");
  Press(C().cmdModify);
  EXPECT_EQ(Field(0), "");
  EXPECT_EQ(Field(1), "Mine");
  EXPECT_EQ(Field(3), "2");
  EXPECT_EQ(Field(7), "8");
  EXPECT_EQ(AllRows(), before);
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Saved("Mine"), "Mine|2212212|2|-|C|0|8");
}

TEST_F(RejectedEditTest, UndoRestoresAnEditRejectedByCancel) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  CancelApply();
  Undo();
  EXPECT_TRUE(Form().IsInModifyMode());
  EXPECT_EQ(Field(1), "MajorX");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
}

TEST_F(RejectedEditTest, ModifyOnAnotherRecordRestoresNothing) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  CancelApply();
  PressArrow("Next record");
  Press(C().cmdModify);
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
  PressArrow("Previous record");
  EXPECT_EQ(Field(1), "Major");
  Press(C().cmdModify);
  EXPECT_EQ(Field(1), "MajorX");
}

TEST_F(RejectedEditTest, ClosingDoesNotAskAboutACancelledEdit) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  CancelApply();
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Messages(), "");
}

TEST_F(RejectedEditTest, ClosingAsksAboutARefusedEdit) {
  Execute("UPDATE Scales SET ScaleIntervals = '5' WHERE ScaleID = 1");
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + "A scale or chord requires more than one note.\n");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
  box_.AnswerNext(kOk);
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "MajorX");
}

TEST_F(RejectedEditTest, RefreshReadsAgainAndShowsTheFirstRecord) {
  Open(2);
  Press(C().cmdModify);
  Execute("UPDATE Scales SET ScaleName = 'Ionian' WHERE ScaleID = 1; INSERT INTO ScaleTypes VALUES (3, 3, 'Modes')");
  Press(C().cmdRefresh);
  EXPECT_EQ(Field(1), "Ionian");
  EXPECT_EQ(C().Combo1->findText(QStringLiteral("Modes")), 2);
  EXPECT_EQ(Notice(), kEditHint);
}

TEST_F(RejectedEditTest, RefreshWritesNothingAndUndoRestoresTheTexts) {
  Open(2);
  const std::string before = AllRows();
  Press(C().cmdModify);
  Type(1, "X");
  ClickNotes("G# A");
  Press(C().cmdRefresh);
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Field(1), "Major");
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212221"));
  EXPECT_EQ(Notice(), "The library was read again. Ctrl+Z brings your changes back.");
  Undo();
  EXPECT_EQ(Field(1), "Natural MinorX");
  EXPECT_EQ(SelectedNotes(), "C D D# F G A A#");
  EXPECT_EQ(AllRows(), before);
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals FROM Scales WHERE ScaleID = 2"), "Natural MinorX|2122212");
}

TEST_F(RejectedEditTest, RefreshWorksForADeletedRecordAndUndoMakesItNew) {
  Open(3);
  Press(C().cmdModify);
  Type(1, "X");
  Execute("DELETE FROM Scales WHERE ScaleID = 3");
  Press(C().cmdRefresh);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Field(1), "Major");
  Undo();
  EXPECT_EQ(Field(1), "Minor TriadX");
  EXPECT_EQ(Field(0), "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Saved("Minor TriadX"), "Minor TriadX|345|2|-|C|1|7");
}

TEST_F(RejectedEditTest, ClosingAsksAboutAnEditRejectedByRefresh) {
  Open(2);
  Press(C().cmdModify);
  Type(1, "X");
  Press(C().cmdRefresh);
  box_.AnswerNext(kOk);
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 2"), "Natural MinorX");
}

TEST_F(RejectedEditTest, TheIntervalBoxFollowsARecordWithTheSamePattern) {
  Execute("UPDATE Scales SET ScaleIntervals = '2212221' WHERE ScaleID = 2");
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  CancelApply();
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212212")) << "what was not kept";
  PressArrow("Next record");
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212221"));
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T T S T T T S"));
}

TEST_F(RejectedEditTest, SetAllControlsRetriesARefusedWriteAndReportsItOnce) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Natural Minor");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + "There is a scale of this name already.\n");
  Execute("UPDATE Scales SET ScaleName = 'Aeolian' WHERE ScaleID = 2");
  Press(C().cmdModify);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Natural Minor");
}

class Conflict : public RejectedEditTest {
 protected:
  void TypeWhileSomebodyElseSaves() {
    Open();
    Press(C().cmdModify);
    Replace(1, "Mine");
    Execute("UPDATE Scales SET ScaleName = 'Theirs', ScaleDescription = 'Theirs too.' WHERE ScaleID = 1");
  }
  std::string Row() { return Rows("SELECT ScaleName, ScaleDescription FROM Scales WHERE ScaleID = 1"); }
};

TEST_F(Conflict, YesOverwritesTheOtherVersion) {
  TypeWhileSomebodyElseSaves();
  box_.AnswerNext(kYes);
  Press(C().cmdUpdate);
  ASSERT_EQ(box_.Messages().size(), 1U);
  EXPECT_EQ(box_.Messages()[0].text + "\n", kOverwrite);
  EXPECT_EQ(box_.Messages()[0].title, "Changed Elsewhere");
  EXPECT_EQ(static_cast<int>(box_.Messages()[0].style), 4 + 32 + 256);
  EXPECT_EQ(Row(), "Mine|Theirs too.");
  EXPECT_EQ(Field(2), "Theirs too.");
}

TEST_F(Conflict, NoShowsTheOtherVersionAndUndoRestoresTheTexts) {
  TypeWhileSomebodyElseSaves();
  box_.AnswerNext(kNo);
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), kOverwrite);
  EXPECT_EQ(Row(), "Theirs|Theirs too.");
  EXPECT_EQ(Field(1), "Theirs");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
  EXPECT_EQ(Notice(), "This is the scale as it is now. Ctrl+Z brings your changes back.");
  Undo();
  EXPECT_EQ(Field(1), "Mine");
  EXPECT_EQ(Field(2), "Theirs too.");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "") << "saved over what was seen";
  EXPECT_EQ(Row(), "Mine|Theirs too.");
}

TEST_F(Conflict, IsReportedOnAMoveAndNoStaysOnTheRecord) {
  TypeWhileSomebodyElseSaves();
  PressArrow("Next record");
  EXPECT_EQ(Messages(), kOverwrite) << "No is the default";
  EXPECT_EQ(Field(1), "Theirs");
  Undo();
  box_.AnswerNext(kYes);
  PressArrow("Next record");
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(Row(), "Mine|Theirs too.");
}

TEST_F(Conflict, InApplyLeavesTheModeAndSavesNothingWithNo) {
  TypeWhileSomebodyElseSaves();
  ClickNotes("B A#");
  box_.AnswerNext(kOk);
  box_.AnswerNext(kNo);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + kOverwrite);
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(Field(1), "Theirs");
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "2212221");
  Press(C().cmdModify);
  EXPECT_EQ(Field(1), "Mine");
  EXPECT_EQ(SelectedNotes(), "C D E F G A A#");
}

TEST_F(Conflict, DestroyingTheFormDuringTheMessageBoxIsSafe) {
  for (const bool isMove : {false, true}) {
    TypeWhileSomebodyElseSaves();
    box_.WhileShown([this] { delete form_.data(); });
    box_.AnswerNext(kYes);
    if (isMove) {
      PressArrow("Next record");
    } else {
      Form().cmdUpdate_Click();
    }
    EXPECT_TRUE(form_.isNull());
    EXPECT_EQ(Row(), "Theirs|Theirs too.");
    EXPECT_EQ(Messages(), kOverwrite);
    Execute("UPDATE Scales SET ScaleName = 'Major' WHERE ScaleID = 1");
  }
}

}  // namespace
}  // namespace tonalith::editor
