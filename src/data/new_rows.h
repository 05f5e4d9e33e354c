// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Buffers rows and inserts several with one statement, because one statement for each row is slow. A query does not
// find buffered rows, so callers check MayContain first. Throws like the engine and reports which row was refused. The
// destructor drops buffered rows. Private to this room.

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
  /// `fields` without quotes; `keyField` is the index of the key field in them, if it is one of them.
  NewRows(Engine& engine, const std::string& table, const std::vector<std::string>& fields,
          std::optional<std::size_t> keyField);

  /// The buffer for the values of the next row, one for each field, with arbitrary content. Add takes them.
  [[nodiscard]] core::Value* NextRow() { return values_.data() + waiting_ * fieldCount_; }
  /// RefusedRow identifies the row by `number`.
  void Add(std::int64_t number = 0);
  /// Whether a buffered row may have that key. May report false positives, never false negatives.
  [[nodiscard]] bool MayContain(const core::Value& key) const;
  /// Writes the buffered rows.
  void Write();
  /// After a call that threw: the number of the row that the database refused, or std::nullopt if the failure has
  /// another cause.
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
