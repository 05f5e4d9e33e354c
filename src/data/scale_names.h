// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds scale names without regard to case, as core::UpperCase does. The comparison of the engine ignores only the case
// of ASCII letters; its index and other programs rely on that. This class adds pairs of names of which at least one has
// non-ASCII letters. Such names are read once and cached. Throws like the engine. Private to this room.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/value.h"

namespace tonalith::data {

class Engine;

class ScaleNames {
 public:
  explicit ScaleNames(Engine& engine) : engine_(engine) {}

  /// Whether a scale other than number `except` has that name. 0 is the number of no scale.
  [[nodiscard]] bool Has(std::string_view name, std::int64_t except = 0);
  /// Adds a name that is not in the table yet.
  void Add(std::string_view name);

 private:
  void Read();
  [[nodiscard]] bool TableHas(const std::string& name, std::int64_t except);

  Engine& engine_;
  bool isRead_ = false;
  /// The numbers of the scales with non-ASCII names, by the upper case of their names.
  std::map<std::u32string, std::vector<std::int64_t>, std::less<>> others_;
};

/// Throws the same failure as the trigger of the stored query if one of `values` is the name of another scale than
/// number `except`. `source` is the quoted name of the table or stored query.
void RequireFreeName(Engine& engine, std::string_view source, const std::vector<std::string>& names,
                     const std::vector<core::Value>& values, std::int64_t except);

}  // namespace tonalith::data
