// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What is asked of a pack before and while its rows are read, because its file may come from anywhere: that a table is
// a table, and that the walk through its rows comes to an end. Private to the data room; one thread. All fail by
// throwing core::Failure.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/record_set.h"

namespace tonalith::data {

class Engine;

/// Throws for a stored query, which could be anything and could go on for ever, and for what an extension makes. A
/// table that is not there is left to whoever reads it.
void RequirePlainTable(Engine& pack, const std::string& table);

/// Watches a walk through a table. The numbers of its rows rise, but in a damaged file they may lead back to rows that
/// were there before.
class RisingRows {
 public:
  explicit RisingRows(std::string path) : path_(std::move(path)) {}
  void Require(Bookmark row);

 private:
  std::string path_;
  std::optional<std::int64_t> latest_;
};

}  // namespace tonalith::data
