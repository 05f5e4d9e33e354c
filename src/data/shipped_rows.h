// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rows that came with an earlier version and that the user has not changed get the names and descriptions of this one.
// An earlier row is known by a mark of its content, so a row that was changed in any way stays as it is. No row comes
// or goes, and no number, type or pattern changes. It is done once for each library, in one transaction that is
// recorded in its table Revisions; a program of an earlier version takes no notice of that. Nothing is reported: a
// library that cannot be written at the moment is tried again at the next start.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tonalith::data {

/// The statement that makes the table of the revisions that leave user_version as it is.
inline constexpr std::string_view kCreateRevisions =
    "CREATE TABLE Revisions (Revision INTEGER PRIMARY KEY NOT NULL, MinimumRevision INTEGER NOT NULL)";

/// Stands in Revisions once the rows are renewed.
inline constexpr int kRenewedRowsRevision = 3;

struct ShippedRow {
  std::uint64_t earlierHash = 0;
  std::string_view name;
  std::string_view description;
};

/// What a row is known by: name, type, description, start note, pattern and whether it is a chord (0 or 1), as text,
/// each with a zero byte after it, by FNV-1a in 64 bits.
class RowHash {
 public:
  void Add(std::string_view field) {
    for (const char c : field) AddByte(static_cast<unsigned char>(c));
    AddByte(0);
  }
  [[nodiscard]] std::uint64_t Get() const { return hash_; }

 private:
  void AddByte(unsigned char byte) { hash_ = (hash_ ^ byte) * 1099511628211U; }

  std::uint64_t hash_ = 14695981039346656037U;
};

/// The rows of the library that differ from an earlier version's, in ascending order of hashes. Made by the build out of
/// content/scales.
std::span<const ShippedRow> ShippedRows();

/// Renews the rows of the library at `path`. `rows` in ascending order of hashes.
void RenewShippedRows(const std::string& path, std::span<const ShippedRow> rows = ShippedRows());

}  // namespace tonalith::data
