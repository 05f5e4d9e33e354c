// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A pack of 100,000 rows is imported completely, in order and only once.

#include <gtest/gtest.h>

#include "data/pack_disaster_fixture.h"

namespace tonalith::data {
namespace {

TEST_F(DataPackImportTest, ImportsAHundredThousandRowsUnchanged) {
  // Rows 1 to 4 of the pack have names of existing scales.
  const std::string pack = MakePack(
      "DataPack_A.mdb", ManyScales(100'000) +
                            "UPDATE Scales SET ScaleName = (SELECT 'Major' WHERE ScaleID = 1 UNION ALL "
                            "SELECT 'minor' WHERE ScaleID = 2 UNION ALL SELECT 'MAJOR TRIAD' WHERE ScaleID = 3 "
                            "UNION ALL SELECT 'Minor triad' WHERE ScaleID = 4) WHERE ScaleID <= 4;"
                            "UPDATE Scales SET Chord = ScaleID % 2, ScaleTypeID = ScaleID % 7;"
                            "INSERT INTO ScaleTypes SELECT 1000 + ScaleID, ScaleID, 'Type ' || ScaleID "
                            "FROM Scales WHERE ScaleID <= 500;");
  const std::string was = Ask("SELECT group_concat(ScaleID || ScaleName || ScaleIntervals) FROM Scales");
  Install(pack);
  ASSERT_EQ(Shown(), Imported(pack));
  const auto compare = [&] {
    SQLite::Database database(Main());
    database.exec("ATTACH '" + pack + "' AS pack");
    EXPECT_EQ(database.execAndGet("SELECT count(*) FROM Scales").getInt(), 100'000);
    EXPECT_EQ(database.execAndGet("SELECT count(*) FROM ScaleTypes").getInt(), 502);
    // Everything except the number, which continues after the highest one in the order of the pack.
    EXPECT_EQ(database
                  .execAndGet("SELECT count(*) FROM pack.Scales p JOIN main.Scales m ON m.ScaleID = p.ScaleID + 3 AND "
                              "m.ScaleName = p.ScaleName AND m.ScaleDescription = p.ScaleDescription AND m.StartNote = "
                              "p.StartNote AND m.ScaleIntervals = p.ScaleIntervals AND m.Chord = p.Chord AND m.Sort = "
                              "p.Sort AND m.ScaleTypeID = p.ScaleTypeID")
                  .getInt(),
              99'996);
  };
  compare();
  EXPECT_EQ(Ask("SELECT group_concat(ScaleID || ScaleName || ScaleIntervals) FROM Scales WHERE ScaleID <= 7"), was);
  EXPECT_EQ(observer_.latest, 100'352);
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  compare();
  ExpectAtRest(Main());
}

}  // namespace
}  // namespace tonalith::data
