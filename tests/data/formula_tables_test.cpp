// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The upgrade of a library: the scales of the shipped content get their formulas and aliases.

#include "data/formula_tables.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>

#include "data/schema_guard.h"
#include "data/shipped_rows.h"
#include "data_fixture.h"
#include "jet/jet_fixture.h"
#include "support/timed.h"

namespace tonalith::data {
namespace {

using jet::ContentOfFile;

constexpr const char* kLines =
    "Major\t2212221\t1 2 3 4 5 6 7\tIonian mode; Dur\n"
    "Minor\t2122122\t1 2 b3 4 5 b6 b7\t\n"
    "Minor triad\t345\t1 b3 5\tm\n"
    "Elsewhere\t66\t1 b5\tNowhere\n";

constexpr const char* kFormulas =
    "SELECT ifnull(group_concat(ScaleID || ScaleName || ScaleIntervals || ':' || Formula, ', '), '') FROM "
    "(SELECT * FROM ScaleFormulas ORDER BY ScaleID)";
constexpr const char* kAliases =
    "SELECT ifnull(group_concat(ScaleID || '.' || Place || ScaleName || ScaleIntervals || ':' || Alias, ', '), '') "
    "FROM ScaleAliases";
constexpr const char* kTables =
    "SELECT count(*) FROM sqlite_schema WHERE name IN ('ScaleFormulas', 'ScaleAliases', 'Revisions')";
constexpr const char* kScales = "SELECT group_concat(quote(ScaleName) || quote(ScaleDescription) || Sort) FROM Scales";
constexpr const char* kAllFormulas =
    "1Major2212221:1 2 3 4 5 6 7, 2Minor2122122:1 2 b3 4 5 b6 b7, 7Minor triad345:1 b3 5";

void Upgrade(const DatabaseFolder& folder) { RenewShippedRows(folder.Path(), {}, kLines); }

TEST(FormulaTables, ContainTheScalesWithAShippedNameAndPattern) {
  const DatabaseFolder folder;
  const std::string before = AskRaw(folder.Path(), kScales);
  Upgrade(folder);
  EXPECT_EQ(AskRaw(folder.Path(), kFormulas), kAllFormulas);
  EXPECT_EQ(AskRaw(folder.Path(), kAliases), "1.0Major2212221:Ionian mode, 1.1Major2212221:Dur, 7.0Minor triad345:m");
  EXPECT_EQ(AskRaw(folder.Path(), kScales), before);
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT MinimumRevision FROM Revisions WHERE Revision = 4"), "2");
  EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA user_version"), "2");
}

TEST(FormulaTables, HaveTheirColumns) {
  const DatabaseFolder folder;
  Upgrade(folder);
  const std::string columns = "SELECT group_concat(name || ' ' || type || ' ' || pk) FROM pragma_table_info(";
  EXPECT_EQ(AskRaw(folder.Path(), columns + "'ScaleFormulas')"),
            "ScaleID INTEGER 1,ScaleName TEXT 0,ScaleIntervals TEXT 0,Formula TEXT 0");
  EXPECT_EQ(AskRaw(folder.Path(), columns + "'ScaleAliases')"),
            "ScaleID INTEGER 1,Place INTEGER 2,ScaleName TEXT 0,ScaleIntervals TEXT 0,Alias TEXT 0");
}

TEST(FormulaTables, BelongToTonaliths) {
  const DatabaseFolder folder;
  Upgrade(folder);
  EXPECT_EQ(folder.Open()->NoticeText().English(), "");
  SQLite::Database database(folder.Path(), SQLite::OPEN_READWRITE);
  EXPECT_TRUE(GuardSchema(database).isOurs);
  database.exec("ALTER TABLE ScaleFormulas ADD COLUMN Other TEXT");
  EXPECT_FALSE(GuardSchema(database).isOurs);
}

TEST(FormulaTables, LeaveOutScalesThatTheUserHasChanged) {
  for (const char* change : {"ScaleName = 'MAJOR'", "ScaleName = 'My major'", "ScaleIntervals = '66'",
                             "ScaleIntervals = '2212221 '", "ScaleIntervals = NULL", "ScaleName = NULL"}) {
    const DatabaseFolder folder;
    RunRaw(folder.Path(), std::string("DELETE FROM Scales WHERE ScaleID > 1; UPDATE Scales SET ") + change);
    Upgrade(folder);
    EXPECT_EQ(AskRaw(folder.Path(), kFormulas), "") << change;
    EXPECT_EQ(AskRaw(folder.Path(), kAliases), "") << change;
  }
}

TEST(FormulaTables, ContainTheCurrentNamesOfEarlierRows) {
  const DatabaseFolder folder;
  RowHash hash;
  for (const char* field : {"Major", "1", "Bright.", "C", "2212221", "0"}) hash.Add(field);
  const ShippedRow row{hash.Get(), "Ionian", "Bright and open."};
  RenewShippedRows(folder.Path(), {&row, 1}, "Ionian\t2212221\t1 2 3 4 5 6 7\tMajor\n");
  EXPECT_EQ(AskRaw(folder.Path(), kFormulas), "1Ionian2212221:1 2 3 4 5 6 7");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(Revision) FROM Revisions"), "3,4");
}

TEST(FormulaTables, AreAddedToALibraryWhoseRowsAreUpdatedAlready) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), std::string(kCreateRevisions) + "; INSERT INTO Revisions VALUES (3, 2)");
  Upgrade(folder);
  EXPECT_EQ(AskRaw(folder.Path(), kFormulas), kAllFormulas);
}

TEST(FormulaTables, AreAddedOnce) {
  const DatabaseFolder folder;
  Upgrade(folder);
  RunRaw(folder.Path(), "DELETE FROM ScaleFormulas WHERE ScaleID = 1");
  const std::string before = ContentOfFile(folder.Path());
  Upgrade(folder);
  EXPECT_EQ(ContentOfFile(folder.Path()), before);
}

TEST(FormulaTables, AreAddedLaterIfTheLibraryCannotBeWrittenNow) {
  const DatabaseFolder folder;
  {
    SQLite::Database other(folder.Path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    Upgrade(folder);
  }
  EXPECT_EQ(AskRaw(folder.Path(), kTables), "0");
  Upgrade(folder);
  EXPECT_EQ(AskRaw(folder.Path(), kFormulas), kAllFormulas);
}

// The rows are updated nevertheless.
TEST(FormulaTables, OfAnotherProgramStayAsTheyAre) {
  for (const char* other : {"CREATE TABLE ScaleFormulas (x)", "CREATE TABLE ScaleAliases (Alias TEXT)",
                            "CREATE VIEW ScaleFormulas AS SELECT * FROM Scales"}) {
    const DatabaseFolder folder;
    RunRaw(folder.Path(), other);
    const std::string schema = "SELECT group_concat(name) FROM sqlite_schema WHERE name <> 'Revisions'";
    const std::string before = AskRaw(folder.Path(), schema);
    Upgrade(folder);
    EXPECT_EQ(AskRaw(folder.Path(), schema), before) << other;
    EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(Revision) FROM Revisions"), "3");
    EXPECT_NO_THROW(folder.Open());
  }
}

TEST(FormulaTables, RunNoForeignTrigger) {
  const DatabaseFolder folder;
  Upgrade(folder);
  RunRaw(folder.Path(),
         "DELETE FROM Revisions WHERE Revision = 4;"
         "CREATE TRIGGER Bomb AFTER INSERT ON ScaleFormulas BEGIN DELETE FROM Scales; END");
  Upgrade(folder);
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

TEST(FormulaTables, AreNotAddedIfTheFileCalculatesWithoutEnd) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(),
         std::string(kCreateRevisions) +
             "; INSERT INTO Revisions VALUES (3, 2);"
             "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
             "INSERT INTO Scales (ScaleName) SELECT i FROM n;"
             "ALTER TABLE Scales RENAME COLUMN ScaleIntervals TO Pattern;"
             "ALTER TABLE Scales ADD COLUMN ScaleIntervals AS (replace(hex(zeroblob(7000000 + ScaleID)), '0', '1'))");
  const auto start = std::chrono::steady_clock::now();
  Upgrade(folder);
  EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::seconds(1)));
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM sqlite_schema WHERE name = 'ScaleFormulas'"), "0");
}

TEST(FormulaTables, AreCompleteOrMissingAfterAKillAtAnyStep) {
  for (int delay = 0; delay < 40; ++delay) {
    const DatabaseFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
      Upgrade(folder);
      ::_exit(0);
    }
    // The kill comes at another moment in each round.
    ::usleep(static_cast<useconds_t>(delay) * 250);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    SQLite::Database(folder.Path(), SQLite::OPEN_READWRITE).execAndGet("SELECT count(*) FROM Scales");
    const std::string tables = AskRaw(folder.Path(), kTables);
    if (tables == "3") {
      EXPECT_EQ(AskRaw(folder.Path(), kFormulas), kAllFormulas);
    } else {
      EXPECT_TRUE(tables == "0" || tables == "1") << tables;
    }
    Upgrade(folder);
    EXPECT_EQ(AskRaw(folder.Path(), kFormulas), kAllFormulas);
  }
}

TEST(FormulaTables, OfTheProgramHaveALineForEveryScale) {
  const std::string_view lines = ShippedFormulas();
  EXPECT_GT(std::count(lines.begin(), lines.end(), '\n'), 700);
  EXPECT_TRUE(lines.starts_with("Major\t2212221\t1 2 3 4 5 6 7\tNatural major; "));
  EXPECT_NE(lines.find("\nMajor 7 (maj7)\t4341\t1 3 5 7\t"), std::string_view::npos);
}

}  // namespace
}  // namespace tonalith::data
