// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/like_matcher.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "core/failure.h"
#include "search/slow_like.h"

namespace tonalith::search {
namespace {

bool Like(const std::u32string& text, const std::u32string& pattern) { return LikePattern(pattern).Matches(text); }

/// The characters that a pattern matches.
std::u32string Matching(const std::u32string& characters, const std::u32string& pattern) {
  std::u32string matching;
  for (const char32_t character : characters) {
    if (Like({character}, pattern)) matching.push_back(character);
  }
  return matching;
}

void ExpectInvalid(const std::u32string& pattern) {
  try {
    const LikePattern compiled(pattern);
    FAIL() << "taken: " << std::string(pattern.begin(), pattern.end());
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Number(), 93);
    EXPECT_EQ(failure.Description(), "Invalid pattern string");
  }
}

TEST(LikeMatcher, OtherCharactersMatchThemselvesInTheWholeText) {
  EXPECT_TRUE(Like(U"DORIAN", U"DORIAN"));
  EXPECT_FALSE(Like(U"DORIAN", U"DORIA"));
  EXPECT_FALSE(Like(U"DORIA", U"DORIAN"));
  EXPECT_FALSE(Like(U"DORIAN", U"Dorian"));
}

TEST(LikeMatcher, EmptyPatternMatchesTheEmptyTextOnly) {
  EXPECT_TRUE(Like(U"", U""));
  EXPECT_FALSE(Like(U"A", U""));
}

TEST(LikeMatcher, StarMatchesAnyRunAndNone) {
  EXPECT_TRUE(Like(U"", U"*"));
  EXPECT_TRUE(Like(U"", U"***"));
  EXPECT_TRUE(Like(U"MINOR PENTATONIC", U"MIN*PENT*"));
  EXPECT_TRUE(Like(U"MINPENT", U"MIN*PENT*"));
  EXPECT_FALSE(Like(U"MAJOR PENTATONIC", U"MIN*PENT*"));
  EXPECT_TRUE(Like(U"ABABAC", U"*ABAC"));
  EXPECT_FALSE(Like(U"ABABA", U"*ABAC"));
}

TEST(LikeMatcher, QuestionMarkMatchesExactlyOneCharacter) {
  EXPECT_TRUE(Like(U"MODE", U"M?DE"));
  EXPECT_FALSE(Like(U"MDE", U"M?DE"));
  EXPECT_TRUE(Like(U"?", U"?"));
  EXPECT_FALSE(Like(U"", U"?"));
}

TEST(LikeMatcher, QuestionMarkMatchesACharacterOutsideTheBasicPlane) { EXPECT_TRUE(Like(U"A\U0001D11EB", U"A?B")); }

TEST(LikeMatcher, NumberSignMatchesTheTenDigitsOnly) {
  EXPECT_EQ(Matching(U"0123456789A#\u0663\uFF15", U"#"), U"0123456789");
}

TEST(LikeMatcher, ListMatchesItsCharactersAndRangesByCode) {
  EXPECT_EQ(Matching(U"ABCXYZ", U"[AXY]"), U"AXY");
  EXPECT_EQ(Matching(U"ALMN", U"[A-M]"), U"ALM");
  EXPECT_EQ(Matching(U"@AZ[\\_`az", U"[Z-a]"), U"Z[\\_`a");
  EXPECT_EQ(Matching(U"ABCDEFGX", U"[A-CE-GX]"), U"ABCEFGX");
  EXPECT_EQ(Matching(U"ABCDEF", U"[B-EC-D]"), U"BCDE");
  EXPECT_EQ(Matching(U"\u0410\u0411\u042F\u0430", U"[\u0410-\u042F]"), U"\u0410\u0411\u042F");
}

TEST(LikeMatcher, NegatedListMatchesOneCharacterNotInIt) {
  EXPECT_EQ(Matching(U"ALMNZ1", U"[!A-M]"), U"NZ1");
  EXPECT_FALSE(Like(U"", U"[!A]"));
  EXPECT_EQ(Matching(U"!AB", U"[!!]"), U"AB");
}

TEST(LikeMatcher, ExclamationMarkElsewhereIsLiteral) {
  EXPECT_EQ(Matching(U"!AB", U"[A!]"), U"!A");
  EXPECT_EQ(Matching(U"!AB", U"[!]"), U"!");
  EXPECT_TRUE(Like(U"HO!", U"HO!"));
}

TEST(LikeMatcher, WildcardsInAListAreLiteral) { EXPECT_EQ(Matching(U"*?#[]A", U"[[*?#]"), U"*?#["); }

TEST(LikeMatcher, ClosingBracketOutsideAListIsLiteral) {
  EXPECT_TRUE(Like(U"A]B", U"A]B"));
  EXPECT_TRUE(Like(U"A]", U"[A]]"));
}

TEST(LikeMatcher, HyphenAtEitherEndOfAListIsLiteral) {
  EXPECT_EQ(Matching(U"-ABC", U"[-A]"), U"-A");
  EXPECT_EQ(Matching(U"-ABC", U"[A-]"), U"-A");
  EXPECT_EQ(Matching(U"-ABC", U"[!-A]"), U"BC");
  EXPECT_EQ(Matching(U"-ABC", U"[!A-]"), U"BC");
  EXPECT_EQ(Matching(U"-ABC", U"[-]"), U"-");
  EXPECT_EQ(Matching(U"-ABC", U"[!-]"), U"ABC");
  EXPECT_EQ(Matching(U"-ABC", U"[--]"), U"-");
}

TEST(LikeMatcher, HyphenAfterARangeIsLiteral) { EXPECT_EQ(Matching(U"-ABCDE", U"[A-C-E]"), U"-ABCE"); }

TEST(LikeMatcher, EmptyListIsAnEmptyText) {
  EXPECT_TRUE(Like(U"AB", U"A[]B"));
  EXPECT_TRUE(Like(U"", U"[]"));
  EXPECT_FALSE(Like(U"A", U"[]"));
}

TEST(LikeMatcher, UnclosedListIsInvalid) {
  ExpectInvalid(U"[");
  ExpectInvalid(U"A[BC");
  ExpectInvalid(U"[A][");
  ExpectInvalid(U"[!");
}

TEST(LikeMatcher, DescendingRangeIsInvalid) {
  ExpectInvalid(U"[Z-A]");
  ExpectInvalid(U"[!M-B]");
  ExpectInvalid(U"[ABZ-Y]");
  EXPECT_EQ(Matching(U"ABC", U"[B-B]"), U"B");
}

TEST(LikeMatcher, StepsForManyRunsAreProportionalToTheText) {
  const LikePattern pattern(U"*a*a*a*a*b");
  const auto once = pattern.Match(std::u32string(10000, U'a'));
  EXPECT_FALSE(once.matches);
  EXPECT_GT(once.steps, 10000U);
  EXPECT_LT(once.steps, 21000U);
  const auto twice = pattern.Match(std::u32string(20000, U'a'));
  EXPECT_LT(twice.steps, once.steps * 2 + 10);
}

TEST(LikeMatcher, WorstCaseStepsAreBoundedByTheProductOfLengths) {
  const std::u32string text(400, U'a');
  const std::u32string pattern = U"*" + std::u32string(200, U'a') + U"b*";
  const auto verdict = LikePattern(pattern).Match(text);
  EXPECT_FALSE(verdict.matches);
  EXPECT_GT(verdict.steps, 200U * 200U);
  EXPECT_LE(verdict.steps, text.size() * pattern.size() + text.size() + pattern.size());
}

TEST(LikeMatcher, AgreesWithTheReferenceMatcherOnRandomPatterns) {
  std::mt19937 random(20261120);
  const std::u32string_view patternLetters = U"ab1*?#[]!-\u00c4";
  const std::u32string_view textLetters = U"ab1[!-\u00c4";
  const auto draw = [&random](std::u32string_view letters, std::size_t longest) {
    std::u32string text(random() % (longest + 1), U' ');
    for (char32_t& character : text) character = letters[random() % letters.size()];
    return text;
  };
  int valid = 0;
  int matching = 0;
  for (int i = 0; i < 60000; ++i) {
    const std::u32string pattern = draw(patternLetters, 9);
    if (!IsWellFormed(pattern)) {
      ExpectInvalid(pattern);
      continue;
    }
    ++valid;
    const LikePattern compiled(pattern);
    for (int j = 0; j < 4; ++j) {
      const std::u32string text = draw(textLetters, 7);
      const LikePattern::Verdict verdict = compiled.Match(text);
      if (verdict.matches) ++matching;
      ASSERT_EQ(verdict.matches, SlowLike(text, pattern))
          << "pattern " << testing::PrintToString(pattern) << " text " << testing::PrintToString(text);
      ASSERT_LE(verdict.steps, text.size() * pattern.size() + text.size() + pattern.size());
    }
  }
  EXPECT_GT(valid, 10000);
  EXPECT_GT(matching, 5000);
}

}  // namespace
}  // namespace tonalith::search
