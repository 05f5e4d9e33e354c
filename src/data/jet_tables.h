// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The tables of a Jet file as tables of the database engine. A field keeps its name and its content; text compares
// without regard to ASCII case. Borrowed databases stay with their owner; one thread. Fails by throwing core::Failure
// or, out of the engine, SQLite::Exception.

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

/// A column as it stands in CREATE TABLE.
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

/// What a Jet file holds, in a private database that is gone when it is closed and takes no changes. A stored query
/// ScalesQuery comes along where the file has one. Its pages lie in a temporary file, so memory does not grow with
/// them. `whileReading` is called with the rows read so far, as ChildProcess calls.
std::unique_ptr<SQLite::Database> OpenJetCopy(const std::string& path,
                                              const std::function<void(std::int64_t rows)>& whileReading = {});

}  // namespace tonalith::data
