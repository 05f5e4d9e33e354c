// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_formulas.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "data/engine.h"
#include "data/formula_tables.h"
#include "data/pack_check.h"
#include "data/pack_rows.h"
#include "data/sql_tokens.h"

namespace tonalith::data {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kFormulas = "ScaleFormulas";
constexpr const char* kAliases = "ScaleAliases";
constexpr const char* kScales = "Scales";

bool HasTables(Engine& main) {
  const std::array<core::Value, 2> statements = {std::string(kCreateScaleFormulas), std::string(kCreateScaleAliases)};
  int tables = 0;
  main.Query("SELECT 1 FROM sqlite_schema WHERE sql IN (?, ?)", statements, [&](SQLite::Statement&) { ++tables; });
  return tables == static_cast<int>(statements.size());
}

bool HasColumns(Engine& engine, const std::string& table, const Names& wanted) {
  const core::Value name = table;
  Names columns;
  engine.Query("SELECT name FROM pragma_table_info(?)", {&name, 1},
               [&](SQLite::Statement& row) { columns.push_back(row.getColumn(0).getString()); });
  return std::ranges::all_of(wanted, [&](const std::string& column) {
    return std::ranges::any_of(columns, [&](const std::string& own) { return SameName(own, column); });
  });
}

bool AreNumbered(Engine& engine) {
  return HasColumns(engine, kScales, {"ScaleID", "ScaleName", "ScaleIntervals"}) && engine.IsNumberedTable(kScales);
}

// Finds the scale by its row number, because an index of the pack is untrusted and a search without one takes too long.
std::string CountsInPack(const std::string& table) {
  return "EXISTS (SELECT 1 FROM Scales WHERE Scales." + std::string(kRowNumber) + " = " + table +
         ".ScaleID AND Scales.ScaleID = " + table + ".ScaleID AND Scales.ScaleName = " + table +
         ".ScaleName COLLATE BINARY AND Scales.ScaleIntervals = " + table + ".ScaleIntervals COLLATE BINARY)";
}

bool IsText(const core::Value& value) {
  const auto* const text = std::get_if<std::string>(&value.Raw());
  return text != nullptr && !text->empty();
}

bool IsPlace(const core::Value& value) {
  const auto* const place = std::get_if<std::int64_t>(&value.Raw());
  return place != nullptr && *place >= 0 && *place < kMostAliases;
}

// The numbers of added scales.
class AddedScales {
 public:
  AddedScales(Engine& main, std::int64_t lastScale) : main_(main), lastScale_(lastScale) {}

  /// Remembers the latest scale: the aliases of a scale follow each other.
  std::optional<std::int64_t> Find(const core::Value& name, const core::Value& pattern) {
    if (name == name_ && pattern == pattern_) return found_;
    name_ = name;
    pattern_ = pattern;
    found_.reset();
    const std::array<core::Value, 4> bindings = {name, lastScale_, name, pattern};
    main_.Query(
        "SELECT ScaleID FROM Scales WHERE ScaleName = ? AND ScaleID > ? AND ScaleName = ? COLLATE BINARY "
        "AND ScaleIntervals = ? COLLATE BINARY LIMIT 1",
        bindings, [&](SQLite::Statement& row) { found_ = row.getColumn(0).getInt64(); });
    return found_;
  }

 private:
  Engine& main_;
  std::int64_t lastScale_;
  core::Value name_;
  core::Value pattern_;
  std::optional<std::int64_t> found_;
};

struct Table {
  std::string name;
  /// The name, the pattern, and the other columns of the table except ScaleID.
  Names columns;
  std::string insert;
};

constexpr const char* kInsertFormula =
    "INSERT OR IGNORE INTO ScaleFormulas (ScaleID, ScaleName, ScaleIntervals, Formula) VALUES (?, ?, ?, ?)";
constexpr const char* kInsertAlias =
    "INSERT OR IGNORE INTO ScaleAliases (ScaleID, ScaleName, ScaleIntervals, Alias, Place) VALUES (?, ?, ?, ?, ?)";

const std::array<Table, 2>& Tables() {
  static const std::array<Table, 2> kTables = {{
      {kFormulas, {"ScaleName", "ScaleIntervals", "Formula"}, kInsertFormula},
      {kAliases, {"ScaleName", "ScaleIntervals", "Alias", "Place"}, kInsertAlias},
  }};
  return kTables;
}

// The last value is whether the row counts.
bool IsCopied(std::span<const core::Value> values) {
  const auto* const counts = std::get_if<std::int64_t>(&values.back().Raw());
  constexpr std::size_t kTexts = 3;
  return counts != nullptr && *counts == 1 && std::ranges::all_of(values.first(kTexts), IsText) &&
         std::ranges::all_of(values.subspan(kTexts, values.size() - kTexts - 1), IsPlace);
}

bool IsUsable(Engine& pack, const Table& table) {
  RequirePlainTable(pack, table.name);
  Names columns = table.columns;
  columns.emplace_back("ScaleID");
  return HasColumns(pack, table.name, columns);
}

}  // namespace

PackFormulas::PackFormulas(Engine& main) : main_(main), hasTables_(HasTables(main) && AreNumbered(main)) {
  if (!hasTables_) return;
  main_.Query("SELECT ScaleID FROM Scales ORDER BY ScaleID DESC LIMIT 1", {},
              [&](SQLite::Statement& row) { lastScale_ = row.getColumn(0).getInt64(); });
}

void PackFormulas::Add(Engine& pack, PackSizeLimit& limit, const std::function<void()>& onRow) {
  if (!hasTables_) return;
  if (AreNumbered(pack)) Copy(pack, limit, onRow);
  AddShipped();
}

void PackFormulas::Copy(Engine& pack, PackSizeLimit& limit, const std::function<void()>& onRow) {
  AddedScales scales(main_, lastScale_);
  for (const Table& table : Tables()) {
    if (!IsUsable(pack, table)) continue;
    PackRows rows(pack, table.name, table.columns, 0, CountsInPack(table.name));
    rows.ForEach(limit, [&](std::int64_t, std::span<const core::Value> values) {
      const std::optional<std::int64_t> scale = IsCopied(values) ? scales.Find(values[0], values[1]) : std::nullopt;
      if (scale) {
        std::vector<core::Value> row(values.begin(), values.end() - 1);
        row.insert(row.begin(), core::Value(*scale));
        main_.Execute(table.insert, row);
      }
      onRow();
    });
  }
}

// The scales are collected first, because the engine cannot write while it reads. Names are unique, so there are at
// most as many as shipped scales.
void PackFormulas::AddShipped() {
  struct Scale {
    std::array<core::Value, 3> key;
    const FormulaLines::Entry* entry;
  };
  const FormulaLines shipped(ShippedFormulas());
  std::vector<Scale> scales;
  const core::Value last = lastScale_;
  main_.Query(
      "SELECT ScaleID, ScaleName, ScaleIntervals FROM Scales WHERE ScaleID > ? "
      "AND NOT EXISTS (SELECT 1 FROM ScaleFormulas WHERE ScaleFormulas.ScaleID = Scales.ScaleID)",
      {&last, 1}, [&](SQLite::Statement& row) {
        const std::string name = row.getColumn(1).getString();
        const std::string pattern = row.getColumn(2).getString();
        const FormulaLines::Entry* const entry = shipped.Find(name, pattern);
        if (entry != nullptr) scales.push_back({{row.getColumn(0).getInt64(), name, pattern}, entry});
      });
  for (const auto& [key, entry] : scales) {
    main_.Execute(kInsertFormula, std::array<core::Value, 4>{key[0], key[1], key[2], std::string(entry->formula)});
    std::int64_t place = 0;
    for (const std::string_view alias : entry->Aliases()) {
      main_.Execute(kInsertAlias, std::array<core::Value, 5>{key[0], key[1], key[2], std::string(alias), place++});
    }
  }
}

}  // namespace tonalith::data
