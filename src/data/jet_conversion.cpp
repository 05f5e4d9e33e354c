// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/jet_conversion.h"

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "core/failure.h"
#include "data/data_failure.h"
#include "data/durable_file.h"
#include "data/engine.h"
#include "data/jet_tables.h"
#include "data/long_fields.h"
#include "data/messages.h"
#include "data/schema.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"
#include "data/whole_number.h"
#include "jet/jet_file.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUnfinished = ".converting";
constexpr const char* kBackupLabel = " (Jet file before conversion)";
constexpr std::size_t kRowsPerStep = 1000;
constexpr std::size_t kMostNamed = 10;

bool IsScaleTable(const std::string& name) { return SameName(name, "Scales") || SameName(name, "ScaleTypes"); }

// Every scale database has the stored query, and its triggers enforce the relationship between the two tables, which is
// named after both.
bool HasEquivalent(const jet::JetObject& object) {
  if (object.kind == "stored query") return SameName(object.name, "ScalesQuery");
  return object.kind == "relationship" && SameName(object.name, "ScaleTypesScales");
}

// A column may store a number as text or as a fraction; the value must be equal.
bool IsSameContent(const core::Value& given, const core::Value& stored) {
  const core::Value a = WithoutEmptyFraction(given);
  const core::Value b = WithoutEmptyFraction(stored);
  if (a == b) return true;
  const bool isPlain = !a.IsNull() && !b.IsNull() && !std::holds_alternative<core::Bytes>(a.Raw()) &&
                       !std::holds_alternative<core::Bytes>(b.Raw());
  return isPlain && a.AsText() == b.AsText();
}

std::string ReadBackStatement(const jet::JetTable& table) {
  std::string columns;
  for (const jet::JetColumn& column : table.columns) columns += (columns.empty() ? "" : ", ") + QuoteName(column.name);
  return "SELECT " + columns + " FROM " + QuoteName(table.name) + " WHERE " + kRowNumber + " = ?";
}

// Fills an empty scale database with the content of a Jet file.
class JetFiller : public jet::JetVisitor {
 public:
  JetFiller(SQLite::Database& database, std::string path, const std::function<void(ConversionStep)>& onStep)
      : database_(database), path_(std::move(path)), onStep_(onStep) {}

  void OnObject(const jet::JetObject& object) override {
    if (!HasEquivalent(object)) unsupported_.push_back(object.kind + " '" + object.name + "'");
  }

  void OnTable(const jet::JetTable& table) override {
    RequireNothingUnsupported();
    onStep_(ConversionStep::kFilling);
    table_ = table;
    row_ = 0;
    if (IsScaleTable(table.name)) {
      AddColumns(table);
      scaleTables_.push_back(table.name);
    } else {
      CreateTableFor(database_, table);
    }
    writer_ = std::make_unique<JetRowWriter>(database_, table);
    readBack_ = std::make_unique<SQLite::Statement>(database_, ReadBackStatement(table));
  }

  void OnRow(std::vector<core::Value> values) override {
    if (++row_ % kRowsPerStep == 0) onStep_(ConversionStep::kFilling);
    std::transform(values.begin(), values.end(), values.begin(), WithoutEmptyFraction);
    try {
      writer_->Write(values);
    } catch (const SQLite::Exception& exception) {
      // A full or failing disk is not an error of the row.
      const int code = exception.getErrorCode() & 0xFF;
      if (code == SQLITE_FULL || code == SQLITE_IOERR) throw;
      throw RowFailure(FromEngine(exception, path_).Text());
    }
    RequireStored(values);
  }

  void RequireComplete() const {
    RequireNothingUnsupported();
    for (const char* name : {"ScaleTypes", "Scales"}) {
      const bool isThere = std::any_of(scaleTables_.begin(), scaleTables_.end(),
                                       [&](const std::string& table) { return SameName(table, name); });
      if (!isThere) throw core::Failure::Unspecified({MessageId::kMissingTable, std::string(name)});
    }
  }

 private:
  void RequireNothingUnsupported() const {
    if (unsupported_.empty()) return;
    std::string objects;
    const std::size_t named = std::min(unsupported_.size(), kMostNamed);
    for (std::size_t i = 0; i < named; ++i) objects += (i ? ", " : "") + unsupported_[i];
    if (unsupported_.size() == named) throw core::Failure::Unspecified({MessageId::kUnsupportedObjects, objects});
    throw core::Failure::Unspecified({MessageId::kManyUnsupportedObjects, objects, unsupported_.size() - named});
  }

  void AddColumns(const jet::JetTable& table) {
    for (const jet::JetColumn& column : table.columns) {
      if (sqlite3_table_column_metadata(database_.getHandle(), "main", table.name.c_str(), column.name.c_str(), nullptr,
                                        nullptr, nullptr, nullptr, nullptr) == SQLITE_OK) {
        continue;
      }
      database_.exec("ALTER TABLE " + QuoteName(table.name) + " ADD COLUMN " + ColumnDefinition(column));
    }
  }

  void RequireStored(const std::vector<core::Value>& values) {
    readBack_->bind(1, static_cast<std::int64_t>(database_.getLastInsertRowid()));
    readBack_->executeStep();
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (IsSameContent(values[i], ReadColumn(readBack_->getColumn(static_cast<int>(i))))) continue;
      const bool isPlain = !values[i].IsNull() && !std::holds_alternative<core::Bytes>(values[i].Raw());
      const std::string& field = table_.columns[i].name;
      if (isPlain) throw RowFailure({MessageId::kTextNotKept, field, values[i].AsText()});
      throw RowFailure({MessageId::kContentNotKept, field});
    }
    readBack_->reset();
  }

  [[nodiscard]] core::Failure RowFailure(const core::Message& reason) const {
    return core::Failure::Unspecified({MessageId::kRowFailure, row_, table_.name, reason});
  }

  SQLite::Database& database_;
  std::string path_;
  const std::function<void(ConversionStep)>& onStep_;
  std::vector<std::string> unsupported_;
  std::vector<std::string> scaleTables_;
  jet::JetTable table_;
  std::size_t row_ = 0;
  std::unique_ptr<JetRowWriter> writer_;
  std::unique_ptr<SQLite::Statement> readBack_;
};

void RemoveUnfinished(const std::string& unfinished) {
  for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
    std::error_code error;
    fs::remove(unfinished + ending, error);
    if (error) throw core::Failure::Unspecified({MessageId::kFileNotRemoved, unfinished + ending, error.message()});
  }
}

void MakeConverted(const std::string& path, const std::string& unfinished,
                   const std::function<void(ConversionStep)>& onStep) {
  onStep(ConversionStep::kMaking);
  RemoveUnfinished(unfinished);
  CreateScaleDatabase(unfinished);
  fs::permissions(unfinished, fs::status(path).permissions());
  try {
    SQLite::Database database(unfinished, SQLite::OPEN_READWRITE);
    // Fields that the program could not read later are refused here, before anything is changed.
    sqlite3_limit(database.getHandle(), SQLITE_LIMIT_LENGTH, kLongestField);
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    JetFiller filler(database, path, onStep);
    jet::ReadJetFile(path, filler);
    filler.RequireComplete();
    transaction.commit();
  } catch (const SQLite::Exception& exception) {
    throw FromEngine(exception, unfinished);
  }
}

// A journal of another database would be applied to the new file.
void RenameStrayCompanions(const std::string& path) {
  for (const char* ending : {"-journal", "-wal", "-shm"}) {
    const std::string companion = path + ending;
    if (fs::exists(companion)) ReplaceDurably(companion, companion + ".kept");
  }
}

std::string Convert(const std::string& path, const std::function<void(ConversionStep)>& onStep) {
  const std::string unfinished = path + kUnfinished;
  try {
    const auto changed = fs::last_write_time(path);
    MakeConverted(path, unfinished, onStep);
    onStep(ConversionStep::kFilled);
    if (fs::last_write_time(path) != changed) throw core::Failure::Unspecified(MessageId::kChangedMeanwhile);
    std::string backup = LinkOrCopyWithLabel(path, kBackupLabel);
    RenameStrayCompanions(path);
    onStep(ConversionStep::kBackedUp);
    ReplaceDurably(unfinished, path);
    onStep(ConversionStep::kReplaced);
    return backup;
  } catch (const std::exception&) {
    const core::Failure failure = core::Failure::FromCurrentException();
    std::error_code ignored;
    for (const char* ending : {"", "-journal"}) fs::remove(unfinished + ending, ignored);
    throw core::Failure(failure.Number(), {MessageId::kNotConverted, path, failure.Text()});
  }
}

}  // namespace

std::optional<std::string> ConvertMainDatabaseIfJet(const std::string& path,
                                                    const std::function<void(ConversionStep)>& onStep) {
  if (!jet::IsJetFile(path)) return {};
  // A link stays a link; its target is converted.
  const std::string file = fs::canonical(path).string();
  const FileLock lock(file);
  // Another instance may have converted it while this one waited.
  if (!jet::IsJetFile(file)) return {};
  return Convert(
      file, onStep ? onStep : [](ConversionStep) {});
}

}  // namespace tonalith::data
