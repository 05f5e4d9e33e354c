// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Copies the formulas and aliases of the scales that the import of a pack has added. Both tables are optional. A table
// without the columns of these tables is for another purpose and is ignored, as in version 1.0. Otherwise it is checked
// like the other tables of the pack, and a failure names table, row and column. A row that does not count in the pack,
// or that is no text, is skipped. Private to this room.

#pragma once

#include <cstdint>
#include <functional>

namespace tonalith::data {

class Engine;
class PackSizeLimit;

class PackFormulas {
 public:
  /// Before the scales are added.
  explicit PackFormulas(Engine& main);

  /// Copies into the open transaction of the library, for the scales that were added since. Does nothing if the library
  /// lacks the tables. Calls `onRow` after each row of the pack. Throws core::Failure.
  void Copy(Engine& pack, PackSizeLimit& limit, const std::function<void()>& onRow);

 private:
  Engine& main_;
  bool hasTables_;
  std::int64_t lastScale_ = 0;
};

}  // namespace tonalith::data
