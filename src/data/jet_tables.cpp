// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/jet_tables.h"

#include <SQLiteCpp/Transaction.h>

#include <optional>

#include "data/engine.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

constexpr std::string_view kStoredQuery = "ScalesQuery";
constexpr const char* kCreateStoredQuery =
    "CREATE VIEW ScalesQuery AS "
    "SELECT Scales.ScaleID AS ScaleID, Scales.ScaleName AS ScaleName, Scales.ScaleTypeID AS ScaleTypeID, "
    "Scales.ScaleDescription AS ScaleDescription, Scales.StartNote AS StartNote, "
    "Scales.ScaleIntervals AS ScaleIntervals, Scales.Chord AS Chord, Scales.Sort AS Sort, "
    "ScaleTypes.ScaleTypeNo AS ScaleTypeNo, ScaleTypes.ScaleTypeName AS ScaleTypeName "
    "FROM Scales INNER JOIN ScaleTypes ON ScaleTypes.ScaleTypeID = Scales.ScaleTypeID ORDER BY Scales.ScaleID";

const char* TypeOf(jet::JetContent content) {
  switch (content) {
    case jet::JetContent::kYesNo:
    case jet::JetContent::kWholeNumber:
      return " INTEGER";
    case jet::JetContent::kFraction:
      return " REAL";
    case jet::JetContent::kDecimal:
      return "";  // A type would convert decimals to numbers that cannot represent them exactly.
    case jet::JetContent::kDate:
      return " TEXT";
    case jet::JetContent::kText:
      return " TEXT COLLATE NOCASE";
    case jet::JetContent::kBytes:
      return " BLOB";
  }
  return "";
}

std::string FillStatement(const jet::JetTable& table) {
  std::vector<std::string> fields;
  for (const jet::JetColumn& column : table.columns) fields.push_back(QuoteName(column.name));
  return InsertStatement(QuoteName(table.name), fields);
}

class Copier : public jet::JetVisitor {
 public:
  explicit Copier(SQLite::Database& database) : database_(database) {}

  void OnObject(const jet::JetObject& object) override {
    if (SameName(object.name, kStoredQuery)) database_.exec(kCreateStoredQuery);
  }
  void OnTable(const jet::JetTable& table) override {
    CreateTableFor(database_, table);
    writer_.emplace(database_, table);
  }
  void OnRow(std::vector<core::Value> values) override {
    writer_->Write(values);
    ++rows_;
  }
  [[nodiscard]] std::int64_t Rows() const { return rows_; }

 private:
  SQLite::Database& database_;
  std::optional<JetRowWriter> writer_;
  std::int64_t rows_ = 0;
};

}  // namespace

std::string ColumnDefinition(const jet::JetColumn& column) { return QuoteName(column.name) + TypeOf(column.content); }

void CreateTableFor(SQLite::Database& database, const jet::JetTable& table) {
  std::string columns;
  for (const jet::JetColumn& column : table.columns)
    columns += (columns.empty() ? "" : ", ") + ColumnDefinition(column);
  database.exec("CREATE TABLE " + QuoteName(table.name) + " (" + columns + ")");
}

JetRowWriter::JetRowWriter(SQLite::Database& database, const jet::JetTable& table)
    : insert_(database, FillStatement(table)) {}

void JetRowWriter::Write(const std::vector<core::Value>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) BindValue(insert_, static_cast<int>(i) + 1, values[i]);
  insert_.exec();
  insert_.reset();
}

std::unique_ptr<SQLite::Database> OpenJetCopy(const std::string& path,
                                              const std::function<void(std::int64_t rows)>& whileReading) {
  auto database = std::make_unique<SQLite::Database>("", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database->exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -2048");
  Copier copier(*database);
  SQLite::Transaction transaction(*database);
  std::function<void()> whileWaiting;
  if (whileReading) whileWaiting = [&] { whileReading(copier.Rows()); };
  jet::ReadJetFile(path, copier, {}, whileWaiting);
  transaction.commit();
  database->exec("PRAGMA query_only = ON");
  return database;
}

}  // namespace tonalith::data
