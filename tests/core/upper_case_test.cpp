// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/upper_case.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace tonalith::core {
namespace {

TEST(UpperCase, ConvertsAsciiLettersOnly) { EXPECT_EQ(UpperCase("az{`@AZ 09"), U"AZ{`@AZ 09"); }

TEST(UpperCase, ConvertsLettersOfOtherScripts) {
  EXPECT_EQ(UpperCase("\u00e9\u00fc\u00f8\u00ff\u0159\u0431\u044f\u03b4\U00010428"),
            U"\u00c9\u00dc\u00d8\u0178\u0158\u0411\u042f\u0394\U00010400");
}

TEST(UpperCase, MapsLettersThatDifferInCaseOnlyToOne) {
  EXPECT_EQ(UpperCase("\u03c2\u03c3\u03a3"), U"\u03a3\u03a3\u03a3");
  EXPECT_EQ(UpperCase("\u01c4\u01c5\u01c6"), U"\u01c4\u01c4\u01c4");
  EXPECT_EQ(UpperCase("\u1e9e"), UpperCase("\u00df"));
}

TEST(UpperCase, TellsAsciiFromTheRest) {
  EXPECT_TRUE(IsAscii(""));
  EXPECT_TRUE(IsAscii("a\x7F"));
  EXPECT_FALSE(IsAscii("a\x80"));
  EXPECT_FALSE(IsAscii("\u00e9"));
}

TEST(UpperCase, DoesNotDependOnTheLocale) {
  const char* const before = std::setlocale(LC_ALL, nullptr);
  const std::string previous = before == nullptr ? "C" : before;
  ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
  EXPECT_EQ(UpperCase("\u00e9i"), U"\u00c9I");
  std::setlocale(LC_ALL, previous.c_str());
}

TEST(UpperCase, KeepsTheNumberOfCharacters) {
  EXPECT_EQ(UpperCase("\u00df"), U"\u00df");
  EXPECT_EQ(UpperCase("\ufb01\u0149\U0001D11E").size(), 3U);
}

TEST(UpperCase, InvalidBytesDifferFromEveryCharacter) {
  const std::u32string stray = UpperCase("a\xe9\xff");
  ASSERT_EQ(stray.size(), 3U);
  EXPECT_NE(stray[1], U'\u00e9');
  EXPECT_NE(stray[1], U'\u00c9');
  EXPECT_NE(stray[1], stray[2]);
  EXPECT_EQ(UpperCase("\xf7\xbf\xbf\xbf").size(), 1U);
}

TEST(UpperCase, BufferContainsTheLatestTextOnly) {
  std::u32string buffer = U"before";
  UpperCaseInto(buffer, "d\u00f6");
  EXPECT_EQ(buffer, U"D\u00d6");
}

}  // namespace
}  // namespace tonalith::core
