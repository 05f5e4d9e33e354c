// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "content/scale_library.h"
#include "core/note_model.h"

namespace tonalith::content_tests {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::Not;

const ScaleLibrary& Library() { return ScaleLibrary::Shipped(); }

/// The folders of tables in content/: that of the main database, then those of the data packs.
std::vector<std::string> TableFolders() {
  std::vector<std::string> folders = PackFolders();
  folders.insert(folders.begin(), "scales");
  return folders;
}

/// Rules for the tables of the main database and of each data pack.
class ScaleTables : public ::testing::TestWithParam<std::string> {
 protected:
  [[nodiscard]] const std::vector<ScaleTypeRow>& Types() const { return library_.Types(); }
  [[nodiscard]] const std::vector<ScaleRow>& Rows() const { return library_.Rows(); }
  [[nodiscard]] static bool IsMain() { return GetParam() == "scales"; }

 private:
  ScaleLibrary library_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Shipped, ScaleTables, ::testing::ValuesIn(TableFolders()), [](const auto& folder) {
  std::string name = folder.param.substr(folder.param.find('/') + 1);
  std::erase(name, '_');
  return name;
});

TEST_P(ScaleTables, HavePublicDomainNotices) {
  for (const std::string file : {"types.tsv", "scales.tsv", "chords.tsv"}) {
    std::ifstream stream(std::filesystem::path(TONALITH_SOURCE_DIR) / "content" / GetParam() / file);
    std::string licence;
    std::string authors;
    std::getline(stream, licence);
    std::getline(stream, authors);
    EXPECT_EQ(licence, "# SPDX-License-Identifier: CC0-1.0") << file;
    EXPECT_EQ(authors, "# SPDX-FileCopyrightText: 2026 The Tonalith authors") << file;
  }
}

TEST_P(ScaleTables, NumberTheirRowsWithoutGapsScalesFirst) {
  int expected = 1;
  bool chordsBegun = false;
  for (const ScaleRow& row : Rows()) {
    EXPECT_EQ(row.scaleId, expected++) << row.scaleName;
    EXPECT_TRUE(row.isChord || !chordsBegun) << row.scaleName << " is a scale among the chords";
    chordsBegun = chordsBegun || row.isChord;
  }
}

TEST_P(ScaleTables, NumberTheirTypes) {
  ASSERT_THAT(Types(), Not(IsEmpty()));
  std::int64_t expected = IsMain() ? 1 : Types().front().scaleTypeId;
  EXPECT_EQ(expected % 100, 1);
  std::set<std::string> names;
  for (const ScaleTypeRow& type : Types()) {
    if (IsMain()) {
      EXPECT_TRUE(type.scaleTypeId > 0 && type.scaleTypeId < 100) << type.scaleTypeName;
    } else {
      EXPECT_EQ(type.scaleTypeId, expected);
    }
    EXPECT_EQ(type.scaleTypeNo, expected++);
    EXPECT_THAT(type.scaleTypeName, Not(IsEmpty()));
    EXPECT_TRUE(names.insert(Lowered(type.scaleTypeName)).second) << type.scaleTypeName << " stands twice";
  }
}

TEST_P(ScaleTables, GroupTheRowsByTypeInTheOrderOfTypes) {
  std::vector<std::int64_t> order;
  for (const ScaleRow& row : Rows()) {
    if (order.empty() || order.back() != row.scaleTypeId) {
      order.push_back(row.scaleTypeId);
    }
  }
  std::vector<std::int64_t> expected;
  for (const ScaleTypeRow& type : Types()) expected.push_back(type.scaleTypeId);
  EXPECT_EQ(order, expected);
}

TEST_P(ScaleTables, SortTheRowsOfEachTypeFromOne) {
  std::map<std::int64_t, std::int64_t> lastSort;
  for (const ScaleRow& row : Rows()) {
    EXPECT_EQ(row.sort, ++lastSort[row.scaleTypeId]) << row.scaleName;
  }
}

TEST_P(ScaleTables, HaveSeparateTypesForScalesAndChords) {
  std::map<std::int64_t, bool> chordType;
  for (const ScaleRow& row : Rows()) {
    EXPECT_EQ(chordType.try_emplace(row.scaleTypeId, row.isChord).first->second, row.isChord) << row.scaleName;
  }
}

TEST_P(ScaleTables, HaveNamesThatTheSearchFindsLiterally) {
  const std::regex plain("[A-Z][A-Za-z0-9 ,.()'/-]*[A-Za-z0-9)]");
  for (const ScaleRow& row : Rows()) {
    EXPECT_TRUE(std::regex_match(row.scaleName, plain)) << row.scaleName;
    EXPECT_LE(row.scaleName.size(), 60U) << row.scaleName;
  }
}

TEST_P(ScaleTables, HavePatternsThatSumToTheOctave) {
  for (const ScaleRow& row : Rows()) {
    EXPECT_TRUE(std::regex_match(row.scaleIntervals, std::regex("[1-9]{2,12}")))
        << row.scaleName << ": " << row.scaleIntervals;
    const int sum = std::accumulate(row.scaleIntervals.begin(), row.scaleIntervals.end(), 0,
                                    [](int total, char digit) { return total + (digit - '0'); });
    EXPECT_EQ(sum, 12) << row.scaleName << ": " << row.scaleIntervals;
  }
}

TEST_P(ScaleTables, StartEveryPatternFromC) {
  for (const ScaleRow& row : Rows()) {
    EXPECT_THAT(core::kSharpNotes, Contains(row.startNote)) << row.scaleName;
    EXPECT_EQ(row.startNote, "C") << row.scaleName;
  }
}

TEST_P(ScaleTables, NameASourceForEveryRow) {
  for (const ScaleRow& row : Rows()) {
    EXPECT_THAT(row.source, Not(IsEmpty())) << row.scaleName;
  }
}

TEST_P(ScaleTables, HaveDescriptionsThatFitTheWindow) {
  for (const ScaleRow& row : Rows()) {
    EXPECT_GE(row.scaleDescription.size(), 40U) << row.scaleName;
    EXPECT_LE(row.scaleDescription.size(), 220U) << row.scaleName;
    EXPECT_THAT(row.scaleDescription, EndsWith(".")) << row.scaleName;
    EXPECT_TRUE(row.scaleDescription.front() >= 'A' && row.scaleDescription.front() <= 'Z') << row.scaleName;
    EXPECT_EQ(row.scaleDescription.find("  "), std::string::npos) << row.scaleName << ": two blanks";
    EXPECT_TRUE(std::ranges::all_of(row.scaleDescription, [](char c) { return c >= ' ' && c <= '~'; }))
        << row.scaleName;
  }
}

TEST(MainTables, StartWithMajor) {
  ASSERT_FALSE(Library().Rows().empty());
  const ScaleRow& first = Library().Rows().front();
  EXPECT_EQ(first.scaleId, 1);
  EXPECT_EQ(first.scaleName, "Major");
  EXPECT_EQ(first.scaleIntervals, "2212221");
}

TEST(MainTables, HaveAtLeastTheDocumentedNumbersOfRows) {
  EXPECT_GE(Library().Scales().size(), 160U);
  EXPECT_GE(Library().Chords().size(), 110U);
  EXPECT_GE(Library().Types().size(), 12U);
}

TEST(PackTables, AreAtLeastFourWithAtLeast250NewRows) {
  EXPECT_GE(PackFolders().size(), 4U);
  const std::vector<ScaleRow>& all = ScaleLibrary::WithPacks().Rows();
  EXPECT_GE(std::ranges::count_if(all, [](const ScaleRow& row) { return Library().Find(row.scaleName) == nullptr; }),
            250);
}

TEST(AllTables, HaveUniqueTypeNumbersAndNames) {
  std::set<std::int64_t> numbers;
  std::set<std::string> names;
  for (const ScaleTypeRow& type : ScaleLibrary::WithPacks().Types()) {
    EXPECT_TRUE(numbers.insert(type.scaleTypeId).second) << type.scaleTypeName << " has the number of another type";
    EXPECT_TRUE(names.insert(Lowered(type.scaleTypeName)).second) << type.scaleTypeName << " stands twice";
  }
}

TEST(AllTables, HaveUniqueRowNames) {
  std::set<std::string> names;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    EXPECT_TRUE(names.insert(Lowered(row.scaleName)).second) << row.scaleName << " stands twice";
  }
}

TEST(AllTables, HaveUniqueDescriptions) {
  std::map<std::string, std::string> seen;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    const auto [known, isNew] = seen.try_emplace(row.scaleDescription, row.scaleName);
    EXPECT_TRUE(isNew) << row.scaleName << " and " << known->second;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
