// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Files that cannot be read, and that reading changes nothing.

#include <gmock/gmock.h>

#include <filesystem>

#include "catalogue/catalogue.h"
#include "catalogue/library_fixture.h"
#include "jet/jet_fixture.h"
#include "support/failure_of.h"

namespace tonalith::catalogue {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string RefusalOf(const std::string& path) {
  return tests::FailureOf([&] { return Read(path).Size(); }).Description();
}

std::vector<std::string> FilesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  return names;
}

TEST(LibraryFiles, StayAsTheyAreAlsoIfTheyAreOlder) {
  const LibraryFolder folder;
  for (const char* const version : {"1", "2"}) {
    const std::string name = std::string(version) + ".mdb";
    const std::string path = folder.Make(name);
    folder.Run(name, "DROP INDEX ScalesByTypeAndSort; PRAGMA user_version = " + std::string(version));
    const std::string bytes = BytesOf(path);
    const auto time = fs::last_write_time(path);
    EXPECT_EQ(Read(path).Size(), 4U);
    EXPECT_EQ(Read(path).DescriptionAt(0), "Bright.");
    EXPECT_EQ(BytesOf(path), bytes);
    EXPECT_EQ(fs::last_write_time(path), time);
  }
  EXPECT_THAT(FilesIn(folder.Path()), ::testing::UnorderedElementsAre("1.mdb", "2.mdb"));
}

TEST(LibraryFiles, WithAWriteAheadLogStayAsTheyAre) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  folder.Run("a.mdb", "PRAGMA journal_mode = WAL");
  EXPECT_EQ(Read(path).Size(), 4U);
  EXPECT_THAT(FilesIn(folder.Path()), ElementsAre("a.mdb"));
}

TEST(LibraryFiles, MayBeReadOnly) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  fs::permissions(path, fs::perms::owner_read);
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(Read(path).Size(), 4U);
  fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST(LibraryFiles, OfJetAreRead) {
  const Catalogue catalogue = Read(jet::kJet2000);
  EXPECT_THAT(Names(catalogue), Contains("Ferryman's Lament"));
  EXPECT_FALSE(catalogue.NotesAt(0).IsEmpty());
}

TEST(LibraryFiles, ThatAreMissingAreNamed) {
  const LibraryFolder folder;
  EXPECT_EQ(RefusalOf(folder / "none.mdb"), "Could not find file '" + folder / "none.mdb" + "'.");
  EXPECT_FALSE(fs::exists(folder / "none.mdb"));
  EXPECT_THAT(RefusalOf(folder.Path().string()), HasSubstr("folder"));
}

TEST(LibraryFiles, ThatAreLockedAreInUse) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  SQLite::Database writer(path, SQLite::OPEN_READWRITE);
  writer.exec("BEGIN EXCLUSIVE");
  EXPECT_THAT(RefusalOf(path), HasSubstr("in use"));
  writer.exec("ROLLBACK");
  EXPECT_EQ(Read(path).Size(), 4U);
}

TEST(LibraryFiles, ThatAreDamagedAreRefused) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  const std::string bytes = BytesOf(path);
  std::string damaged = bytes;
  // All pages after the header.
  std::fill(damaged.begin() + 100, damaged.end(), '\x5A');
  for (const std::string& content : {std::string("no database"), bytes.substr(0, bytes.size() - 100), damaged}) {
    std::ofstream(path, std::ios::binary) << content;
    EXPECT_THAT(RefusalOf(path), HasSubstr(path)) << content.size();
  }
}

TEST(LibraryFiles, OfOtherProgramsSayWhatIsMissing) {
  const LibraryFolder folder;
  const std::string path = folder / "other.db";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("CREATE TABLE Songs (Name)");
  EXPECT_THAT(RefusalOf(path), HasSubstr("ScaleTypes"));
}

TEST(LibraryFiles, WithStoredQueriesInsteadOfTablesAreRefused) {
  const LibraryFolder folder;
  const std::string path = folder / "other.db";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(
          "CREATE TABLE ScaleTypes (ScaleTypeID, ScaleTypeName); CREATE VIEW Scales AS WITH RECURSIVE n(i) AS "
          "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i AS ScaleID, 'a' AS ScaleName, 1 AS ScaleTypeID, "
          "'66' AS ScaleIntervals FROM n");
  EXPECT_THAT(RefusalOf(path), HasSubstr("Scales"));
}

TEST(LibraryFiles, OfNewerVersionsAreRefused) {
  const LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  folder.Run("a.mdb", "PRAGMA user_version = 99");
  EXPECT_THAT(RefusalOf(path), HasSubstr("99"));
}

TEST(LibraryFiles, PacksThatCannotBeReadAreLeftOutWhole) {
  const LibraryFolder folder;
  const std::string library = folder.Make("library.mdb");
  const std::string types = "INSERT INTO ScaleTypes VALUES (1, 1, 'Rare');";
  // The second row has a name beyond the limit.
  const std::string bad =
      folder.Make("bad.mdb", types +
                                 "INSERT INTO Scales VALUES (1, 'One', 1, '', 'C', '66', 0, 1), "
                                 "(2, replace(hex(zeroblob(300)), '00', 'a'), 1, '', 'C', '66', 0, 1);");
  const std::string good =
      folder.Make("good.mdb", types + "INSERT INTO Scales VALUES (3, 'One', 1, '', 'C', '93', 0, 1)");
  std::vector<PackProblem> problems;
  const std::vector<std::string> packs{bad, folder / "none.mdb", good};
  const Catalogue catalogue = ReadCatalogue(library, packs, problems);
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_EQ(problems[0].path, bad);
  EXPECT_THAT(problems[0].failure.Description(), HasSubstr("row 2"));
  ASSERT_EQ(catalogue.Size(), 5U);
  EXPECT_EQ(catalogue.NameAt(4), "One");
  EXPECT_EQ(catalogue.At(4).pattern, "93");
  EXPECT_EQ(catalogue.At(4).type, "Rare");
}

}  // namespace
}  // namespace tonalith::catalogue
