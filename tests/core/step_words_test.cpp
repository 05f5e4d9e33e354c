// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/step_words.h"

#include <gtest/gtest.h>

namespace tonalith::core {
namespace {

TEST(StepWords, SemitoneAndToneAreLettersAndOthersAreHalved) {
  const char* const words[] = {"T0", "S", "T", "T1.5", "T2", "T2.5", "T3", "T3.5", "T4", "T4.5"};
  for (int digit = 0; digit < 10; ++digit) EXPECT_EQ(CNotesToTones(std::to_string(digit), 1), words[digit]);
}

TEST(StepWords, TakeTheCharacterAtTheirPosition) {
  EXPECT_EQ(CNotesToTones("2212221", 3), "S");
  EXPECT_EQ(CNotesToTones("2212221", 7), "S");
  EXPECT_EQ(CNotesToTones("3", 1), "T1.5");
}

TEST(StepWords, AreEmptyOutsideThePattern) {
  EXPECT_EQ(CNotesToTones("22", 5), "");
  EXPECT_EQ(CNotesToTones("22", 0), "");
  EXPECT_EQ(CNotesToTones("22", -1), "");
  EXPECT_EQ(CNotesToTones("", 1), "");
}

TEST(StepWords, AreEmptyForBlanksAndOtherCharacters) {
  for (const char* const pattern : {" ", "x", "-", "\t", "\xC3\xA9"})
    EXPECT_EQ(CNotesToTones(pattern, 1), "") << pattern;
}

TEST(StepWords, LinePrecedesEachWordWithTwoBlanks) {
  EXPECT_EQ(StepLine("2212221"), "  T  T  S  T  T  T  S");
  EXPECT_EQ(StepLine("435"), "  T2  T1.5  T2.5");
  EXPECT_EQ(StepLine("4 x5"), "  T2  T2.5");
  EXPECT_EQ(StepLine(""), "");
}

}  // namespace
}  // namespace tonalith::core
