// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/pending_edit.h"

#include <algorithm>
#include <utility>

#include "data/sql_dialect.h"

namespace tonalith::data {

void PendingEdit::Clear() {
  isNew_ = false;
  values_.clear();
}

void PendingEdit::Set(std::size_t index, std::size_t fieldCount, core::Value value, const Row* row) {
  const bool isUnchanged = row != nullptr && row->values.at(index) == value;
  if (values_.empty() && isUnchanged) return;
  values_.resize(fieldCount);
  values_[index] = isUnchanged ? std::nullopt : std::optional(std::move(value));
  const bool isAnySet =
      std::any_of(values_.begin(), values_.end(), [](const auto& field) { return field.has_value(); });
  if (!isAnySet) values_.clear();
}

SetFields PendingEdit::Fields(const std::vector<std::string>& fieldNames) const {
  SetFields set;
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (!values_[i]) continue;
    set.names.push_back(QuoteName(fieldNames[i]));
    set.values.push_back(*values_[i]);
  }
  return set;
}

Row PendingEdit::AppliedTo(Row row) const {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (values_[i]) row.values[i] = *values_[i];
  }
  return row;
}

}  // namespace tonalith::data
