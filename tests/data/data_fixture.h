// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Shared by the tests of this room: small scale databases in a temporary folder, raw queries on a file, and record sets
// formatted as text.

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "data/connection.h"
#include "data/record_set.h"
#include "data/scale_database.h"
#include "data/schema.h"
#include "support/failure_of.h"
#include "support/temp_folder.h"

namespace tonalith::data {

using tests::FailureOf;

/// Runs SQL of the engine on a file, without the code under test.
inline void RunRaw(const std::string& path, const std::string& sql) {
  SQLite::Database(path, SQLite::OPEN_READWRITE, 1000).exec(sql);
}

/// The first column of the first row of a raw query, as text.
inline std::string AskRaw(const std::string& path, const std::string& sql) {
  SQLite::Database database(path, SQLite::OPEN_READONLY, 1000);
  return database.execAndGet(sql).getString();
}

inline constexpr const char* kFourScales = R"sql(
  INSERT INTO ScaleTypes VALUES (1, 10, 'Common scales'), (2, 20, 'Triads');
  INSERT INTO Scales VALUES
    (1, 'Major', 1, 'Bright.', 'C', '2212221', 0, 1),
    (2, 'Minor', 1, 'Dark.', 'A', '2122122', 0, 2),
    (4, 'Major triad', 2, NULL, 'C', '435', 1, 1),
    (7, 'Minor triad', 2, 'Sad.', 'C', '345', 1, 2);
)sql";

/// A folder with a database at Path(), filled with the given rows.
class DatabaseFolder {
 public:
  explicit DatabaseFolder(const std::string& rows = kFourScales) {
    CreateScaleDatabase(Path());
    if (!rows.empty()) RunRaw(Path(), rows);
  }

  [[nodiscard]] std::string Folder() const { return folder_.Path().string(); }
  [[nodiscard]] std::string Path() const { return folder_ / kDatabaseFileName; }

  [[nodiscard]] std::shared_ptr<Connection> Open() const {
    auto connection = std::make_shared<Connection>();
    connection->Open(FullConnectionString(Path()));
    return connection;
  }

 private:
  tests::TempFolder folder_;
};

/// Scales 1 to `count`, every one of type 1.
inline std::string ManyScales(int count) {
  return "INSERT INTO ScaleTypes VALUES (1, 10, 'Common scales');"
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
         std::to_string(count) +
         ") INSERT INTO Scales SELECT i, 'Scale ' || i, 1, 'The description of scale number ' || i || ', a sentence of "
         "the length that such sentences have.', 'C', '2212221', 0, i FROM n;";
}

inline std::string FieldText(const RecordSet& records, int index) { return records.FieldValue(index).TextOr("(null)"); }

/// The name of the current row, or "(no rows)", "(BOF)" or "(EOF)".
inline std::string Here(const RecordSet& records) {
  if (records.IsBof() && records.IsEof()) return "(no rows)";
  if (records.IsBof()) return "(BOF)";
  if (records.IsEof()) return "(EOF)";
  return records.FieldValue("ScaleName").TextOr("(null)");
}

/// All rows from the first on, one a line, the named fields separated by " | ".
inline std::string Lines(RecordSet& records, std::initializer_list<const char*> fields) {
  std::string text;
  if (records.IsBof() && records.IsEof()) return text;
  for (records.MoveFirst(); !records.IsEof(); records.MoveNext()) {
    std::string line;
    for (const char* field : fields) {
      line += (line.empty() ? "" : " | ") + records.FieldValue(field).TextOr("(null)");
    }
    text += line + "\n";
  }
  return text;
}

}  // namespace tonalith::data
