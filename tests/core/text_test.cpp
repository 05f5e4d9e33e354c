// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tonalith::core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Text, TrimRemovesBlanksAtBothEndsOnly) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
}

TEST(Text, CharactersAreCompleteSequencesOrSingleInvalidBytes) {
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

TEST(Text, EqualityIgnoresTheCaseOfAsciiLettersOnly) {
  EXPECT_TRUE(EqualWithoutCase("ScaleName", "sCALEnAME"));
  EXPECT_FALSE(EqualWithoutCase("Scale", "Scales"));
  EXPECT_FALSE(EqualWithoutCase("\xC3\x84", "\xC3\xA4")) << "A and a with dots";
  EXPECT_FALSE(EqualWithoutCase("[", "{"));
  EXPECT_FALSE(EqualWithoutCase("@", "`"));
  EXPECT_TRUE(EqualWithoutCase("AZ", "az"));
}

TEST(Text, MeasuresTheFirstCharacterIfItIsWellFormed) {
  EXPECT_EQ(WellFormedLength("ab"), 1U);
  EXPECT_EQ(WellFormedLength("\xC3\xA9x"), 2U);
  EXPECT_EQ(WellFormedLength("\xE2\x99\xAF"), 3U);
  EXPECT_EQ(WellFormedLength("\xF0\x9D\x84\x9E"), 4U);
  EXPECT_EQ(WellFormedLength("\x80"), 0U) << "a byte that follows nothing";
  EXPECT_EQ(WellFormedLength("\xC0\xAF"), 0U) << "overlong";
  EXPECT_EQ(WellFormedLength("\xE0\x9F\xBF"), 0U) << "overlong";
  EXPECT_EQ(WellFormedLength("\xF0\x8F\xBF\xBF"), 0U) << "overlong";
  EXPECT_EQ(WellFormedLength("\xED\xA0\x80"), 0U) << "a surrogate";
  EXPECT_EQ(WellFormedLength("\xF4\x90\x80\x80"), 0U) << "beyond the last character";
  EXPECT_EQ(WellFormedLength("\xE2\x99"), 0U) << "cut off";
  EXPECT_EQ(WellFormedLength("\xE2\x99x"), 0U);
}

TEST(Text, WellFormedCharactersReachFromTheFirstToTheLastOfEachLength) {
  EXPECT_EQ(WellFormedLength("\x7F"), 1U);
  EXPECT_EQ(WellFormedLength("\xC1\xBF"), 0U) << "overlong";
  EXPECT_EQ(WellFormedLength("\xC2\x80"), 2U);
  EXPECT_EQ(WellFormedLength("\xDF\xBF"), 2U);
  EXPECT_EQ(WellFormedLength("\xE0\xA0\x80"), 3U);
  EXPECT_EQ(WellFormedLength("\xE1\x80\x80"), 3U);
  EXPECT_EQ(WellFormedLength("\xED\x9F\xBF"), 3U) << "below the surrogates";
  EXPECT_EQ(WellFormedLength("\xEE\x80\x80"), 3U) << "above the surrogates";
  EXPECT_EQ(WellFormedLength("\xEF\xBF\xBF"), 3U);
  EXPECT_EQ(WellFormedLength("\xF0\x90\x80\x80"), 4U);
  EXPECT_EQ(WellFormedLength("\xF4\x8F\xBF\xBF"), 4U) << "the last character";
  EXPECT_EQ(WellFormedLength("\xF5\x80\x80\x80"), 0U);
}

TEST(Text, BytesThatFollowHaveTheirTwoHighestBits) {
  EXPECT_EQ(WellFormedLength("\xC3\x7F"), 0U);
  EXPECT_EQ(WellFormedLength("\xC3\xC0"), 0U);
  EXPECT_EQ(WellFormedLength("\xF0\x9D\x84\xC0"), 0U);
  EXPECT_THAT(Characters("\xC3\x7F"), ElementsAre("\xC3", "\x7F"));
  EXPECT_THAT(Characters("\xC3\xC0"), ElementsAre("\xC3", "\xC0"));
  EXPECT_THAT(Characters("\xC3\xBF"), ElementsAre("\xC3\xBF"));
}

TEST(Text, TheFirstByteTellsHowManyFollow) {
  EXPECT_THAT(Characters("\xC0\x80\xDF\x80"), ElementsAre("\xC0\x80", "\xDF\x80"));
  EXPECT_THAT(Characters("\xE0\x80\x80\xEF\x80\x80"), ElementsAre("\xE0\x80\x80", "\xEF\x80\x80"));
  EXPECT_THAT(Characters("\xF0\x80\x80\x80\xF7\x80\x80\x80"), ElementsAre("\xF0\x80\x80\x80", "\xF7\x80\x80\x80"));
  EXPECT_THAT(Characters("\xBF\x80\xF8\x80"), ElementsAre("\xBF", "\x80", "\xF8", "\x80"));
}

TEST(Text, AppendsACharacterOfAnyLength) {
  std::string text;
  for (const char32_t character : {U'a', U'\u007F', U'\u0080', U'\u07FF', U'\u0800', U'\uFFFD', U'\U00010000'}) {
    text.clear();
    AppendUtf8(text, character);
    EXPECT_EQ(WellFormedLength(text), text.size()) << static_cast<unsigned>(character);
  }
  text.clear();
  for (const char32_t character : {U'F', U'\u00E9', U'\u266F', U'\U0001D11E'}) AppendUtf8(text, character);
  EXPECT_EQ(text, "F\xC3\xA9\xE2\x99\xAF\xF0\x9D\x84\x9E");
}

}  // namespace
}  // namespace tonalith::core
