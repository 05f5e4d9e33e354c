// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/field_limits.h"

#include <gtest/gtest.h>

namespace tonalith::core {
namespace {

TEST(FieldLimits, NamesAreAsLongAsTextColumnsOfOtherPrograms) {
  EXPECT_EQ(kLongestName, 255U);
  EXPECT_EQ(kLongestTypeName, 255U);
}

TEST(FieldLimits, LibrariesMayHoldDescriptionsOfTwoPages) { EXPECT_EQ(kLongestDescription, 8000U); }

TEST(FieldLimits, APatternHasThreeOctavesAndBlanksAroundItsDigits) {
  EXPECT_EQ(kMostPatternDigits, 3U * 12U);
  EXPECT_EQ(kLongestPattern, kMostPatternDigits + 2 * kMostPatternDigits);
}

TEST(FieldLimits, AStartNoteHasRoomForWords) { EXPECT_EQ(kLongestStartNote, 32U); }

}  // namespace
}  // namespace tonalith::core
