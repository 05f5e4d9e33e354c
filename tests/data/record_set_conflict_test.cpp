// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Two record sets that edit one row through separate connections, and a table without unused row numbers.

#include <gtest/gtest.h>

#include <string>

#include "data/data_failure.h"
#include "data/record_set.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

class RecordSetConflict : public testing::Test {
 protected:
  RecordSetConflict() {
    for (RecordSet* const records : {&mine_, &theirs_}) {
      records->Open("SELECT * FROM ScalesQuery", folder_.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
    }
  }
  std::string Row() {
    return AskRaw(folder_.Path(), "SELECT ScaleName || ', ' || ScaleDescription FROM Scales WHERE ScaleID = 1");
  }

  DatabaseFolder folder_;
  RecordSet mine_;
  RecordSet theirs_;
};

TEST_F(RecordSetConflict, TheSecondSaveIsRefusedAndKeepsItsEdit) {
  mine_.SetFieldValue("ScaleName", "Mine");
  theirs_.SetFieldValue("ScaleName", "Theirs");
  theirs_.UpdateBatch();
  const core::Failure failure = FailureOf([&] { mine_.UpdateBatch(); });
  EXPECT_EQ(failure.Number(), failure_number::kRowChanged);
  EXPECT_EQ(failure.Description(),
            "The record was not saved, because it has been changed elsewhere since it was read.");
  EXPECT_EQ(Row(), "Theirs, Bright.");
  EXPECT_EQ(mine_.FieldValue("ScaleName"), core::Value("Mine"));
  EXPECT_EQ(FailureOf([&] { mine_.MoveNext(); }).Number(), failure_number::kRowChanged);
}

TEST_F(RecordSetConflict, AChangeOfAnotherFieldIsAConflictToo) {
  mine_.SetFieldValue("ScaleName", "Mine");
  theirs_.SetFieldValue("ScaleDescription", "Theirs.");
  theirs_.UpdateBatch();
  EXPECT_EQ(FailureOf([&] { mine_.UpdateBatch(); }).Number(), failure_number::kRowChanged);
}

TEST_F(RecordSetConflict, AfterResyncTheEditIsSavedOverTheOtherOne) {
  mine_.SetFieldValue("ScaleName", "Mine");
  theirs_.SetFieldValue("ScaleName", "Theirs");
  theirs_.SetFieldValue("ScaleDescription", "Theirs.");
  theirs_.UpdateBatch();
  mine_.Resync();
  EXPECT_EQ(mine_.FieldValue("ScaleName"), core::Value("Mine"));
  EXPECT_EQ(mine_.FieldValue("ScaleDescription"), core::Value("Theirs."));
  mine_.UpdateBatch();
  EXPECT_EQ(Row(), "Mine, Theirs.");
}

TEST_F(RecordSetConflict, ResyncWithoutTheEditShowsTheOtherOne) {
  mine_.SetFieldValue("ScaleName", "Mine");
  theirs_.SetFieldValue("ScaleName", "Theirs");
  theirs_.UpdateBatch();
  mine_.CancelUpdate();
  mine_.Resync();
  EXPECT_EQ(mine_.FieldValue("ScaleName"), core::Value("Theirs"));
}

TEST_F(RecordSetConflict, AChangeOfAnotherRowIsNoConflict) {
  mine_.SetFieldValue("ScaleName", "Mine");
  theirs_.MoveNext();
  theirs_.SetFieldValue("ScaleName", "Theirs");
  theirs_.UpdateBatch();
  mine_.UpdateBatch();
  mine_.SetFieldValue("ScaleName", "Mine again");
  mine_.UpdateBatch();
  EXPECT_EQ(Row(), "Mine again, Bright.");
}

TEST_F(RecordSetConflict, ResyncNeedsARowInTheDatabase) {
  RunRaw(folder_.Path(), "DELETE FROM Scales WHERE ScaleID = 1");
  EXPECT_EQ(FailureOf([&] { mine_.Resync(); }).Number(), failure_number::kRowVanished);
  mine_.AddNew();
  EXPECT_EQ(FailureOf([&] { mine_.Resync(); }).Number(), failure_number::kNoCurrentRecord);
}

TEST_F(RecordSetConflict, UsedUpRowNumbersAreNotReportedAsAFullDisk) {
  RunRaw(folder_.Path(),
         "INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID) VALUES (9223372036854775807, 'Last', 1)");
  mine_.AddNew();
  mine_.SetFieldValue("ScaleName", "One more");
  mine_.SetFieldValue("ScaleTypeID", 1);
  EXPECT_EQ(
      FailureOf([&] { mine_.UpdateBatch(); }).Description(),
      "No new record can be saved in '" + folder_.Path() + "', because the highest possible record number is in use.");
}

}  // namespace
}  // namespace tonalith::data
