// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A record set over 100,000 scales: its queries must not depend on their number.

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdint>
#include <string>

#include "data/engine.h"
#include "data/row_source.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

constexpr int kMany = 100000;

class ManyScalesTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { folder = new DatabaseFolder(ManyScales(kMany)); }
  static void TearDownTestSuite() {
    delete folder;
    folder = nullptr;
  }
  static DatabaseFolder* folder;
};
DatabaseFolder* ManyScalesTest::folder = nullptr;

// The query plan of the statement that reads a block of rows of `source`.
std::string PlanOf(const std::string& path, const std::string& source, bool isUpwards) {
  Engine engine(path, true);
  const auto selection = MakeSelection(engine, source);
  if (!selection->walk) return "not walked by key";
  const std::string sql = isUpwards ? UpwardsStatement(*selection, "") : DownwardsStatement(*selection, "");
  SQLite::Database database(path, SQLite::OPEN_READONLY);
  SQLite::Statement plan(database, "EXPLAIN QUERY PLAN " + sql);
  std::string text;
  while (plan.executeStep()) text += plan.getColumn(3).getString() + "\n";
  return text;
}

TEST_F(ManyScalesTest, AreReadByTheirKeyWithoutSorting) {
  const std::string source(kAllScalesStatement);
  EXPECT_EQ(
      PlanOf(folder->Path(), source, true),
      "SEARCH Scales USING INTEGER PRIMARY KEY (rowid>?)\nSEARCH ScaleTypes USING INTEGER PRIMARY KEY (rowid=?)\n");
  EXPECT_EQ(
      PlanOf(folder->Path(), source, false),
      "SEARCH Scales USING INTEGER PRIMARY KEY (rowid<?)\nSEARCH ScaleTypes USING INTEGER PRIMARY KEY (rowid=?)\n");
}

TEST_F(ManyScalesTest, AreFoundByNumberThroughTheirKey) {
  EXPECT_EQ(
      PlanOf(folder->Path(), ScaleByIdStatement(7), true),
      "SEARCH Scales USING INTEGER PRIMARY KEY (rowid=?)\nSEARCH ScaleTypes USING INTEGER PRIMARY KEY (rowid=?)\n");
}

TEST_F(ManyScalesTest, AreFoundByNameThroughTheIndex) {
  EXPECT_EQ(PlanOf(folder->Path(), ScaleByNameStatement("Scale 7"), true),
            "SEARCH Scales USING INDEX ScalesByName (ScaleName=? AND rowid>?)\n");
}

template <class Step>
std::uint64_t StatementsOf(Step step) {
  const std::uint64_t before = Connection::StatementsIssued();
  step();
  return Connection::StatementsIssued() - before;
}

TEST_F(ManyScalesTest, NeedOneQueryToOpenAndAtMostOneToMove) {
  const auto connection = folder->Open();
  RecordSet records;
  EXPECT_EQ(StatementsOf([&] { records.Open("SELECT * FROM ScalesQuery", connection); }), 1U);
  EXPECT_EQ(StatementsOf([&] { records.MoveNext(); }), 0U);
  EXPECT_EQ(StatementsOf([&] { records.MoveLast(); }), 1U);
  EXPECT_EQ(Here(records), "Scale 100000");
  EXPECT_EQ(StatementsOf([&] { records.MovePrevious(); }), 0U);
  EXPECT_EQ(StatementsOf([&] { records.SetBookmark({50000}); }), 1U);
  EXPECT_EQ(Here(records), "Scale 50000");
  EXPECT_EQ(StatementsOf([&] { records.MovePrevious(); }), 1U);
  EXPECT_EQ(StatementsOf([&] { records.MoveFirst(); }), 1U);
}

TEST_F(ManyScalesTest, AreCountedOnceOnRequest) {
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder->Open());
  EXPECT_EQ(StatementsOf([&] { EXPECT_EQ(records.RecordCount(), kMany); }), 1U);
  EXPECT_EQ(StatementsOf([&] { EXPECT_EQ(records.RecordCount(), kMany); }), 0U);
  records.SetBookmark({70000});
  EXPECT_EQ(StatementsOf([&] { EXPECT_EQ(records.AbsolutePosition(), 70000); }), 1U);
  EXPECT_EQ(StatementsOf([&] {
              records.MoveNext();
              EXPECT_EQ(records.AbsolutePosition(), 70001);
            }),
            0U);
  records.MoveLast();
  EXPECT_EQ(StatementsOf([&] { EXPECT_EQ(records.AbsolutePosition(), kMany); }), 0U);
}

TEST_F(ManyScalesTest, AreReadWithFewQueries) {
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder->Open());
  std::int64_t sum = 0;
  const std::uint64_t statements = StatementsOf([&] {
    for (; !records.IsEof(); records.MoveNext()) sum += records.FieldValue(0).AsInt();
  });
  EXPECT_EQ(sum, std::int64_t{kMany} * (kMany + 1) / 2);
  EXPECT_LT(statements, 1000U);
  std::int64_t backwards = 0;
  for (records.MoveLast(); !records.IsBof(); records.MovePrevious()) backwards += records.FieldValue(0).AsInt();
  EXPECT_EQ(backwards, sum);
}

TEST_F(ManyScalesTest, AreReadByOneFieldWithEvenFewerQueries) {
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder->Open());
  const auto names = records.Clone({"ScaleName"});
  int rows = 0;
  const std::uint64_t statements = StatementsOf([&] {
    for (; !names->IsEof(); names->MoveNext()) ++rows;
  });
  EXPECT_EQ(rows, kMany);
  EXPECT_LT(statements, 100U);
}

TEST_F(ManyScalesTest, UseLessThanTwentyFourBytesOfMemoryPerRow) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer's allocator does not report what is held";
#endif
  const auto connection = folder->Open();
  const std::size_t before = ::mallinfo2().uordblks;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", connection);
  for (; !records.IsEof(); records.MoveNext()) {
  }
  EXPECT_EQ(records.RecordCount(), kMany);
  records.MoveLast();
  EXPECT_LT(::mallinfo2().uordblks - before, std::size_t{24} * kMany);
}

}  // namespace
}  // namespace tonalith::data
