// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The tables of a Jet file as tables of the database engine. Field names and content do not change; text comparison
// ignores the ASCII case. Throws core::Failure or SQLite::Exception.

#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "jet/jet_file.h"

namespace tonalith::data {

/// The definition of a column in CREATE TABLE.
std::string ColumnDefinition(const jet::JetColumn& column);

void CreateTableFor(SQLite::Database& database, const jet::JetTable& table);

/// Adds rows to a table that has at least the columns of `table`.
class JetRowWriter {
 public:
  JetRowWriter(SQLite::Database& database, const jet::JetTable& table);
  void Write(const std::vector<core::Value>& values);

 private:
  SQLite::Statement insert_;
};

/// The content of a Jet file in a temporary read-only database, with a stored query ScalesQuery if the file has one. It
/// is stored in a temporary file, so memory use does not depend on the size. `whileReading` is called with the number
/// of rows read so far, as often as ChildProcess calls `whileWaiting`.
std::unique_ptr<SQLite::Database> OpenJetCopy(const std::string& path,
                                              const std::function<void(std::int64_t rows)>& whileReading = {});

}  // namespace tonalith::data
