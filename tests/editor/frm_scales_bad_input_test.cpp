// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What the database refuses or cannot give, and rows that break a rule already.

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTest>
#include <filesystem>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kYes = core::MsgBoxAnswer::kYes;

using BadInput = ScaleEditorTest;

TEST_F(BadInput, ATakenNameIsToldOnceAndNothingIsLost) {
  Open();
  Press(C().cmdModify);
  Retype(1, "natural minor");
  Type(2, " New words.");
  ClickNotes("B A#");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Told(), std::string(kKeep) + "There is a scale of this name already.\n");
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(Field(1), "natural minor");
  EXPECT_EQ(Field(4), "2212212");
  EXPECT_EQ(Notice(), "Not saved yet.");
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals FROM Scales WHERE ScaleID = 1"), "Major|2212221");
  Press(C().cmdModify);
  EXPECT_EQ(Told(), "") << "told once";
  Retype(1, "Mixolydian");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Mixolydian"), "Mixolydian|2212212|1|The bright one. New words.|C|0|1");
}

TEST_F(BadInput, AnEmptyNameIsRefusedOnAMoveAndTheRecordStays) {
  Open();
  Press(C().cmdModify);
  Retype(1, "");
  PressArrow("Next record");
  EXPECT_EQ(Told(), "The scale needs a name.\n");
  EXPECT_EQ(Field(0), "1");
  EXPECT_EQ(Field(1), "");
  Press(C().cmdModify);
  EXPECT_EQ(Told(), "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "The scale needs a name.\n") << "asked for again";
}

TEST_F(BadInput, AMissingTypeIsRefusedInWords) {
  Open();
  Press(C().cmdModify);
  Retype(3, "77");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "There is no scale type of this number.\n");
  EXPECT_EQ(Field(3), "77");
  Retype(3, "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "There is no scale type of this number.\n");
}

TEST_F(BadInput, ASortOrderInWordsIsRefusedInWords) {
  Open();
  Press(C().cmdModify);
  Retype(7, "first");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "The sort order number has to be a whole number.\n");
  EXPECT_EQ(Field(7), "first");
}

TEST_F(BadInput, APatternThatCannotBeBuiltOpensIsToldOnceAndCanBeRepaired) {
  Execute("UPDATE Scales SET ScaleIntervals = '2x1' WHERE ScaleID = 1");
  Open();
  EXPECT_EQ(Told(), "13 Type mismatch\n");
  EXPECT_EQ(SelectedNotes(), "");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T S"));
  Press(C().cmdModify);
  Type(2, " More.");
  ClickNotes("C E G");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Told(), kKeep);
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
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals, StartNote, Sort, ScaleDescription FROM Scales WHERE ScaleID = 1"),
            "-|-|-|-|The bright one. More.");
}

TEST_F(BadInput, TypingBackWhatStoodThereLeavesNothingPending) {
  Open();
  Press(C().cmdModify);
  Retype(7, "12");
  EXPECT_TRUE(C().datPrimaryRS->IsEditPending());
  Retype(7, "1");
  EXPECT_FALSE(C().datPrimaryRS->IsEditPending());
}

TEST_F(BadInput, ALockedDatabaseIsToldOnceAndKeepsTheEdit) {
  Open();
  Press(C().cmdModify);
  Retype(1, "Ionian");
  {
    SQLite::Database other(path_, SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    box_.AnswerNext(kOk);
    Press(C().cmdApply);
    EXPECT_EQ(Told(), std::string(kKeep) + "Could not use '" + path_ + "'; file already in use.\n");
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
  EXPECT_EQ(Told(), "");
  Type(1, "X");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "Cannot update. The database '" + path_ + "' or its folder is read-only.\n");
  EXPECT_EQ(Field(1), "MajorX");
}

TEST_F(BadInput, AMissingDatabaseIsToldOnceAndTheFormStaysUsable) {
  std::filesystem::remove(path_);
  Open();
  EXPECT_EQ(Told(), "Could not find file '" + path_ + "'.\n");
  ASSERT_FALSE(place_.isNull());
  Press(C().cmdModify);
  Press(C().cmdAdd);
  EXPECT_EQ(Told(), "Operation is not allowed when the object is closed.\n");
  EXPECT_TRUE(Form().close());
}

TEST_F(BadInput, ARecordThatIsGoneMeanwhileIsToldOnceAndItsTextsStay) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  Execute("DELETE FROM Scales WHERE ScaleID = 1");
  Press(C().cmdUpdate);
  EXPECT_EQ(Told(), "The record cannot be found any more. It may have been deleted since it was read.\n");
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

TEST_F(BadInput, CommandsInTheMiddleOfAQuestionAreLeftOut) {
  Open();
  Press(C().cmdModify);
  box_.Meanwhile([this] {
    Form().cmdApply_Click();
    Form().cmdAdd_Click();
    Form().cmdModify_Click();
    EXPECT_FALSE(Form().close());
  });
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Told(), kKeep);
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
}

TEST_F(BadInput, AFormThatGoesInTheMiddleOfAQuestionLeavesQuietly) {
  for (const bool isApply : {true, false}) {
    Open();
    Press(C().cmdModify);
    Type(1, "X");
    box_.Meanwhile([this] { delete place_.data(); });
    box_.AnswerNext(isApply ? kOk : kYes);
    if (isApply) {
      Form().cmdApply_Click();
    } else {
      Form().cmdDelete_Click();
    }
    EXPECT_TRUE(place_.isNull());
  }
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
}

}  // namespace
}  // namespace tonalith::editor
