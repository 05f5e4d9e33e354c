// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Iterates the rows of one table of a pack with constant memory. Checks all limits before it passes a row on. The
// description of a failure has the table, row and column if one of them is the cause. Private to this room.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/value.h"
#include "data/engine.h"
#include "data/pack_check.h"

namespace tonalith::data {

class PackRows {
 public:
  /// `columns`: the columns to read, without duplicates. `name`: the index in them of the column that messages use as
  /// the name of a row, if it is one of them. `condition`: an SQL expression whose value, 0 or 1, follows those of the
  /// columns.
  PackRows(Engine& pack, std::string table, std::vector<std::string> columns, std::optional<std::size_t> name,
           std::string condition = {});

  /// The names of all columns of a table.
  static std::vector<std::string> ColumnsOf(Engine& pack, const std::string& table);

  /// Passes each row to `onRow`, in the order of the file: its number, from 1, and its values in the order of the
  /// columns. The values are valid until the next row.
  void ForEach(PackSizeLimit& limit,
               const std::function<void(std::int64_t row, std::span<const core::Value> values)>& onRow);

 private:
  void RequireLimits() const;
  [[nodiscard]] core::Failure HugeFieldInNextRow();

  Engine& pack_;
  std::string table_;
  std::vector<std::string> columns_;
  std::optional<std::size_t> name_;
  std::string condition_;
  bool isNumbered_;
  std::vector<FieldLimit> limits_;
  std::vector<core::Value> values_;
  std::int64_t row_ = 0;
};

}  // namespace tonalith::data
