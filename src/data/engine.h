// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The open database behind a connection: the one place of this room that runs statements. It keeps prepared statements
// for reuse, counts what it is asked, and turns what goes wrong into failures that name the file. Private to the data
// room; owned by its Connection, watched by the record sets; one thread.

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

/// What a statement calls the number that the engine itself gives to a row of a table.
inline constexpr const char* kRowNumber = "_rowid_";
/// Milliseconds of computing that a statement may take in a file whose schema is not ours. Ours cannot ask for more
/// than the file holds; a stranger's can ask for anything.
inline constexpr int kForeignStatementMilliseconds = 500;

class Engine {
 public:
  /// Opens an existing file whose path is absolute, checks it and brings it to the present revision.
  /// `whileReading` is called as OpenJetCopy calls it, for a Jet file alone.
  Engine(std::string path, bool readOnly, const std::function<void(std::int64_t rows)>& whileReading = {});
  Engine(Engine&& other) noexcept;
  Engine& operator=(Engine&&) = delete;
  ~Engine() = default;

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] bool IsReadOnly() const;
  [[nodiscard]] bool IsOpenedForReading() const { return isOpenedForReading_; }
  /// Whether another connection may have this one's place when it is closed: an ordinary file, between transactions.
  [[nodiscard]] bool IsReusable() const;
  /// Whether the path leads to the file that was opened, unchanged since and with nothing beside it.
  [[nodiscard]] bool IsFileAsOpened() const;
  /// Throws as opening does when another program holds the file. Is not counted as a question.
  void RequireFreeFile();
  [[nodiscard]] const SchemaGuard& Guard() const { return guard_; }
  /// Bytes of a field that can be read or written from now on; gives the number that held before.
  int SetLongestField(int bytes);
  /// Whether the file's header says that it is a scale database of this program.
  [[nodiscard]] bool IsScaleDatabase() const { return isScaleDatabase_; }

  /// Runs a statement and hands every row to `onRow`, which must not use the engine.
  void Query(const std::string& sql, std::span<const core::Value> bindings,
             const std::function<void(SQLite::Statement&)>& onRow);
  /// Runs a statement that writes.
  void Execute(const std::string& sql, std::span<const core::Value> bindings = {});
  /// Undoes the transaction that is under way, if there is one.
  void RollBack() noexcept;
  /// The names of the columns that a statement would give. Runs nothing.
  std::vector<std::string> ColumnNames(const std::string& sql);
  /// Whether `name` is a table whose rows have a number of the engine's own, which answers to kRowNumber.
  bool IsNumberedTable(const std::string& name);

  [[nodiscard]] std::int64_t LastInsertedRow() const { return database_->getLastInsertRowid(); }
  [[nodiscard]] bool IsInTransaction() const;
  /// Grows with every write through this engine, so that a record set knows when what it holds may be out of date.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }

  /// The engine's own code for how the latest statement ended.
  [[nodiscard]] int LatestError() const { return database_->getErrorCode(); }

  static std::uint64_t StatementsIssued();

 private:
  static int OnProgress(void* engine);
  void OpenFile(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading);
  void LimitStatements();
  void OpenDatabase(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading);
  SQLite::Statement& Prepared(const std::string& sql);
  /// Whether a table has given its highest number. The engine reports that as a full disk.
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

/// Puts a value in the place of a statement's parameter; the first one is number 1.
void BindValue(SQLite::Statement& statement, int index, const core::Value& value);

/// The content of a column of the row on which its statement stands.
core::Value ReadColumn(const SQLite::Column& column);
/// The same into `value`, where a text takes the place of another without new memory.
void ReadColumn(const SQLite::Column& column, core::Value& value);

/// A write that is whole or not at all. Takes the file for writing at once, unless a transaction is under way already,
/// of which it then is a part. Undone by its destructor if Commit was not reached.
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
