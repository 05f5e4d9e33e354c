// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/data_pack_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/data_pack_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

TEST_F(DataPackImportTest, AddsTypesUnderTheirNumbersAndScalesUnderNewOnes) {
  const std::string pack = MakePack("DataPack_Folk.mdb", std::string(kAddType) + kAddScale);
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT ScaleTypeNo || ScaleTypeName FROM ScaleTypes WHERE ScaleTypeID = 300"), "30Folk");
  EXPECT_EQ(Ask("SELECT ScaleID || ScaleTypeID || ScaleDescription || StartNote || ScaleIntervals || Chord || Sort "
                "FROM Scales WHERE ScaleName = 'Hora'"),
            "8300A dance.D213122105");
}

TEST_F(DataPackImportTest, ShowsASuccessInTheInformationStyle) {
  const std::string pack = MakePack("DataPack_Folk.mdb", kAddScale);
  Install(pack);
  EXPECT_THAT(msgBox_.Messages(), ElementsAre(tests::RecordingMsgBox::Message{"Imported data pack: \n" + pack,
                                                                              core::MsgBoxStyle::kInformation, ""}));
}

TEST_F(DataPackImportTest, CountsImportedPacksAndAddedScales) {
  MakePack("DataPack_A.mdb", kAddScale);
  MakePack("DataPack_B.mdb", std::string(kAddScale) + "INSERT INTO Scales (ScaleName) VALUES ('Major'), ('Other')");
  std::ofstream(Packs() + "DataPack_C.mdb") << "noise";
  InstallAll();
  EXPECT_EQ(import_.Imported().packs, 2);
  EXPECT_EQ(import_.Imported().scales, 2);
}

TEST_F(DataPackImportTest, EndsWithoutAMessageIfItsObserverStopsIt) {
  MakePack("DataPack_A.mdb", ManyScales(2000));
  MakePack("DataPack_B.mdb", ManyScales(2000));
  const std::string before = jet::ContentOfFile(Main());
  observer_.onProgress = [] { throw ImportStopped(); };
  InstallAll();
  EXPECT_TRUE(import_.IsStopped());
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(observer_.calls, 1);
  EXPECT_EQ(observer_.packsDone, 0);
  EXPECT_EQ(jet::ContentOfFile(Main()), before);
}

TEST_F(DataPackImportTest, ShowsAFailureInTheCriticalStyle) {
  Install("nowhere.mdb");
  ASSERT_EQ(msgBox_.Messages().size(), 1U);
  EXPECT_EQ(msgBox_.Messages()[0].text,
            "Error importing nowhere.mdb\nCould not find file '" + program_.Folder() + "/nowhere.mdb'.");
  EXPECT_EQ(msgBox_.Messages()[0].style, core::MsgBoxStyle::kCritical);
}

TEST_F(DataPackImportTest, AddsNothingTheSecondTimeAndShowsTheSameMessage) {
  const std::string pack = MakePack("DataPack_Folk.mdb", std::string(kAddType) + kAddScale);
  Install(pack);
  const std::string before = Ask("SELECT group_concat(ScaleID || ScaleName) FROM Scales");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack) + Imported(pack));
  EXPECT_EQ(Ask("SELECT group_concat(ScaleID || ScaleName) FROM Scales"), before);
}

TEST_F(DataPackImportTest, DoesNotChangeAnExistingType) {
  Install(MakePack("DataPack_A.mdb", "INSERT INTO ScaleTypes VALUES (2, 99, 'Other'), (3, 30, 'New');"));
  EXPECT_EQ(Ask("SELECT ScaleTypeNo || ScaleTypeName FROM ScaleTypes WHERE ScaleTypeID = 2"), "20Triads");
  EXPECT_EQ(Ask("SELECT count(*) FROM ScaleTypes"), "3");
}

TEST_F(DataPackImportTest, IdentifiesAScaleByItsNameInAnyCase) {
  Install(MakePack("DataPack_A.mdb", "INSERT INTO Scales VALUES (9, 'mAJOR', 1, 'x', 'C', '1', 0, 1);"));
  EXPECT_EQ(Ask("SELECT count(*) || max(ScaleDescription = 'x') FROM Scales"), "40");
}

TEST_F(DataPackImportTest, IgnoresTheCaseOfEveryLetterOfAName) {
  RunRaw(Main(), "INSERT INTO Scales (ScaleName) VALUES ('K\u00fcrd\u00ee'), ('\u212Brv\u00e5k'), ('Kilo')");
  Install(MakePack("DataPack_A.mdb",
                   "INSERT INTO Scales (ScaleName, Sort) VALUES ('K\u00dcRD\u00ce', 71), ('\u00e5RV\u00c5K', 72), "
                   "('\u212Ailo', 73), ('K\u00fcrdi', 74);"));
  EXPECT_EQ(Ask("SELECT group_concat(Sort) FROM Scales WHERE Sort > 70"), "74");
}

TEST_F(DataPackImportTest, ImportsOneOfTwoRowsWhoseNamesDifferOnlyInCase) {
  Install(MakePack("DataPack_A.mdb",
                   "INSERT INTO Scales (ScaleName, Sort) VALUES ('S\u00e1mi', 71), ('S\u00c1MI', 72), ('Kilo', 73), "
                   "('\u212Ailo', 74), ('\u212Aelp', 75), ('kelp', 76);"));
  EXPECT_EQ(Ask("SELECT group_concat(Sort) FROM (SELECT Sort FROM Scales WHERE Sort > 70 ORDER BY ScaleID)"),
            "71,73,75");
}

TEST_F(DataPackImportTest, MatchesNamesWithApostrophesAndStatements) {
  const std::string rows =
      "INSERT INTO Scales (ScaleName) VALUES ('Ferryman''s Lament'), (''''), ('x''; DROP TABLE Scales; --'), "
      "('\"q\" [b] % * ?'), ('ends in ''');";
  const std::string pack = MakePack("DataPack_A.mdb", rows);
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "9");
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "9");
  EXPECT_EQ(Shown(), Imported(pack) + Imported(pack));
}

TEST_F(DataPackImportTest, ImportsOneOfTwoRowsOfOneName) {
  Install(MakePack("DataPack_A.mdb", "INSERT INTO Scales (ScaleName, Sort) VALUES ('Twin', 1), ('TWIN', 2);"));
  EXPECT_EQ(Ask("SELECT count(*) || max(Sort) FROM Scales WHERE ScaleName = 'Twin'"), "11");
}

TEST_F(DataPackImportTest, ReadsAMissingNameAsEmptyText) {
  RunRaw(Main(), "INSERT INTO Scales (ScaleName) VALUES ('')");
  Install(MakePack("DataPack_A.mdb", "INSERT INTO Scales (ScaleName, Sort) VALUES (NULL, 77);"));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE Sort = 77"), "0");
}

TEST_F(DataPackImportTest, CopiesTheTypeNumberOfAScaleUnchanged) {
  Install(MakePack("DataPack_A.mdb", "INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('A', 2), ('B', 555);"));
  EXPECT_EQ(Ask("SELECT group_concat(ScaleTypeID) FROM Scales WHERE ScaleName IN ('A', 'B')"), "2,555");
}

TEST_F(DataPackImportTest, IgnoresFieldsThatTheMainDatabaseLacks) {
  const std::string pack = MakePack("DataPack_A.mdb",
                                    "ALTER TABLE Scales ADD COLUMN Composer TEXT;"
                                    "ALTER TABLE ScaleTypes ADD COLUMN Colour TEXT DEFAULT 'red';"
                                    "INSERT INTO Scales (ScaleName, Composer) VALUES ('A', 'Me');" +
                                        std::string(kAddType));
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName = 'A'"), "1");
}

TEST_F(DataPackImportTest, LeavesFieldsThatThePackLacksAtTheirDefaults) {
  const std::string pack = MakeForeignPack(
      "DataPack_A.mdb",
      "CREATE TABLE ScaleTypes (scaletypeid INTEGER); CREATE TABLE Scales (SCALENAME TEXT, ScaleIntervals REAL);"
      "INSERT INTO ScaleTypes VALUES (300); INSERT INTO Scales VALUES ('A', 2212221);");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT StartNote || Chord || Sort || ScaleIntervals FROM Scales WHERE ScaleName = 'A'"), "C002212221");
  EXPECT_EQ(Ask("SELECT ScaleTypeName IS NULL FROM ScaleTypes WHERE ScaleTypeID = 300"), "1");
}

TEST_F(DataPackImportTest, KeepsNullsNull) {
  Install(MakePack("DataPack_A.mdb", "INSERT INTO Scales VALUES (1, 'A', NULL, NULL, NULL, NULL, NULL, NULL);"));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName = 'A' AND coalesce(ScaleTypeID, ScaleDescription, "
                "StartNote, ScaleIntervals, Chord, Sort) IS NULL"),
            "1");
}

TEST_F(DataPackImportTest, InstallsEveryPackOfTheFolderAndReportsEach) {
  const std::string first = MakePack("DataPack_A.mdb", kAddScale);
  const std::string second = MakePack("DataPack_.mdb", kAddType);
  MakePack("Pack_C.mdb", "");
  MakePack("DataPack_D.mdb.old", "");
  fs::create_directory(Packs() + "DataPack_E.mdb");
  fs::create_symlink("nowhere", Packs() + "DataPack_F.mdb");
  EXPECT_THAT(InstallAll(), UnorderedElementsAre(first, second));
  EXPECT_EQ(observer_.packsDone, 2);
  EXPECT_EQ(msgBox_.Messages().size(), 2U);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "5");
}

TEST_F(DataPackImportTest, FindsNamesInAnotherCaseAsTheFileSystemDoes) {
  const std::string pack = MakePack("datapack_a.MDB", kAddScale);
  const bool ignoresCase = fs::exists(Packs() + "DataPack_a.mdb");
  EXPECT_EQ(InstallAll().size(), ignoresCase ? 1U : 0U);
}

TEST_F(DataPackImportTest, ShowsNothingWithoutPacks) {
  EXPECT_TRUE(InstallAll().empty());
  fs::remove(Packs());
  EXPECT_TRUE(InstallAll().empty());
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(observer_.packsDone, 0);
}

TEST_F(DataPackImportTest, ContinuesAfterAPackThatFails) {
  MakePack("DataPack_A.mdb", "INSERT INTO Scales (ScaleName) VALUES ('A')");
  std::ofstream(Packs() + "DataPack_B.mdb") << "noise";
  MakePack("DataPack_C.mdb", "INSERT INTO Scales (ScaleName) VALUES ('C')");
  EXPECT_EQ(InstallAll().size(), 3U);
  EXPECT_EQ(observer_.packsDone, 3);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName IN ('A', 'C')"), "2");
  EXPECT_THAT(Shown(), HasSubstr("Error importing " + Packs() + "DataPack_B.mdb\nUnrecognized"));
}

TEST_F(DataPackImportTest, ImportsTheFirstJetPack) {
  const std::string pack = CopyPack(jet::kJet2000, "DataPack_Jet2000.mdb");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT group_concat(ScaleTypeID || ScaleTypeName) FROM ScaleTypes"),
            "1Common scales,2Triads,401Fixture modes");
  EXPECT_EQ(Ask("SELECT group_concat(ScaleID || ScaleName) FROM Scales WHERE ScaleID > 7"),
            "8Ferryman's Lament,9Žluťoučký kůň,10Quiet Ninth,11Long Story");
  EXPECT_EQ(Ask("SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'major'"), "2212221");
  EXPECT_EQ(Ask("SELECT length(ScaleDescription) || (Sort IS NULL) FROM Scales WHERE ScaleName = 'Long Story'"),
            "50041");
  EXPECT_EQ(
      Ask("SELECT (ScaleDescription IS NULL) || Chord || ScaleTypeID FROM Scales WHERE ScaleName = 'Quiet Ninth'"),
      "111");
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "8");
}

TEST_F(DataPackImportTest, ImportsTheSecondJetPack) {
  const std::string pack = CopyPack(jet::kJet2003, "DataPack_Jet2003.mdb");
  Install(pack);
  EXPECT_EQ(Shown(), Imported(pack));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName LIKE 'Fixture Row ___' AND ScaleTypeID = 402"), "270");
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales WHERE ScaleName LIKE 'Fixture Row __5'"), "0");
  EXPECT_EQ(Ask("SELECT group_concat(DISTINCT ScaleIntervals) FROM Scales WHERE ScaleTypeID = 402 AND Chord <> 0"),
            "435");
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "274");
}

TEST_F(DataPackImportTest, ReportsItsProgress) {
  Install(MakePack("DataPack_A.mdb", ManyScales(1000)));
  EXPECT_EQ(observer_.calls, 3);
  EXPECT_EQ(observer_.latest, 768);
}

TEST_F(DataPackImportTest, ReportsTheReadingOfAJetPackAndCanBeStopped) {
  const std::string pack = CopyPack(jet::kJet2003, "DataPack_Jet2003.mdb");
  std::vector<std::string> read;
  observer_.onReading = [&](const std::string& path, std::int64_t rows) {
    read.push_back(path);
    EXPECT_GE(rows, 0);
    throw ImportStopped();
  };
  Install(pack);
  EXPECT_EQ(read, std::vector{pack});
  EXPECT_TRUE(import_.IsStopped());
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
}

TEST_F(DataPackImportTest, StatementsPerScaleDoNotDependOnTheSizeOfTheLibrary) {
  RunRaw(Main(), "DELETE FROM Scales; DELETE FROM ScaleTypes; " + ManyScales(100'000));
  const std::string many = MakePack("DataPack_A.mdb",
                                    "INSERT INTO Scales (ScaleName) SELECT 'A' || i FROM (WITH RECURSIVE "
                                    "n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                                    "SELECT i FROM n)");
  const std::uint64_t before = Connection::StatementsIssued();
  Install(many);
  EXPECT_EQ(Shown(), Imported(many));
  EXPECT_LT(Connection::StatementsIssued() - before, 2000U * 8);
  // The name is looked up through its index.
  SQLite::Database database(Main());
  SQLite::Statement plan(database,
                         "EXPLAIN QUERY PLAN SELECT _rowid_, * FROM Scales WHERE (ScaleName='A') AND _rowid_ "
                         ">= 1 ORDER BY _rowid_ LIMIT 2");
  ASSERT_TRUE(plan.executeStep());
  EXPECT_THAT(plan.getColumn(3).getString(), HasSubstr("INDEX ScalesByName (ScaleName=?"));
}

TEST(FieldExists, IgnoresTheCaseOfTheName) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT * FROM ScaleTypes", folder.Open());
  EXPECT_TRUE(FieldExists(records, "scaletypename"));
  EXPECT_FALSE(FieldExists(records, "ScaleName"));
}

}  // namespace
}  // namespace tonalith::data
