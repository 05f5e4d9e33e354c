// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/data_failure.h"

#include <SQLiteCpp/Exception.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "data/data_fixture.h"
#include "data/messages.h"

namespace tonalith::data {
namespace {

struct Report {
  int code;
  std::string words;
};

std::string Described(int code, const std::string& words = "words of the engine") {
  return FromEngine(SQLite::Exception(words, code), "/a/b.mdb").Description();
}

TEST(DataFailure, DescribesTheErrorsOfTheEngineForAFile) {
  const std::string kInUse = "Could not use '/a/b.mdb'; file already in use.";
  const std::string kNoAccess = "The file '/a/b.mdb' or its folder does not allow this access.";
  const std::string kUnknown = "Unrecognized database format '/a/b.mdb'.";
  const std::vector<Report> reports{
      {SQLITE_BUSY, kInUse},
      {SQLITE_BUSY_SNAPSHOT, kInUse},
      {SQLITE_LOCKED, kInUse},
      {SQLITE_READONLY, "Cannot update. The database '/a/b.mdb' or its folder is read-only."},
      {SQLITE_CANTOPEN, kNoAccess},
      {SQLITE_PERM, kNoAccess},
      {SQLITE_AUTH, kNoAccess},
      {SQLITE_FULL, "The disk that holds '/a/b.mdb' is full. Nothing was saved."},
      {SQLITE_IOERR, "The file '/a/b.mdb' could not be read or written, because the disk reports an error."},
      {SQLITE_IOERR_WRITE, "The file '/a/b.mdb' could not be read or written, because the disk reports an error."},
      {SQLITE_CORRUPT, kUnknown},
      {SQLITE_NOTADB, kUnknown},
      {SQLITE_NOMEM, "Out of memory"},
      {SQLITE_MISMATCH, "Type mismatch"},
      {SQLITE_CONSTRAINT, "The record was not saved: words of the engine."},
      {SQLITE_TOOBIG, "The database '/a/b.mdb' reports: words of the engine."}};
  for (const Report& report : reports) EXPECT_EQ(Described(report.code), report.words) << report.code;
}

TEST(DataFailure, HasTheUsualNumbersForMemoryAndTypes) {
  EXPECT_EQ(FromEngine(SQLite::Exception("words", SQLITE_NOMEM), "").Number(), core::failure_number::kOutOfMemory);
  EXPECT_EQ(FromEngine(SQLite::Exception("words", SQLITE_MISMATCH), "").Number(), 13);
  EXPECT_EQ(FromEngine(SQLite::Exception("words", SQLITE_FULL), "").Number(), core::failure_number::kUnspecified);
}

TEST(DataFailure, HasTheNumbersThatProgramsTestFor) {
  const std::vector<std::int32_t> numbers{failure_number::kNoCurrentRecord, failure_number::kNotAllowedHere,
                                          failure_number::kNotSupported,    failure_number::kUnknownItem,
                                          failure_number::kClosed,          failure_number::kAlreadyOpen,
                                          failure_number::kUnknownProvider, failure_number::kInvalidConnection,
                                          failure_number::kCancelled,       failure_number::kInvalidBookmark,
                                          failure_number::kUnknownField,    failure_number::kSyntax,
                                          failure_number::kUnknownTable,    failure_number::kRowVanished,
                                          failure_number::kRowChanged,      failure_number::kNotAuthorised,
                                          failure_number::kNoTransaction,   failure_number::kTransactionActive};
  const std::vector<std::int32_t> expected{3021,        3219,        3251,        3265,        3704,
                                           3705,        3706,        3709,        3712,        -2147217906,
                                           -2147217904, -2147217900, -2147217865, -2147217864, -2147217863,
                                           -2147217843, -2147168242, -2147168237};
  EXPECT_EQ(numbers, expected);
}

TEST(DataFailure, OfATriggerIsAMessageOfTheCatalogue) {
  const DatabaseFolder folder;
  try {
    RunRaw(folder.Path(), "UPDATE ScalesQuery SET ScaleName = '' WHERE ScaleID = 1");
    FAIL() << "the trigger did not run";
  } catch (const SQLite::Exception& exception) {
    EXPECT_EQ(FromEngine(exception, "any").Text().Text(), core::Message(MessageId::kNameNeeded).Text());
  }
}

TEST(DataFailure, NamesTheRuleThatARecordViolates) {
  const DatabaseFolder folder;
  SQLite::Database database(folder.Path(), SQLite::OPEN_READWRITE);
  database.exec("CREATE TABLE Rules (Id INTEGER PRIMARY KEY, Name TEXT NOT NULL, Age INTEGER CHECK (Age > 0))");
  const auto reported = [&database](const char* statement) -> std::string {
    try {
      database.exec(statement);
    } catch (const SQLite::Exception& exception) {
      return FromEngine(exception, "any").Description();
    }
    return "nothing";
  };
  EXPECT_EQ(reported("INSERT INTO Rules VALUES (1, 'a', 1)"), "nothing");
  EXPECT_EQ(reported("INSERT INTO Rules VALUES (1, 'b', 1)"),
            "The record was not saved, because another record has the same key.");
  EXPECT_EQ(reported("INSERT INTO Rules VALUES (2, NULL, 1)"),
            "The record was not saved: NOT NULL constraint failed: Rules.Name.");
  EXPECT_EQ(reported("INSERT INTO Rules VALUES (2, 'b', 0)"),
            "The record was not saved: CHECK constraint failed: Age > 0.");
}

}  // namespace
}  // namespace tonalith::data
