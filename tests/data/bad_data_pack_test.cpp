// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Damaged, incomplete and hostile packs, and interrupted imports.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "data/data_pack_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class BadDataPackTest : public DataPackImportTest {};

TEST_F(BadDataPackTest, RefusesAPackWithoutATable) {
  ExpectRefused(MakeForeignPack("DataPack_A.mdb", "CREATE TABLE ScaleTypes (ScaleTypeID INTEGER)"),
                "The database '" + Packs() + "DataPack_A.mdb' has no table or stored query 'Scales'.");
}

TEST_F(BadDataPackTest, RefusesAPackWithoutAKeyField) {
  const std::string unknown = "Item cannot be found in the collection corresponding to the requested name or ordinal.";
  ExpectRefused(MakeForeignPack("DataPack_A.mdb",
                                "CREATE TABLE ScaleTypes (Name); INSERT INTO ScaleTypes VALUES (1);"
                                "CREATE TABLE Scales (ScaleName)"),
                "Table 'ScaleTypes', column 'ScaleTypeID': " + unknown);
  ExpectRefused(MakeForeignPack("DataPack_B.mdb",
                                "CREATE TABLE ScaleTypes (ScaleTypeID);"
                                "CREATE TABLE Scales (Name); INSERT INTO Scales VALUES ('A')"),
                "Table 'Scales', column 'ScaleName': " + unknown);
}

TEST_F(BadDataPackTest, RefusesATypeWithoutANumber) {
  ExpectRefused(MakeForeignPack("DataPack_A.mdb",
                                "CREATE TABLE ScaleTypes (ScaleTypeID); CREATE TABLE Scales (x);"
                                "INSERT INTO ScaleTypes VALUES (NULL)"),
                "Table 'ScaleTypes', row 1, column 'ScaleTypeID': Invalid use of Null");
}

TEST_F(BadDataPackTest, RefusesAStoredQueryInsteadOfATable) {
  ExpectRefused(MakeForeignPack("DataPack_A.mdb",
                                "CREATE TABLE ScaleTypes (ScaleTypeID);"
                                "CREATE VIEW scales AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                                "SELECT i AS ScaleName FROM n"),
                "'Scales' is a stored query in this pack, not a table.");
}

TEST_F(BadDataPackTest, RollsBackAPackThatFailsHalfWay) {
  const std::string pack = MakeForeignPack("DataPack_A.mdb",
                                           "CREATE TABLE ScaleTypes (ScaleTypeID); INSERT INTO ScaleTypes VALUES (300);"
                                           "CREATE TABLE Scales (ScaleName); INSERT INTO Scales VALUES ('A'), (x'00')");
  ExpectRefused(pack, "Table 'Scales', row 2, column 'ScaleName': Type mismatch");
  EXPECT_EQ(Ask("SELECT count(*) FROM ScaleTypes"), "2");
}

TEST_F(BadDataPackTest, RefusesAFolderAnEmptyFileAndInvalidContent) {
  fs::create_directory(Packs() + "DataPack_A.mdb");
  ExpectRefused(Packs() + "DataPack_A.mdb", "'" + Packs() + "DataPack_A.mdb' is a folder, not a database file.");
  for (const std::string& content : {std::string(), std::string(5000, '\7'), std::string("SQLite format 3")}) {
    std::ofstream(Packs() + "DataPack_B.mdb", std::ios::binary) << content;
    ExpectRefused(Packs() + "DataPack_B.mdb", "Unrecognized database format '" + Packs() + "DataPack_B.mdb'.");
  }
}

TEST_F(BadDataPackTest, RefusesAPackOfANewerProgram) {
  const std::string pack = MakePack("DataPack_A.mdb", "PRAGMA user_version = 99");
  Install(pack);
  EXPECT_THAT(Shown(), HasSubstr("was made by a newer version of Tonalith"));
}

TEST_F(BadDataPackTest, FailsWhenTheMainDatabaseIsNotInTheCurrentFolder) {
  const std::string pack = MakePack("DataPack_A.mdb", kAddScale);
  fs::current_path(Packs());
  Install(pack);
  EXPECT_EQ(Shown(), "Error importing " + pack + "\nCould not find file '" + Packs() + "TonalithDB97.mdb'.\n");
}

TEST_F(BadDataPackTest, FailsWhileAnotherProgramWritesTheMainDatabase) {
  const std::string pack = MakePack("DataPack_A.mdb", kAddScale);
  SQLite::Database other(Main(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN IMMEDIATE");
  Install(pack);
  EXPECT_EQ(Shown(), "Error importing " + pack + "\nCould not use '" + Main() + "'; file already in use.\n");
}

TEST_F(BadDataPackTest, RunsNoTriggerOfAPack) {
  const std::string pack =
      MakePack("DataPack_A.mdb", "CREATE TRIGGER Evil AFTER INSERT ON Scales BEGIN DELETE FROM Scales; END;");
  RunRaw(pack,
         "DROP TRIGGER Evil; INSERT INTO Scales (ScaleName) VALUES ('A');"
         "CREATE TRIGGER Evil AFTER INSERT ON Scales BEGIN DELETE FROM Scales; END;");
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "5");
  EXPECT_EQ(AskRaw(pack, "SELECT count(*) FROM Scales"), "1");
}

TEST_F(BadDataPackTest, NeverWritesToAPackOrItsFolder) {
  const std::string plain = MakePack("DataPack_A.mdb", kAddScale);
  const std::string older = MakePack("DataPack_B.mdb", "PRAGMA user_version = 0");
  const std::string logged = MakePack("DataPack_C.mdb", "PRAGMA journal_mode = WAL; PRAGMA user_version = 1");
  const std::string jet = CopyPack(jet::kJet2000, "DataPack_D.mdb");
  for (const std::string& pack : {plain, older, logged, jet}) {
    const std::string before = jet::ContentOfFile(pack);
    const auto time = fs::last_write_time(pack);
    Install(pack);
    EXPECT_EQ(Shown(), Imported(pack));
    EXPECT_EQ(jet::ContentOfFile(pack), before);
    EXPECT_EQ(fs::last_write_time(pack), time);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(Packs()), {}), 4);
}

TEST_F(BadDataPackTest, RefusesADamagedJetPackWithAMessage) {
  std::string content = jet::ContentOfFile(jet::kJet2003);
  content.resize(content.size() - 3 * jet::kJetPage);
  std::ofstream(Packs() + "DataPack_A.mdb", std::ios::binary) << content;
  const std::string before = jet::ContentOfFile(Main());
  Install(Packs() + "DataPack_A.mdb");
  EXPECT_THAT(Shown(), StartsWith("Error importing " + Packs() + "DataPack_A.mdb\nThe file '" + Packs() +
                                  "DataPack_A.mdb' cannot be read: it is "));
  EXPECT_EQ(jet::ContentOfFile(Main()), before);
}

TEST_F(BadDataPackTest, LeavesNoRowsOrFilesWhenKilledHalfWay) {
  const std::string pack = MakePack("DataPack_A.mdb", ManyScales(3000));
  const pid_t process = ::fork();
  if (process == 0) {
    observer_.onProgress = [this] {
      if (observer_.latest >= 2000) ::kill(::getpid(), SIGKILL);
    };
    Install(pack);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(process, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "4");
  Install(pack);
  EXPECT_EQ(Ask("SELECT count(*) FROM Scales"), "3004");
}

TEST_F(BadDataPackTest, ReadsAPathWithSpecialCharactersOfConnectionStrings) {
  for (const char* name : {"DataPack_a;b.mdb", "DataPack_it's.mdb", "DataPack_\"x\".mdb", "DataPack_a=b.mdb"}) {
    const std::string pack = MakePack(name, "");
    Install(pack);
    EXPECT_EQ(Shown(), Imported(pack));
  }
}

}  // namespace
}  // namespace tonalith::data
