// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Box positions as players know them. Frets of each string from the lowest one, separated by bars.

#include <gmock/gmock.h>

#include "instrument/instruments.h"
#include "instrument/positions.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::ElementsAre;

constexpr const char* kMajor = "2212221";
constexpr const char* kMinorPentatonic = "32232";

TEST(Boxes, OfTheMajorScaleAreTheFiveCagedBoxes) {
  const Instrument guitar = Tuned("E2 A2 D3 G3 B3 E4", 15);
  EXPECT_THAT(Lines(Boxes(guitar, ScaleOf("C", kMajor))),
              ElementsAre("1: 7 8 10 | 7 8 10 | 7 9 10 | 7 9 10 | 8 10 | 7 8 10",             // E form
                          "2: 10 12 13 | 10 12 | 9 10 12 | 9 10 12 | 10 12 13 | 10 12 13",    // D form
                          "3: 0 1 3 | 0 2 3 | 0 2 3 | 0 2 | 0 1 3 | 0 1 3",                   // C form
                          "3: 12 13 15 | 12 14 15 | 12 14 15 | 12 14 | 12 13 15 | 12 13 15",  // the same
                          "4: 3 5 | 2 3 5 | 2 3 5 | 2 4 5 | 3 5 6 | 3 5",                     // A form
                          "5: 5 7 8 | 5 7 8 | 5 7 | 4 5 7 | 5 6 8 | 5 7 8"));                 // G form
}

TEST(Boxes, OfTheMinorPentatonicAreItsFiveBoxes) {
  const Instrument guitar = Tuned("E2 A2 D3 G3 B3 E4", 15);
  EXPECT_THAT(Lines(Boxes(guitar, ScaleOf("A", kMinorPentatonic))),
              ElementsAre("1: 5 8 | 5 7 | 5 7 | 5 7 | 5 8 | 5 8",              //
                          "2: 8 10 | 7 10 | 7 10 | 7 9 | 8 10 | 8 10",         //
                          "3: 10 12 | 10 12 | 10 12 | 9 12 | 10 13 | 10 12",   //
                          "4: 0 3 | 0 3 | 0 2 | 0 2 | 1 3 | 0 3",              //
                          "4: 12 15 | 12 15 | 12 14 | 12 14 | 13 15 | 12 15",  //
                          "5: 3 5 | 3 5 | 2 5 | 2 5 | 3 5 | 3 5"));
}

TEST(Boxes, OfAModeAreThoseOfItsParentInAnotherOrder) {
  const Instrument guitar = Tuned("E2 A2 D3 G3 B3 E4", 15);
  const std::vector<Position> major = Boxes(guitar, ScaleOf("C", kMajor));
  const std::vector<Position> minor = Boxes(guitar, ScaleOf("A", "2122122"));
  ASSERT_EQ(major.size(), minor.size());
  for (const Position& position : minor) {
    EXPECT_TRUE(std::any_of(major.begin(), major.end(), [&](const Position& other) {
      return other.frets == position.frets;
    })) << Line(position);
  }
  EXPECT_EQ(Line(minor.front()), "1: 5 7 8 | 5 7 8 | 5 7 | 4 5 7 | 5 6 8 | 5 7 8");
}

TEST(Boxes, AtTheNutABoxIsAddedForTheNotesThatOthersLack) {
  const auto lines = Lines(Boxes(Tuned("E2 A2 D3 G3 B3 E4", 15), ScaleOf("D", kMajor)));
  EXPECT_THAT(lines, ::testing::Contains("2: 12 14 15 | 12 14 | 11 12 14 | 11 12 14 | 12 14 15 | 12 14 15"));
  EXPECT_THAT(lines, ::testing::Contains("2: 0 2 3 | 0 2 4 | 0 2 4 | 0 2 | 0 2 3 | 0 2 3"))
      << "the same place at the nut";
}

TEST(Boxes, OfTheBassAreTheLowerStringsOfTheGuitar) {
  EXPECT_THAT(Lines(Boxes(Named("bass"), ScaleOf("C", kMajor))),
              ::testing::Contains("1: 7 8 10 | 7 8 10 | 7 9 10 | 7 9 10"));
}

TEST(Boxes, OnAnUkuleleAscendInTheOrderOfThePitches) {
  // The first string in the line is the high G; the box begins on the second one.
  EXPECT_THAT(Lines(Boxes(Named("ukulele"), ScaleOf("C", kMajor))), ::testing::Contains("1: 0 | 0 2 | 0 1 | 0 2 3"));
}

TEST(Boxes, OfFifthsStretchAsFarAsTheNotesNeed) {
  EXPECT_THAT(Lines(Boxes(Named("mandolin"), ScaleOf("G", kMajor))),
              ::testing::Contains("2: 0 2 4 5 | 0 2 4 5 | 0 2 3 5 | 0 2 3 5"));
}

TEST(Boxes, LeaveOutTheShortStringOfABanjo) {
  const std::vector<Position> positions = Boxes(Named("banjo"), ScaleOf("G", kMajor));
  ASSERT_FALSE(positions.empty());
  for (const Position& position : positions) EXPECT_TRUE(position.frets.front().empty()) << Line(position);
}

TEST(Boxes, OfTheChromaticScaleCoverFiveFretsAStringAndFourBelowAMajorThird) {
  EXPECT_THAT(Lines(Boxes(DefaultInstrument(), ScaleOf("C", "111111111111"))),
              ::testing::Contains("1: 8 9 10 11 12 | 8 9 10 11 12 | 8 9 10 11 12 | 8 9 10 11 | 8 9 10 11 12 | "
                                  "8 9 10 11 12"));
}

TEST(Boxes, NeedAFewFretsAndStringsAtMostAMajorSixthApart) {
  EXPECT_TRUE(Boxes(Tuned("E2 A2", 2), ScaleOf("C", kMajor)).empty());
  EXPECT_FALSE(Boxes(Tuned("E2 A2", 4), ScaleOf("C", kMajor)).empty());
  EXPECT_FALSE(Boxes(Tuned("E2 C#3", 12), ScaleOf("C", "111111111111")).empty());
  EXPECT_TRUE(Boxes(Tuned("E2 D3", 12), ScaleOf("C", "111111111111")).empty());
}

}  // namespace
}  // namespace tonalith::instrument::tests
