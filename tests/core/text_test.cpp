// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonalith::core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Text, TrimTakesBlanksFromBothEndsOnly) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
}

TEST(Text, CharactersAreWholeSequencesAndStrayBytesStandForThemselves) {
  EXPECT_THAT(Characters("a\xC3\xA9\xE2\x99\xAF"
                         "b"),
              ElementsAre("a", "\xC3\xA9", "\xE2\x99\xAF", "b"));
  EXPECT_THAT(Characters("\xF0\x9D\x84\x9E"), ElementsAre("\xF0\x9D\x84\x9E"));
  EXPECT_THAT(Characters("\xC3"), ElementsAre("\xC3"));
  EXPECT_THAT(Characters("\xE2\x99x"), ElementsAre("\xE2", "\x99", "x"));
  EXPECT_THAT(Characters(""), IsEmpty());
}

TEST(Text, CountIsTheNumberOfCharacters) {
  EXPECT_EQ(CharacterCount("2\xC2\xBD"), 2U);
  EXPECT_EQ(CharacterCount(""), 0U);
}

}  // namespace
}  // namespace tonalith::core
