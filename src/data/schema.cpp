// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/schema.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "data/data_failure.h"
#include "data/messages.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

// Revision 1. Scale numbers are never reused, so that the bookmark of a deleted scale cannot refer to another one. The
// cross join fixes the order of the loops, scales by number and then their type, so rows are ordered without sorting.
//
// The triggers check only the fields that a write changes, so that an invalid row can be corrected one field at a time.
constexpr const char* kRevision1 = R"sql(
CREATE TABLE ScaleTypes (
  ScaleTypeID INTEGER PRIMARY KEY NOT NULL,
  ScaleTypeNo INTEGER,
  ScaleTypeName TEXT COLLATE NOCASE
);

CREATE TABLE Scales (
  ScaleID INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  ScaleName TEXT COLLATE NOCASE,
  ScaleTypeID INTEGER,
  ScaleDescription TEXT,
  StartNote TEXT DEFAULT 'C',
  ScaleIntervals TEXT,
  Chord INTEGER DEFAULT 0,
  Sort INTEGER DEFAULT 0
);

CREATE INDEX ScalesByName ON Scales (ScaleName);

CREATE VIEW ScalesQuery AS
SELECT Scales.ScaleID AS ScaleID, Scales.ScaleName AS ScaleName, Scales.ScaleTypeID AS ScaleTypeID,
       Scales.ScaleDescription AS ScaleDescription, Scales.StartNote AS StartNote,
       Scales.ScaleIntervals AS ScaleIntervals, Scales.Chord AS Chord, Scales.Sort AS Sort,
       ScaleTypes.ScaleTypeNo AS ScaleTypeNo, ScaleTypes.ScaleTypeName AS ScaleTypeName
FROM Scales CROSS JOIN ScaleTypes ON ScaleTypes.ScaleTypeID = Scales.ScaleTypeID
ORDER BY Scales.ScaleID;

CREATE TRIGGER ScalesQueryInsert INSTEAD OF INSERT ON ScalesQuery
BEGIN
  SELECT RAISE(ABORT, 'The scale needs a name.') WHERE trim(ifnull(NEW.ScaleName, '')) = '';
  SELECT RAISE(ABORT, 'There is a scale of this name already.')
    WHERE EXISTS (SELECT 1 FROM Scales WHERE ScaleName = NEW.ScaleName);
  SELECT RAISE(ABORT, 'The interval pattern may hold digits and blanks only.')
    WHERE NEW.ScaleIntervals GLOB '*[^0-9 ]*';
  SELECT RAISE(ABORT, 'There is no scale type of this number.')
    WHERE NOT EXISTS (SELECT 1 FROM ScaleTypes WHERE ScaleTypeID = NEW.ScaleTypeID);
  SELECT RAISE(ABORT, 'The sort order number has to be a whole number.')
    WHERE CAST(CAST(NEW.Sort AS INTEGER) AS TEXT) <> CAST(NEW.Sort AS TEXT);
  SELECT RAISE(ABORT, 'The number and name of a scale type cannot be changed through a scale.')
    FROM ScaleTypes WHERE ScaleTypeID = NEW.ScaleTypeID
    AND (NEW.ScaleTypeNo <> ScaleTypeNo OR NEW.ScaleTypeName COLLATE BINARY <> ScaleTypeName);
  SELECT RAISE(ABORT, 'There is a scale of this number already.')
    WHERE EXISTS (SELECT 1 FROM Scales WHERE ScaleID = NEW.ScaleID);
  INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort)
  VALUES (NEW.ScaleID, NEW.ScaleName, NEW.ScaleTypeID, NEW.ScaleDescription, ifnull(NEW.StartNote, 'C'),
          NEW.ScaleIntervals, CASE WHEN NEW.Chord THEN 1 ELSE 0 END,
          ifnull(NEW.Sort, (SELECT ifnull(max(Sort), 0) + 1 FROM Scales WHERE ScaleTypeID = NEW.ScaleTypeID)));
END;

CREATE TRIGGER ScalesQueryUpdate INSTEAD OF UPDATE ON ScalesQuery
BEGIN
  SELECT RAISE(ABORT, 'The number of a scale cannot be changed.') WHERE NEW.ScaleID IS NOT OLD.ScaleID;
  SELECT RAISE(ABORT, 'The scale needs a name.')
    WHERE NEW.ScaleName COLLATE BINARY IS NOT OLD.ScaleName AND trim(ifnull(NEW.ScaleName, '')) = '';
  SELECT RAISE(ABORT, 'There is a scale of this name already.')
    WHERE NEW.ScaleName COLLATE BINARY IS NOT OLD.ScaleName
    AND EXISTS (SELECT 1 FROM Scales WHERE ScaleName = NEW.ScaleName AND ScaleID <> OLD.ScaleID);
  SELECT RAISE(ABORT, 'The interval pattern may hold digits and blanks only.')
    WHERE NEW.ScaleIntervals IS NOT OLD.ScaleIntervals AND NEW.ScaleIntervals GLOB '*[^0-9 ]*';
  SELECT RAISE(ABORT, 'There is no scale type of this number.')
    WHERE NOT EXISTS (SELECT 1 FROM ScaleTypes WHERE ScaleTypeID = NEW.ScaleTypeID);
  SELECT RAISE(ABORT, 'The sort order number has to be a whole number.')
    WHERE NEW.Sort IS NOT OLD.Sort AND CAST(CAST(NEW.Sort AS INTEGER) AS TEXT) <> CAST(NEW.Sort AS TEXT);
  SELECT RAISE(ABORT, 'The number and name of a scale type cannot be changed through a scale.')
    FROM ScaleTypes WHERE ScaleTypeID = NEW.ScaleTypeID
    AND ((NEW.ScaleTypeNo IS NOT OLD.ScaleTypeNo AND NEW.ScaleTypeNo IS NOT ScaleTypeNo) OR
         (NEW.ScaleTypeName COLLATE BINARY IS NOT OLD.ScaleTypeName AND
          NEW.ScaleTypeName COLLATE BINARY IS NOT ScaleTypeName));
  UPDATE Scales SET ScaleName = NEW.ScaleName, ScaleTypeID = NEW.ScaleTypeID,
    ScaleDescription = NEW.ScaleDescription, StartNote = NEW.StartNote, ScaleIntervals = NEW.ScaleIntervals,
    Chord = CASE WHEN NEW.Chord IS OLD.Chord THEN OLD.Chord WHEN NEW.Chord THEN 1 ELSE 0 END, Sort = NEW.Sort
  WHERE ScaleID = OLD.ScaleID;
END;

CREATE TRIGGER ScalesQueryDelete INSTEAD OF DELETE ON ScalesQuery
BEGIN
  DELETE FROM Scales WHERE ScaleID = OLD.ScaleID;
END;
)sql";

// Revision 2. Finds the last scale of a type without reading the others. As integers, because sort numbers are compared
// as integers even if a table contains something else.
constexpr const char* kRevision2 = R"sql(
CREATE INDEX ScalesByTypeAndSort ON Scales (ScaleTypeID, CAST(Sort AS INTEGER));
)sql";

constexpr std::array<SchemaRevision, 2> kRevisions = {{{kRevision1}, {kRevision2}}};

int UserVersion(SQLite::Database& database) { return database.execAndGet("PRAGMA user_version").getInt(); }

void Apply(SQLite::Database& database, std::span<const SchemaRevision> revisions) {
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  for (auto revision = static_cast<std::size_t>(UserVersion(database)); revision < revisions.size(); ++revision) {
    database.exec(revisions[revision].statements);
  }
  database.exec("PRAGMA user_version = " + std::to_string(revisions.size()));
  transaction.commit();
}

// The revision is not the cause: the file is in use, its folder or disk cannot be written, or its pages are damaged.
bool IsEnvironmentError(const SQLite::Exception& exception) {
  constexpr int kPrimary = 0xFF;
  constexpr std::array kCodes = {SQLITE_BUSY,     SQLITE_LOCKED, SQLITE_PERM,  SQLITE_READONLY,
                                 SQLITE_CANTOPEN, SQLITE_FULL,   SQLITE_IOERR, SQLITE_CORRUPT};
  return std::find(kCodes.begin(), kCodes.end(), exception.getErrorCode() & kPrimary) != kCodes.end();
}

// Does not wait for another program that is writing: the next connection tries again.
void ApplyIfPossible(SQLite::Database& database, std::span<const SchemaRevision> revisions) {
  const int timeout = database.execAndGet("PRAGMA busy_timeout").getInt();
  database.setBusyTimeout(0);
  try {
    Apply(database, revisions);
  } catch (const SQLite::Exception& exception) {
    if (!IsEnvironmentError(exception)) throw;
  }
  database.setBusyTimeout(timeout);
}

// Creates the file exclusively, so that an existing database is never changed by mistake.
void MakeNewFile(const std::string& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file < 0) {
    if (errno == EEXIST) throw core::Failure::Unspecified({MessageId::kFileExists, path});
    throw core::Failure::Unspecified({MessageId::kFileNotMade, path, std::generic_category().message(errno)});
  }
  ::close(file);
}

// Only statements are separated by an empty line.
void AddObjects(std::string_view statements, std::vector<std::string>& objects) {
  constexpr std::string_view kEnd = ";\n";
  while (!statements.empty()) {
    std::size_t end = statements.find(";\n\n");
    if (end == std::string_view::npos) end = statements.rfind(kEnd);
    const std::size_t begin = statements.find_first_not_of('\n');
    objects.emplace_back(statements.substr(begin, end - begin));
    statements.remove_prefix(std::min(statements.find_first_not_of('\n', end + 1), statements.size()));
  }
}

}  // namespace

const std::vector<std::string>& SchemaObjects() {
  static const std::vector<std::string> kObjects = [] {
    std::vector<std::string> objects;
    for (const SchemaRevision& revision : kRevisions) AddObjects(revision.statements, objects);
    return objects;
  }();
  return kObjects;
}

std::span<const SchemaRevision> SchemaRevisions() { return kRevisions; }

void CreateScaleDatabase(const std::filesystem::path& path) {
  MakeNewFile(path.string());
  try {
    SQLite::Database database(std::filesystem::absolute(path).string(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    UpgradeSchema(database, path.string());
  } catch (const SQLite::Exception& exception) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    throw FromEngine(exception, path.string());
  }
}

void UpgradeSchema(SQLite::Database& database, const std::string& path, std::span<const SchemaRevision> revisions) {
  if (database.execAndGet("PRAGMA application_id").getInt() != kApplicationId) return;
  const int last = static_cast<int>(revisions.size());
  const int found = UserVersion(database);
  if (found == last) return;
  if (found > last || found < 0) {
    throw core::Failure::Unspecified({MessageId::kNewerVersion, path, found, last});
  }
  // A read-only file is not upgraded.
  if (sqlite3_db_readonly(database.getHandle(), "main") == 1) return;
  if (found == 0) {
    Apply(database, revisions);
  } else {
    ApplyIfPossible(database, revisions);
  }
}

const char* StoredQueryKey(const std::string& name) { return SameName(name, "ScalesQuery") ? "ScaleID" : nullptr; }

}  // namespace tonalith::data
