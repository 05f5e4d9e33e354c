// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_merge.h"

#include <utility>

#include "core/deferred_failure.h"
#include "data/data_failure.h"
#include "data/data_pack_import.h"
#include "data/engine.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"
#include "data/whole_number.h"

namespace tonalith::data {
namespace {

constexpr const char* kMainDatabase = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb";
constexpr const char* kPackSource = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
// In KiB. The names of a large pack come in any order, so their index is written all over.
constexpr const char* kImportCache = "PRAGMA cache_size = -16384";

// A path with a character that means something in a connection string is quoted.
std::string DataSourceValue(const std::string& path) {
  const bool isPlain =
      path.find_first_of(";\"'") == std::string::npos && !path.starts_with(' ') && !path.ends_with(' ');
  if (isPlain) return path;
  std::string quoted = "\"";
  for (const char character : path) {
    quoted += character;
    if (character == '"') quoted += character;
  }
  return quoted + '"';
}

std::string InsertStatement(const std::string& table, const std::vector<std::string>& fields) {
  if (fields.empty()) return "INSERT INTO " + QuoteName(table) + " DEFAULT VALUES";
  std::string names;
  std::string marks;
  for (const std::string& field : fields) {
    names += (names.empty() ? "" : ", ") + QuoteName(field);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + QuoteName(table) + " (" + names + ") VALUES (" + marks + ")";
}

}  // namespace

PackMerge::PackMerge(std::string path, std::function<void(std::int64_t)> onRow)
    : path_(std::move(path)), onRow_(std::move(onRow)) {}

void PackMerge::Run() {
  main_->Open(kMainDatabase, "", "");
  pack_->SetMode(ConnectMode::kRead);
  pack_->Open(kPackSource + DataSourceValue(path_), "", "");
  main_->OpenEngine().Execute(kImportCache);
  main_->BeginTrans();
  MergeTable("ScaleTypes", "ScaleTypeID", "ScaleTypeID",
             [](const RecordSet& records) -> Value { return records.FieldValue("ScaleTypeID").AsInt32(); });
  MergeTable("Scales", "ScaleName", "ScaleID",
             [](const RecordSet& records) -> Value { return records.FieldValue("scaleName").TextOr(""); });
  main_->CommitTrans();
}

void PackMerge::Rollback() { main_->RollbackTrans(); }

void PackMerge::Close() {
  core::DeferredFailure passedOver;
  for (RecordSet* records : {packRecords_.get(), mainRecords_.get()}) {
    if (records->IsOpen()) passedOver.Try([&] { records->Close(); });
  }
  for (Connection* connection : {pack_.get(), main_.get()}) {
    if (connection->IsOpen()) passedOver.Try([&] { connection->Close(); });
  }
  passedOver.Clear();
}

// Adds the rows of a table whose key the main table lacks. `ownNumber` is the field that is not copied: a type's number
// is its key, a scale gets a number of the main database. The main table is asked and written by statements that stay
// prepared, because packs may be large.
void PackMerge::MergeTable(const std::string& table, const std::string& mainKey, const std::string& ownNumber,
                           const KeyOfRow& keyOfRow) {
  OpenRecords(table);
  const std::vector<CopiedField> fields = CopiedFields(ownNumber);
  const bool isKeySet = mainKey == ownNumber;
  std::vector<std::string> names;
  if (isKeySet) names.push_back(mainKey);
  for (const CopiedField& field : fields) names.push_back(field.to);
  const std::string insert = InsertStatement(table, names);
  const std::string lookUp = "SELECT 1 FROM " + QuoteName(table) + " WHERE " + QuoteName(mainKey) + " = ? LIMIT 1";
  std::vector<Value> values;
  for (; !packRecords_->IsEof(); packRecords_->MoveNext()) {
    const Value key = keyOfRow(*packRecords_);
    if (!MainHas(lookUp, key)) {
      values.clear();
      if (isKeySet) values.push_back(key);
      for (const CopiedField& field : fields)
        values.push_back(WithoutEmptyFraction(packRecords_->FieldValue(field.from)));
      main_->OpenEngine().Execute(insert, values);
    }
    onRow_(++rows_);
  }
  packRecords_->Close();
  mainRecords_->Close();
}

void PackMerge::OpenRecords(const std::string& table) {
  RequireTable(table);
  packRecords_->Open("SELECT * FROM " + table, pack_, CursorType::kStatic, LockType::kReadOnly);
  mainRecords_->Open("SELECT * FROM " + table, main_, CursorType::kKeyset, LockType::kOptimistic);
}

// A stored query under the name of a table could be anything, and could go on for ever.
void PackMerge::RequireTable(const std::string& table) {
  RecordSet kind;
  kind.Open("SELECT name FROM sqlite_master WHERE type = 'view' AND lower(name) = lower('" + table + "')", pack_,
            CursorType::kStatic, LockType::kReadOnly);
  if (!kind.IsEof()) throw Unspecified("'" + table + "' is a stored query in this pack, not a table.");
  kind.Close();
}

std::vector<PackMerge::CopiedField> PackMerge::CopiedFields(std::string_view ownNumber) const {
  std::vector<CopiedField> fields;
  for (int i = 0; i < packRecords_->FieldCount(); ++i) {
    const std::string& name = packRecords_->FieldName(i);
    if (!SameName(name, ownNumber) && FieldExists(*mainRecords_, name)) fields.push_back({i, name});
  }
  return fields;
}

bool PackMerge::MainHas(const std::string& statement, const Value& key) {
  bool isThere = false;
  main_->OpenEngine().Query(statement, {&key, 1}, [&](SQLite::Statement&) { isThere = true; });
  return isThere;
}

}  // namespace tonalith::data
