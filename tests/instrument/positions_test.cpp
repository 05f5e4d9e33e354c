// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Positions by notes per string, on single strings, of one octave and at the nut, as players know them.

#include "instrument/positions.h"

#include <gmock/gmock.h>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kMajor = "2212221";

TEST(NotesPerString, ThreeOfTheMajorScaleAreSevenPositions) {
  EXPECT_THAT(Lines(NotesPerString(Tuned("E2 A2 D3 G3 B3 E4", 17), ScaleOf("G", kMajor), 3)),
              ElementsAre("1: 3 5 7 | 3 5 7 | 4 5 7 | 4 5 7 | 5 7 8 | 5 7 8",                    //
                          "2: 5 7 8 | 5 7 9 | 5 7 9 | 5 7 9 | 7 8 10 | 7 8 10",                  //
                          "3: 7 8 10 | 7 9 10 | 7 9 10 | 7 9 11 | 8 10 12 | 8 10 12",            //
                          "4: 8 10 12 | 9 10 12 | 9 10 12 | 9 11 12 | 10 12 13 | 10 12 14",      //
                          "5: 10 12 14 | 10 12 14 | 10 12 14 | 11 12 14 | 12 13 15 | 12 14 15",  //
                          "6: 0 2 3 | 0 2 3 | 0 2 4 | 0 2 4 | 1 3 5 | 2 3 5",                    //
                          "6: 12 14 15 | 12 14 15 | 12 14 16 | 12 14 16 | 13 15 17 | 14 15 17",  //
                          "7: 2 3 5 | 2 3 5 | 2 4 5 | 2 4 5 | 3 5 7 | 3 5 7"));
}

TEST(NotesPerString, TwoOfThePentatonicAreItsBoxes) {
  const auto lines = Lines(NotesPerString(Tuned("E2 A2 D3 G3 B3 E4", 15), ScaleOf("A", "32232"), 2));
  EXPECT_THAT(lines, Contains("1: 5 8 | 5 7 | 5 7 | 5 7 | 5 8 | 5 8"));
  EXPECT_THAT(lines, Contains("5: 3 5 | 3 5 | 2 5 | 2 5 | 3 5 | 3 5"));
  EXPECT_EQ(lines.size(), 6U) << "one of the five is on the neck twice";
}

TEST(NotesPerString, EndWithTheLastStringThatFits) {
  // From fret 3, the third string would need fret 6 and the second one more than 8.
  EXPECT_THAT(Lines(NotesPerString(Tuned("E2 A2 D3 G3 B3 E4", 7), ScaleOf("G", kMajor), 3)),
              Contains("1: 3 5 7 | 3 5 7 | 4 5 7 | 4 5 7 | |"));
  // Two strings in fifths: the next note of a small scale is below the open string.
  EXPECT_THAT(Lines(NotesPerString(Tuned("E2 B2", 4), ScaleOf("E", "111111111111"), 2)), Contains("1: 0 1 |"));
}

TEST(NotesPerString, NeedASensibleNumber) {
  EXPECT_THAT(NotesPerString(DefaultInstrument(), ScaleOf("C", kMajor), 0), IsEmpty());
  EXPECT_THAT(NotesPerString(DefaultInstrument(), ScaleOf("C", kMajor), -3), IsEmpty());
  EXPECT_THAT(NotesPerString(DefaultInstrument(), ScaleOf("C", kMajor), 13), IsEmpty());
  EXPECT_FALSE(NotesPerString(DefaultInstrument(), ScaleOf("C", "111111111111"), 12).empty());
}

TEST(SingleStrings, HaveAllNotesOfOneString) {
  EXPECT_THAT(Lines(SingleStrings(Tuned("E2 A2", 12), ScaleOf("C", kMajor))),
              ElementsAre("1: 0 1 3 5 7 8 10 12 |", "2: | 0 2 3 5 7 8 10 12"));
  EXPECT_THAT(Lines(SingleStrings(Tuned("G4@5 E2", 8), ScaleOf("G", "2212221"))),
              ElementsAre("1: 0 7 |", "2: | 0 2 3 5 7 8"))
      << "the short string has its open note, and A two frets above it";
}

TEST(OneOctave, OfTheMajorScaleIsTheFormOfThePlace) {
  const auto lines = Lines(OneOctave(Tuned("E2 A2 D3 G3 B3 E4", 12), ScaleOf("C", kMajor)));
  EXPECT_THAT(lines, ElementsAre("1: 8 10 | 7 8 10 | 7 9 10 | | |",  //
                                 "2: | 3 5 | 2 3 5 | 2 4 5 | |",     //
                                 "3: | | 10 | 7 9 10 | 8 10 | 7 8",  //
                                 "4: | | | 5 7 | 5 6 8 | 5 7 8"));
}

TEST(OneOctave, NeedsTheRootInTheScale) {
  Scale scale = ScaleOf("C", kMajor);
  scale.root = Note("C#");
  EXPECT_THAT(OneOctave(DefaultInstrument(), scale), IsEmpty());
}

TEST(OpenPosition, UsesOpenStringsAndTheFirstFrets) {
  EXPECT_THAT(Lines(OpenPosition(DefaultInstrument(), ScaleOf("C", kMajor))),
              ElementsAre("1: 0 1 3 | 0 2 3 | 0 2 3 | 0 2 | 0 1 3 | 0 1 3"));
  EXPECT_THAT(Lines(OpenPosition(DefaultInstrument(), ScaleOf("E", kMajor))),
              ElementsAre("1: 0 2 4 | 0 2 4 | 1 2 4 | 1 2 | 0 2 4 | 0 2 4"));
  EXPECT_THAT(Lines(OpenPosition(Named("mandolin"), ScaleOf("G", kMajor))),
              ElementsAre("1: 0 2 4 5 | 0 2 4 5 | 0 2 3 5 | 0 2 3 5"));
}

}  // namespace
}  // namespace tonalith::instrument::tests
