// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What is asked of a pack before and while its rows are read, because its file may come from anywhere: that a table is
// a table whose fields are stored, that the walk through its rows comes to an end, that they are no more than the file
// can hold, and that no field is too long to be shown. Private to the data room; one thread. All fail by throwing
// core::Failure.

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

/// Throws for a stored query, which could be anything and could go on for ever, for what an extension makes, and for a
/// column that is calculated, which needs no room in the file. A table that is not there is left to its reader.
void RequirePlainTable(Engine& pack, const std::string& table);

/// Watches a walk through a table. The numbers of its rows rise, but in a damaged file they may lead back to rows that
/// were there before.
class AscendingKeyCheck {
 public:
  explicit AscendingKeyCheck(std::string path) : path_(std::move(path)) {}
  void Require(std::int64_t row);

 private:
  std::string path_;
  std::optional<std::int64_t> latest_;
};

/// What is left of the content that a file of that size can hold.
class PackBudget {
 public:
  explicit PackBudget(std::uint64_t fileSize);
  /// Counts a row of these many bytes.
  void Take(std::uint64_t bytes);

 private:
  std::uint64_t fileSize_;
  std::uint64_t left_;
};

/// The bytes that a value counts as.
std::uint64_t SizeOf(const core::Value& value);

/// The longest content of one column, by its name.
class FieldLimit {
 public:
  explicit FieldLimit(std::string_view column);
  /// Throws for content that is longer. `owner` is the name of the scale or type to which it belongs.
  void Require(const core::Value& value, const core::Value& owner) const;

 private:
  std::size_t characters_;
  bool isPattern_;
};

/// Where in a pack something was found. Row 0 is no row in particular, an empty column none in particular.
struct PackPlace {
  std::string table;
  std::int64_t row = 0;
  std::string column;
};

/// The failure with the place in front of its words.
core::Failure At(const PackPlace& place, const core::Failure& failure);

}  // namespace tonalith::data
