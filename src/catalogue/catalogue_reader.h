// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Fills a catalogue file by file. Private to this room.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "catalogue/catalogue.h"
#include "data/scale_file.h"

namespace tonalith::catalogue {

class CatalogueReader {
 public:
  /// All entries of a file or none: throws core::Failure.
  void Add(const std::string& path);
  /// The catalogue of all files; the reader is then empty.
  [[nodiscard]] Catalogue Take();

 private:
  void ReadScales(data::ScaleFile& file);
  void ReadFormulas(data::ScaleFile& file);
  void ReadAliases(data::ScaleFile& file);
  /// From the index `begin` on.
  void DropAliasesBeyondLimit(std::size_t begin);
  void AddScale(const data::StoredScale& scale);
  /// Whether no entry has this name yet; then it is taken by the next row.
  [[nodiscard]] bool TakeName(std::string_view name);
  /// The row of a scale of the current file; nothing if an earlier file has its name.
  [[nodiscard]] std::optional<std::size_t> RowOf(std::int64_t id) const;
  TextStore::Place AddOnce(std::string_view text);
  void RequireRoomFor(std::size_t bytes) const;

  Catalogue catalogue_;
  /// By the number of a scale in the current file.
  std::unordered_map<std::int64_t, std::uint32_t> rowOfId_;
  /// By the hash of a name in upper case. Of two names with one hash only the first is there, so the second would not
  /// be recognised if it came again.
  std::unordered_map<std::size_t, std::uint32_t> rowOfName_;
  /// Types and start notes are the same for many rows.
  std::unordered_map<std::string, TextStore::Place> shared_;
  std::u32string upper_;
};

}  // namespace tonalith::catalogue
