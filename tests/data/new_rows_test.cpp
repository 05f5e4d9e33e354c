// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/new_rows.h"

#include <gtest/gtest.h>

#include <string>

#include "data/engine.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

class NewRowsTest : public testing::Test {
 protected:
  void Add(core::Value name, std::int64_t sort = 0) {
    core::Value* const row = rows_.NextRow();
    row[0] = std::move(name);
    row[1] = sort;
    rows_.Add();
  }
  [[nodiscard]] std::string Ask(const std::string& sql) const { return AskRaw(folder_.Path(), sql); }
  [[nodiscard]] std::string Count() const { return Ask("SELECT count(*) FROM Scales"); }

  DatabaseFolder folder_{""};
  Engine engine_{folder_.Path(), false};
  NewRows rows_{engine_, "Scales", {"ScaleName", "Sort"}, 0};
};

TEST_F(NewRowsTest, AreWrittenInTheirOrderForAnyNumber) {
  for (const int count : {1, 15, 16, 17, 100}) {
    RunRaw(folder_.Path(), "DELETE FROM Scales");
    std::string expected;
    for (int i = 0; i < count; ++i) {
      Add("Scale " + std::to_string(i), i);
      expected += (i > 0 ? "," : "") + std::to_string(i);
    }
    rows_.Write();
    EXPECT_EQ(Ask("SELECT group_concat(Sort) FROM (SELECT Sort FROM Scales ORDER BY ScaleID)"), expected);
  }
  EXPECT_EQ(Ask("SELECT ScaleName FROM Scales ORDER BY ScaleID DESC"), "Scale 99");
}

TEST_F(NewRowsTest, AreBufferedUntilTheyAreWritten) {
  Add("A");
  EXPECT_EQ(Count(), "0");
  EXPECT_TRUE(rows_.MayContain("A"));
  rows_.Write();
  EXPECT_EQ(Count(), "1");
  EXPECT_FALSE(rows_.MayContain("A"));
  rows_.Write();
  EXPECT_EQ(Count(), "1");
}

TEST_F(NewRowsTest, FindEveryBufferedKeyThatTheEngineWouldFind) {
  Add("Dorian");
  Add(std::int64_t{7});
  Add("\xC3\x84olian");
  Add(std::string("cut\0here", 8));
  for (const char* const key : {"Dorian", "DORIAN", "dorian", "7", "\xC3\x84OLIAN"}) {
    EXPECT_TRUE(rows_.MayContain(key)) << key;
  }
  EXPECT_TRUE(rows_.MayContain(std::int64_t{7}));
  EXPECT_TRUE(rows_.MayContain(std::string("CUT\0HERE", 8)));
  EXPECT_TRUE(rows_.MayContain(std::string("cut\0there", 9)));
  for (const char* const key : {"Doria", "Dorian ", "", "70"}) EXPECT_FALSE(rows_.MayContain(key)) << key;
}

TEST_F(NewRowsTest, AreWrittenAtOnceIfTheColumnMayConvertTheKey) {
  Add(0.1);
  EXPECT_EQ(Ask("SELECT ScaleName FROM Scales"), "0.1");
  Add(core::Value::Null());
  EXPECT_EQ(Count(), "2");
}

TEST_F(NewRowsTest, AreWrittenOneByOneWithoutAField) {
  NewRows empty(engine_, "Scales", {}, {});
  empty.Add();
  empty.Add();
  EXPECT_EQ(Count(), "2");
}

TEST_F(NewRowsTest, NameTheRowThatTheDatabaseRefuses) {
  for (const int count : {5, 16}) {
    RunRaw(folder_.Path(), "DELETE FROM Scales");
    NewRows rows(engine_, "Scales", {"ScaleID", "ScaleName"}, 0);
    engine_.Execute("BEGIN");
    const auto add = [&](std::int64_t row, std::int64_t key) {
      rows.NextRow()[0] = key;
      rows.NextRow()[1] = "Scale";
      rows.Add(row);
    };
    for (int row = 1; row < count; ++row) add(row, 100 + row);
    EXPECT_EQ(rows.RefusedRow(), std::nullopt);
    const core::Failure failure = FailureOf([&] {
      add(count, 103);
      rows.Write();
    });
    EXPECT_EQ(failure.Description(), "The record was not saved, because another record has the same key.");
    EXPECT_EQ(rows.RefusedRow(), count) << "the second row with that key";
    engine_.Execute("ROLLBACK");
    EXPECT_EQ(Count(), "0");
  }
}

TEST_F(NewRowsTest, AreDroppedUnlessWritten) {
  {
    NewRows dropped(engine_, "Scales", {"ScaleName"}, 0);
    *dropped.NextRow() = "A";
    dropped.Add();
  }
  EXPECT_EQ(Count(), "0");
}

}  // namespace
}  // namespace tonalith::data
