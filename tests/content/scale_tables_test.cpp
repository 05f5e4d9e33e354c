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

#include "content/scale_library.h"
#include "core/note_model.h"

namespace tonalith::content_tests {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::Not;

const ScaleLibrary& Library() { return ScaleLibrary::Shipped(); }

TEST(ScaleTables, SayInTheirFirstTwoLinesThatTheyAreInThePublicDomain) {
  for (const std::string file : {"types.tsv", "scales.tsv", "chords.tsv"}) {
    std::ifstream stream(std::filesystem::path(TONALITH_SOURCE_DIR) / "content" / "scales" / file);
    std::string licence;
    std::string authors;
    std::getline(stream, licence);
    std::getline(stream, authors);
    EXPECT_EQ(licence, "# SPDX-License-Identifier: CC0-1.0") << file;
    EXPECT_EQ(authors, "# SPDX-FileCopyrightText: 2026 The Tonalith authors") << file;
  }
}

TEST(ScaleTables, OpenWithMajor) {
  ASSERT_FALSE(Library().Rows().empty());
  const ScaleRow& first = Library().Rows().front();
  EXPECT_EQ(first.scaleId, 1);
  EXPECT_EQ(first.scaleName, "Major");
  EXPECT_EQ(first.scaleIntervals, "2212221");
}

TEST(ScaleTables, NumberTheirRowsWithoutGapsScalesFirst) {
  int expected = 1;
  bool chordsBegun = false;
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_EQ(row.scaleId, expected++) << row.scaleName;
    EXPECT_TRUE(row.isChord || !chordsBegun) << row.scaleName << " is a scale among the chords";
    chordsBegun = chordsBegun || row.isChord;
  }
}

TEST(ScaleTables, HoldScalesChordsAndTypesInThePromisedNumbers) {
  EXPECT_GE(Library().Scales().size(), 160U);
  EXPECT_GE(Library().Chords().size(), 110U);
  EXPECT_GE(Library().Types().size(), 12U);
}

TEST(ScaleTables, NumberTheirTypesFromOne) {
  int expected = 1;
  std::set<std::string> names;
  for (const ScaleTypeRow& type : Library().Types()) {
    EXPECT_EQ(type.scaleTypeId, expected);
    EXPECT_EQ(type.scaleTypeNo, expected++);
    EXPECT_THAT(type.scaleTypeName, Not(IsEmpty()));
    EXPECT_TRUE(names.insert(Lowered(type.scaleTypeName)).second) << type.scaleTypeName << " stands twice";
  }
}

TEST(ScaleTables, GroupTheRowsOfATypeAndUseEveryType) {
  std::vector<std::int64_t> order;
  for (const ScaleRow& row : Library().Rows()) {
    if (order.empty() || order.back() != row.scaleTypeId) {
      order.push_back(row.scaleTypeId);
    }
  }
  std::vector<std::int64_t> expected(Library().Types().size());
  std::iota(expected.begin(), expected.end(), 1);
  EXPECT_EQ(order, expected);
}

TEST(ScaleTables, SortTheRowsOfEachTypeFromOne) {
  std::map<std::int64_t, std::int64_t> lastSort;
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_EQ(row.sort, ++lastSort[row.scaleTypeId]) << row.scaleName;
  }
}

TEST(ScaleTables, KeepScalesAndChordsInTypesOfTheirOwn) {
  std::map<std::int64_t, bool> chordType;
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_EQ(chordType.try_emplace(row.scaleTypeId, row.isChord).first->second, row.isChord) << row.scaleName;
  }
}

TEST(ScaleTables, GiveEveryRowANameOfItsOwn) {
  std::set<std::string> names;
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_TRUE(names.insert(Lowered(row.scaleName)).second) << row.scaleName << " stands twice";
  }
}

TEST(ScaleTables, NameRowsInTextThatTheSearchFindsAsItStands) {
  const std::regex plain("[A-Z][A-Za-z0-9 ,.()'-]*[A-Za-z0-9)]");
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_TRUE(std::regex_match(row.scaleName, plain)) << row.scaleName;
    EXPECT_LE(row.scaleName.size(), 60U) << row.scaleName;
  }
}

TEST(ScaleTables, WriteEveryPatternInDigitsThatCloseTheOctave) {
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_TRUE(std::regex_match(row.scaleIntervals, std::regex("[1-9]{2,12}")))
        << row.scaleName << ": " << row.scaleIntervals;
    const int sum = std::accumulate(row.scaleIntervals.begin(), row.scaleIntervals.end(), 0,
                                    [](int total, char digit) { return total + (digit - '0'); });
    EXPECT_EQ(sum, 12) << row.scaleName << ": " << row.scaleIntervals;
  }
}

TEST(ScaleTables, CountEveryPatternFromC) {
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_THAT(core::kSharpNotes, Contains(row.startNote)) << row.scaleName;
    EXPECT_EQ(row.startNote, "C") << row.scaleName;
  }
}

TEST(ScaleTables, NameASourceForEveryRow) {
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_THAT(row.source, Not(IsEmpty())) << row.scaleName;
  }
}

TEST(ScaleTables, DescribeEveryRowInSentencesThatFitTheWindow) {
  for (const ScaleRow& row : Library().Rows()) {
    EXPECT_GE(row.scaleDescription.size(), 40U) << row.scaleName;
    EXPECT_LE(row.scaleDescription.size(), 220U) << row.scaleName;
    EXPECT_THAT(row.scaleDescription, EndsWith(".")) << row.scaleName;
    EXPECT_TRUE(row.scaleDescription.front() >= 'A' && row.scaleDescription.front() <= 'Z') << row.scaleName;
    EXPECT_EQ(row.scaleDescription.find("  "), std::string::npos) << row.scaleName << ": two blanks";
    EXPECT_TRUE(std::ranges::all_of(row.scaleDescription, [](char c) { return c >= ' ' && c <= '~'; }))
        << row.scaleName;
  }
}

TEST(ScaleTables, DescribeNoTwoRowsAlike) {
  std::map<std::string, std::string> seen;
  for (const ScaleRow& row : Library().Rows()) {
    const auto [known, isNew] = seen.try_emplace(row.scaleDescription, row.scaleName);
    EXPECT_TRUE(isNew) << row.scaleName << " and " << known->second;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
