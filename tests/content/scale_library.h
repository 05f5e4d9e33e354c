// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The shipped scale tables as the tests see them: rows in the order of navigation, found by name. There is a library
// for the main database, one for each data pack, and one that holds them all. Each is read once, by the reader that the
// databases are made with, and owned by the process; a table that is not well formed throws its Failure, which fails
// every test that asks.

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
  /// The main database with every data pack behind it, in the order of PackFolders.
  static const ScaleLibrary& WithPacks();
  /// The tables of one folder below content/, such as "scales" or "packs/jazz".
  explicit ScaleLibrary(const std::filesystem::path& folder);

  [[nodiscard]] const std::vector<ScaleTypeRow>& Types() const { return tables_.types; }
  /// Scales first, then chords; with packs, the rows of one after those of the other.
  [[nodiscard]] const std::vector<ScaleRow>& Rows() const { return tables_.scales; }
  [[nodiscard]] std::vector<ScaleRow> Scales() const;
  [[nodiscard]] std::vector<ScaleRow> Chords() const;
  /// The rows of the type of that name, in their order. Throws std::out_of_range if there is no such type.
  [[nodiscard]] std::vector<ScaleRow> OfType(std::string_view typeName) const;

  /// The row of that name without regard to ASCII case, or else the only row whose plain name this is; otherwise null.
  [[nodiscard]] const ScaleRow* Find(std::string_view name) const;
  /// The notes of the row of that name. Throws std::out_of_range if there is none.
  [[nodiscard]] PitchClassSet Notes(std::string_view name) const;
  /// The pattern of the row of that name. Throws std::out_of_range if there is none.
  [[nodiscard]] const std::string& Pattern(std::string_view name) const;

 private:
  ScaleLibrary() = default;
  void Append(const ScaleLibrary& other);

  make_database::ScaleTables tables_;
};

/// The folders of the data packs below content/, such as "packs/jazz", in alphabetical order.
std::vector<std::string> PackFolders();

/// The name without its brackets: "Minor 7" for "Minor 7 (m7)".
std::string PlainName(const ScaleRow& row);

/// ASCII letters in lower case, as the database compares names.
std::string Lowered(std::string_view text);

}  // namespace tonalith::content_tests
