// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The content of a library file, read with SQLite alone, without the program's data room. All values are text; nullopt
// is null. Throws std::runtime_error with SQLite's message if a file cannot be read.

#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace tonalith::stress {

using Cell = std::optional<std::string>;
namespace column {
inline constexpr std::size_t kName = 0;
inline constexpr std::size_t kTypeId = 1;
inline constexpr std::size_t kDescription = 2;
inline constexpr std::size_t kStart = 3;
inline constexpr std::size_t kIntervals = 4;
inline constexpr std::size_t kChord = 5;
inline constexpr std::size_t kSort = 6;
}  // namespace column
using Scale = std::array<Cell, 7>;

struct Library {
  std::map<std::int64_t, Scale> scales;
  /// The names of the types.
  std::map<std::int64_t, Cell> types;
  bool operator==(const Library&) const = default;
};

/// SQLite compares names in this form: ASCII letters in lower case.
std::string FoldedName(const std::string& name);

class LibraryFile {
 public:
  enum class Open { kForReading, kForWriting };

  explicit LibraryFile(const std::string& path, Open open = Open::kForReading);
  ~LibraryFile();
  LibraryFile(const LibraryFile&) = delete;
  LibraryFile& operator=(const LibraryFile&) = delete;

  [[nodiscard]] Library Read() const;
  /// Changes after each write by another connection.
  [[nodiscard]] std::int64_t Version() const;
  /// Empty if the file passes all integrity checks.
  [[nodiscard]] std::string IntegrityErrors() const;
  void Run(const std::string& statements) const;
  /// All cells of the result, row by row.
  [[nodiscard]] std::vector<Cell> Query(const std::string& statement) const;

 private:
  sqlite3* database_ = nullptr;
};

/// The expected result of an import: adds types with new numbers and scales with new names. New scales get the numbers
/// after `latest`, the highest number ever assigned.
Library Merged(Library library, const Library& pack, std::int64_t latest);

}  // namespace tonalith::stress
