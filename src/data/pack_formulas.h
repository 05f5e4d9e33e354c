// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Adds the formulas and aliases of the scales that the import of a pack has added: those of the pack, and for a shipped
// scale of a pack without them, such as a pack of version 1.0, the shipped ones. Both tables are optional. A table
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

  /// Writes in the open transaction of the library, for the scales that were added since. Does nothing if the library
  /// lacks the tables. Calls `onRow` after each row of the pack. Throws core::Failure.
  void Add(Engine& pack, PackSizeLimit& limit, const std::function<void()>& onRow);

 private:
  void Copy(Engine& pack, PackSizeLimit& limit, const std::function<void()>& onRow);
  void AddShipped();

  Engine& main_;
  bool hasTables_;
  std::int64_t lastScale_ = 0;
};

}  // namespace tonalith::data
