// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The open database of a connection. It runs the statements, caches prepared ones, counts them, and converts errors
// into failures with the file name. Private to this room. Owned by its Connection; record sets have weak pointers to
// it.

#pragma once

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/value.h"
#include "data/file_state.h"
#include "data/schema_guard.h"

namespace tonalith::data {

/// The column name of the row number that the engine assigns to each row of a table.
inline constexpr const char* kRowNumber = "_rowid_";
/// Processor time in milliseconds for a statement on a file with a foreign schema, which may need time without end. The
/// time of Tonalith's own schema is limited by the size of the file.
inline constexpr int kForeignStatementMilliseconds = 500;

class Engine {
 public:
  /// Opens an existing file, checks it and upgrades it to the current revision. `path` is absolute. `whileReading`: see
  /// OpenJetCopy.
  Engine(std::string path, bool readOnly, const std::function<void(std::int64_t rows)>& whileReading = {});
  Engine(Engine&& other) noexcept;
  Engine& operator=(Engine&&) = delete;
  ~Engine() = default;

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] bool IsReadOnly() const;
  [[nodiscard]] bool IsOpenedForReading() const { return isOpenedForReading_; }
  /// Whether another connection may use this engine after its connection is closed: not a Jet file, no transaction.
  [[nodiscard]] bool IsReusable() const;
  /// Whether the path still leads to the file that was opened, unchanged and without a journal.
  [[nodiscard]] bool IsFileAsOpened() const;
  /// Throws like opening if another program has the file locked. Not counted as a statement.
  void RequireFreeFile();
  [[nodiscard]] const SchemaGuard& Guard() const { return guard_; }
  /// Sets the maximum size of a field in bytes, for reading and writing. Returns the previous maximum.
  int SetLongestField(int bytes);
  /// Whether the header of the file has the application ID of Tonalith.
  [[nodiscard]] bool IsScaleDatabase() const { return isScaleDatabase_; }

  /// Runs a statement and passes every row to `onRow`, which must not use the engine.
  void Query(const std::string& sql, std::span<const core::Value> bindings,
             const std::function<void(SQLite::Statement&)>& onRow);
  /// Runs a statement that writes.
  void Execute(const std::string& sql, std::span<const core::Value> bindings = {});
  /// Rolls back the open transaction, if there is one.
  void RollBack() noexcept;
  /// The names of the result columns of a statement. Does not run it.
  std::vector<std::string> ColumnNames(const std::string& sql);
  /// Whether `name` is a table with row numbers of the engine in the column kRowNumber.
  bool IsNumberedTable(const std::string& name);

  [[nodiscard]] std::int64_t LastInsertedRow() const { return database_->getLastInsertRowid(); }
  [[nodiscard]] bool IsInTransaction() const;
  /// Increases with every write through this engine, so that a record set knows when its rows may be out of date.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }

  /// The SQLite result code of the latest statement.
  [[nodiscard]] int LatestError() const { return database_->getErrorCode(); }

  static std::uint64_t StatementsIssued();

 private:
  static int OnProgress(void* engine);
  void OpenFile(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading);
  void LimitStatements();
  void OpenDatabase(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading);
  SQLite::Statement& Prepared(const std::string& sql);
  /// Whether a table has used its highest row number. The engine reports that as a full disk.
  bool AreNumbersUsedUp();

  std::string path_;
  std::optional<FileState> fileState_;
  std::unique_ptr<SQLite::Database> database_;
  std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> statements_;
  SchemaGuard guard_;
  std::int64_t deadline_ = 0;
  bool isLimited_ = false;
  bool isScaleDatabase_ = false;
  bool isJetCopy_ = false;
  bool isOpenedForReading_ = false;
  std::uint64_t changes_ = 0;
};

/// Binds a value to a parameter of a statement. `index` starts at 1.
void BindValue(SQLite::Statement& statement, int index, const core::Value& value);

/// The content of a column in the current row of its statement.
core::Value ReadColumn(const SQLite::Column& column);
/// The same, stored in `value`, which reuses its memory for a text.
void ReadColumn(const SQLite::Column& column, core::Value& value);

/// An atomic write. Locks the file for writing at once, or joins a transaction that is already open. The destructor
/// rolls back if Commit was not called.
class WriteGuard {
 public:
  explicit WriteGuard(Engine& engine);
  ~WriteGuard();
  WriteGuard(const WriteGuard&) = delete;
  WriteGuard& operator=(const WriteGuard&) = delete;
  void Commit();

 private:
  Engine& engine_;
  bool isOpen_;
};

}  // namespace tonalith::data
