// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Prevents foreign code in the schema of a file from running. If the stored query is not Tonalith's, the connection
// gets a temporary one. Foreign triggers never run. The file is not changed. If both the stored query and triggers of
// tables are foreign, scales are read-only. Throws SQLite::Exception. Private to this room.

#pragma once

#include <string>

namespace SQLite {  // NOLINT(readability-identifier-naming): the library's name
class Database;
}

namespace tonalith::data {

struct SchemaGuard {
  /// Whether every table, index, view and trigger is as a revision of Tonalith creates it.
  bool isOurs = true;
  /// Whether Tonalith's stored query replaces a different one of the file.
  bool replacesQuery = false;
  /// Whether the file has foreign triggers, which never run.
  bool stopsTriggers = false;
  /// Whether scales are read-only, because the stored query and triggers of tables are both foreign.
  bool stopsWriting = false;
  /// The name of a required table if it is a view in the file, which may need any time and memory.
  std::string viewAsTable;
};

/// Checks the schema of an open file and replaces foreign objects for this connection.
SchemaGuard GuardSchema(SQLite::Database& database);

}  // namespace tonalith::data
