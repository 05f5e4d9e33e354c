// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_merge.h"

#include <optional>
#include <utility>

#include "core/deferred_failure.h"
#include "data/data_failure.h"
#include "data/data_pack_import.h"
#include "data/engine.h"
#include "data/new_rows.h"
#include "data/pack_check.h"
#include "data/scale_database.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"
#include "data/whole_number.h"

namespace tonalith::data {
namespace {

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

// Into the memory of the value that was there.
void CopyValue(const Value& from, Value& to) {
  to = from;
  if (std::holds_alternative<double>(to.Raw())) to = WithoutEmptyFraction(to);
}

std::vector<std::string> NamesOf(const std::vector<PackMerge::CopiedField>& fields) {
  std::vector<std::string> names;
  names.reserve(fields.size() + 1);
  for (const auto& field : fields) names.push_back(field.to);
  return names;
}

std::optional<std::size_t> IndexOf(const std::vector<std::string>& names, std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (SameName(names[i], name)) return i;
  }
  return {};
}

}  // namespace

PackMerge::PackMerge(std::string path, std::function<void(std::int64_t)> onRow)
    : path_(std::move(path)), onRow_(std::move(onRow)) {}

void PackMerge::Run() {
  main_->Open(std::string(kConnectionByFileName), "", "");
  pack_->SetMode(ConnectMode::kRead);
  pack_->Open(kPackSource + DataSourceValue(path_), "", "");
  main_->OpenEngine().Execute(kImportCache);
  main_->BeginTrans();
  MergeTable("ScaleTypes", "ScaleTypeID", "ScaleTypeID",
             [](const Value& number, Value& key) { key = number.AsInt32(); });
  MergeTable("Scales", "ScaleName", "ScaleID", [](const Value& name, Value& key) {
    if (const auto* const text = std::get_if<std::string>(&name.Raw())) return key.SetText(*text);
    key = name.TextOr("");
  });
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
                           const KeyOfField& keyOfField) {
  OpenRecords(table);
  const std::vector<CopiedField> fields = CopiedFields(ownNumber);
  std::vector<std::string> names = NamesOf(fields);
  const bool isKeySet = mainKey == ownNumber;
  if (isKeySet) names.push_back(mainKey);
  const std::optional<int> packKey = packRecords_->FindField(mainKey);
  const std::string lookUp = "SELECT 1 FROM " + QuoteName(table) + " WHERE " + QuoteName(mainKey) + " = ? LIMIT 1";
  NewRows newRows(main_->OpenEngine(), table, names, IndexOf(names, mainKey));
  Value key;
  RisingRows rising(path_);
  for (; !packRecords_->IsEof(); packRecords_->MoveNext()) {
    rising.Require(packRecords_->GetBookmark());
    if (!packKey) throw UnknownItem();
    keyOfField(packRecords_->FieldValue(*packKey), key);
    if (newRows.MayHold(key)) newRows.Write();
    if (!MainHas(lookUp, key)) {
      Value* value = newRows.NextRow();
      for (const CopiedField& field : fields) CopyValue(packRecords_->FieldValue(field.from), *value++);
      if (isKeySet) *value = key;
      newRows.Add();
    }
    onRow_(++rows_);
  }
  newRows.Write();
  packRecords_->Close();
  mainRecords_->Close();
}

void PackMerge::OpenRecords(const std::string& table) {
  RequirePlainTable(pack_->OpenEngine(), table);
  packRecords_->Open("SELECT * FROM " + table, pack_, CursorType::kStatic, LockType::kReadOnly);
  mainRecords_->Open("SELECT * FROM " + table, main_, CursorType::kKeyset, LockType::kOptimistic);
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
