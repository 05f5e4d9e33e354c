// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/shipped_rows.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <algorithm>
#include <map>
#include <vector>

#include "core/failure.h"
#include "data/database_file.h"
#include "data/formula_tables.h"
#include "data/long_fields.h"
#include "data/processor_time.h"
#include "data/schema.h"
#include "jet/jet_file.h"

namespace tonalith::data {
namespace {

/// Milliseconds of processor time, because the window is not visible yet. 100,000 rows need a third of it; calculated
/// columns and indexes in an untrusted file may need any time.
constexpr int kLongestRenewal = 500;

/// Interrupts statements that take longer.
class TimeLimit {
 public:
  explicit TimeLimit(sqlite3* handle) : handle_(handle), end_(ProcessorMilliseconds() + kLongestRenewal) {
    constexpr int kStepsBetweenChecks = 100;
    sqlite3_progress_handler(handle_, kStepsBetweenChecks, &TimeLimit::OnProgress, this);
  }
  ~TimeLimit() { sqlite3_progress_handler(handle_, 0, nullptr, nullptr); }
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

 private:
  static int OnProgress(void* limit) {
    return ProcessorMilliseconds() > static_cast<const TimeLimit*>(limit)->end_ ? 1 : 0;
  }

  sqlite3* handle_;
  std::int64_t end_;
};

/// The current row for each number of a row to update.
using Renewals = std::map<std::int64_t, const ShippedRow*>;

// Names that differ only in case are equal.
bool HasName(SQLite::Database& database, const ShippedRow& row, const Renewals& renewals) {
  SQLite::Statement owners(database, "SELECT ScaleID FROM Scales WHERE ScaleName = ? COLLATE NOCASE");
  owners.bind(1, std::string(row.name));
  while (owners.executeStep()) {
    if (!renewals.contains(owners.getColumn(0).getInt64())) return true;
  }
  return false;
}

bool HasLongField(SQLite::Statement& row) {
  for (int i = 1; i < row.getColumnCount(); ++i) {
    if (row.getColumn(i).getBytes() > kLongestFieldInBlock) return true;
  }
  return false;
}

Renewals FindRows(SQLite::Database& database, std::span<const ShippedRow> rows) {
  Renewals renewals;
  SQLite::Statement scales(database,
                           "SELECT ScaleID, ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord "
                           "FROM Scales");
  while (scales.executeStep()) {
    // No shipped row has a longer field, and its hash would take too long.
    if (HasLongField(scales)) continue;
    RowHash hash;
    for (int i = 1; i < scales.getColumnCount(); ++i) hash.Add(scales.getColumn(i).getString());
    const auto found = std::lower_bound(rows.begin(), rows.end(), hash.Get(),
                                        [](const ShippedRow& row, auto wanted) { return row.earlierHash < wanted; });
    if (found != rows.end() && found->earlierHash == hash.Get()) {
      renewals.emplace(scales.getColumn(0).getInt64(), &*found);
    }
  }
  return renewals;
}

// A name that the user has given to another scale is not used again.
void LeaveOutTakenNames(SQLite::Database& database, Renewals& renewals) {
  std::vector<std::int64_t> taken;
  do {
    taken.clear();
    for (const auto& [scaleId, row] : renewals) {
      if (HasName(database, *row, renewals)) taken.push_back(scaleId);
    }
    for (const std::int64_t scaleId : taken) renewals.erase(scaleId);
  } while (!taken.empty());
}

void Write(SQLite::Database& database, const Renewals& renewals) {
  SQLite::Statement update(database, "UPDATE Scales SET ScaleName = ?, ScaleDescription = ? WHERE ScaleID = ?");
  for (const auto& [scaleId, row] : renewals) {
    update.bind(1, std::string(row->name));
    update.bind(2, std::string(row->description));
    update.bind(3, scaleId);
    update.exec();
    update.reset();
  }
}

/// The entries of this version in Revisions.
struct Revisions {
  bool hasRenewedRows = false;
  bool hasFormulas = false;
};

Revisions ReadRevisions(SQLite::Database& database) {
  Revisions revisions;
  if (!database.tableExists("Revisions")) return revisions;
  SQLite::Statement found(database, "SELECT Revision FROM Revisions WHERE Revision IN (?, ?)");
  found.bind(1, kRenewedRowsRevision);
  found.bind(2, kFormulasRevision);
  while (found.executeStep()) {
    const int revision = found.getColumn(0).getInt();
    revisions.hasRenewedRows |= revision == kRenewedRowsRevision;
    revisions.hasFormulas |= revision == kFormulasRevision;
  }
  return revisions;
}

void Record(SQLite::Database& database, int revision) {
  if (!database.tableExists("Revisions")) database.exec(std::string(kCreateRevisions));
  SQLite::Statement record(database, "INSERT INTO Revisions VALUES (?, ?)");
  record.bind(1, revision);
  record.bind(2, static_cast<int>(SchemaRevisions().size()));
  record.exec();
}

void Renew(SQLite::Database& database, std::span<const ShippedRow> rows) {
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  if (ReadRevisions(database).hasRenewedRows) return;
  Renewals renewals = FindRows(database, rows);
  LeaveOutTakenNames(database, renewals);
  Write(database, renewals);
  Record(database, kRenewedRowsRevision);
  transaction.commit();
}

void AddShippedFormulas(SQLite::Database& database, std::string_view formulas) {
  SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
  if (ReadRevisions(database).hasFormulas) return;
  AddFormulas(database, formulas);
  Record(database, kFormulasRevision);
  transaction.commit();
}

}  // namespace

void RenewShippedRows(const std::string& path, std::span<const ShippedRow> rows, std::string_view formulas) {
  try {
    const std::string file = RequireDatabaseFile(path);
    if (jet::IsJetFile(file)) return;
    SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    sqlite3* const handle = database.getHandle();
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestField);
    const TimeLimit limit(handle);
    RequireWholePages(file, database.execAndGet("PRAGMA page_size").getInt());
    const bool isOurs =
        database.execAndGet("PRAGMA application_id").getInt() == kApplicationId &&
        database.execAndGet("PRAGMA user_version").getInt() == static_cast<int>(SchemaRevisions().size());
    if (!isOurs || sqlite3_db_readonly(handle, "main") != 0) return;
    const Revisions revisions = ReadRevisions(database);
    if (!revisions.hasRenewedRows) Renew(database, rows);
    // The formulas are found by the current names.
    if (!revisions.hasFormulas) AddShippedFormulas(database, formulas);
  } catch (const SQLite::Exception&) {
    // The library is opened next, which reports the error.
    return;
  } catch (const core::Failure&) {
    return;
  }
}

}  // namespace tonalith::data
