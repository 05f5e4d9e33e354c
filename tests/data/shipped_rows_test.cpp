// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/shipped_rows.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "data_fixture.h"
#include "support/timed.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::uint64_t Mark(std::initializer_list<std::string_view> fields) {
  RowHash hash;
  for (const std::string_view field : fields) hash.Add(field);
  return hash.Get();
}

/// Three rows of kFourScales in another version: one with a new name, one with a new description, and one with the
/// earlier name of the first.
std::array<ShippedRow, 3> Rows() {
  std::array<ShippedRow, 3> rows = {{
      {Mark({"Major", "1", "Bright.", "C", "2212221", "0"}), "Ionian", "Bright and open."},
      {Mark({"Minor", "1", "Dark.", "A", "2122122", "0"}), "Minor", "Dark and low."},
      {Mark({"Minor triad", "2", "Sad.", "C", "345", "1"}), "Major", "Three notes."},
  }};
  std::sort(rows.begin(), rows.end(),
            [](const ShippedRow& a, const ShippedRow& b) { return a.earlierHash < b.earlierHash; });
  return rows;
}

constexpr const char* kAll =
    "SELECT group_concat(ScaleID || ScaleName || ':' || ifnull(ScaleDescription, '-'), ' ') FROM "
    "(SELECT * FROM Scales ORDER BY ScaleID)";
constexpr const char* kRenewed = "1Ionian:Bright and open. 2Minor:Dark and low. 4Major triad:- 7Major:Three notes.";

TEST(ShippedRows, GetTheCurrentNamesAndDescriptions) {
  const DatabaseFolder folder;
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_EQ(AskRaw(folder.Path(), kAll), kRenewed);
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(ScaleIntervals || Chord || Sort) FROM Scales"),
            "221222101,212212202,43511,34512");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT Revision || ',' || MinimumRevision FROM Revisions"), "3,2");
  EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA user_version"), "2");
  EXPECT_EQ(folder.Open()->NoticeText().English(), "");
}

TEST(ShippedRows, StayIfTheUserHasChangedThem) {
  for (const char* change : {"ScaleName = 'My major'", "ScaleDescription = 'Mine.'", "ScaleIntervals = '66'",
                             "ScaleTypeID = 2", "StartNote = 'D'", "Chord = 1"}) {
    const DatabaseFolder folder;
    RunRaw(folder.Path(), std::string("DELETE FROM Scales WHERE ScaleID > 1; UPDATE Scales SET ") + change);
    const std::string before = AskRaw(folder.Path(), kAll);
    RenewShippedRows(folder.Path(), Rows());
    EXPECT_EQ(AskRaw(folder.Path(), kAll), before) << change;
  }
}

TEST(ShippedRows, DoNotGetTheNameOfAnotherScale) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleName = 'IONIAN' WHERE ScaleID = 4");
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_EQ(AskRaw(folder.Path(), kAll), "1Major:Bright. 2Minor:Dark and low. 4IONIAN:- 7Minor triad:Sad.");
}

TEST(ShippedRows, AreUpdatedOnceSoThatAUserMayRevertThem) {
  const DatabaseFolder folder;
  RenewShippedRows(folder.Path(), Rows());
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleName = 'Major', ScaleDescription = 'Bright.' WHERE ScaleID = 1");
  const std::string before = ContentOf(folder.Path());
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_EQ(ContentOf(folder.Path()), before);
}

TEST(ShippedRows, AreUpdatedLaterIfTheLibraryCannotBeWrittenNow) {
  const DatabaseFolder folder;
  {
    SQLite::Database other(folder.Path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    RenewShippedRows(folder.Path(), Rows());
  }
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Major");
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_EQ(AskRaw(folder.Path(), kAll), kRenewed);
}

TEST(ShippedRows, DoNotChangeOtherFiles) {
  const tests::TempFolder folder;
  EXPECT_NO_THROW(RenewShippedRows(folder / "none.mdb", Rows()));
  EXPECT_FALSE(fs::exists(folder / "none.mdb"));
  const std::string text = folder.Write("text.mdb", std::string(5000, 'x'));
  EXPECT_NO_THROW(RenewShippedRows(text, Rows()));
  EXPECT_EQ(ContentOf(text), std::string(5000, 'x'));
  const DatabaseFolder cut;
  fs::resize_file(cut.Path(), fs::file_size(cut.Path()) - 1);
  const std::string whole = ContentOf(cut.Path());
  RenewShippedRows(cut.Path(), Rows());
  EXPECT_EQ(ContentOf(cut.Path()), whole);
  const DatabaseFolder stranger;
  RunRaw(stranger.Path(), "PRAGMA application_id = 0");
  const std::string before = ContentOf(stranger.Path());
  RenewShippedRows(stranger.Path(), Rows());
  EXPECT_EQ(ContentOf(stranger.Path()), before);
}

TEST(ShippedRows, RunNoForeignTrigger) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "CREATE TRIGGER Bomb AFTER UPDATE ON Scales BEGIN DELETE FROM Scales; END");
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_EQ(AskRaw(folder.Path(), kAll), kRenewed);
}

TEST(ShippedRows, AreNotUpdatedIfTheFileCalculatesWithoutEnd) {
  const DatabaseFolder folder;
  // Each row takes some milliseconds.
  RunRaw(folder.Path(),
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
         "INSERT INTO Scales (ScaleName) SELECT i FROM n;"
         "ALTER TABLE Scales RENAME COLUMN StartNote TO Note;"
         "ALTER TABLE Scales ADD COLUMN StartNote AS (replace(hex(zeroblob(7000000 + ScaleID)), '0', '1'))");
  const auto start = std::chrono::steady_clock::now();
  RenewShippedRows(folder.Path(), Rows());
  EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::seconds(1)));
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM sqlite_schema WHERE name = 'Revisions'"), "0");
}

TEST(ShippedRows, AreTheOldOrTheNewOnesAfterAKillAtAnyStep) {
  const DatabaseFolder folder;
  const std::string before = AskRaw(folder.Path(), kAll);
  int renewed = 0;
  for (int delay = 0; delay < 40; ++delay) {
    const DatabaseFolder copy;
    const pid_t child = ::fork();
    if (child == 0) {
      RenewShippedRows(copy.Path(), Rows());
      ::_exit(0);
    }
    // The kill comes at another moment in each round.
    ::usleep(static_cast<useconds_t>(delay) * 250);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    SQLite::Database(copy.Path(), SQLite::OPEN_READWRITE).execAndGet("SELECT count(*) FROM Scales");
    const std::string now = AskRaw(copy.Path(), kAll);
    EXPECT_TRUE(now == before || now == kRenewed) << now;
    renewed += now == kRenewed ? 1 : 0;
  }
  RecordProperty("renewed", renewed);
}

TEST(ShippedRows, OfTheProgramAreSortedAndContainTheFirstRow) {
  const std::span<const ShippedRow> rows = ShippedRows();
  ASSERT_GT(rows.size(), 100U);
  EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(),
                             [](const ShippedRow& a, const ShippedRow& b) { return a.earlierHash < b.earlierHash; }));
  const std::uint64_t major =
      Mark({"Major", "1",
            "The measure by which Western music names everything else: bright, settled and singable. As a mode it is "
            "called Ionian; its sixth note starts the relative minor.",
            "C", "2212221", "0"});
  const auto found =
      std::find_if(rows.begin(), rows.end(), [&](const ShippedRow& row) { return row.earlierHash == major; });
  ASSERT_NE(found, rows.end());
  EXPECT_EQ(found->name, "Major");
}

}  // namespace
}  // namespace tonalith::data
