// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Importing the optional tables of a pack: formulas and aliases of the scales that it adds.

#include <gtest/gtest.h>

#include <string>

#include "data/data_pack_fixture.h"
#include "data/formula_tables.h"

namespace tonalith::data {
namespace {

constexpr const char* kScales =
    "INSERT INTO Scales VALUES (1, 'Hora', 1, NULL, 'C', '2131221', 0, 5), (2, 'Sirba', 1, NULL, 'C', '2221221', 0, "
    "6);";
constexpr const char* kRows =
    "INSERT INTO ScaleFormulas VALUES (1, 'Hora', '2131221', '1 2 b3 #4 5 6 b7'), (2, 'Sirba', '2221221', '1 2 3');"
    "INSERT INTO ScaleAliases VALUES (1, 0, 'Hora', '2131221', 'Ring'), (1, 1, 'Hora', '2131221', 'Round dance'), "
    "(2, 0, 'Sirba', '2221221', 'Leap');";
constexpr const char* kAllFormulas = "8 Hora 2131221: 1 2 b3 #4 5 6 b7; 9 Sirba 2221221: 1 2 3";
constexpr const char* kAllAliases = "8.0 Hora 2131221: Ring; 8.1 Hora 2131221: Round dance; 9.0 Sirba 2221221: Leap";

std::string Tables() { return std::string(kCreateScaleFormulas) + ";" + std::string(kCreateScaleAliases) + ";"; }

class PackFormulasTest : public DataPackImportTest {
 protected:
  PackFormulasTest() { RunRaw(Main(), Tables()); }

  std::string PackWith(const std::string& sql) {
    return MakePack("DataPack_" + std::to_string(++packs_) + ".mdb", kScales + sql);
  }
  [[nodiscard]] std::string Formulas() const {
    return Ask(
        "SELECT ifnull(group_concat(ScaleID || ' ' || ScaleName || ' ' || ScaleIntervals || ': ' || Formula, '; '), "
        "'') FROM ScaleFormulas");
  }
  [[nodiscard]] std::string Aliases() const {
    return Ask(
        "SELECT ifnull(group_concat(ScaleID || '.' || Place || ' ' || ScaleName || ' ' || ScaleIntervals || ': ' || "
        "Alias, '; '), '') FROM ScaleAliases");
  }
  /// Imports a pack with these statements, which adds two scales without a message about its other tables.
  void Import(const std::string& sql) {
    const std::string pack = PackWith(sql);
    Install(pack);
    EXPECT_EQ(Shown(), Imported(pack));
    EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "6");
  }

 private:
  int packs_ = 0;
};

TEST_F(PackFormulasTest, ComeWithTheScalesUnderTheirNewNumbers) {
  Import(Tables() + kRows);
  EXPECT_EQ(Formulas(), kAllFormulas);
  EXPECT_EQ(Aliases(), kAllAliases);
}

TEST_F(PackFormulasTest, ComeFromAPackOfAnotherProgram) {
  const std::string pack = MakeForeignPack(
      "DataPack_A.mdb",
      "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER, ScaleTypeName TEXT);"
      "CREATE TABLE Scales (ScaleID INTEGER PRIMARY KEY, ScaleName TEXT, ScaleTypeID INTEGER, ScaleIntervals TEXT);"
      "CREATE TABLE scaleformulas (Formula TEXT, scaleid, Remark, ScaleName, ScaleIntervals);"
      "CREATE TABLE ScaleAliases (ScaleID, ScaleName TEXT, ScaleIntervals TEXT, Alias TEXT, Place INTEGER);"
      "INSERT INTO Scales VALUES (5, 'Hora', 1, '2131221');"
      "INSERT INTO scaleformulas VALUES ('1 2', 5, x'00', 'Hora', '2131221');"
      "INSERT INTO ScaleAliases VALUES (5, 'Hora', '2131221', 'Ring', 3);");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Formulas(), "8 Hora 2131221: 1 2");
  EXPECT_EQ(Aliases(), "8.3 Hora 2131221: Ring");
}

TEST_F(PackFormulasTest, OfScalesThatExistAlreadyAreSkipped) {
  RunRaw(Main(), "INSERT INTO Scales (ScaleName, ScaleIntervals) VALUES ('Hora', '2131221')");
  Install(PackWith(Tables() + kRows));
  EXPECT_EQ(Formulas(), "9 Sirba 2221221: 1 2 3");
  EXPECT_EQ(Aliases(), "9.0 Sirba 2221221: Leap");
}

TEST_F(PackFormulasTest, OfAnUnchangedPackAreNotReadAgain) {
  const std::string pack = PackWith(Tables() + kRows);
  Install(pack);
  RunRaw(Main(), "DELETE FROM ScaleFormulas");
  Install(pack);
  EXPECT_EQ(Formulas(), "");
}

TEST_F(PackFormulasTest, OfAnotherNumberNameOrPatternDoNotCount) {
  Import(Tables() +
         "INSERT INTO ScaleFormulas VALUES (2, 'Hora', '2131221', '1'), (3, 'Sirba', '2221221', '2');"
         "INSERT INTO ScaleAliases VALUES (1, 0, 'HORA', '2131221', 'a'), (1, 1, 'Hora', '2221221', 'b'), "
         "(9, 0, 'Hora', '2131221', 'c'), (2, 0, 'Major', '2212221', 'd');");
  EXPECT_EQ(Formulas(), "");
  EXPECT_EQ(Aliases(), "");
}

TEST_F(PackFormulasTest, WithoutTextOrOutsideTheirPlacesDoNotCount) {
  Import(
      "CREATE TABLE ScaleFormulas (ScaleID INTEGER, ScaleName, ScaleIntervals, Formula);"
      "CREATE TABLE ScaleAliases (ScaleID INTEGER, Place, ScaleName, ScaleIntervals, Alias);"
      "INSERT INTO ScaleFormulas VALUES (1, 'Hora', '2131221', NULL), (1, 'Hora', '2131221', ''), "
      "(1, 'Hora', '2131221', 12), (1, 'Hora', '2131221', x'3132'), (NULL, NULL, NULL, NULL);"
      "INSERT INTO ScaleAliases VALUES (1, -1, 'Hora', '2131221', 'a'), (1, 64, 'Hora', '2131221', 'b'), "
      "(1, 'x', 'Hora', '2131221', 'c'), (1, NULL, 'Hora', '2131221', 'd'), (1, 63, 'Hora', '2131221', 'e'), "
      "(1, 63, 'Hora', '2131221', 'f'), (1, 1.5, 'Hora', '2131221', 'g');");
  EXPECT_EQ(Formulas(), "");
  EXPECT_EQ(Aliases(), "8.63 Hora 2131221: e");
}

TEST_F(PackFormulasTest, OfShippedScalesAreAddedIfThePackHasNone) {
  const std::string pack = MakePack("DataPack_A.mdb",
                                    "INSERT INTO Scales (ScaleName, ScaleIntervals) VALUES ('Raga Jog', '311232'), "
                                    "('Raga Kirwani', '66'), ('Hora', '2131221')");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Formulas(), "8 Raga Jog 311232: 1 b3 3 4 5 b7");
  EXPECT_EQ(Aliases(), "8.0 Raga Jog 311232: Jog; 8.1 Raga Jog 311232: Raag Jog");
}

TEST_F(PackFormulasTest, OfThePackArePreferredToShippedOnes) {
  const std::string pack =
      MakePack("DataPack_A.mdb",
               "INSERT INTO Scales (ScaleID, ScaleName, ScaleIntervals) VALUES (3, 'Raga Jog', "
               "'311232');" +
                   Tables() + "INSERT INTO ScaleFormulas VALUES (3, 'Raga Jog', '311232', '1 #2 3 4 5 b7');");
  Install(pack);
  EXPECT_EQ(Formulas(), "8 Raga Jog 311232: 1 #2 3 4 5 b7");
  EXPECT_EQ(Aliases(), "");
}

TEST_F(PackFormulasTest, InTablesForAnotherPurposeAreIgnored) {
  Import(
      "CREATE TABLE ScaleFormulas (Formula TEXT); INSERT INTO ScaleFormulas VALUES ('1 2');"
      "CREATE TABLE ScaleAliases (ScaleID, Alias); INSERT INTO ScaleAliases VALUES (1, 'Ring')");
  EXPECT_EQ(Formulas(), "");
  EXPECT_EQ(Aliases(), "");
}

TEST_F(PackFormulasTest, AreIgnoredIfTheScalesOfThePackHaveNoNumber) {
  const std::string pack = MakeForeignPack("DataPack_A.mdb",
                                           "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER, ScaleTypeName TEXT);"
                                           "CREATE TABLE Scales (ScaleName TEXT, ScaleIntervals TEXT);"
                                           "INSERT INTO Scales VALUES ('Hora', '2131221');" +
                                               Tables() + kRows);
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Formulas(), "");
}

TEST_F(PackFormulasTest, AreIgnoredByALibraryWithoutTheTables) {
  RunRaw(Main(), "DROP TABLE ScaleAliases");
  Import(Tables() + kRows);
  EXPECT_EQ(Formulas(), "");
  EXPECT_EQ(Ask("SELECT count(*) FROM sqlite_schema WHERE name = 'ScaleAliases'"), "0");
}

TEST_F(PackFormulasTest, InAStoredQueryOrACalculatedColumnAreRefused) {
  ExpectRefused(PackWith("CREATE VIEW ScaleFormulas AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) "
                         "SELECT i AS ScaleID, '' AS ScaleName, '' AS ScaleIntervals, '' AS Formula FROM n"),
                "'ScaleFormulas' is a stored query in this pack, not a table.");
  ExpectRefused(PackWith("CREATE TABLE ScaleAliases (ScaleID INTEGER, Place INTEGER, ScaleName TEXT, ScaleIntervals "
                         "TEXT, Alias TEXT AS (hex(zeroblob(5000000))))"),
                "The column 'Alias' of the table 'ScaleAliases' is calculated in this pack, not stored.");
}

TEST_F(PackFormulasTest, ThatAreTooLongAreRefusedWithTheirPlace) {
  ExpectRefused(PackWith(Tables() + kRows + "UPDATE ScaleFormulas SET Formula = hex(zeroblob(51)) WHERE ScaleID = 2"),
                "Table 'ScaleFormulas', row 2, column 'Formula': The field of 'Sirba' is longer than 100 characters.");
  ExpectRefused(PackWith(Tables() + kRows + "UPDATE ScaleAliases SET Alias = hex(zeroblob(128)) WHERE Alias = 'Leap'"),
                "Table 'ScaleAliases', row 3, column 'Alias': The field of 'Sirba' is longer than 255 characters.");
  ExpectRefused(PackWith(Tables() + kRows + "UPDATE ScaleFormulas SET ScaleName = hex(zeroblob(9000000))"),
                "Table 'ScaleFormulas', row 1, column 'ScaleName': The field is longer than 16777216 bytes.");
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
}

TEST_F(PackFormulasTest, InManyRowsAreLimited) {
  Import(Tables() + kRows +
         "WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 300000) "
         "INSERT INTO ScaleFormulas SELECT i, 'Hora', '2131221', '1' FROM n;"
         "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < 300000) "
         "INSERT INTO ScaleAliases SELECT 1, i, 'Hora', '2131221', 'Ring ' || i FROM n;");
  EXPECT_EQ(Formulas(), kAllFormulas);
  EXPECT_EQ(Ask("SELECT count(*) FROM ScaleAliases"), "65");
}

TEST_F(PackFormulasTest, AreRolledBackWithAnImportThatIsStopped) {
  observer_.onProgress = [] { throw ImportStopped(); };
  Install(PackWith(Tables() + kRows +
                   "WITH RECURSIVE n(i) AS (SELECT 3 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
                   "INSERT INTO ScaleFormulas SELECT i, 'Hora', '2131221', '1' FROM n;"));
  EXPECT_TRUE(import_.IsStopped());
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
  EXPECT_EQ(Formulas(), "");
}

}  // namespace
}  // namespace tonalith::data
