// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/new_rows.h"

#include <sqlite3.h>

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "core/failure.h"
#include "core/upper_case.h"
#include "data/engine.h"
#include "data/sql_dialect.h"

namespace tonalith::data {
namespace {

std::vector<std::string> Quoted(std::vector<std::string> names) {
  std::transform(names.begin(), names.end(), names.begin(), [](const std::string& name) { return QuoteName(name); });
  return names;
}

// Equal for texts that differ only in case. The engine compares only up to a zero byte.
std::uint64_t HashOf(std::string_view text) {
  constexpr std::uint64_t kOffset = 14695981039346656037U;  // FNV-1a
  constexpr std::uint64_t kPrime = 1099511628211U;
  std::uint64_t hash = kOffset;
  for (const char32_t character : core::UpperCase(text.substr(0, text.find('\0')))) hash = (hash ^ character) * kPrime;
  return hash;
}

// std::nullopt for a value that a column may convert to another text.
std::optional<std::uint64_t> HashOf(const core::Value& value) {
  if (const auto* const text = std::get_if<std::string>(&value.Raw())) return HashOf(std::string_view(*text));
  if (std::holds_alternative<std::int64_t>(value.Raw())) return HashOf(std::string_view(value.AsText()));
  return {};
}

}  // namespace

NewRows::NewRows(Engine& engine, const std::string& table, const std::vector<std::string>& fields,
                 std::optional<std::size_t> keyField)
    : engine_(engine),
      insertAll_(InsertStatement(QuoteName(table), Quoted(fields), kRowsAtOnce)),
      insertOne_(InsertStatement(QuoteName(table), Quoted(fields))),
      fieldCount_(fields.size()),
      keyField_(keyField),
      values_(fields.size() * kRowsAtOnce) {}

void NewRows::Add(std::int64_t number) {
  const std::optional<std::uint64_t> hash = keyField_ ? HashOf(NextRow()[*keyField_]) : std::nullopt;
  hashes_[waiting_] = hash.value_or(0);
  numbers_[waiting_] = number;
  ++waiting_;
  if (!hash || waiting_ == kRowsAtOnce) Write();
}

bool NewRows::MayContain(const core::Value& key) const {
  if (waiting_ == 0) return false;
  const std::optional<std::uint64_t> hash = HashOf(key);
  const auto end = hashes_.begin() + static_cast<std::ptrdiff_t>(waiting_);
  return !hash || std::find(hashes_.begin(), end, *hash) != end;
}

bool NewRows::IsContentRefused() const {
  const int code = engine_.LatestError() & 0xFF;
  return code == SQLITE_CONSTRAINT || code == SQLITE_MISMATCH || code == SQLITE_TOOBIG;
}

// Returns false, without a row written, if the database refuses one of the rows.
bool NewRows::WriteAll(std::size_t rows) {
  if (rows != kRowsAtOnce || fieldCount_ == 0) return false;
  try {
    engine_.Execute(insertAll_, values_);
    return true;
  } catch (const core::Failure&) {
    // Some failures end the transaction; nothing more may be written after that.
    if (!IsContentRefused() || !engine_.IsInTransaction()) throw;
    return false;
  }
}

void NewRows::Write() {
  const std::span<const core::Value> values(values_);
  const std::size_t rows = std::exchange(waiting_, 0);
  if (WriteAll(rows)) return;
  for (std::size_t row = 0; row < rows; ++row) {
    try {
      engine_.Execute(insertOne_, values.subspan(row * fieldCount_, fieldCount_));
    } catch (const core::Failure&) {
      if (IsContentRefused()) refusedRow_ = numbers_[row];
      throw;
    }
  }
}

}  // namespace tonalith::data
