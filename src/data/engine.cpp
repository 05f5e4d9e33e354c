// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/engine.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>
#include <type_traits>

#include "data/connection.h"
#include "data/data_failure.h"
#include "data/database_file.h"
#include "data/jet_tables.h"
#include "data/long_fields.h"
#include "data/processor_time.h"
#include "data/read_only_file.h"
#include "data/schema.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"
#include "jet/jet_file.h"

namespace tonalith::data {
namespace {

constexpr std::size_t kCachedStatements = 16;

std::atomic<std::uint64_t> statementsIssued = 0;

// An empty journal, or one that starts with a zero byte, has nothing to roll back (SQLite database file format,
// section 3).
bool IsEmptyJournal(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return file.is_open() && file.get() <= 0;
}

// A program that was killed before its first write to the journal was complete leaves a journal with nothing to roll
// back, which the engine ignores. While this function has the write lock, no other connection uses the journal.
void RemoveStaleJournal(SQLite::Database& database, const std::string& path) {
  const std::string journal = path + "-journal";
  if (!FileState::Of(journal)) return;
  database.setBusyTimeout(0);
  if (database.tryExec("BEGIN IMMEDIATE") == SQLITE_OK) {
    std::error_code ignored;
    if (IsEmptyJournal(journal)) std::filesystem::remove(journal, ignored);
    database.exec("ROLLBACK");
  }
  database.setBusyTimeout(kBusyMilliseconds);
}

// A statement is bound again before each use, so it may refer to a value that only outlives this use.
void BindInPlace(SQLite::Statement& statement, int index, const core::Value& value) {
  if (const auto* const text = std::get_if<std::string>(&value.Raw())) {
    statement.bindNoCopy(index, *text);
  } else {
    BindValue(statement, index, value);
  }
}

// Resets a cached statement at the end of the scope.
class Reset {
 public:
  explicit Reset(SQLite::Statement& statement) : statement_(statement) {}
  ~Reset() { statement_.tryReset(); }
  Reset(const Reset&) = delete;
  Reset& operator=(const Reset&) = delete;

 private:
  SQLite::Statement& statement_;
};

}  // namespace

Engine::Engine(std::string path, bool readOnly, const std::function<void(std::int64_t rows)>& whileReading)
    : path_(std::move(path)), isOpenedForReading_(readOnly) {
  try {
    const std::optional<FileState> before = FileState::Of(path_);
    OpenFile(readOnly, whileReading);
    fileState_ = FileState::Of(path_);
    // A file that was changed meanwhile may not be the one that was opened.
    if (fileState_ != before) fileState_.reset();
  } catch (const SQLite::Exception& exception) {
    throw FromEngine(exception, path_);
  }
}

void Engine::OpenDatabase(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading) {
  isJetCopy_ = jet::IsJetFile(path_);
  if (isJetCopy_) {
    database_ = OpenJetCopy(path_, whileReading);
  } else if (readOnly) {
    database_ = OpenForReading(path_);
  } else {
    database_ =
        std::make_unique<SQLite::Database>(path_, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, kBusyMilliseconds);
  }
}

void Engine::OpenFile(bool readOnly, const std::function<void(std::int64_t rows)>& whileReading) {
  OpenDatabase(readOnly, whileReading);
  sqlite3* handle = database_->getHandle();
  // The file is untrusted: its schema must not have side effects.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  // A calculated field needs no space in the file and could use all memory.
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestField);
  // The first read rolls back a hot journal and prevents writes by others.
  database_->exec("BEGIN");
  const std::int32_t applicationId = database_->execAndGet("PRAGMA application_id").getInt();
  if (!isJetCopy_) RequireWholePages(path_, database_->execAndGet("PRAGMA page_size").getInt());
  database_->exec("COMMIT");
  if (!isJetCopy_ && !readOnly) RemoveStaleJournal(*database_, path_);
  isScaleDatabase_ = applicationId == kApplicationId;
  UpgradeSchema(*database_, path_);
  // A copy of a Jet file has no views except our own.
  if (!isJetCopy_) guard_ = GuardSchema(*database_);
  // The import of packs checks files that are only read, with other messages.
  if (!readOnly && !guard_.viewAsTable.empty()) throw ViewAsTable(path_, guard_.viewAsTable);
  LimitStatements();
  // In KiB. Record sets cache their own rows, so more would waste memory.
  database_->exec("PRAGMA cache_size = -512");
}

Engine::Engine(Engine&& other) noexcept
    : path_(std::move(other.path_)),
      fileState_(other.fileState_),
      database_(std::move(other.database_)),
      statements_(std::move(other.statements_)),
      guard_(other.guard_),
      isScaleDatabase_(other.isScaleDatabase_),
      isJetCopy_(other.isJetCopy_),
      isOpenedForReading_(other.isOpenedForReading_),
      changes_(other.changes_) {
  LimitStatements();
}

int Engine::OnProgress(void* engine) {
  return ProcessorMilliseconds() > static_cast<const Engine*>(engine)->deadline_ ? 1 : 0;
}

// The callback has a pointer to this object, so a move sets it again.
void Engine::LimitStatements() {
  // One step may create a field of kLongestField bytes, which takes some milliseconds.
  constexpr int kStepsBetweenChecks = 200;
  // The import of packs, which opens files for reading, has its own limits.
  isLimited_ = !guard_.isOurs && !isOpenedForReading_;
  if (isLimited_) sqlite3_progress_handler(database_->getHandle(), kStepsBetweenChecks, &Engine::OnProgress, this);
}

int Engine::SetLongestField(int bytes) { return sqlite3_limit(database_->getHandle(), SQLITE_LIMIT_LENGTH, bytes); }

bool Engine::IsReadOnly() const { return isJetCopy_ || sqlite3_db_readonly(database_->getHandle(), "main") == 1; }

bool Engine::IsInTransaction() const { return sqlite3_get_autocommit(database_->getHandle()) == 0; }

bool Engine::IsReusable() const { return !isJetCopy_ && fileState_ && !IsInTransaction(); }

bool Engine::IsFileAsOpened() const {
  if (!fileState_ || FileState::Of(path_) != fileState_) return false;
  return !FileState::Of(path_ + "-journal") && !FileState::Of(path_ + "-wal");
}

void Engine::RequireFreeFile() {
  try {
    SQLite::Statement& statement = Prepared("SELECT 1 FROM sqlite_schema LIMIT 1");
    const Reset reset(statement);
    statement.executeStep();
  } catch (const SQLite::Exception& exception) {
    throw FromEngine(exception, path_);
  }
}

std::uint64_t Engine::StatementsIssued() { return statementsIssued; }

SQLite::Statement& Engine::Prepared(const std::string& sql) {
  const auto known = statements_.find(sql);
  if (known != statements_.end()) return *known->second;
  auto statement = std::make_unique<SQLite::Statement>(*database_, sql);
  if (statements_.size() >= kCachedStatements) statements_.clear();
  return *statements_.emplace(sql, std::move(statement)).first->second;
}

void Engine::Query(const std::string& sql, std::span<const core::Value> bindings,
                   const std::function<void(SQLite::Statement&)>& onRow) {
  try {
    SQLite::Statement& statement = Prepared(sql);
    const Reset reset(statement);
    ++statementsIssued;
    if (isLimited_) deadline_ = ProcessorMilliseconds() + kForeignStatementMilliseconds;
    for (std::size_t i = 0; i < bindings.size(); ++i) BindInPlace(statement, static_cast<int>(i) + 1, bindings[i]);
    while (statement.executeStep()) onRow(statement);
  } catch (const SQLite::Exception& exception) {
    if (exception.getErrorCode() == SQLITE_FULL && AreNumbersUsedUp()) throw NumbersUsedUp(path_);
    if (exception.getErrorCode() == SQLITE_TOOBIG) {
      const core::Failure failure = FromEngine(exception, path_);
      throw FieldTooLong(failure.Number(), failure.Text());
    }
    throw FromEngine(exception, path_);
  }
}

bool Engine::AreNumbersUsedUp() {
  try {
    SQLite::Statement numbers(*database_,
                              "SELECT 1 FROM sqlite_sequence WHERE seq = ?1 UNION ALL "
                              "SELECT 1 FROM Scales WHERE _rowid_ = ?1");
    numbers.bind(1, std::numeric_limits<std::int64_t>::max());
    return numbers.executeStep();
  } catch (const SQLite::Exception&) {
    // The table does not exist or cannot be read: the cause is another one.
    return false;
  }
}

void Engine::Execute(const std::string& sql, std::span<const core::Value> bindings) {
  ++changes_;
  Query(sql, bindings, [](SQLite::Statement&) {});
}

void Engine::RollBack() noexcept {
  if (!IsInTransaction()) return;
  ++changes_;
  // If this fails, the journal undoes the write when the file is opened again.
  database_->tryExec("ROLLBACK");
}

std::vector<std::string> Engine::ColumnNames(const std::string& sql) {
  try {
    SQLite::Statement& statement = Prepared(sql);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(statement.getColumnCount()));
    for (int i = 0; i < statement.getColumnCount(); ++i) names.emplace_back(statement.getColumnName(i));
    return names;
  } catch (const SQLite::Exception& exception) {
    throw FromEngine(exception, path_);
  }
}

bool Engine::IsNumberedTable(const std::string& name) {
  const int found = sqlite3_table_column_metadata(database_->getHandle(), "main", name.c_str(), kRowNumber, nullptr,
                                                  nullptr, nullptr, nullptr, nullptr);
  if (found != SQLITE_OK) return false;
  if (isScaleDatabase_) return true;
  // A foreign table may have a column of this name with any content.
  for (const std::string& column : ColumnNames("SELECT * FROM " + QuoteName(name))) {
    if (SameName(column, kRowNumber)) return false;
  }
  return true;
}

void BindValue(SQLite::Statement& statement, int index, const core::Value& value) {
  std::visit(
      [&](const auto& content) {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, std::monostate>) {
          statement.bind(index);
        } else if constexpr (std::is_same_v<Content, core::Bytes>) {
          statement.bind(index, content.data(), static_cast<int>(content.size()));
        } else {
          statement.bind(index, content);
        }
      },
      value.Raw());
}

void ReadColumn(const SQLite::Column& column, core::Value& value) {
  switch (column.getType()) {
    case SQLITE_INTEGER:
      value = column.getInt64();
      break;
    case SQLITE_FLOAT:
      value = column.getDouble();
      break;
    case SQLITE_TEXT: {
      const char* const text = column.getText();
      value.SetText({text, static_cast<std::size_t>(column.getBytes())});
      break;
    }
    case SQLITE_BLOB: {
      const auto* begin = static_cast<const std::uint8_t*>(column.getBlob());
      value = begin == nullptr ? core::Bytes{} : core::Bytes(begin, begin + column.getBytes());
      break;
    }
    default:
      value = core::Value::Null();
  }
}

core::Value ReadColumn(const SQLite::Column& column) {
  core::Value value;
  ReadColumn(column, value);
  return value;
}

WriteGuard::WriteGuard(Engine& engine) : engine_(engine), isOpen_(!engine.IsInTransaction()) {
  if (isOpen_) engine_.Execute("BEGIN IMMEDIATE");
}

WriteGuard::~WriteGuard() {
  if (isOpen_) engine_.RollBack();
}

void WriteGuard::Commit() {
  if (!isOpen_) return;
  engine_.Execute("COMMIT");
  isOpen_ = false;
}

}  // namespace tonalith::data
