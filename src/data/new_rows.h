// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rows on their way into a table, written several by one statement, because a statement of its own for each row takes
// longer than the row. What waits to be written is not found by asking the table, so whoever looks for a row asks
// MayHold first. Private to the data room; uses an engine that must outlive it; one thread. Fails as the engine does,
// and says which row was refused; rows that wait when it goes are dropped.

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/value.h"

namespace tonalith::data {

class Engine;

class NewRows {
 public:
  /// `fields` without quotes; `keyField` is the place in them of the field by which rows are looked for, nothing where
  /// it is not among them.
  NewRows(Engine& engine, const std::string& table, const std::vector<std::string>& fields,
          std::optional<std::size_t> keyField);

  /// Where the values of the next row go, one for each field, whatever they hold before. Add takes them.
  [[nodiscard]] core::Value* NextRow() { return values_.data() + waiting_ * fieldCount_; }
  /// `number` is what RefusedRow calls it.
  void Add(std::int64_t number = 0);
  /// Whether a row that waits may be found by that key. True where it is hard to tell; never false by mistake.
  [[nodiscard]] bool MayHold(const core::Value& key) const;
  /// Writes what waits.
  void Write();
  /// The number of the row whose content the database has refused in a call that threw; nothing where the failure has
  /// nothing to do with a row.
  [[nodiscard]] std::optional<std::int64_t> RefusedRow() const { return refusedRow_; }

 private:
  static constexpr std::size_t kRowsAtOnce = 16;

  bool IsContentRefused() const;
  bool WriteAll(std::size_t rows);

  Engine& engine_;
  std::string insertAll_;
  std::string insertOne_;
  std::size_t fieldCount_;
  std::optional<std::size_t> keyField_;
  std::vector<core::Value> values_;
  std::array<std::uint64_t, kRowsAtOnce> hashes_{};
  std::array<std::int64_t, kRowsAtOnce> numbers_{};
  std::size_t waiting_ = 0;
  std::optional<std::int64_t> refusedRow_;
};

}  // namespace tonalith::data
