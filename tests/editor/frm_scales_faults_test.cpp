// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The editor with a full disk and with an empty database.

#include <QTest>

#include "data/pack_disk.h"
#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kYes = core::MsgBoxAnswer::kYes;

class Faults : public ScaleEditorTest {
 protected:
  [[nodiscard]] std::string IsFull() const {
    return "The disk that holds '" + path_ + "' is full. Nothing was saved.\n";
  }
  std::string AllRows() { return Rows("SELECT * FROM Scales") + Rows("SELECT * FROM ScaleTypes"); }

  data::PackDisk disk_;
};

TEST_F(Faults, AFullDiskIsReportedOnceAndTheEditIsSavedLater) {
  const std::string before = AllRows();
  Open();
  Press(C().cmdModify);
  Replace(1, "Ionian");
  disk_.FillUpAfter(0);
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), IsFull());
  EXPECT_EQ(Notice(), "Not saved yet.");
  Press(C().cmdModify);
  EXPECT_EQ(Messages(), "") << "reported once";
  PressArrow("Next record");
  EXPECT_EQ(Messages(), IsFull()) << "a new attempt";
  EXPECT_EQ(Field(0), "1");
  EXPECT_EQ(Field(1), "Ionian");
  disk_.MakeRoom();
  EXPECT_EQ(AllRows(), before);
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Ionian");
}

TEST_F(Faults, ApplyOnAFullDiskIsReportedOnceAndKeepsTheEdit) {
  const std::string before = AllRows();
  Open();
  Press(C().cmdModify);
  Replace(1, "Major pentatonic");
  ClickNotes("F B");
  disk_.FillUpAfter(0);
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), kKeep + IsFull());
  disk_.MakeRoom();
  EXPECT_EQ(AllRows(), before);
  EXPECT_EQ(Field(1), "Major pentatonic");
  EXPECT_EQ(SelectedNotes(), "C D E G A");
  Press(C().cmdModify);
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Major pentatonic"), "Major pentatonic|22323|1|The bright one.|C|0|1");
}

TEST_F(Faults, ANewScaleOnAFullDiskStaysOnTheForm) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Hora");
  disk_.FillUpAfter(0);
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), IsFull());
  EXPECT_EQ(Field(1), "Hora");
  disk_.MakeRoom();
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Hora"), "Hora|2212221|1|-|C|0|3");
}

TEST_F(Faults, ADeletionOnAFullDiskIsReportedOnceAndTheRecordStays) {
  const std::string before = AllRows();
  Open();
  Press(C().cmdModify);
  disk_.FillUpAfter(0);
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  ASSERT_EQ(box_.Messages().size(), 2U);
  EXPECT_EQ(box_.Messages()[1].text + "\n", IsFull());
  EXPECT_EQ(Field(1), "Major");
  disk_.MakeRoom();
  EXPECT_EQ(AllRows(), before);
  PressArrow("Next record");
  PressArrow("Previous record");
  EXPECT_EQ(Field(1), "Major");
}

TEST_F(Faults, AFullDiskKeepsTheFormOpenWhenItIsClosedWithChanges) {
  Open();
  Press(C().cmdModify);
  Type(1, " scale");
  disk_.FillUpAfter(0);
  box_.AnswerNext(kOk);
  EXPECT_FALSE(Form().close());
  EXPECT_EQ(Messages(), kKeep + IsFull());
  EXPECT_EQ(Field(1), "Major scale");
  disk_.MakeRoom();
  box_.AnswerNext(kOk);
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major scale");
}

TEST_F(Faults, AnEmptyDatabaseOpensEmptyAndEveryCommandIsHarmless) {
  Execute("DELETE FROM Scales; DELETE FROM ScaleTypes");
  Open();
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Field(0), "");
  EXPECT_EQ(SelectedNotes(), "");
  for (const char* arrow : {"First record", "Previous record", "Next record", "Last record"}) PressArrow(arrow);
  Press(C().cmdModify);
  Press(C().cmdModify);
  Press(C().cmdUpdate);
  Press(C().cmdRefresh);
  EXPECT_EQ(Messages(), "");
  EXPECT_FALSE(C().cmdDelete->isEnabled());
  EXPECT_FALSE(C().txtFields[1].box->isEnabled()) << "there is nothing to type into";
  // Without a type no scale can be saved: the form reports this, and the new record can be dropped.
  Press(C().cmdAdd);
  Type(1, "First");
  Press(C().cmdUpdate);
  EXPECT_EQ(Messages(), "There is no scale type of this number.\n");
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(Field(1), "");
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "0");
  EXPECT_TRUE(Form().close());
}

TEST_F(Faults, ApplyOnAnEmptyDatabaseSavesNothingAndLeavesTheMode) {
  Execute("DELETE FROM Scales");
  Open();
  Press(C().cmdModify);
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + "A scale or chord requires more than one note.\n");
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "0");
}

TEST_F(Faults, AfterDeletingAllScalesANewOneCanBeAdded) {
  Open();
  Press(C().cmdModify);
  for (int left = 3; left > 0; --left) {
    box_.AnswerNext(kYes);
    Press(C().cmdDelete);
    EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), std::to_string(left - 1));
  }
  EXPECT_EQ(box_.Messages().size(), 3U) << "nothing but the questions";
  EXPECT_FALSE(C().cmdDelete->isEnabled());
  Press(C().cmdAdd);
  Type(1, "Phoenix");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Phoenix"), "Phoenix|2212221|1|-|C|0|1");
  EXPECT_EQ(Field(0), "4") << "no number is given twice";
}

}  // namespace
}  // namespace tonalith::editor
