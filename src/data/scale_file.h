// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Reads the scales of a library or pack, and their formulas and other names if the file has tables for them. Opens
// SQLite and Jet files for reading only: neither the file nor its folder changes, and an older file is not upgraded.
// Rows are passed on one by one, so memory does not depend on their number. Throws core::Failure for a file that cannot
// be opened, is in use or damaged, and for a field beyond its limit.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tonalith::data {

class Engine;

/// A row of Scales. The texts are valid until the next row.
struct StoredScale {
  std::int64_t id = 0;
  std::string_view name;
  /// The name of its type.
  std::string_view type;
  std::string_view startNote;
  /// As stored; any text.
  std::string_view pattern;
  bool isChord = false;
};

/// The formula or an alias of a scale, valid until the next row.
struct StoredText {
  /// The number of the scale.
  std::int64_t id = 0;
  /// Untrusted; not empty, at most core::kLongestFormula or core::kLongestName characters.
  std::string_view text;
};

class ScaleFile {
 public:
  explicit ScaleFile(const std::string& path);
  ~ScaleFile();
  ScaleFile(const ScaleFile&) = delete;
  ScaleFile& operator=(const ScaleFile&) = delete;

  /// Passes each scale that has a name and a type to `onScale`, in the order of the file.
  void ForEachScale(const std::function<void(const StoredScale&)>& onScale);
  /// Passes the rows of ScaleFormulas that count (formula_tables.h); none if the file has no such table, or one of
  /// another program. Rows with texts beyond the limits are left out.
  void ForEachFormula(const std::function<void(const StoredText&)>& onFormula);
  /// The same for ScaleAliases. In a library or pack of ours the aliases of a scale are in their order.
  void ForEachAlias(const std::function<void(const StoredText&)>& onAlias);
  /// The description of the scale with this number and name; empty if there is none.
  [[nodiscard]] std::string DescriptionOf(std::int64_t id, std::string_view name);

 private:
  [[nodiscard]] bool HasColumns(const std::string& table, const std::vector<std::string>& columns);
  void ForEachText(const std::string& table, const std::string& column, const std::string& condition,
                   const std::function<void(const StoredText&)>& onText);

  std::unique_ptr<Engine> engine_;
};

}  // namespace tonalith::data
