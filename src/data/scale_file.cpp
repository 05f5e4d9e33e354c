// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/scale_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "core/failure.h"
#include "core/field_limits.h"
#include "core/text.h"
#include "core/value.h"
#include "data/database_file.h"
#include "data/engine.h"
#include "data/formula_tables.h"
#include "data/pack_check.h"
#include "data/pack_rows.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

constexpr const char* kScales = "Scales";
constexpr const char* kTypes = "ScaleTypes";

std::optional<std::int64_t> WholeNumber(const core::Value& value) {
  if (const auto* const number = std::get_if<std::int64_t>(&value.Raw())) return *number;
  if (value.IsNull()) return std::nullopt;
  try {
    return value.AsInt();
  } catch (const core::Failure&) {
    return std::nullopt;
  }
}

/// A yes/no field of any kind; what is no number is no.
bool IsYes(const core::Value& value) {
  if (const auto* const number = std::get_if<std::int64_t>(&value.Raw())) return *number != 0;
  return !value.IsNull() && WholeNumber(value).value_or(0) != 0;
}

/// The text of a field. `buffer` contains it if the field is a number; bytes are no text.
std::string_view TextOf(const core::Value& value, std::string& buffer) {
  if (const auto* const text = std::get_if<std::string>(&value.Raw())) return *text;
  if (value.IsNull() || std::holds_alternative<core::Bytes>(value.Raw())) return {};
  buffer = value.AsText();
  return buffer;
}

PackSizeLimit LimitOf(const Engine& engine) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(engine.Path(), error);
  return PackSizeLimit(error ? 0 : size);
}

std::unordered_map<std::int64_t, std::string> ReadTypes(Engine& engine, PackSizeLimit& limit) {
  RequirePlainTable(engine, kTypes);
  std::unordered_map<std::int64_t, std::string> types;
  std::string buffer;
  PackRows(engine, kTypes, {"ScaleTypeID", "ScaleTypeName"}, 1)
      .ForEach(limit, [&](std::int64_t /*row*/, std::span<const core::Value> values) {
        if (const auto id = WholeNumber(values[0])) types.emplace(*id, TextOf(values[1], buffer));
      });
  return types;
}

// A file of another program need not have every column.
std::vector<std::string> ColumnsToRead(Engine& engine) {
  std::vector<std::string> columns{"ScaleID", "ScaleName", "ScaleTypeID", "ScaleIntervals"};
  for (const char* const optional : {"StartNote", "Chord"}) {
    for (const std::string& column : PackRows::ColumnsOf(engine, kScales)) {
      if (SameName(column, optional)) columns.emplace_back(optional);
    }
  }
  return columns;
}

}  // namespace

ScaleFile::ScaleFile(const std::string& path) : engine_(std::make_unique<Engine>(RequireDatabaseFile(path), true)) {}

ScaleFile::~ScaleFile() = default;

void ScaleFile::ForEachScale(const std::function<void(const StoredScale&)>& onScale) {
  PackSizeLimit limit = LimitOf(*engine_);
  const auto types = ReadTypes(*engine_, limit);
  RequirePlainTable(*engine_, kScales);
  const std::vector<std::string> columns = ColumnsToRead(*engine_);
  const auto place = [&](std::string_view name) -> std::optional<std::size_t> {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i] == name) return i;
    }
    return std::nullopt;
  };
  const auto startNote = place("StartNote");
  const auto chord = place("Chord");
  std::array<std::string, 3> buffers;
  PackRows(*engine_, kScales, columns, 1)
      .ForEach(limit, [&](std::int64_t /*row*/, std::span<const core::Value> values) {
        const auto id = WholeNumber(values[0]);
        const auto typeId = WholeNumber(values[2]);
        const auto type = typeId ? types.find(*typeId) : types.end();
        const std::string_view name = TextOf(values[1], buffers[0]);
        if (!id || type == types.end() || core::Trim(name).empty()) return;
        onScale({*id, name, type->second, startNote ? TextOf(values[*startNote], buffers[1]) : std::string_view(),
                 TextOf(values[3], buffers[2]), chord && IsYes(values[*chord])});
      });
}

bool ScaleFile::HasColumns(const std::string& table, const std::vector<std::string>& columns) {
  const core::Value name = table;
  std::vector<std::string> own;
  engine_->Query("SELECT name FROM pragma_table_info(?)", {&name, 1},
                 [&](SQLite::Statement& row) { own.push_back(row.getColumn(0).getString()); });
  return std::all_of(columns.begin(), columns.end(), [&](const std::string& column) {
    return std::any_of(own.begin(), own.end(), [&](const std::string& other) { return SameName(other, column); });
  });
}

// The scale is found by its row number: an index of the file is untrusted, and a search without one takes too long.
void ScaleFile::ForEachText(const std::string& table, const std::string& column, const std::string& condition,
                            const std::function<void(const StoredText&)>& onText) {
  if (!HasColumns(table, {"ScaleID", "ScaleName", "ScaleIntervals", column})) return;
  if (!HasColumns(kScales, {"ScaleID"}) || !engine_->IsNumberedTable(kScales)) return;
  RequirePlainTable(*engine_, table);
  PackSizeLimit limit = LimitOf(*engine_);
  engine_->Query("SELECT t.ScaleID, t." + column + " FROM " + table +
                     " AS t NOT INDEXED CROSS JOIN Scales AS s NOT INDEXED ON s." + kRowNumber +
                     " = t.ScaleID AND s.ScaleID = t.ScaleID AND s.ScaleName = t.ScaleName COLLATE BINARY "
                     "AND s.ScaleIntervals = t.ScaleIntervals COLLATE BINARY WHERE typeof(t." +
                     column + ") = 'text' AND length(t." + column + ") BETWEEN 1 AND " + condition,
                 {}, [&](SQLite::Statement& row) {
                   const char* const text = row.getColumn(1).getText();
                   const auto bytes = static_cast<std::size_t>(row.getColumn(1).getBytes());
                   limit.Count(bytes);
                   onText({row.getColumn(0).getInt64(), {text, bytes}});
                 });
}

void ScaleFile::ForEachFormula(const std::function<void(const StoredText&)>& onFormula) {
  ForEachText("ScaleFormulas", "Formula", std::to_string(core::kLongestFormula), onFormula);
}

void ScaleFile::ForEachAlias(const std::function<void(const StoredText&)>& onAlias) {
  if (!HasColumns("ScaleAliases", {"Place"})) return;
  ForEachText("ScaleAliases", "Alias",
              std::to_string(core::kLongestName) + " AND t.Place BETWEEN 0 AND " + std::to_string(kMostAliases - 1),
              onAlias);
}

std::string ScaleFile::DescriptionOf(std::int64_t id, std::string_view name) {
  RequirePlainTable(*engine_, kScales);
  const std::array<core::Value, 2> bindings{core::Value(id), core::Value(name)};
  std::string description;
  engine_->Query("SELECT substr(ScaleDescription, 1, " + std::to_string(core::kLongestDescription) +
                     ") FROM Scales NOT INDEXED WHERE ScaleID = ? AND ScaleName = ? COLLATE BINARY",
                 bindings, [&](SQLite::Statement& row) {
                   const core::Value value = ReadColumn(row.getColumn(0));
                   std::string buffer;
                   description = TextOf(value, buffer);
                 });
  return description;
}

}  // namespace tonalith::data
