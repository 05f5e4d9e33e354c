// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Input that nobody would choose: every function ends soon, without a crash, and within its limits.

#include <gmock/gmock.h>

#include "instrument/grip_search.h"
#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::IsEmpty;

void ExpectNoPositions(const Instrument& instrument, const Scale& scale) {
  EXPECT_THAT(Boxes(instrument, scale), IsEmpty());
  EXPECT_THAT(NotesPerString(instrument, scale, 3), IsEmpty());
  EXPECT_THAT(SingleStrings(instrument, scale), IsEmpty());
  EXPECT_THAT(OneOctave(instrument, scale), IsEmpty());
  EXPECT_THAT(OpenPosition(instrument, scale), IsEmpty());
}

TEST(BadInput, TheEmptySetHasNoPositionsAndNoShapes) {
  ExpectNoPositions(DefaultInstrument(), {});
  EXPECT_THAT(ShapesOf(DefaultInstrument(), {}).shapes, IsEmpty());
  Chord onlyBass;
  onlyBass.bass = theory::PitchClass(4);
  EXPECT_THAT(ShapesOf(DefaultInstrument(), onlyBass).shapes, IsEmpty());
}

TEST(BadInput, All4096SetsHavePositionsWithinTheNeck) {
  for (int bits = 0; bits < theory::PitchClassSet::kCount; ++bits) {
    const Scale scale{theory::PitchClass(bits % 12), theory::PitchClassSet::FromBits(static_cast<unsigned>(bits))};
    std::vector<Position> all = Boxes(DefaultInstrument(), scale);
    for (auto& more : {NotesPerString(DefaultInstrument(), scale, 3), OneOctave(DefaultInstrument(), scale),
                       OpenPosition(DefaultInstrument(), scale), SingleStrings(DefaultInstrument(), scale)}) {
      all.insert(all.end(), more.begin(), more.end());
    }
    EXPECT_EQ(all.empty(), bits == 0) << bits;
    for (const Position& position : all) {
      ASSERT_GE(position.number, 1);
      for (const auto& string : position.frets) {
        for (const int fret : string) ASSERT_TRUE(fret >= 0 && fret <= DefaultInstrument().Frets()) << Line(position);
      }
    }
  }
}

TEST(BadInput, All4096SetsAsChordsHaveShapesOrNone) {
  for (unsigned bits = 0; bits < theory::PitchClassSet::kCount; ++bits) {
    std::vector<theory::Degree> degrees;
    for (const theory::PitchClass note : theory::PitchClassSet::FromBits(bits).Members()) {
      static const std::vector<theory::Degree> kDegrees = {{1, 0},  {9, -1}, {9, 0},  {3, -1}, {3, 0},  {11, 0},
                                                           {5, -1}, {5, 0},  {6, -1}, {13, 0}, {7, -1}, {7, 0}};
      degrees.push_back(kDegrees.at(static_cast<std::size_t>(note.Semitones())));
    }
    const Chord chord{theory::PitchClass(0), theory::Formula(degrees), std::nullopt};
    const ShapeList list = ShapesOf(Named("ukulele"), chord, {.limit = 3});
    EXPECT_LE(list.shapes.size(), 3U);
    EXPECT_TRUE(list.isComplete);
  }
}

TEST(BadInput, OneStringHasSingleNotesAndPositions) {
  const Instrument string = Tuned("E2", 22);
  EXPECT_THAT(FirstShapes(string, ChordOf("E", "1"), 100), ::testing::ElementsAre("0"));
  EXPECT_THAT(FirstShapes(string, ChordOf("C", "1 3 5"), 100), IsEmpty());
  EXPECT_EQ(NotesPerString(string, ScaleOf("E", "2212221"), 3).front().frets.front(), (std::vector<int>{0, 2, 4}));
  EXPECT_FALSE(Boxes(string, ScaleOf("E", "2212221")).empty());
}

TEST(BadInput, AnInstrumentOfShortStringsOnlyHasNoPositionsOfTheHand) {
  const Instrument drones = Tuned("G4@5 G4@5", 22);
  const Scale scale = ScaleOf("G", "2212221");
  EXPECT_THAT(Boxes(drones, scale), IsEmpty());
  EXPECT_THAT(NotesPerString(drones, scale, 3), IsEmpty());
  EXPECT_THAT(OneOctave(drones, scale), IsEmpty());
  EXPECT_THAT(OpenPosition(drones, scale), IsEmpty());
  EXPECT_FALSE(SingleStrings(drones, scale).empty());
}

TEST(BadInput, OneFretHasShapesAndNoBoxes) {
  const Instrument guitar = Tuned("E2 A2 D3 G3 B3 E4", 1);
  EXPECT_FALSE(ShapesOf(guitar, ChordOf("E", "1 b3 5 b7 11")).shapes.empty());
  EXPECT_THAT(Boxes(guitar, ScaleOf("C", "2212221")), IsEmpty());
}

TEST(BadInput, TenStringsInUnisonStopAtALimit) {
  const Instrument strings = Tuned("C3 C3 C3 C3 C3 C3 C3 C3 C3 C3", 36);
  const ShapeList list = ShapesOf(strings, ChordOf("C", "1 b9 9 b3 3 11"), {.highestFret = 36});
  EXPECT_FALSE(list.isComplete);
  EXPECT_LE(list.shapes.size(), kMostGrips);
  EXPECT_FALSE(FindGrips(strings, ChordOf("C", "1 b9 9 b3 3 11"), 36).isComplete);
}

TEST(BadInput, AChordOfMoreNotesThanStringsHasNoShapes) {
  EXPECT_THAT(ShapesOf(Named("ukulele"), ChordOf("C", "1 b9 9 b3 3 11 b5 5 b6 13 b7 7")).shapes, IsEmpty());
}

}  // namespace
}  // namespace tonalith::instrument::tests
