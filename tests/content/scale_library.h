// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The shipped scale tables for the tests: rows in navigation order, found by name. There is a library for the main
// database, one for each data pack, and one for all. Each is read once, by the reader that builds the databases. An
// invalid table throws a Failure in every test that uses it.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "content/pitch_class_set.h"
#include "make_database/scale_tables.h"

namespace tonalith::content_tests {

using make_database::ScaleRow;
using make_database::ScaleTypeRow;

class ScaleLibrary {
 public:
  /// The main database.
  static const ScaleLibrary& Shipped();
  /// The main database followed by all data packs, in the order of PackFolders.
  static const ScaleLibrary& WithPacks();
  /// The tables of one folder in content/, such as "scales" or "packs/jazz".
  explicit ScaleLibrary(const std::filesystem::path& folder);

  [[nodiscard]] const std::vector<ScaleTypeRow>& Types() const { return tables_.types; }
  /// Scales first, then chords; with packs, one library after another.
  [[nodiscard]] const std::vector<ScaleRow>& Rows() const { return tables_.scales; }
  [[nodiscard]] std::vector<ScaleRow> Scales() const;
  [[nodiscard]] std::vector<ScaleRow> Chords() const;
  /// The rows of the type, in order. Throws std::out_of_range if the type does not exist.
  [[nodiscard]] std::vector<ScaleRow> OfType(std::string_view typeName) const;

  /// The row with this name, ignoring ASCII case, otherwise the only row with this plain name, otherwise null.
  [[nodiscard]] const ScaleRow* Find(std::string_view name) const;
  /// The notes of a row. Throws std::out_of_range if it does not exist.
  [[nodiscard]] PitchClassSet Notes(std::string_view name) const;
  /// The pattern of a row. Throws std::out_of_range if it does not exist.
  [[nodiscard]] const std::string& Pattern(std::string_view name) const;

 private:
  ScaleLibrary() = default;
  void Append(const ScaleLibrary& other);

  make_database::ScaleTables tables_;
};

/// The folders of the data packs in content/, such as "packs/jazz", in alphabetical order.
std::vector<std::string> PackFolders();

/// The name without its brackets: "Minor 7" for "Minor 7 (m7)".
std::string PlainName(const ScaleRow& row);

/// ASCII letters in lower case, as the database compares names.
std::string Lowered(std::string_view text);

}  // namespace tonalith::content_tests
