// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/twips.h"

#include <gtest/gtest.h>

#include <limits>

namespace tonalith::paint {
namespace {

TEST(Twips, BecomeIntegerPixelsRoundedTowardZero) {
  EXPECT_EQ(TwipsToPixels(2450), 163);
  EXPECT_EQ(TwipsToPixels(50), 3);
  EXPECT_EQ(TwipsToPixels(250), 16);
  EXPECT_EQ(TwipsToPixels(5), 0);
  EXPECT_EQ(TwipsToPixels(Twips{480}), 32);
}

TEST(Twips, RoundTowardZeroBelowZeroAsWell) {
  EXPECT_EQ(TwipsToPixels(-5), 0);
  EXPECT_EQ(TwipsToPixels(-14), 0);
  EXPECT_EQ(TwipsToPixels(-15), -1);
  EXPECT_EQ(TwipsToPixels(-2450), -163);
}

TEST(Twips, SupportTheFullRangeOf32Bits) {
  EXPECT_EQ(TwipsToPixels(std::numeric_limits<std::int32_t>::max()), 143165576);
  EXPECT_EQ(TwipsToPixels(std::numeric_limits<std::int32_t>::min()), -143165576);
}

TEST(Twips, AreAddedAndMultipliedAsLengths) {
  EXPECT_EQ((Twips{600} + Twips{940} * 15).value, 14700);
  EXPECT_EQ((Twips{4200} - Twips{250}).value, 3950);
}

TEST(Twips, RoundToTheNearestPixelOnBothSidesOfZero) {
  EXPECT_EQ(NearestPixel(Twips{7}), 0);
  EXPECT_EQ(NearestPixel(Twips{8}), 1);
  EXPECT_EQ(NearestPixel(Twips{22}), 1);
  EXPECT_EQ(NearestPixel(Twips{23}), 2);
  EXPECT_EQ(NearestPixel(Twips{-7}), 0);
  EXPECT_EQ(NearestPixel(Twips{-8}), -1);
  EXPECT_EQ(NearestPixel(Twips{0}), 0);
}

TEST(Twips, PlaceAWidgetOnTheNearestPixel) {
  EXPECT_EQ(NearestPixel(Twips{3950}), 263);
  EXPECT_EQ(NearestPixel(Twips{1540}), 103);
  EXPECT_EQ(NearestPixel(Twips{-1540}), -103);
  EXPECT_DOUBLE_EQ(ExactPixels(Twips{2190}), 146.0);
}

}  // namespace
}  // namespace tonalith::paint
