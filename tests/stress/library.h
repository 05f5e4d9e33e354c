// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The scale library as it stands in the file: read with the database engine alone, past the program's own data room.
// Text in, text out, whatever a column holds; nothing stands for null. One thread. A file that cannot be read throws
// std::runtime_error with the engine's words.

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

/// What the engine takes for the same name.
std::string FoldedName(const std::string& name);

class LibraryFile {
 public:
  enum class Open { kForReading, kForWriting };

  explicit LibraryFile(const std::string& path, Open open = Open::kForReading);
  ~LibraryFile();
  LibraryFile(const LibraryFile&) = delete;
  LibraryFile& operator=(const LibraryFile&) = delete;

  [[nodiscard]] Library Read() const;
  /// Grows when somebody else has written.
  [[nodiscard]] std::int64_t Version() const;
  /// What the engine has against the file; empty when it is sound.
  [[nodiscard]] std::string Complaint() const;
  void Run(const std::string& statements) const;
  /// All cells of the answer, row by row.
  [[nodiscard]] std::vector<Cell> Ask(const std::string& question) const;

 private:
  sqlite3* database_ = nullptr;
};

/// What an import of `pack` makes of `library`: types by number, scales by name, what is there stays. New scales get
/// the numbers behind the highest one that was ever given, `latest`.
Library Merged(Library library, const Library& pack, std::int64_t latest);

}  // namespace tonalith::stress
