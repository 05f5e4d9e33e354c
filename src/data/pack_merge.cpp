// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_merge.h"

#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include "data/data_failure.h"
#include "data/data_pack_import.h"
#include "data/engine.h"
#include "data/new_rows.h"
#include "data/pack_check.h"
#include "data/pack_formulas.h"
#include "data/pack_rows.h"
#include "data/scale_database.h"
#include "data/scale_names.h"
#include "data/sql_dialect.h"
#include "data/sql_tokens.h"
#include "data/whole_number.h"

namespace tonalith::data {
namespace {

constexpr const char* kPackSource = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
// In KiB. The names of a large pack are not sorted, so their index is written at random places.
constexpr const char* kImportCache = "PRAGMA cache_size = -16384";

// Quotes a path with a special character of connection strings.
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

// Reuses the memory of `to`.
void CopyValue(const core::Value& from, core::Value& to) {
  to = from;
  if (std::holds_alternative<double>(to.Raw())) to = WithoutEmptyFraction(to);
}

std::optional<std::size_t> IndexOf(const std::vector<std::string>& names, std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (SameName(names[i], name)) return i;
  }
  return {};
}

std::size_t IndexWithin(std::vector<std::string>& names, const std::string& name) {
  const std::optional<std::size_t> index = IndexOf(names, name);
  if (!index) names.push_back(name);
  return index.value_or(names.size() - 1);
}

// Including the write-ahead log, which is part of the content.
std::uint64_t BytesOf(const std::string& path) {
  std::uint64_t bytes = 0;
  for (const char* ending : {"", "-wal"}) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path + ending, error);
    if (!error) bytes += size;
  }
  return bytes;
}

}  // namespace

PackMerge::PackMerge(std::string path, OnRows onRead, OnRows onRow)
    : path_(std::move(path)), onRead_(std::move(onRead)), onRow_(std::move(onRow)) {}

void PackMerge::Run() {
  main_->Open(std::string(kConnectionByFileName), "", "");
  pack_->SetMode(ConnectMode::kRead);
  pack_->SetWhileReading(onRead_);
  pack_->Open(kPackSource + DataSourceValue(path_), "", "");
  main_->OpenEngine().Execute(kImportCache);
  main_->BeginTrans();
  PackSizeLimit limit(BytesOf(pack_->OpenEngine().Path()));
  const auto numberOf = [](const core::Value& number, core::Value& key) { key = number.AsInt32(); };
  const auto nameOf = [](const core::Value& name, core::Value& key) {
    if (const auto* const text = std::get_if<std::string>(&name.Raw())) return key.SetText(*text);
    key = name.TextOr("");
  };
  MergeTable({"ScaleTypes", "ScaleTypeID", numberOf, "ScaleTypeID", "ScaleTypeName"}, limit);
  PackFormulas formulas(main_->OpenEngine());
  addedScales_ = MergeTable({"Scales", "ScaleName", nameOf, "ScaleID", "ScaleName"}, limit);
  if (addedScales_ > 0) formulas.Add(pack_->OpenEngine(), limit, [this] { onRow_(++rows_); });
  main_->CommitTrans();
}

void PackMerge::Rollback() { main_->RollbackTrans(); }

// Adds the rows of a table whose key is not in the main table, and returns their number. Uses prepared statements on
// the main table, because packs may be large.
// Kept: see docs/behaviour.md, Type numbers of packs are not mapped.
std::int64_t PackMerge::MergeTable(const TableRules& rules, PackSizeLimit& limit) {
  Engine& pack = pack_->OpenEngine();
  RequirePlainTable(pack, rules.table);
  mainRecords_->Open("SELECT * FROM " + rules.table, main_, CursorType::kKeyset, LockType::kOptimistic);
  std::vector<std::string> fields = CopiedFields(rules);
  const std::size_t copied = fields.size();
  const std::vector<std::string> all = PackRows::ColumnsOf(pack, rules.table);
  const bool hasKey = IndexOf(all, rules.key).has_value();
  const bool isKeySet = SameName(rules.key, rules.ownNumber);
  std::vector<std::string> columns = fields;
  const std::size_t key = hasKey ? IndexWithin(columns, rules.key) : 0;
  if (isKeySet) fields.push_back(rules.key);

  const std::string lookUp =
      "SELECT 1 FROM " + QuoteName(rules.table) + " WHERE " + QuoteName(rules.key) + " = ? LIMIT 1";
  NewRows newRows(main_->OpenEngine(), rules.table, fields, IndexOf(fields, rules.key));
  PackRows rows(pack, rules.table, columns, IndexOf(columns, rules.name));
  ScaleNames scaleNames(main_->OpenEngine());
  ScaleNames* const names = isKeySet ? nullptr : &scaleNames;
  std::int64_t added = 0;
  core::Value wanted;
  const auto merge = [&](std::int64_t row, std::span<const core::Value> values) {
    try {
      if (!hasKey) throw UnknownItem();
      rules.keyOfField(values[key], wanted);
    } catch (const core::Failure& failure) {
      throw At({rules.table, hasKey ? row : 0, rules.key}, failure);
    }
    if (newRows.MayContain(wanted)) newRows.Write();
    if (!MainHas(lookUp, wanted, names)) {
      core::Value* value = newRows.NextRow();
      for (std::size_t i = 0; i < copied; ++i) CopyValue(values[i], *value++);
      if (isKeySet) *value = wanted;
      newRows.Add(row);
      if (names != nullptr) names->Add(wanted.AsText());
      ++added;
    }
    onRow_(++rows_);
  };
  try {
    rows.ForEach(limit, merge);
    newRows.Write();
  } catch (const core::Failure& failure) {
    if (newRows.RefusedRow()) throw At({rules.table, *newRows.RefusedRow(), {}}, failure);
    throw;
  }
  mainRecords_->Close();
  return added;
}

std::vector<std::string> PackMerge::CopiedFields(const TableRules& rules) const {
  std::vector<std::string> fields = PackRows::ColumnsOf(pack_->OpenEngine(), rules.table);
  std::erase_if(fields, [&](const std::string& name) {
    return SameName(name, rules.ownNumber) || !FieldExists(*mainRecords_, name);
  });
  return fields;
}

bool PackMerge::MainHas(const std::string& statement, const core::Value& key, ScaleNames* names) {
  bool isThere = names != nullptr && names->Has(key.AsText());
  if (isThere) return true;
  main_->OpenEngine().Query(statement, {&key, 1}, [&](SQLite::Statement&) { isThere = true; });
  return isThere;
}

}  // namespace tonalith::data
