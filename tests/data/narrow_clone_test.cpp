// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Clones with only some of the fields: the same rows with the same bookmarks.

#include <gtest/gtest.h>

#include <string>

#include "data_fixture.h"

namespace tonalith::data {
namespace {

class NarrowCloneTest : public testing::Test {
 protected:
  std::unique_ptr<RecordSet> CloneOf(const std::string& source, const std::vector<std::string>& fields) {
    records_.Open(source, connection_, CursorType::kKeyset, LockType::kOptimistic);
    return records_.Clone(fields);
  }
  std::unique_ptr<RecordSet> Names() { return CloneOf("SELECT * FROM ScalesQuery", {"ScaleName"}); }

  DatabaseFolder folder_;
  std::shared_ptr<Connection> connection_ = folder_.Open();
  RecordSet records_;
};

TEST_F(NarrowCloneTest, HasTheRequestedFieldsInTheirOrder) {
  const auto clone = CloneOf("SELECT * FROM ScalesQuery", {"scaletypename", "ScaleName"});
  ASSERT_EQ(clone->FieldCount(), 2);
  EXPECT_EQ(clone->FieldName(0), "ScaleTypeName");
  EXPECT_EQ(clone->FieldName(1), "ScaleName");
  EXPECT_EQ(Lines(*clone, {"ScaleName", "ScaleTypeName"}),
            "Major | Common scales\nMinor | Common scales\nMajor triad | Triads\nMinor triad | Triads\n");
}

TEST_F(NarrowCloneTest, StartsAtTheFirstRowAndMovesIndependently) {
  records_.Open("SELECT * FROM ScalesQuery", connection_);
  records_.MoveLast();
  const auto clone = records_.Clone({"ScaleName"});
  EXPECT_EQ(Here(*clone), "Major");
  clone->MoveNext();
  EXPECT_EQ(Here(records_), "Minor triad");
}

TEST_F(NarrowCloneTest, SharesBookmarksBothWays) {
  const auto clone = Names();
  records_.SetBookmark({4});
  clone->SetBookmark(records_.GetBookmark());
  EXPECT_EQ(Here(*clone), "Major triad");
  EXPECT_EQ(clone->AbsolutePosition(), 3);
  EXPECT_EQ(clone->RecordCount(), 4);
  clone->MoveNext();
  records_.SetBookmark(clone->GetBookmark());
  EXPECT_EQ(Here(records_), "Minor triad");
}

TEST_F(NarrowCloneTest, FailsForAFieldThatItDoesNotHave) {
  const auto clone = Names();
  EXPECT_FALSE(clone->FindField("ScaleDescription").has_value());
  const core::Failure byName = FailureOf([&] { (void)clone->FieldValue("ScaleDescription"); });
  EXPECT_EQ(byName.Number(), 3265);
  EXPECT_EQ(byName.Description(),
            "Item cannot be found in the collection corresponding to the requested name or ordinal.");
  EXPECT_EQ(FailureOf([&] { (void)clone->FieldValue(1); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { clone->SetFieldValue("ScaleDescription", "x"); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { (void)clone->Clone({"ScaleDescription"}); }).Number(), 3265);
  EXPECT_EQ(FailureOf([&] { (void)records_.Clone({"ScaleName", "Nothing"}); }).Number(), 3265);
}

TEST_F(NarrowCloneTest, HasNoFilterAtFirstAndTakesOneThatNamesOtherFields) {
  records_.Open("SELECT * FROM ScalesQuery", connection_);
  records_.SetFilter("ScaleTypeID=1");
  const auto clone = records_.Clone({"ScaleName"});
  EXPECT_EQ(clone->RecordCount(), 4);
  clone->SetFilter("Chord=1 AND Sort=2");
  EXPECT_EQ(clone->GetBookmark(), (Bookmark{7}));
  EXPECT_EQ(Lines(*clone, {"ScaleName"}), "Minor triad\n");
  EXPECT_EQ(FailureOf([&] { clone->SetBookmark({1}); }).Number(), -2147217906);
}

TEST_F(NarrowCloneTest, ReadsTheChangesAndDeletionsOfTheMainSet) {
  const auto clone = Names();
  records_.SetBookmark({2});
  records_.SetFieldValue("ScaleName", "Natural minor");
  records_.Update();
  clone->MoveNext();
  EXPECT_EQ(Here(*clone), "Natural minor");
  records_.SetBookmark({4});
  records_.Delete();
  EXPECT_EQ(FailureOf([&] { clone->SetBookmark({4}); }).Number(), -2147217906);
  EXPECT_EQ(Here(*clone), "Natural minor");
  clone->MoveNext();
  EXPECT_EQ(Here(*clone), "Minor triad");
}

TEST_F(NarrowCloneTest, KeepsItsRowIfABookmarkIsNotFound) {
  const auto clone = Names();
  for (RecordSet* const set : {clone.get(), &records_}) {
    set->MoveLast();
    EXPECT_EQ(FailureOf([&] { set->SetBookmark({3}); }).Number(), -2147217906);
    EXPECT_EQ(Here(*set), "Minor triad");
    EXPECT_EQ(set->GetBookmark(), (Bookmark{7}));
  }
}

TEST_F(NarrowCloneTest, ChangesAddsAndDeletesThroughItsFields) {
  const auto clone = CloneOf("SELECT * FROM ScalesQuery", {"ScaleName", "ScaleTypeID"});
  clone->SetFieldValue("ScaleName", "Ionian");
  clone->Update();
  clone->AddNew();
  clone->SetFieldValue("ScaleName", "Aeolian");
  clone->SetFieldValue("ScaleTypeID", 2);
  clone->Update();
  EXPECT_EQ(clone->GetBookmark(), (Bookmark{8}));
  clone->SetBookmark({4});
  clone->Delete();
  EXPECT_EQ(Lines(records_, {"ScaleName", "ScaleDescription", "ScaleTypeName"}),
            "Ionian | Bright. | Common scales\nMinor | Dark. | Common scales\nMinor triad | Sad. | Triads\n"
            "Aeolian | (null) | Triads\n");
}

TEST_F(NarrowCloneTest, NarrowsAConditionAndColumnsUnderOtherNames) {
  const auto clone =
      CloneOf("SELECT ScaleID, ScaleName AS Called, ScaleDescription FROM Scales WHERE Chord = 1", {"Called"});
  EXPECT_EQ(Lines(*clone, {"Called"}), "Major triad\nMinor triad\n");
}

TEST_F(NarrowCloneTest, NarrowsASelectThatIsReadCompletely) {
  const auto clone = CloneOf(
      "SELECT ScaleTypeID, count(*) AS Scales, max(ScaleName) AS Latest FROM Scales "
      "GROUP BY ScaleTypeID",
      {"Latest"});
  ASSERT_EQ(clone->FieldCount(), 1);
  records_.MoveLast();
  clone->SetBookmark(records_.GetBookmark());
  EXPECT_EQ(clone->FieldValue(0).AsText(), "Minor triad");
  clone->SetFilter("ScaleTypeID=1");
  EXPECT_EQ(Lines(*clone, {"Latest"}), "Minor\n");
  EXPECT_EQ(clone->FieldCount(), 1);
}

TEST_F(NarrowCloneTest, ClonesAgainIntoAsNarrowOrNarrower) {
  const auto clone = CloneOf("SELECT * FROM ScalesQuery", {"ScaleID", "ScaleName"});
  EXPECT_EQ(clone->Clone()->FieldCount(), 2);
  const auto narrower = clone->Clone({"ScaleName"});
  EXPECT_EQ(narrower->FieldCount(), 1);
  EXPECT_EQ(Lines(*narrower, {"ScaleName"}), "Major\nMinor\nMajor triad\nMinor triad\n");
}

TEST_F(NarrowCloneTest, FailsForAClosedOrForwardOnlySet) {
  EXPECT_EQ(FailureOf([&] { (void)records_.Clone({"ScaleName"}); }).Number(), 3704);
  records_.Open("SELECT * FROM ScalesQuery", connection_, CursorType::kForwardOnly);
  EXPECT_EQ(FailureOf([&] { (void)records_.Clone({"ScaleName"}); }).Number(), 3251);
}

TEST(NarrowClone, ReadsManyRowsAsTheMainSetDoesInBothDirections) {
  constexpr int kMany = 5000;
  const DatabaseFolder folder(ManyScales(kMany) + "DELETE FROM Scales WHERE ScaleID % 7 = 3");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  const auto clone = records.Clone({"ScaleName"});
  int rows = 0;
  for (; !records.IsEof(); records.MoveNext(), clone->MoveNext(), ++rows) {
    ASSERT_EQ(Here(*clone), Here(records));
    ASSERT_EQ(clone->GetBookmark(), records.GetBookmark());
  }
  EXPECT_TRUE(clone->IsEof());
  EXPECT_EQ(rows, records.RecordCount());
  for (records.MoveLast(), clone->MoveLast(); !records.IsBof(); records.MovePrevious(), clone->MovePrevious(), --rows) {
    ASSERT_EQ(Here(*clone), Here(records));
  }
  EXPECT_TRUE(clone->IsBof());
  EXPECT_EQ(rows, 0);
}

// Rows reuse the memory of earlier rows: old content must not remain, and a row with another owner must not change.
TEST(NarrowClone, ReusedRowsHaveNoContentOfEarlierRows) {
  const DatabaseFolder folder("");
  SQLite::Database(folder.Path(), SQLite::OPEN_READWRITE)
      .exec(
          "CREATE TABLE Mixed (content);"
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) INSERT INTO Mixed "
          "SELECT CASE i % 5 WHEN 0 THEN NULL WHEN 1 THEN i WHEN 2 THEN i + 0.5 WHEN 3 THEN 'text ' || i "
          "ELSE x'0102' END FROM n");
  RecordSet records;
  records.Open("SELECT * FROM Mixed", folder.Open());
  const auto behind = records.Clone({"content"});
  for (int i = 1; !records.IsEof(); records.MoveNext(), ++i) {
    const core::Value expected[] = {core::Value::Null(), std::int64_t{i}, i + 0.5, "text " + std::to_string(i),
                                    core::Bytes{1, 2}};
    ASSERT_EQ(records.FieldValue(0), expected[i % 5]) << i;
    if (i % 97 == 0) behind->MoveNext();
  }
  EXPECT_EQ(behind->FieldValue(0), core::Value(std::int64_t{21}));
}

}  // namespace
}  // namespace tonalith::data
