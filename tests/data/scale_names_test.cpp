// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/scale_names.h"

#include <gtest/gtest.h>

#include <string>

#include "data/engine.h"
#include "data/record_set.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

class ScaleNamesTest : public testing::Test {
 protected:
  void Rename(int number, const std::string& name) {
    RunRaw(folder_.Path(), "UPDATE Scales SET ScaleName = '" + name + "' WHERE ScaleID = " + std::to_string(number));
  }
  bool Has(const std::string& name, std::int64_t except = 0) {
    Engine engine(folder_.Path(), false);
    return ScaleNames(engine).Has(name, except);
  }

  DatabaseFolder folder_;
};

TEST_F(ScaleNamesTest, FindANonAsciiNameInAnyCase) {
  Rename(1, "\u00c9clair");
  EXPECT_TRUE(Has("\u00e9CLAIR"));
  EXPECT_TRUE(Has("\u00e9clair", 2));
  EXPECT_FALSE(Has("\u00e9clair", 1)) << "a scale may be its own namesake";
  EXPECT_FALSE(Has("eclair"));
}

TEST_F(ScaleNamesTest, FindAPairOfWhichOneNameIsAscii) {
  Rename(1, "\u212Ailo");
  EXPECT_TRUE(Has("kilo"));
  Rename(1, "Kilo");
  EXPECT_TRUE(Has("\u212ailo"));
  EXPECT_FALSE(Has("\u212ailo", 1));
}

TEST_F(ScaleNamesTest, FindANameThatIsNotWrittenYet) {
  Engine engine(folder_.Path(), false);
  ScaleNames names(engine);
  names.Add("S\u00e1mi");
  EXPECT_TRUE(names.Has("S\u00c1MI"));
  EXPECT_TRUE(names.Has("S\u00c1MI", 1));
}

TEST_F(ScaleNamesTest, AreCheckedWhenARecordIsChangedOrAdded) {
  Rename(1, "\u00c9clair");
  RecordSet scales;
  scales.Open("SELECT * FROM ScalesQuery", folder_.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
  scales.SetFieldValue("ScaleName", "\u00e9clair");
  scales.UpdateBatch();
  scales.MoveNext();
  scales.SetFieldValue("ScaleName", "\u00c9CLAIR");
  EXPECT_EQ(FailureOf([&] { scales.UpdateBatch(); }).Description(), "There is a scale of this name already.");
  scales.CancelUpdate();
  scales.AddNew();
  scales.SetFieldValue("ScaleName", "\u00c9Clair");
  scales.SetFieldValue("ScaleTypeID", 1);
  EXPECT_EQ(FailureOf([&] { scales.UpdateBatch(); }).Description(), "There is a scale of this name already.");
  scales.SetFieldValue("ScaleName", "eclair");
  scales.UpdateBatch();
  EXPECT_EQ(AskRaw(folder_.Path(), "SELECT count(*) FROM Scales WHERE ScaleName IN ('\u00e9clair', 'eclair')"), "2");
}

}  // namespace
}  // namespace tonalith::data
