// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The list of library rows that have changed since version 1.0 maps names of that version to current names.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

namespace fs = std::filesystem;

/// The lines of a table that are not comments.
std::vector<std::string> LinesOf(const fs::path& file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream) << file;
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    if (!line.starts_with('#')) lines.push_back(line);
  }
  return lines;
}

std::set<std::string> NamesOfVersionOne() {
  const std::vector<std::string> lines = LinesOf(fs::path(TONALITH_SOURCE_DIR) / "tests/content/names_1_0.txt");
  return {lines.begin(), lines.end()};
}

/// The old and the new name of every row of the list.
std::vector<std::pair<std::string, std::string>> EarlierRows() {
  std::vector<std::string> lines = LinesOf(fs::path(TONALITH_SOURCE_DIR) / "content/scales/earlier_rows.tsv");
  EXPECT_EQ(lines.at(0), "Name1.0\tScaleName");
  lines.erase(lines.begin());
  std::vector<std::pair<std::string, std::string>> rows;
  for (const std::string& line : lines) {
    const auto tab = line.find('\t');
    EXPECT_NE(tab, std::string::npos) << line;
    rows.emplace_back(line.substr(0, tab), line.substr(tab + 1));
  }
  return rows;
}

TEST(EarlierRows, MapNamesOfVersion1ToCurrentNames) {
  const std::set<std::string> names = NamesOfVersionOne();
  ASSERT_EQ(names.size(), 338U);
  std::set<std::string> seen;
  for (const auto& [before, now] : EarlierRows()) {
    EXPECT_TRUE(names.contains(before)) << before << " is no name of version 1.0";
    EXPECT_TRUE(seen.insert(before).second) << before << " stands twice";
    const ScaleRow* row = ScaleLibrary::Shipped().Find(now);
    ASSERT_NE(row, nullptr) << now;
    EXPECT_EQ(row->scaleName, now) << "the name is not complete";
  }
}

TEST(EarlierRows, ContainEveryChangedName) {
  std::set<std::string> before;
  std::set<std::string> now;
  for (const auto& [old, name] : EarlierRows()) {
    before.insert(old);
    EXPECT_TRUE(now.insert(name).second) << "two rows become " << name;
  }
  for (const std::string& name : NamesOfVersionOne()) {
    if (before.contains(name)) continue;
    const ScaleRow* row = ScaleLibrary::WithPacks().Find(name);
    ASSERT_NE(row, nullptr) << name << " is gone and not in the list";
    EXPECT_EQ(row->scaleName, name) << "has a new name and is not in the list";
  }
}

}  // namespace
}  // namespace tonalith::content_tests
