// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The search only looks in names, ignoring case. Common names and symbols are found because they are in the brackets of
// a name.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

struct Search {
  std::string_view text;
  std::string_view name;
};

void PrintTo(const Search& search, std::ostream* stream) { *stream << search.text; }

/// The rows of the library whose names contain the text, in the order of the search.
std::vector<ScaleRow> Found(std::string_view text) {
  std::vector<ScaleRow> rows = ScaleLibrary::Shipped().Rows();
  std::erase_if(
      rows, [text](const ScaleRow& row) { return Lowered(row.scaleName).find(Lowered(text)) == std::string::npos; });
  return rows;
}

class SearchedNames : public ::testing::TestWithParam<Search> {};

TEST_P(SearchedNames, FindTheirRowBeforeSimilarOnes) {
  std::vector<ScaleRow> found = Found(GetParam().text);
  const ScaleRow* expected = ScaleLibrary::Shipped().Find(GetParam().name);
  ASSERT_NE(expected, nullptr) << GetParam().name;
  std::erase_if(found, [expected](const ScaleRow& row) { return row.isChord != expected->isChord; });
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found.front().scaleName, expected->scaleName);
}

constexpr Search kSearches[] = {
    {"maj7", "Major 7"},
    {"maj9", "Major 9"},
    {"m6", "Minor 6"},
    {"m7", "Minor 7"},
    {"m9", "Minor 9"},
    {"m7b5", "Minor 7 flat 5"},
    {"dim7", "Diminished 7"},
    {"aug", "Augmented triad"},
    {"sus2", "Suspended 2"},
    {"sus4", "Suspended 4"},
    {"add9", "Major added 9"},
    {"6/9", "Major 6 added 9"},
    {"7alt", "Dominant 7 altered"},
    {"half-diminished", "Minor 7 flat 5"},
    {"half diminished", "Minor 7 flat 5"},
    {"Hendrix", "Dominant 7 sharp 9"},
    {"inversion", "Major triad first inversion"},
    {"octatonic", "Diminished whole-half"},
    {"super Locrian", "Altered"},
    {"overtone", "Lydian dominant"},
    {"acoustic", "Lydian dominant"},
    {"Aeolian dominant", "Mixolydian flat 6"},
    {"Mixolydian b6", "Mixolydian flat 6"},
    {"Byzantine", "Double harmonic major"},
    {"freygish", "Phrygian dominant"},
    {"flamenco", "Phrygian dominant"},
    {"Yaman", "Raga Yaman"},
};

INSTANTIATE_TEST_SUITE_P(Shipped, SearchedNames, ::testing::ValuesIn(kSearches));

TEST(SearchedNames, ContainNoWildcard) {
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    EXPECT_EQ(row.scaleName.find_first_of("*?#[]"), std::string::npos) << row.scaleName;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
