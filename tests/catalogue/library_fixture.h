// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Small libraries and packs in a temporary folder, also with tables of formulas and aliases.

#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "data/formula_tables.h"
#include "data/schema.h"
#include "support/temp_folder.h"

namespace tonalith::catalogue {

/// Statements that create the tables next to Scales.
inline const std::string kTextTables =
    std::string(data::kCreateScaleFormulas) + ";" + std::string(data::kCreateScaleAliases) + ";";

inline constexpr const char* kScales = R"sql(
  INSERT INTO ScaleTypes VALUES (1, 10, 'Common scales'), (2, 20, 'Triads');
  INSERT INTO Scales VALUES
    (1, 'Major', 1, 'Bright.', 'C', '2212221', 0, 1),
    (2, 'Minor (natural)', 1, 'Dark.', 'A', '2122122', 0, 2),
    (4, 'Major triad', 2, NULL, 'C', '435', 1, 1),
    (7, 'Minor 7 (m7)', 2, 'Sad.', 'C', '3432', 1, 2);
)sql";

class LibraryFolder {
 public:
  /// Creates a scale database with these rows and returns its path.
  std::string Make(const std::string& name, const std::string& rows = kScales) const {
    data::CreateScaleDatabase(folder_ / name);
    Run(name, rows);
    return folder_ / name;
  }
  void Run(const std::string& name, const std::string& sql) const {
    SQLite::Database(folder_ / name, SQLite::OPEN_READWRITE, 1000).exec(sql);
  }
  [[nodiscard]] std::string operator/(const std::string& name) const { return folder_ / name; }
  [[nodiscard]] const std::filesystem::path& Path() const { return folder_.Path(); }

 private:
  tests::TempFolder folder_;
};

/// Fails with an exception if a pack cannot be read.
inline Catalogue Read(const std::string& library, const std::vector<std::string>& packs = {}) {
  std::vector<PackProblem> problems;
  Catalogue catalogue = ReadCatalogue(library, packs, problems);
  if (!problems.empty()) throw problems.front().failure;
  return catalogue;
}

inline std::vector<std::string> Names(const Catalogue& catalogue) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < catalogue.Size(); ++i) names.emplace_back(catalogue.NameAt(i));
  return names;
}

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tonalith::catalogue
