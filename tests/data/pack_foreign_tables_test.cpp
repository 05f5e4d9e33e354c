// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Packs of other programs: other tables, any kind of content, damaged files, and malicious files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "data/pack_disaster_fixture.h"

namespace tonalith::data {
namespace {

using ::testing::AnyOf;
using ::testing::StartsWith;

constexpr const char* kTypesTable = "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER, ScaleTypeName TEXT);";
constexpr const char* kScalesTable = "CREATE TABLE Scales (ScaleName TEXT, ScaleIntervals TEXT);";

class ForeignTablesTest : public DataPackImportTest {
 protected:
  /// A pack of two tables and additional statements.
  std::string PackWith(const std::string& sql) const {
    return MakeForeignPack("DataPack_A.mdb", std::string(kTypesTable) + kScalesTable + sql);
  }
  void ExpectBothTablesExist() const {
    EXPECT_EQ(Ask("SELECT group_concat(name, ' ') FROM sqlite_master WHERE type IN ('table', 'view')"),
              "ScaleTypes Scales sqlite_sequence ScalesQuery");
  }
};

TEST_F(ForeignTablesTest, RefusesAPackWithoutEitherTable) {
  ExpectRefused(MakeForeignPack("DataPack_A.mdb", kScalesTable),
                "The database '" + Packs() + "DataPack_A.mdb' has no table or stored query 'ScaleTypes'.");
  ExpectRefused(MakeForeignPack("DataPack_B.mdb", std::string(kTypesTable) + "INSERT INTO ScaleTypes VALUES (9, 'x')"),
                "The database '" + Packs() + "DataPack_B.mdb' has no table or stored query 'Scales'.");
  ExpectRefused(MakeForeignPack("DataPack_C.mdb", "CREATE TABLE Songs (x)"),
                "The database '" + Packs() + "DataPack_C.mdb' has no table or stored query 'ScaleTypes'.");
}

TEST_F(ForeignTablesTest, ReadsTablesWithoutAnyOneFieldExceptTheName) {
  for (const char* field : {"ScaleTypeID", "ScaleDescription", "StartNote", "ScaleIntervals", "Chord", "Sort"}) {
    const std::string name = std::string("DataPack_") + field + ".mdb";
    const std::string pack = MakePack(name, "INSERT INTO Scales VALUES (1, 'Without " + std::string(field) +
                                                "', 2, 'Words.', 'D', '435', 1, 9); DROP VIEW ScalesQuery;"
                                                "DROP INDEX ScalesByTypeAndSort;"
                                                "ALTER TABLE Scales DROP COLUMN " +
                                                field);
    Install(pack);
    ASSERT_EQ(Shown(), Imported(pack));
  }
  const auto row = [this](const char* field) {
    return Ask(
        "SELECT quote(ScaleTypeID) || quote(ScaleDescription) || quote(StartNote) || quote(ScaleIntervals) || "
        "quote(Chord) || quote(Sort) FROM Scales WHERE ScaleName = 'Without " +
        std::string(field) + "'");
  };
  EXPECT_EQ(row("ScaleTypeID"), "NULL'Words.''D''435'19");
  EXPECT_EQ(row("ScaleDescription"), "2NULL'D''435'19");
  EXPECT_EQ(row("StartNote"), "2'Words.''C''435'19");
  EXPECT_EQ(row("ScaleIntervals"), "2'Words.''D'NULL19");
  EXPECT_EQ(row("Chord"), "2'Words.''D''435'09");
  EXPECT_EQ(row("Sort"), "2'Words.''D''435'10");
}

TEST_F(ForeignTablesTest, ImportsTheFirstOfTwoRowsOfOneNameOrNumber) {
  const std::string pack = PackWith(
      "INSERT INTO ScaleTypes VALUES (300, 'First'), (300, 'Second');"
      "INSERT INTO Scales VALUES ('Twin', '1'), ('Twin', '2'), ('tWIN', '3'), ('Twin ', '4')");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT ScaleTypeName FROM ScaleTypes WHERE ScaleTypeID = 300"), "First");
  EXPECT_EQ(Ask("SELECT group_concat(quote(ScaleName) || ScaleIntervals) FROM Scales WHERE ScaleID > 7"),
            "'Twin'1,'Twin '4");
}

TEST_F(ForeignTablesTest, ReadsStatementsInNamesAsNames) {
  const std::string pack = PackWith(
      "CREATE TABLE \"x'); DROP TABLE Scales; --\" (y);"
      "ALTER TABLE Scales ADD COLUMN \"a\"\"; DROP TABLE Scales; --\" TEXT DEFAULT 'b';"
      "ALTER TABLE Scales ADD COLUMN \"Sort]; DROP TABLE Scales; --\" TEXT DEFAULT 'c';"
      "INSERT INTO ScaleTypes VALUES (300, '''); DROP TABLE ScaleTypes; --');"
      "INSERT INTO Scales (ScaleName) VALUES ('''; DROP TABLE Scales; --'), ('\"; DROP TABLE Scales; --'),"
      "  ('?1'), (':name'), ('a' || char(10) || 'b'), ('x'' OR ''1''=''1')");
  // The main database may have such a field too; then it is copied.
  RunRaw(Main(), "ALTER TABLE Scales ADD COLUMN \"a\"\"; DROP TABLE Scales; --\" TEXT");
  Install(pack);
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack) + Imported(pack));
  ExpectBothTablesExist();
  EXPECT_EQ(Ask("SELECT count(*) || group_concat(DISTINCT [a\"; DROP TABLE Scales; --]) FROM Scales"), "10b");
  EXPECT_EQ(Ask("SELECT ScaleTypeName FROM ScaleTypes WHERE ScaleTypeID = 300"), "'); DROP TABLE ScaleTypes; --");
}

TEST_F(ForeignTablesTest, RefusesStoredQueriesInsteadOfEitherTable) {
  ExpectRefused(
      MakeForeignPack("DataPack_A.mdb", std::string(kScalesTable) + "CREATE TABLE t (ScaleTypeID INTEGER);"
                                                                    "CREATE VIEW ScaleTypes AS SELECT * FROM t"),
      "'ScaleTypes' is a stored query in this pack, not a table.");
  ExpectRefused(MakeForeignPack("DataPack_B.mdb", std::string(kTypesTable) + "CREATE TABLE t (ScaleName TEXT);"
                                                                             "CREATE VIEW SCALES AS SELECT * FROM t"),
                "'Scales' is a stored query in this pack, not a table.");
}

// The schema of a file is text that may have been changed.
TEST_F(ForeignTablesTest, RefusesAStoredQueryThatClaimsToBeATable) {
  const std::string endless =
      "sql = 'CREATE VIEW Scales AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i AS "
      "ScaleName FROM n' WHERE name = 'Scales'";
  const std::string pack = PackWith("PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = 0, " + endless);
  ExpectRefused(pack, "Unrecognized database format '" + pack + "'.");
  RunRaw(pack, "PRAGMA writable_schema = ON; UPDATE sqlite_master SET type = 'view', rootpage = 0, " + endless);
  ExpectRefused(pack, "'Scales' is a stored query in this pack, not a table.");
}

TEST_F(ForeignTablesTest, RefusesAVirtualTable) {
  ExpectRefused(
      MakeForeignPack("DataPack_A.mdb", std::string(kTypesTable) + "CREATE VIRTUAL TABLE Scales USING fts5(ScaleName)"),
      "'Scales' is not an ordinary table in this pack.");
}

TEST_F(ForeignTablesTest, RunsNoTriggerOfThePackNorOfItsStoredQuery) {
  const std::string pack = PackWith(
      "INSERT INTO ScaleTypes VALUES (300, 'Folk'); INSERT INTO Scales VALUES ('A', '1');"
      "CREATE TRIGGER a AFTER INSERT ON Scales BEGIN DELETE FROM Scales; END;"
      "CREATE TRIGGER b BEFORE INSERT ON ScaleTypes BEGIN SELECT RAISE(ABORT, 'never'); END;"
      "CREATE TRIGGER c AFTER UPDATE ON Scales BEGIN DELETE FROM ScaleTypes; END;"
      "CREATE TRIGGER d AFTER DELETE ON Scales BEGIN DELETE FROM ScaleTypes; END;"
      "CREATE VIEW ScalesQuery AS SELECT * FROM Scales;"
      "CREATE TRIGGER e INSTEAD OF INSERT ON ScalesQuery BEGIN DELETE FROM Scales; END;");
  const std::string before = jet::ContentOfFile(pack);
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(jet::ContentOfFile(pack), before);
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || (SELECT count(*) FROM ScaleTypes) FROM Scales"), "5 3");
  EXPECT_EQ(Ask("SELECT count(*) FROM sqlite_master WHERE type = 'trigger'"), "3") << "the program's own";
}

TEST_F(ForeignTablesTest, RefusesTypeNumbersThatAreNoWholeNumbers) {
  for (const char* number : {"'abc'", "x'01'", "2147483648", "-9223372036854775808", "1e300"}) {
    const std::string pack = Packs() + "DataPack_A.mdb";
    std::filesystem::remove(pack);
    MakeForeignPack("DataPack_A.mdb",
                    "CREATE TABLE ScaleTypes (ScaleTypeID); CREATE TABLE Scales (ScaleName);"
                    "INSERT INTO ScaleTypes VALUES (300), (" +
                        std::string(number) + ")");
    const std::string before = ContentOfDatabase(Main());
    Install(pack);
    const std::string where = "Error importing " + pack + "\nTable 'ScaleTypes', row 2, column 'ScaleTypeID': ";
    EXPECT_THAT(Shown(), AnyOf(where + "Type mismatch\n", where + "Overflow\n")) << number;
    EXPECT_EQ(ContentOfDatabase(Main()), before);
  }
}

TEST_F(ForeignTablesTest, ImportsTextsOfEveryKindUnchanged) {
  const std::string pack = PackWith(
      "ALTER TABLE Scales ADD COLUMN ScaleDescription;"
      "INSERT INTO Scales VALUES (char(0x1D11E) || ' Clef', '1', hex(zeroblob(4000))),"
      "  ('Tab' || char(9), '2', ''), ('%s%n{}<b>&amp;', '3', CAST(x'ff41fe' AS TEXT)), ('1', 2212221, 0.5)");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  SQLite::Database database(Main());
  database.exec("ATTACH '" + pack + "' AS pack");
  EXPECT_EQ(database
                .execAndGet("SELECT count(*) FROM pack.Scales p JOIN main.Scales m ON m.ScaleName = p.ScaleName AND "
                            "CAST(m.ScaleDescription AS BLOB) = CAST(p.ScaleDescription AS BLOB) AND m.ScaleIntervals "
                            "= CAST(p.ScaleIntervals AS TEXT)")
                .getInt(),
            4);
}

TEST_F(ForeignTablesTest, RefusesATruncatedPackAtAnyLength) {
  const std::string whole = jet::ContentOfFile(MakePack("DataPack_A.mdb", PackOfManyPages()));
  const std::string pack = Packs() + "DataPack_B.mdb";
  for (std::size_t size = 0; size < whole.size(); size += 2500) {
    std::ofstream(pack, std::ios::binary) << whole.substr(0, size);
    ExpectRefused(pack, "Unrecognized database format '" + pack + "'.");
  }
}

// Zeros instead of rows are read as rows of number 0, which is lower than the numbers before.
TEST_F(ForeignTablesTest, EndsIfRowNumbersDoNotAscend) {
  const std::string whole = jet::ContentOfFile(MakePack("DataPack_A.mdb", PackOfManyPages()));
  const std::string pack = Packs() + "DataPack_B.mdb";
  const std::string main = jet::ContentOfFile(Main());
  int refused = 0;
  for (std::size_t gone = 100; gone < 4096; gone += 400) {
    std::ofstream(pack, std::ios::binary) << whole.substr(0, whole.size() - gone) << std::string(gone, '\0');
    Install(pack);
    const std::string shown = Shown();
    if (shown != Imported(pack)) {
      ++refused;
      EXPECT_EQ(shown, "Error importing " + pack + "\nUnrecognized database format '" + pack + "'.\n");
      EXPECT_EQ(jet::ContentOfFile(Main()), main);
    }
    std::ofstream(Main(), std::ios::binary) << main;
  }
  EXPECT_GT(refused, 3);
}

// Damage in parts that are not read is not detected; in any case the main database is intact.
TEST_F(ForeignTablesTest, SurvivesEveryKindOfDamage) {
  const std::string whole = jet::ContentOfFile(MakePack("DataPack_A.mdb", PackOfManyPages()));
  const std::string pack = Packs() + "DataPack_B.mdb";
  const std::string main = jet::ContentOfFile(Main());
  int refused = 0;
  for (unsigned seed = 0; seed < 60; ++seed) {
    std::mt19937 random(seed);
    std::string content = whole;
    for (std::size_t change = 1 + random() % 20; change > 0; --change) {
      const std::size_t page = seed % 2 == 0 ? 0 : random() % (whole.size() / 4096);
      content[page * 4096 + random() % (seed % 3 == 0 ? 120 : 4096)] = static_cast<char>(random());
    }
    std::ofstream(pack, std::ios::binary) << content;
    Install(pack);
    const std::string shown = Shown();
    if (shown == Imported(pack)) {
      std::ofstream(Main(), std::ios::binary) << main;
      continue;
    }
    ++refused;
    EXPECT_THAT(shown, StartsWith("Error importing " + pack + "\n")) << seed;
    EXPECT_GT(shown.size(), pack.size() + 30) << seed;
    EXPECT_EQ(jet::ContentOfFile(Main()), main) << seed;
  }
  ExpectAtRest(Main());
  EXPECT_GT(refused, 10);
}

}  // namespace
}  // namespace tonalith::data
