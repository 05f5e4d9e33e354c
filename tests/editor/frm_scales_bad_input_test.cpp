// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Input that the database refuses, and rows that already break a rule.

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTest>
#include <filesystem>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kYes = core::MsgBoxAnswer::kYes;

using BadInput = ScaleEditorTest;

TEST_F(BadInput, ADuplicateNameIsReportedOnceAndNothingIsLost) {
  Open();
  Press(C().cmdModify);
  Replace(1, "natural minor");
  Type(2, " New words.");
  ClickNotes("B A#");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + "There is a scale of this name already.\n");
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(Field(1), "natural minor");
  EXPECT_EQ(Field(4), "2212212");
  EXPECT_EQ(Notice(), "Not saved yet.");
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals FROM Scales WHERE ScaleID = 1"), "Major|2212221");
  Press(C().cmdModify);
  EXPECT_EQ(Messages(), "") << "reported once";
  Replace(1, "Mixolydian");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Mixolydian"), "Mixolydian|2212212|1|The bright one. New words.|C|0|1");
}

TEST_F(BadInput, AnEmptyNameIsRefusedOnAMoveAndTheRecordStays) {
  Open();
  Press(C().cmdModify);
  Replace(1, "");
  PressArrow("Next record");
  EXPECT_EQ(Messages(), "The scale needs a name.\n");
  EXPECT_EQ(Field(0), "1");
  EXPECT_EQ(Field(1), "");
  Press(C().cmdModify);
  EXPECT_EQ(Messages(), "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "The scale needs a name.\n") << "a new attempt";
}

TEST_F(BadInput, AMissingTypeIsRefusedWithAMessage) {
  Open();
  Press(C().cmdModify);
  Replace(3, "77");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "There is no scale type of this number.\n");
  EXPECT_EQ(Field(3), "77");
  Replace(3, "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "There is no scale type of this number.\n");
}

TEST_F(BadInput, ASortOrderThatIsNoNumberIsRefusedWithAMessage) {
  Open();
  Press(C().cmdModify);
  Replace(7, "first");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "The sort order number has to be a whole number.\n");
  EXPECT_EQ(Field(7), "first");
}

TEST_F(BadInput, AnInvalidPatternIsReportedOnceAndCanBeCorrected) {
  Execute("UPDATE Scales SET ScaleIntervals = '2x1' WHERE ScaleID = 1");
  Open();
  EXPECT_EQ(Messages(), "13 Type mismatch\n");
  EXPECT_EQ(SelectedNotes(), "");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T S"));
  Press(C().cmdModify);
  Type(2, " More.");
  ClickNotes("C E G");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "435");
}

TEST_F(BadInput, NullFieldsOpenEmptyAndStayNull) {
  Execute("UPDATE Scales SET ScaleName = NULL, ScaleIntervals = NULL, StartNote = NULL, Sort = NULL WHERE ScaleID = 1");
  Open();
  EXPECT_EQ(Field(1), "");
  EXPECT_EQ(SelectedNotes(), "C");
  Press(C().cmdModify);
  Type(5, "D");
  QTest::keyClick(C().txtFields[5].box, Qt::Key_Backspace);
  Type(2, " More.");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals, StartNote, Sort, ScaleDescription FROM Scales WHERE ScaleID = 1"),
            "-|-|-|-|The bright one. More.");
}

TEST_F(BadInput, RestoringTheTextByTypingLeavesNothingPending) {
  Open();
  Press(C().cmdModify);
  Replace(7, "12");
  EXPECT_TRUE(C().datPrimaryRS->IsEditPending());
  Replace(7, "1");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
}

TEST_F(BadInput, ALockedDatabaseIsReportedOnceAndTheEditStays) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Ionian");
  {
    SQLite::Database other(path_, SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    box_.AnswerNext(kOk);
    Press(C().cmdApply);
    EXPECT_EQ(Messages(), std::string(kKeep) + "Could not use '" + path_ + "'; file already in use.\n");
    EXPECT_EQ(Field(1), "Ionian");
  }
  Press(C().cmdModify);
  Press(C().cmdUpdate);
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Ionian");
}

TEST_F(BadInput, ALockedDatabaseDeletesNothing) {
  Open();
  Press(C().cmdModify);
  SQLite::Database other(path_, SQLite::OPEN_READWRITE);
  other.exec("BEGIN EXCLUSIVE");
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(box_.Messages().size(), 2U);
  EXPECT_EQ(Field(1), "Major");
}

TEST_F(BadInput, AReadOnlyDatabaseShowsItsScalesAndRefusesChanges) {
  Open();
  C().datPrimaryRS->SetConnectionString(data::FullConnectionString(path_) + ";Mode=Read");
  Press(C().cmdModify);
  Press(C().cmdRefresh);
  EXPECT_EQ(Messages(), "");
  Type(1, "X");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "Cannot update. The database '" + path_ + "' or its folder is read-only.\n");
  EXPECT_EQ(Field(1), "MajorX");
}

TEST_F(BadInput, AMissingDatabaseIsReportedOnceAndTheFormStaysUsable) {
  std::filesystem::remove(path_);
  Open();
  EXPECT_EQ(Messages(), "Could not find file '" + path_ + "'.\n");
  ASSERT_FALSE(form_.isNull());
  Press(C().cmdModify);
  Press(C().cmdAdd);
  EXPECT_EQ(Messages(), "Operation is not allowed when the object is closed.\n");
  EXPECT_TRUE(Form().close());
}

TEST_F(BadInput, ADeletedRecordIsReportedOnceAndItsTextsStay) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  Execute("DELETE FROM Scales WHERE ScaleID = 1");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "The record cannot be found any more. It may have been deleted since it was read.\n");
  EXPECT_EQ(Field(1), "MajorX");
}

TEST_F(BadInput, DeletingTheOnlyRecordLeavesAnEmptyForm) {
  Execute("DELETE FROM Scales WHERE ScaleID > 1");
  Open();
  Press(C().cmdModify);
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(box_.Messages().size(), 1U) << "nothing went wrong";
  EXPECT_EQ(Field(1), "");
  EXPECT_EQ(SelectedNotes(), "");
  EXPECT_FALSE(C().cmdDelete->isEnabled());
  box_.AnswerNext(kYes);
  Form().cmdDelete_Click();
  EXPECT_EQ(box_.Messages().back().text,
            "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
            "record.");
}

TEST_F(BadInput, CommandsDuringAMessageBoxAreIgnored) {
  Open();
  Press(C().cmdModify);
  box_.WhileShown([this] {
    Form().cmdApply_Click();
    Form().cmdAdd_Click();
    Form().cmdModify_Click();
    EXPECT_FALSE(Form().close());
  });
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
}

TEST_F(BadInput, DestroyingTheFormDuringAMessageBoxIsSafe) {
  for (const bool isApply : {true, false}) {
    Open();
    Press(C().cmdModify);
    Type(1, "X");
    box_.WhileShown([this] { delete form_.data(); });
    box_.AnswerNext(isApply ? kOk : kYes);
    if (isApply) {
      Form().cmdApply_Click();
    } else {
      Form().cmdDelete_Click();
    }
    EXPECT_TRUE(form_.isNull());
  }
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
}

}  // namespace
}  // namespace tonalith::editor
