// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "stress/library.h"

#include <sqlite3.h>

#include <algorithm>
#include <set>
#include <stdexcept>

namespace tonalith::stress {
namespace {

constexpr int kBusyMilliseconds = 5000;

Cell ColumnOf(sqlite3_stmt* row, int index) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, index));
  if (text == nullptr) return std::nullopt;
  return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(row, index)));
}

/// Runs one statement and passes every row to `onRow`.
template <class OnRow>
void ForEachRow(sqlite3* database, const std::string& statement, OnRow&& onRow) {
  sqlite3_stmt* prepared = nullptr;
  int result = sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr);
  while (result == SQLITE_OK && (result = sqlite3_step(prepared)) == SQLITE_ROW) {
    onRow(prepared);
    result = SQLITE_OK;
  }
  sqlite3_finalize(prepared);
  if (result != SQLITE_DONE) throw std::runtime_error(std::string("the library: ") + sqlite3_errmsg(database));
}

}  // namespace

std::string FoldedName(const std::string& name) {
  std::string folded = name;
  std::transform(folded.begin(), folded.end(), folded.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return folded;
}

LibraryFile::LibraryFile(const std::string& path, Open open) {
  const int flags = open == Open::kForReading ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  if (sqlite3_open_v2(path.c_str(), &database_, flags, nullptr) != SQLITE_OK) {
    const std::string message = sqlite3_errmsg(database_);
    sqlite3_close(database_);
    throw std::runtime_error(path + ": " + message);
  }
  sqlite3_busy_timeout(database_, kBusyMilliseconds);
}

LibraryFile::~LibraryFile() { sqlite3_close(database_); }

Library LibraryFile::Read() const {
  Library library;
  ForEachRow(database_,
             "SELECT ScaleID, ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, Sort "
             "FROM Scales",
             [&](sqlite3_stmt* row) {
               Scale scale;
               for (std::size_t i = 0; i < scale.size(); ++i) scale[i] = ColumnOf(row, static_cast<int>(i) + 1);
               library.scales.emplace(sqlite3_column_int64(row, 0), std::move(scale));
             });
  ForEachRow(database_, "SELECT ScaleTypeID, ScaleTypeName FROM ScaleTypes",
             [&](sqlite3_stmt* row) { library.types.emplace(sqlite3_column_int64(row, 0), ColumnOf(row, 1)); });
  return library;
}

std::int64_t LibraryFile::Version() const {
  std::int64_t version = 0;
  ForEachRow(database_, "PRAGMA data_version", [&](sqlite3_stmt* row) { version = sqlite3_column_int64(row, 0); });
  return version;
}

std::string LibraryFile::IntegrityErrors() const {
  std::string complaint;
  ForEachRow(database_, "PRAGMA integrity_check", [&](sqlite3_stmt* row) {
    const Cell message = ColumnOf(row, 0);
    if (message != "ok") complaint += message.value_or("?") + "; ";
  });
  ForEachRow(database_, "PRAGMA foreign_key_check",
             [&](sqlite3_stmt* row) { complaint += "a foreign key of " + ColumnOf(row, 0).value_or("?") + "; "; });
  ForEachRow(database_,
             "SELECT ScaleID FROM Scales WHERE ScaleTypeID NOT IN (SELECT ScaleTypeID FROM ScaleTypes) OR "
             "ScaleTypeID IS NULL",
             [&](sqlite3_stmt* row) { complaint += "scale " + ColumnOf(row, 0).value_or("?") + " has no type; "; });
  return complaint;
}

void LibraryFile::Run(const std::string& statements) const {
  if (sqlite3_exec(database_, statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(std::string("the library: ") + sqlite3_errmsg(database_));
  }
}

std::vector<Cell> LibraryFile::Query(const std::string& statement) const {
  std::vector<Cell> cells;
  ForEachRow(database_, statement, [&](sqlite3_stmt* row) {
    for (int i = 0; i < sqlite3_column_count(row); ++i) cells.push_back(ColumnOf(row, i));
  });
  return cells;
}

Library Merged(Library library, const Library& pack, std::int64_t latest) {
  for (const auto& [number, name] : pack.types) library.types.emplace(number, name);
  std::set<std::string> names;
  for (const auto& [number, scale] : library.scales) names.insert(FoldedName(scale[column::kName].value_or("")));
  for (const auto& [number, scale] : pack.scales) {
    if (names.insert(FoldedName(scale[column::kName].value_or(""))).second) library.scales.emplace(++latest, scale);
  }
  return library;
}

}  // namespace tonalith::stress
