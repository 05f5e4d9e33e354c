// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The unsaved edit of one row: the fields that were set, of a new row or of an existing one. Private to this room.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/value.h"
#include "data/row_source.h"

namespace tonalith::data {

/// The quoted names and the values of the fields that were set, in parallel vectors.
struct SetFields {
  std::vector<std::string> names;
  std::vector<core::Value> values;
};

class PendingEdit {
 public:
  [[nodiscard]] bool IsPending() const { return isNew_ || !values_.empty(); }
  [[nodiscard]] bool IsNew() const { return isNew_; }
  void StartNewRow() { isNew_ = true; }
  void Clear();

  /// Sets a field. `row` is the row to change, nullptr for a new row. A field of an existing row that gets its stored
  /// value is no longer set.
  void Set(std::size_t index, std::size_t fieldCount, core::Value value, const Row* row);
  /// The value of a field that was set, otherwise nullptr.
  [[nodiscard]] const core::Value* Find(std::size_t index) const;
  [[nodiscard]] SetFields Fields(const std::vector<std::string>& fieldNames) const;
  /// `row` with the fields that were set.
  [[nodiscard]] Row AppliedTo(Row row) const;

 private:
  bool isNew_ = false;
  /// One for each field of the row, or empty if none is set.
  std::vector<std::optional<core::Value>> values_;
};

inline const core::Value* PendingEdit::Find(std::size_t index) const {
  return index < values_.size() && values_[index] ? &*values_[index] : nullptr;
}

}  // namespace tonalith::data
