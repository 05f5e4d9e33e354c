// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Whether a scale of a name exists, by the rule of core::UpperCase. The engine's own comparison ignores the case of
// ASCII letters only. Its index of the names depends on that, and other programs write into the file by the same rule,
// so that comparison stays, and this adds what it misses: pairs of names of which at least one has another letter. The
// names with other letters are read once and kept. Private to the data room; uses an engine that must outlive it; one
// thread. Fails as the engine does.

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

  /// Whether a scale other than the one of number `except` has that name. 0 is no scale's number.
  [[nodiscard]] bool Has(std::string_view name, std::int64_t except = 0);
  /// Takes a name into account that is not in the table yet.
  void Add(std::string_view name);

 private:
  void Read();
  [[nodiscard]] bool TableHas(const std::string& name, std::int64_t except);

  Engine& engine_;
  bool isRead_ = false;
  /// The numbers of the scales with other letters, by the upper case of their names.
  std::map<std::u32string, std::vector<std::int64_t>, std::less<>> others_;
};

/// Throws the failure of the database's own guard when one of `values` is the name of another scale than number
/// `except`. `source` is the quoted name of what is written.
void RequireFreeName(Engine& engine, std::string_view source, const std::vector<std::string>& names,
                     const std::vector<core::Value>& values, std::int64_t except);

}  // namespace tonalith::data
