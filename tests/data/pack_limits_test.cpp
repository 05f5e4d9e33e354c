// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Packs that exceed a limit: long patterns and texts, calculated columns, more rows than the file can contain. Each is
// refused with a message that names the table, the row and the column, and nothing of it is imported.

#include <gtest/gtest.h>

#include <chrono>

#include "core/field_limits.h"
#include "data/data_pack_fixture.h"

namespace tonalith::data {
namespace {

class PackLimitsTest : public DataPackImportTest {
 protected:
  /// A pack with a good scale and, as row 2, one whose field has this content, given as an expression.
  std::string PackWith(const std::string& column, const std::string& content) {
    return MakePack("DataPack_" + std::to_string(++packs_) + ".mdb",
                    std::string(kAddType) + kAddScale +
                        "INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('Long one', 300);"
                        "UPDATE Scales SET " +
                        column + " = " + content + " WHERE ScaleName = 'Long one'");
  }
  static std::string Letters(std::size_t count) { return "'" + std::string(count, 'x') + "'"; }

 private:
  int packs_ = 0;
};

TEST_F(PackLimitsTest, RefusesAPatternOfMoreThanThreeOctavesAndNamesTheScale) {
  for (const std::size_t digits : {37U, 109U, 10'000U, 1'000'000U}) {
    const auto start = std::chrono::steady_clock::now();
    ExpectRefused(PackWith("ScaleIntervals", "'" + std::string(digits, '1') + "'"),
                  "Table 'Scales', row 2, column 'ScaleIntervals': The pattern of 'Long one' has more than 36 digits.");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  }
}

TEST_F(PackLimitsTest, AcceptsAPatternOfThreeOctaves) {
  std::string spaced;
  for (int i = 0; i < 36; ++i) spaced += " 1 ";
  for (const std::string& pattern : {std::string(36, '1'), spaced}) {
    RunRaw(Main(), "DELETE FROM Scales WHERE ScaleName = 'Long one'");
    const std::string pack = PackWith("ScaleIntervals", "'" + pattern + "'");
    Install(pack);
    EXPECT_EQ(Shown(), Imported(pack));
    EXPECT_EQ(Ask("SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'Long one'"), pattern);
  }
  ExpectRefused(
      PackWith("ScaleIntervals", "'" + spaced + " '"),
      "Table 'Scales', row 2, column 'ScaleIntervals': The field of 'Long one' is longer than 108 characters.");
}

TEST_F(PackLimitsTest, LimitsTheLengthOfEveryFieldOfAScale) {
  const struct {
    const char* column;
    std::size_t most;
  } kFields[] = {{"ScaleDescription", core::kLongestDescription},
                 {"StartNote", core::kLongestStartNote},
                 {"Sort", 64},
                 {"Chord", 64},
                 {"ScaleTypeID", 64}};
  for (const auto& [column, most] : kFields) {
    ExpectRefused(PackWith(column, Letters(most + 1)), std::string("Table 'Scales', row 2, column '") + column +
                                                           "': The field of 'Long one' is longer than " +
                                                           std::to_string(most) + " characters.");
    RunRaw(Main(), "DELETE FROM Scales WHERE ScaleName = 'Long one'");
    const std::string pack = PackWith(column, Letters(most));
    Install(pack);
    EXPECT_EQ(Shown(), Imported(pack));
    RunRaw(Main(), "DELETE FROM Scales WHERE ScaleID > 7");
  }
}

TEST_F(PackLimitsTest, CountsCharactersAndNotBytes) {
  std::string clefs;
  for (int i = 0; i < 255; ++i) clefs += "\xF0\x9D\x84\x9E";
  const std::string pack = PackWith("ScaleName", "'" + clefs + "'");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
}

TEST_F(PackLimitsTest, LimitsNamesAndShortensThemInTheMessage) {
  const std::string shown = "'" + std::string(60, 'x') + "...'";
  ExpectRefused(PackWith("ScaleName", Letters(256)),
                "Table 'Scales', row 2, column 'ScaleName': The field of " + shown + " is longer than 255 characters.");
  ExpectRefused(PackWith("ScaleName", Letters(5'000'000)),
                "Table 'Scales', row 2, column 'ScaleName': The field of " + shown + " is longer than 255 characters.");
  ExpectRefused(
      MakePack("DataPack_A.mdb", "INSERT INTO ScaleTypes VALUES (300, 30, " + Letters(256) + ")"),
      "Table 'ScaleTypes', row 1, column 'ScaleTypeName': The field of " + shown + " is longer than 255 characters.");
}

TEST_F(PackLimitsTest, NamesAFieldThatIsTooLongToRead) {
  ExpectRefused(PackWith("ScaleDescription", "CAST(zeroblob(17000000) AS TEXT)"),
                "Table 'Scales', row 2, column 'ScaleDescription': The field is longer than 16777216 bytes.");
}

// An additional column may contain a picture, and columns that are not copied are not checked.
TEST_F(PackLimitsTest, AllowsLongContentInOtherColumns) {
  const std::string column = "ALTER TABLE Scales ADD COLUMN Picture BLOB;";
  const auto packWith = [&](const char* name, const char* bytes) {
    return MakePack(
        name, column + "INSERT INTO Scales (ScaleName, Picture) VALUES ('" + name + "', zeroblob(" + bytes + "))");
  };
  const std::string ignored = packWith("DataPack_A.mdb", "17000000");
  Install(ignored);
  EXPECT_EQ(Shown(), Imported(ignored));
  RunRaw(Main(), column);
  const std::string copied = packWith("DataPack_B.mdb", "1048576");
  Install(copied);
  EXPECT_EQ(Shown(), Imported(copied));
  ExpectRefused(packWith("DataPack_C.mdb", "1048577"),
                "Table 'Scales', row 1, column 'Picture': The field of 'DataPack_C.mdb' is longer than 1048576 "
                "characters.");
}

TEST_F(PackLimitsTest, RefusesCalculatedColumns) {
  const std::string types = "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER);";
  const std::string scales = "CREATE TABLE Scales (ScaleName TEXT);";
  for (const char* kind : {"VIRTUAL", "STORED"}) {
    ExpectRefused(MakeForeignPack(std::string("DataPack_A") + kind + ".mdb",
                                  types +
                                      "CREATE TABLE Scales (ScaleName TEXT, ScaleDescription TEXT AS "
                                      "(hex(zeroblob(2000000))) " +
                                      kind + "); INSERT INTO Scales (ScaleName) VALUES ('A')"),
                  "The column 'ScaleDescription' of the table 'Scales' is calculated in this pack, not stored.");
    ExpectRefused(
        MakeForeignPack(std::string("DataPack_B") + kind + ".mdb",
                        scales + "CREATE TABLE scaletypes (ScaleTypeID INTEGER, Unknown TEXT AS ('x') " + kind + ")"),
        "The column 'Unknown' of the table 'ScaleTypes' is calculated in this pack, not stored.");
  }
}

// The default of a column that was added later needs no space in existing rows.
TEST_F(PackLimitsTest, RefusesRowsThatTheFileCannotHold) {
  const std::string pack =
      MakeForeignPack("DataPack_A.mdb",
                      "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER); CREATE TABLE Scales (ScaleName TEXT);"
                      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                      "INSERT INTO Scales SELECT 'A' || i FROM n;"
                      "ALTER TABLE Scales ADD COLUMN ScaleDescription TEXT DEFAULT '" +
                          std::string(core::kLongestDescription, 'x') + "'");
  const auto size = std::filesystem::file_size(pack);
  ExpectRefused(pack, "The pack gives more than a file of " + std::to_string(size) + " bytes can hold.");
}

TEST_F(PackLimitsTest, NamesTheRowThatTheMainDatabaseRefuses) {
  RunRaw(Main(), "CREATE UNIQUE INDEX OneNote ON Scales (Sort) WHERE StartNote = 'D'");
  const std::string pack = MakePack("DataPack_A.mdb", ManyScales(50) +
                                                          "UPDATE Scales SET StartNote = 'D';"
                                                          "UPDATE Scales SET Sort = 7 WHERE ScaleID = 21");
  ExpectRefused(pack, "Table 'Scales', row 21: The record was not saved, because another record has the same key.");
}

}  // namespace
}  // namespace tonalith::data
