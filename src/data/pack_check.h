// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Checks of a pack before and while its rows are read, because its file is untrusted: a table is a real table with
// stored fields, the iteration of its rows ends, its content is not larger than the file allows, and no field is too
// long. Private to this room. All throw core::Failure.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/failure.h"
#include "core/value.h"

namespace tonalith::data {

class Engine;

/// Throws for a stored query, whose rows may be without end, for a virtual table, and for a calculated column, which
/// needs no space in the file. Does not throw for a missing table.
void RequirePlainTable(Engine& pack, const std::string& table);

/// Requires ascending row numbers. In a damaged file an iteration may return to earlier rows and never end.
class AscendingKeyCheck {
 public:
  explicit AscendingKeyCheck(std::string path) : path_(std::move(path)) {}
  void Require(std::int64_t row);

 private:
  std::string path_;
  std::optional<std::int64_t> latest_;
};

/// Limits the content to the maximum of a file of the given size.
class PackSizeLimit {
 public:
  explicit PackSizeLimit(std::uint64_t fileSize);
  /// Counts a row of `bytes` bytes.
  void Count(std::uint64_t bytes);

 private:
  std::uint64_t fileSize_;
  std::uint64_t left_;
};

/// The size of a value in bytes, for PackSizeLimit.
std::uint64_t SizeOf(const core::Value& value);

/// The maximum length of a column, by its name.
class FieldLimit {
 public:
  explicit FieldLimit(std::string_view column);
  /// Throws for longer content. `owner` is the name of the scale or type, for the message.
  void Require(const core::Value& value, const core::Value& owner) const;

 private:
  std::size_t characters_;
  bool isPattern_;
};

/// A location in a pack. Row 0 means no specific row, an empty column no specific column.
struct PackPlace {
  std::string table;
  std::int64_t row = 0;
  std::string column;
};

/// The failure with the location before its description.
core::Failure At(const PackPlace& place, const core::Failure& failure);

}  // namespace tonalith::data
