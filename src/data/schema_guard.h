// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Keeps what others wrote into a file's schema from running. The tables are read as they are. Where the stored query is
// not ours, the connection gets ours for as long as it is open. Triggers that are not ours never run. The file stays as
// it is. With a stored query and triggers of tables that are both not ours, scales can only be read. Private to the
// data room. Fails by throwing SQLite::Exception.

#pragma once

#include <string>

namespace SQLite {  // NOLINT(readability-identifier-naming): the library's name
class Database;
}

namespace tonalith::data {

struct SchemaGuard {
  /// Whether every table, index, view and trigger is as a revision of ours makes it.
  bool isOurs = true;
  /// Whether our stored query took the place of one that the file has in another form.
  bool replacesQuery = false;
  /// Whether the file has triggers of others, which never run.
  bool stopsTriggers = false;
  /// Whether scales can only be read, because the stored query and triggers of tables are both not ours.
  bool stopsWriting = false;
  /// The name of a table of ours if the file has a view in its place, which may need any time and memory.
  std::string viewAsTable;
};

/// Looks at the schema of an open file and puts ours in the place of what is not ours.
SchemaGuard GuardSchema(SQLite::Database& database);

}  // namespace tonalith::data
