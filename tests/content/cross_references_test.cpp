// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rows with the same pattern refer to each other. In the library each of them names all others. A row of a pack names
// one such row of the library and all those of its own pack, but no row of another pack, which may not be installed.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "content/mentions.h"
#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

bool IsOfLibrary(const ScaleRow& row) { return FolderOf(row) == "scales"; }

/// The other rows of the same tables that have the same pattern.
std::vector<const ScaleRow*> OthersOfItsTables(const ScaleRow& row, std::vector<const ScaleRow*> equals) {
  std::erase_if(equals, [&row](const ScaleRow* other) { return other == &row || FolderOf(*other) != FolderOf(row); });
  return equals;
}

TEST(CrossReferences, NameEveryOtherRowWithTheSameNotes) {
  std::map<std::string, std::vector<const ScaleRow*>> rowsOfPattern;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) rowsOfPattern[row.scaleIntervals].push_back(&row);
  int checked = 0;
  for (const auto& [pattern, equals] : rowsOfPattern) {
    for (const ScaleRow* row : equals) {
      const std::vector<const ScaleRow*> named = Mentions(row->scaleDescription);
      for (const ScaleRow* other : OthersOfItsTables(*row, equals)) {
        EXPECT_NE(std::ranges::find(named, other), named.end())
            << row->scaleName << " (" << FolderOf(*row) << ") does not name " << ReferenceName(*other) << ": "
            << row->scaleDescription;
        ++checked;
      }
      const bool isInLibrary = std::ranges::any_of(equals, [](const ScaleRow* other) { return IsOfLibrary(*other); });
      EXPECT_TRUE(IsOfLibrary(*row) || !isInLibrary ||
                  std::ranges::any_of(equals,
                                      [&named](const ScaleRow* other) {
                                        return IsOfLibrary(*other) && std::ranges::find(named, other) != named.end();
                                      }))
          << row->scaleName << " (" << FolderOf(*row) << ") names no row of the library: " << row->scaleDescription;
    }
  }
  EXPECT_GE(checked, 400);
}

TEST(CrossReferences, NameNoRowOfAnotherPack) {
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    for (const ScaleRow* other : Mentions(row.scaleDescription)) {
      EXPECT_TRUE(IsOfLibrary(*other) || FolderOf(*other) == FolderOf(row))
          << row.scaleName << " (" << FolderOf(row) << ") names " << other->scaleName << " of " << FolderOf(*other)
          << ": " << row.scaleDescription;
    }
  }
}

TEST(CrossReferences, MatchTheLongestNameAsACompleteWord) {
  const auto names = [](std::string_view text) {
    std::string all;
    for (const ScaleRow* row : Mentions(text)) all += ReferenceName(*row) + "; ";
    return all;
  };
  EXPECT_EQ(names("Same notes as Minor 7 flat 5, Dorian and Raga Yaman."), "Minor 7 flat 5; Dorian; Raga Yaman; ");
  EXPECT_EQ(names("Majors, dorian and Pre-Blues name nothing."), "");
  EXPECT_EQ(names("Melodic minor (ascending) needs its bracket."), "Melodic minor (ascending); ");
}

}  // namespace
}  // namespace tonalith::content_tests
