// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Databases with damaged pages, and one that states a larger size than it has.

#include <filesystem>
#include <fstream>
#include <sstream>

#include "data_fixture.h"

namespace tonalith::data {
namespace {

constexpr std::size_t kPageSize = 4096;
constexpr int kScales = 400;

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

/// The number of rows of an iteration, or -1 if it fails. More rows than in the table mean an endless iteration.
int Walk(const DatabaseFolder& folder, void (RecordSet::*begin)(), void (RecordSet::*step)()) {
  try {
    RecordSet records;
    records.Open("SELECT * FROM Scales", folder.Open());
    (records.*begin)();
    int rows = 0;
    while (!records.IsEof() && !records.IsBof() && rows <= kScales) {
      ++rows;
      (records.*step)();
    }
    return rows;
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Description(), "Unrecognized database format '" + folder.Path() + "'.");
    return -1;
  }
}

TEST(DamagedDatabase, IsReadToTheEndOrRefusedIfPagesAreZero) {
  const DatabaseFolder folder(ManyScales(kScales));
  const std::string whole = ContentOf(folder.Path());
  int refused = 0;
  for (std::size_t page = 4; page * kPageSize < whole.size(); ++page) {
    std::string damaged = whole;
    damaged.replace(page * kPageSize + kPageSize / 2, kPageSize / 2, kPageSize / 2, '\0');
    std::ofstream(folder.Path(), std::ios::binary) << damaged;
    for (const int rows : {Walk(folder, &RecordSet::MoveFirst, &RecordSet::MoveNext),
                           Walk(folder, &RecordSet::MoveLast, &RecordSet::MovePrevious)}) {
      EXPECT_LE(rows, kScales) << "page " << page;
      refused += rows < 0 ? 1 : 0;
    }
  }
  EXPECT_GT(refused, 4);
}

TEST(DamagedDatabase, FieldThatWouldTakeAllMemoryIsAFailure) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "CREATE VIEW Huge AS SELECT 1 AS ScaleID, hex(zeroblob(400000000)) AS ScaleName");
  RecordSet records;
  EXPECT_EQ(FailureOf([&] { records.Open("SELECT ScaleID, ScaleName FROM Huge", folder.Open()); }).Description(),
            "The database '" + folder.Path() + "' reports: string or blob too big.");
}

TEST(StaleJournal, IsRemovedIfItHasNothingToRollBack) {
  for (const std::size_t size : {0U, 512U}) {
    const DatabaseFolder folder;
    std::ofstream(folder.Path() + "-journal") << std::string(size, '\0');
    EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
    Connection().Open(FullConnectionString(folder.Path()));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() + "-journal")) << size;
  }
}

TEST(StaleJournal, IsNotTheJournalOfAWriter) {
  const DatabaseFolder folder;
  SQLite::Database writer(folder.Path(), SQLite::OPEN_READWRITE);
  writer.exec("PRAGMA synchronous = OFF; BEGIN; DELETE FROM Scales");
  ASSERT_TRUE(std::filesystem::exists(folder.Path() + "-journal"));
  Connection().Open(FullConnectionString(folder.Path()));
  EXPECT_TRUE(std::filesystem::exists(folder.Path() + "-journal"));
  writer.exec("ROLLBACK");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

}  // namespace
}  // namespace tonalith::data
