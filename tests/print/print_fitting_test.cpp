// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/print_fitting.h"

#include <gtest/gtest.h>

#include "core/failure.h"

namespace tonalith::print {
namespace {

using platform::PrintRect;

void ExpectPlace(const PrintRect& place, const PrintRect& wanted) {
  EXPECT_DOUBLE_EQ(place.left, wanted.left);
  EXPECT_DOUBLE_EQ(place.top, wanted.top);
  EXPECT_DOUBLE_EQ(place.width, wanted.width);
  EXPECT_DOUBLE_EQ(place.height, wanted.height);
}

TEST(PrintFitting, LimitsAWidePictureByNinetyPercentOfTheWidth) {
  // 1000 x 900 / 1000 = 900 wide, 450 high; 100 and 950 remain.
  ExpectPlace(FitPicture({1000, 500}, {1000, 1400}, {90, 15, 15}), {15, 142.5, 900, 450});
}

TEST(PrintFitting, LimitsATallPictureByNinetyPercentOfTheHeight) {
  ExpectPlace(FitPicture({500, 1000}, {1400, 1000}, {90, 15, 15}), {142.5, 15, 450, 900});
}

TEST(PrintFitting, FillsBothWhenThePictureHasThePagesProportions) {
  ExpectPlace(FitPicture({40, 30}, {400, 300}, {90, 15, 15}), {6, 4.5, 360, 270});
}

TEST(PrintFitting, EnlargesAndReduces) {
  ExpectPlace(FitPicture({1, 1}, {200, 100}, {50, 0, 0}), {0, 0, 50, 50});
  ExpectPlace(FitPicture({10000, 10000}, {200, 100}, {50, 0, 0}), {0, 0, 50, 50});
}

TEST(PrintFitting, PutsShare0AtTheTopLeftAnd100AtTheBottomRight) {
  ExpectPlace(FitPicture({100, 50}, {1000, 1000}, {80, 0, 100}), {200, 0, 800, 400});
  ExpectPlace(FitPicture({100, 50}, {1000, 1000}, {80, 100, 0}), {0, 600, 800, 400});
}

TEST(PrintFitting, SplitsTheFreeSpaceFifteenToEightyFive) {
  const PrintRect place = FitPicture({1016, 578}, {11184, 15816}, {90, 15, 15});
  const double right = 11184 - place.left - place.width;
  const double below = 15816 - place.top - place.height;
  EXPECT_NEAR(place.left / right, 15.0 / 85.0, 1e-12);
  EXPECT_NEAR(place.top / below, 15.0 / 85.0, 1e-12);
}

TEST(PrintFitting, AcceptsSharesAbove100) {
  ExpectPlace(FitPicture({100, 100}, {100, 200}, {200, 50, 50}), {-50, 0, 200, 200});
}

TEST(PrintFitting, PictureWithoutExtentIsADivisionByZero) {
  try {
    FitPicture({0, 100}, {1000, 1000}, {90, 15, 15});
    FAIL() << "no failure";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.NumberAndDescription(), "11: Division by zero");
  }
  EXPECT_NO_THROW(FitPicture({100, 0}, {1000, 1000}, {90, 15, 15}));
}

}  // namespace
}  // namespace tonalith::print
