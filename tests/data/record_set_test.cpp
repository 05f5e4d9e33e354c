// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/record_set.h"

#include <gtest/gtest.h>

#include <string>

#include "data/data_failure.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

constexpr const char* kNoRecordWords =
    "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record.";

TEST(RecordSet, StartsAtTheFirstRow) {
  const DatabaseFolder folder;
  RecordSet records;
  EXPECT_FALSE(records.IsOpen());
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_TRUE(records.IsOpen());
  EXPECT_EQ(Here(records), "Major");
  EXPECT_EQ(records.AbsolutePosition(), 1);
}

TEST(RecordSet, HasTheFieldsOfAScaleInTheirFixedOrder) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  std::string names;
  for (int i = 0; i < records.FieldCount(); ++i) names += records.FieldName(i) + "=" + FieldText(records, i) + " ";
  EXPECT_EQ(names,
            "ScaleID=1 ScaleName=Major ScaleTypeID=1 ScaleDescription=Bright. StartNote=C ScaleIntervals=2212221 "
            "Chord=0 Sort=1 ScaleTypeNo=10 ScaleTypeName=Common scales ");
}

TEST(RecordSet, ReadsTheStoredQueryByScaleId) {
  const DatabaseFolder folder(
      "INSERT INTO ScaleTypes VALUES (1, 1, 'A'), (2, 2, 'B');"
      "INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID) VALUES (30, 'Third', 1), (10, 'First', 2), (20, 'Second', "
      "1)");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(Lines(records, {"ScaleID", "ScaleName", "ScaleTypeName"}),
            "10 | First | B\n20 | Second | A\n30 | Third | A\n");
}

TEST(RecordSet, OmitsScalesWhoseTypeIsMissing) {
  const DatabaseFolder folder(std::string(kFourScales) +
                              "INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('Lost', 99)");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(records.RecordCount(), 4);
}

TEST(RecordSet, MovesForwardsAndBackwardsAcrossBothEnds) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  std::string walk;
  for (int i = 0; i < 4; ++i) {
    records.MoveNext();
    walk += Here(records) + " " + std::to_string(records.AbsolutePosition()) + "; ";
  }
  for (int i = 0; i < 5; ++i) {
    records.MovePrevious();
    walk += Here(records) + " " + std::to_string(records.AbsolutePosition()) + "; ";
  }
  records.MoveNext();
  EXPECT_EQ(
      walk + Here(records),
      "Minor 2; Major triad 3; Minor triad 4; (EOF) -3; Minor triad 4; Major triad 3; Minor 2; Major 1; (BOF) -2; "
      "Major");
}

TEST(RecordSet, RefusesToMoveBeyondItsEnds) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.MovePrevious();
  EXPECT_EQ(FailureOf([&] { records.MovePrevious(); }).Number(), 3021);
  records.MoveLast();
  records.MoveNext();
  const core::Failure failure = FailureOf([&] { records.MoveNext(); });
  EXPECT_EQ(failure.Number(), 3021);
  EXPECT_EQ(failure.Description(), kNoRecordWords);
  EXPECT_EQ(FailureOf([&] { (void)records.FieldValue(0); }).Number(), 3021);
  EXPECT_EQ(FailureOf([&] { (void)records.GetBookmark(); }).Number(), 3021);
}

TEST(RecordSet, IsAtBothEndsWithoutRows) {
  const DatabaseFolder folder("");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_TRUE(records.IsBof());
  EXPECT_TRUE(records.IsEof());
  EXPECT_EQ(records.RecordCount(), 0);
  EXPECT_EQ(records.AbsolutePosition(), -1);
  EXPECT_EQ(records.FieldCount(), 10);
  for (const auto move :
       {&RecordSet::MoveFirst, &RecordSet::MoveLast, &RecordSet::MoveNext, &RecordSet::MovePrevious}) {
    EXPECT_EQ(FailureOf([&] { (records.*move)(); }).Number(), 3021);
  }
}

TEST(RecordSet, FindsFieldsByNameInAnyCase) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  EXPECT_EQ(records.FieldValue("scaleName"), core::Value("Major"));
  EXPECT_EQ(records.FindField("SCALEINTERVALS"), 5);
  EXPECT_FALSE(records.FindField("Scale"));
  EXPECT_EQ(FailureOf([&] { (void)records.FieldValue("Scale"); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { (void)records.FieldValue(10); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { (void)records.FieldValue(-1); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { (void)records.FieldName(10); }).Number(), 3265);
}

TEST(RecordSet, NeedsAnOpenConnection) {
  RecordSet records;
  EXPECT_EQ(FailureOf([&] { records.Open("Scales", nullptr); }).Number(), 3709);
  EXPECT_EQ(FailureOf([&] { records.Open("Scales", std::make_shared<Connection>()); }).Number(), 3709);
}

TEST(RecordSet, RefusesEverythingWhileClosed) {
  RecordSet records;
  EXPECT_EQ(FailureOf([&] { records.MoveFirst(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { records.MoveLast(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { (void)records.IsEof(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { (void)records.FieldValue("x"); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { records.SetFieldValue("x", 1); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { records.Close(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { records.Requery(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { records.AddNew(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { (void)records.RecordCount(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { (void)records.Clone(); }).Number(), 3704);
}

TEST(RecordSet, IsClosedWithItsConnection) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet records;
  records.Open("ScalesQuery", connection);
  connection->Close();
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.MoveNext(); }).Number(), 3704);
  connection->Open();
  EXPECT_FALSE(records.IsOpen());
  records.Open("ScalesQuery", connection);
  EXPECT_EQ(Here(records), "Major");
}

TEST(RecordSet, HasNoFilterAfterItWasOpenedAgain) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.SetFilter("Chord=True");
  ASSERT_EQ(records.RecordCount(), 2);
  records.Close();
  records.Open("ScalesQuery", folder.Open());
  EXPECT_EQ(records.Filter(), "");
  EXPECT_EQ(records.RecordCount(), 4);
}

TEST(RecordSet, HasNoPendingEditAfterItWasOpenedAgain) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet records;
  records.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.SetFieldValue("ScaleName", "Lost");
  connection->Close();
  records.Open("ScalesQuery", folder.Open());
  EXPECT_FALSE(records.IsEditPending());
  EXPECT_EQ(Here(records), "Major");
}

TEST(RecordSet, KeepsItsConnectionAlive) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.MoveLast();
  EXPECT_EQ(Here(records), "Minor triad");
}

TEST(RecordSet, ReturnsToABookmarkAlsoAfterARequeryAndInAClone) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.MoveNext();
  const Bookmark minor = records.GetBookmark();
  records.Requery();
  EXPECT_EQ(Here(records), "Major");
  records.SetBookmark(minor);
  EXPECT_EQ(Here(records), "Minor");
  EXPECT_EQ(records.AbsolutePosition(), 2);
  const auto clone = records.Clone();
  EXPECT_EQ(Here(*clone), "Major");
  clone->SetBookmark(minor);
  EXPECT_EQ(Here(*clone), "Minor");
  clone->MoveLast();
  records.SetBookmark(clone->GetBookmark());
  EXPECT_EQ(Here(records), "Minor triad");
}

TEST(RecordSet, DoesNotMoveIfTheBookmarkedRowIsDeleted) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.MoveNext();
  const Bookmark minor = records.GetBookmark();
  records.MoveLast();
  RunRaw(folder.Path(), "DELETE FROM Scales WHERE ScaleName = 'Minor'");
  EXPECT_EQ(FailureOf([&] { records.SetBookmark(minor); }).Number(), failure_number::kInvalidBookmark);
  EXPECT_EQ(Here(records), "Minor triad");
  EXPECT_EQ(FailureOf([&] { records.SetBookmark({999}); }).Number(), failure_number::kInvalidBookmark);
  records.MovePrevious();
  EXPECT_EQ(Here(records), "Major triad");
}

TEST(RecordSet, ClonesWithoutTheFilterAndMovesIndependently) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.SetFilter("Chord=True");
  const auto clone = records.Clone();
  EXPECT_EQ(clone->RecordCount(), 4);
  EXPECT_EQ(clone->Filter(), "");
  clone->MoveLast();
  EXPECT_EQ(Here(records), "Major triad");
}

TEST(RecordSet, ReadsRowsOfOtherConnectionsAfterARequery) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  EXPECT_EQ(records.RecordCount(), 4);
  RunRaw(folder.Path(),
         "INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('New', 1); DELETE FROM Scales WHERE ScaleID = 1");
  records.Requery();
  EXPECT_EQ(Lines(records, {"ScaleName"}), "Minor\nMajor triad\nMinor triad\nNew\n");
  EXPECT_EQ(records.RecordCount(), 4);
}

TEST(RecordSet, ReadsChangesOfItsConnectionAtTheNextMove) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet first;
  first.Open("ScalesQuery", connection);
  RecordSet second;
  second.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  second.MoveNext();
  second.Delete();
  EXPECT_EQ(first.RecordCount(), 3);
  first.MoveNext();
  EXPECT_EQ(Here(first), "Major triad");
  EXPECT_EQ(first.AbsolutePosition(), 2);
}

TEST(RecordSet, OnlyMovesForwardWithAForwardOnlyCursor) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open(), CursorType::kForwardOnly, LockType::kReadOnly);
  EXPECT_EQ(Lines(records, {"ScaleName"}), "Major\nMinor\nMajor triad\nMinor triad\n");
  records.MoveFirst();
  EXPECT_EQ(records.RecordCount(), -1);
  EXPECT_EQ(FailureOf([&] { records.MovePrevious(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { records.MoveLast(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { (void)records.GetBookmark(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { (void)records.Clone(); }).Number(), 3251);
}

TEST(RecordSet, CannotBeOpenedTwice) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet records;
  records.Open("ScalesQuery", connection);
  EXPECT_EQ(FailureOf([&] { records.Open("Scales", connection); }).Number(), 3705);
  records.Close();
  EXPECT_FALSE(records.IsOpen());
  records.Open("Scales", connection);
  EXPECT_EQ(records.FieldCount(), 8);
}

TEST(RecordSet, MovesFromBofToTheFirstRowAfterABookmark) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  records.SetBookmark({1});
  records.MovePrevious();
  ASSERT_EQ(Here(records), "(BOF)");
  records.MoveFirst();
  EXPECT_EQ(Here(records), "Major");
}

// The rows are read in blocks; some of these libraries end where a block ends.
TEST(RecordSet, MovesFromEofToTheLastRowInALibraryOfAnySize) {
  for (const int count : {1, 31, 32, 33, 64, 96, 128, 224}) {
    const DatabaseFolder folder(ManyScales(count));
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery", folder.Open());
    while (!records.IsEof()) records.MoveNext();
    records.MoveLast();
    EXPECT_EQ(Here(records), "Scale " + std::to_string(count));
    while (!records.IsBof()) records.MovePrevious();
    records.MoveFirst();
    EXPECT_EQ(Here(records), "Scale 1");
  }
}

}  // namespace
}  // namespace tonalith::data
