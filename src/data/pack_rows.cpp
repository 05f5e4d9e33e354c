// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pack_rows.h"

#include <sqlite3.h>

#include <utility>

#include "data/data_failure.h"
#include "data/long_fields.h"
#include "data/messages.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

// Indexes are untrusted too and may differ from the table.
std::string From(const std::string& table) { return " FROM " + QuoteName(table) + " NOT INDEXED"; }

std::string StatementFor(const std::string& table, const std::vector<std::string>& columns,
                         const std::string& condition, bool isNumbered) {
  std::string statement = std::string("SELECT ") + (isNumbered ? kRowNumber : "0");
  for (const std::string& column : columns) statement += ", " + QuoteName(column);
  if (!condition.empty()) statement += ", " + condition;
  return statement + From(table) + (isNumbered ? std::string(" ORDER BY ") + kRowNumber : "");
}

}  // namespace

PackRows::PackRows(Engine& pack, std::string table, std::vector<std::string> columns, std::optional<std::size_t> name,
                   std::string condition)
    : pack_(pack),
      table_(std::move(table)),
      columns_(std::move(columns)),
      name_(name),
      condition_(std::move(condition)),
      isNumbered_(pack.IsNumberedTable(table_)),
      limits_(columns_.begin(), columns_.end()),
      values_(columns_.size() + (condition_.empty() ? 0 : 1)) {}

std::vector<std::string> PackRows::ColumnsOf(Engine& pack, const std::string& table) {
  return pack.ColumnNames("SELECT *" + From(table));
}

void PackRows::ForEach(PackSizeLimit& limit,
                       const std::function<void(std::int64_t row, std::span<const core::Value> values)>& onRow) {
  AscendingKeyCheck ascending(pack_.Path());
  bool isReading = true;
  try {
    pack_.Query(StatementFor(table_, columns_, condition_, isNumbered_), {}, [&](SQLite::Statement& statement) {
      isReading = false;
      if (isNumbered_) ascending.Require(statement.getColumn(0).getInt64());
      ++row_;
      std::uint64_t size = 0;
      for (std::size_t i = 0; i < values_.size(); ++i) {
        ReadColumn(statement.getColumn(static_cast<int>(i) + 1), values_[i]);
        size += SizeOf(values_[i]);
      }
      RequireLimits();
      limit.Count(size);
      onRow(row_, values_);
      isReading = true;
    });
  } catch (const core::Failure&) {
    if (isReading && pack_.LatestError() == SQLITE_TOOBIG) throw HugeFieldInNextRow();
    throw;
  }
}

void PackRows::RequireLimits() const {
  static const core::Value kNoName;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    try {
      limits_[i].Require(values_[i], name_ ? values_[*name_] : kNoName);
    } catch (const core::Failure& failure) {
      throw At({table_, row_, columns_[i]}, failure);
    }
  }
}

// The engine does not report which field is too long, so each field of the row is queried separately.
core::Failure PackRows::HugeFieldInNextRow() {
  PackPlace place{table_, row_ + 1, {}};
  for (const std::string& column : columns_) {
    try {
      pack_.Query(StatementFor(table_, {column}, {}, isNumbered_) + " LIMIT 1 OFFSET " + std::to_string(row_), {},
                  [](SQLite::Statement&) {});
    } catch (const core::Failure&) {
      place.column = column;
      break;
    }
  }
  return At(place, core::Failure::Unspecified({MessageId::kLongFieldBytes, kLongestField}));
}

}  // namespace tonalith::data
