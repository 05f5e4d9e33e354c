// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rows of one table of a pack, read one after the other, so that memory does not grow with them. Everything is held
// to its limits before it is handed on. Private to the data room; uses an engine that must outlive it; one thread.
// Fails by throwing core::Failure, which names the table, row and column where one of them is to blame.

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
  /// `columns` are what is read of the table, none twice. `name` is the place in them of the one by which messages call
  /// a row, nothing where it is not among them.
  PackRows(Engine& pack, std::string table, std::vector<std::string> columns, std::optional<std::size_t> name);

  /// The names of all columns that a table has.
  static std::vector<std::string> ColumnsOf(Engine& pack, const std::string& table);

  /// Hands each row to `onRow`, in the order of the file: its number, from 1, and its values in the order of the
  /// columns. The values stay until the next row comes.
  void ForEach(PackBudget& budget,
               const std::function<void(std::int64_t row, std::span<const core::Value> values)>& onRow);

 private:
  void RequireLimits() const;
  [[nodiscard]] core::Failure HugeFieldInNextRow();

  Engine& pack_;
  std::string table_;
  std::vector<std::string> columns_;
  std::optional<std::size_t> name_;
  bool isNumbered_;
  std::vector<FieldLimit> limits_;
  std::vector<core::Value> values_;
  std::int64_t row_ = 0;
};

}  // namespace tonalith::data
