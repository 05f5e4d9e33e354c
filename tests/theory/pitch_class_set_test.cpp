// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/pitch_class_set.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tonalith::theory {
namespace {

using ::testing::ElementsAre;

const PitchClassSet kMajor{0, 2, 4, 5, 7, 9, 11};
const PitchClassSet kMinor{0, 2, 3, 5, 7, 8, 10};

TEST(PitchClassSets, APatternHasTheNotesOfItsSteps) {
  EXPECT_EQ(PitchClassSet::FromPattern("2212221"), kMajor);
  EXPECT_EQ(PitchClassSet::FromPattern("435"), (PitchClassSet{0, 4, 7}));
  EXPECT_EQ(kMajor.Pattern(), "2212221");
  EXPECT_EQ(PitchClassSet{0}.Pattern(), std::nullopt);
  EXPECT_EQ((PitchClassSet{2, 5}).Pattern(), std::nullopt);
}

TEST(PitchClassSets, APatternThatDoesNotSumToTwelveIsRefused) {
  for (const char* const pattern : {"", "0", "222222 ", "2212222", "221222", "99", "a", "22122210"}) {
    EXPECT_EQ(PitchClassSet::FromPattern(pattern), std::nullopt) << pattern;
  }
  EXPECT_EQ(PitchClassSet::FromPattern(std::string(1'000'000, '1')), std::nullopt);
}

TEST(PitchClassSets, EveryPatternIsReadAsItIsWritten) {
  for (unsigned bits = 0; bits < PitchClassSet::kCount; ++bits) {
    const std::optional<std::string> pattern = PitchClassSet::FromBits(bits).Pattern();
    if (!pattern) continue;
    EXPECT_EQ(PitchClassSet::FromPattern(*pattern), PitchClassSet::FromBits(bits));
  }
}

TEST(PitchClassSets, ModesAreRotations) {
  EXPECT_EQ(kMajor.Mode(5), kMinor);
  EXPECT_EQ(kMajor.Mode(1).Pattern(), "2122212");
  EXPECT_EQ(kMajor.Mode(-2), kMinor);
  EXPECT_EQ(kMajor.Mode(700), kMajor);
  EXPECT_EQ(PitchClassSet().Mode(3), PitchClassSet());
}

TEST(PitchClassSets, TranspositionKeepsTheSteps) {
  EXPECT_EQ(kMajor.Transposed(3), kMinor.Transposed(0));
  EXPECT_EQ(kMajor.Transposed(-9), kMajor.Transposed(3));
  for (unsigned bits = 0; bits < PitchClassSet::kCount; ++bits) {
    const PitchClassSet set = PitchClassSet::FromBits(bits);
    EXPECT_EQ(set.Transposed(12), set);
    EXPECT_EQ(set.Transposed(5).Transposed(7), set);
    EXPECT_EQ(set.Transposed(5).Size(), set.Size());
    EXPECT_EQ(set.Complement().Complement(), set);
    EXPECT_EQ(set.Complement().Size() + set.Size(), 12);
    EXPECT_EQ(set.Inverted().Inverted(), set);
  }
}

TEST(PitchClassSets, PrimeFormsAreThoseOfTheTables) {
  EXPECT_EQ((PitchClassSet{0, 4, 7}).PrimeForm(), (PitchClassSet{0, 3, 7}));
  EXPECT_EQ(kMajor.PrimeForm(), (PitchClassSet{0, 1, 3, 5, 6, 8, 10}));
  EXPECT_EQ((PitchClassSet{0, 4, 7, 10}).PrimeForm(), (PitchClassSet{0, 2, 5, 8}));
  EXPECT_EQ((PitchClassSet{0, 2, 4, 7, 9}).PrimeForm(), (PitchClassSet{0, 2, 4, 7, 9}));
  EXPECT_EQ((PitchClassSet{0, 1, 3, 7, 8}).PrimeForm(), (PitchClassSet{0, 1, 5, 6, 8}));
  EXPECT_EQ(PitchClassSet().PrimeForm(), PitchClassSet());
}

TEST(PitchClassSets, ThereAre224PrimeForms) {
  // Sets that are equal by transposition and inversion: 224 with the empty set, as counted in set theory.
  std::vector<bool> seen(PitchClassSet::kCount);
  for (unsigned bits = 0; bits < PitchClassSet::kCount; ++bits)
    seen[PitchClassSet::FromBits(bits).PrimeForm().Bits()] = true;
  EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 224);
}

TEST(PitchClassSets, IntervalVectorsCountPairs) {
  EXPECT_THAT(kMajor.IntervalVector(), ElementsAre(2, 5, 4, 3, 6, 1));
  EXPECT_THAT((PitchClassSet{0, 4, 7}).IntervalVector(), ElementsAre(0, 0, 1, 1, 1, 0));
  EXPECT_THAT((PitchClassSet{0, 3, 6, 9}).IntervalVector(), ElementsAre(0, 0, 4, 0, 0, 2));
  EXPECT_THAT((PitchClassSet{0, 1, 4, 6}).IntervalVector(), ElementsAre(1, 1, 1, 1, 1, 1));
}

TEST(PitchClassSets, StepsLeadBackToTheFirstMember) {
  EXPECT_THAT(kMinor.Steps(), ElementsAre(2, 1, 2, 2, 1, 2, 2));
  EXPECT_THAT(PitchClassSet{5}.Steps(), ElementsAre(12));
  EXPECT_THAT(PitchClassSet().Steps(), ElementsAre());
}

}  // namespace
}  // namespace tonalith::theory
