// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/shapes.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

std::string First(const std::string& root, const std::string& degrees, const std::string& bass = "") {
  const auto shapes = FirstShapes(Named("guitar"), ChordOf(root, degrees, bass), 1);
  return shapes.empty() ? "none" : shapes.front();
}

std::vector<std::string> All(const std::string& instrument, const Chord& chord) {
  return FirstShapes(Named(instrument), chord, 100'000);
}

/// The place of a shape; the number of shapes if it is missing.
std::ptrdiff_t PlaceOf(const std::vector<std::string>& shapes, const std::string& shape) {
  return std::find(shapes.begin(), shapes.end(), shape) - shapes.begin();
}

TEST(Shapes, TheWellKnownShapesOfTriadsComeFirst) {
  EXPECT_EQ(First("C", "1 3 5"), "x32010");
  EXPECT_EQ(First("D", "1 3 5"), "xx0232");
  EXPECT_EQ(First("E", "1 3 5"), "022100");
  EXPECT_EQ(First("F", "1 3 5"), "133211");
  EXPECT_EQ(First("G", "1 3 5"), "320003");
  EXPECT_EQ(First("A", "1 3 5"), "x02220");
  EXPECT_EQ(First("B", "1 3 5"), "x24442");
  EXPECT_EQ(First("Bb", "1 3 5"), "x13331");
  EXPECT_EQ(First("A", "1 b3 5"), "x02210");
  EXPECT_EQ(First("D", "1 b3 5"), "xx0231");
  EXPECT_EQ(First("E", "1 b3 5"), "022000");
  EXPECT_EQ(First("B", "1 b3 5"), "x24432");
  EXPECT_EQ(First("F#", "1 b3 5"), "244222");
  EXPECT_EQ(First("C", "1 b3 5"), "x35543");
  EXPECT_EQ(First("G", "1 b3 5"), "355333");
}

TEST(Shapes, TheWellKnownShapesOfOtherChordsComeFirst) {
  EXPECT_EQ(First("A", "1 3 5 b7"), "x02020");
  EXPECT_EQ(First("B", "1 3 5 b7"), "x21202");
  EXPECT_EQ(First("C", "1 3 5 b7"), "x32310");
  EXPECT_EQ(First("D", "1 3 5 b7"), "xx0212");
  EXPECT_EQ(First("E", "1 3 5 b7"), "020100");
  EXPECT_EQ(First("G", "1 3 5 b7"), "320001");
  EXPECT_EQ(First("A", "1 b3 5 b7"), "x02010");
  EXPECT_EQ(First("D", "1 b3 5 b7"), "xx0211");
  EXPECT_EQ(First("E", "1 b3 5 b7"), "020000");
  EXPECT_EQ(First("C", "1 3 5 7"), "x32000");
  EXPECT_EQ(First("F", "1 3 5 7"), "xx3210");
  EXPECT_EQ(First("A", "1 4 5"), "x02230");
  EXPECT_EQ(First("D", "1 4 5"), "xx0233");
  EXPECT_EQ(First("C", "1 3 5 9"), "x32030");
  EXPECT_EQ(First("D", "1 b3 b5 bb7"), "xx0101");
}

TEST(Shapes, TheRequestedBassIsTheLowestNote) {
  EXPECT_EQ(First("C", "1 3 5", "E"), "032010");
  EXPECT_EQ(First("D", "1 3 5", "F#"), "200232");
  EXPECT_EQ(First("A", "1 b3 5", "C"), "x32210");
  EXPECT_EQ(First("G", "1 3 5", "B"), "x20003");
  EXPECT_EQ(All("guitar", ChordOf("C", "1 3 5", "C")).front(), "x32010");
  EXPECT_THAT(All("guitar", ChordOf("C", "1 3 5", "C")), Not(Contains("032010")));
}

TEST(Shapes, AForeignBassSoundsOnlyInTheBass) {
  const auto shapes = All("guitar", ChordOf("C", "1 3 5", "D"));
  EXPECT_THAT(shapes, Contains("xx0010"));
  EXPECT_THAT(shapes, Contains("xx0553"));
  EXPECT_THAT(shapes, Not(Contains("x55530"))) << "another D makes it an added ninth";
}

TEST(Shapes, TheSameChordInBarreFormsIsThere) {
  const auto shapes = All("guitar", ChordOf("F", "1 3 5"));
  for (const char* shape : {"133211", "xx3211", "x-8-10-10-10-8", "x87565", "xxx565", "13321x"}) {
    EXPECT_THAT(shapes, Contains(shape));
  }
}

TEST(Shapes, ThirdAndSeventhAreNeverOmittedTheFifthMayBe) {
  const auto seventh = All("guitar", ChordOf("C", "1 3 5 b7"));
  EXPECT_THAT(seventh, Contains("x3231x"));
  EXPECT_THAT(seventh, Not(Contains("x3x01x"))) << "no seventh";
  EXPECT_THAT(seventh, Not(Contains("x3531x"))) << "no third";
  EXPECT_THAT(All("guitar", ChordOf("C", "1 3 5")), Not(Contains("x32x1x"))) << "a triad keeps its fifth";
  EXPECT_THAT(All("guitar", ChordOf("C", "1 b3 b5 b7")), Contains("x3434x"));
  EXPECT_THAT(All("guitar", ChordOf("C", "1 b3 b5 b7")), Not(Contains("x3x34x"))) << "an altered fifth stays";
}

TEST(Shapes, ExtendedChordsOmitTheFifthThenInnerExtensions) {
  EXPECT_THAT(All("guitar", ChordOf("C", "1 3 5 b7 9")), Contains("x3233x"));
  const auto thirteenth = All("guitar", ChordOf("C", "1 3 5 b7 9 13"));
  EXPECT_THAT(thirteenth, Contains("8-x-8-9-10-x")) << "without fifth and ninth";
  EXPECT_THAT(thirteenth, Not(Contains("8-10-8-9-10-8"))) << "with the fifth, but without the ninth";
}

TEST(Shapes, TheRootIsOmittedOnlyForLackOfStrings) {
  const auto ukulele = All("ukulele", ChordOf("C", "1 3 5 b7 9 13"));
  ASSERT_FALSE(ukulele.empty());
  for (const Shape& shape : ShapesOf(Named("ukulele"), ChordOf("C", "1 3 5 b7 9 13")).shapes) {
    EXPECT_FALSE(shape.missing.Contains(Note("C")));
  }
  const ShapeList altered = ShapesOf(Named("ukulele"), ChordOf("C", "1 3 #5 b7 #9"));
  ASSERT_FALSE(altered.shapes.empty());
  for (const Shape& shape : altered.shapes) EXPECT_TRUE(shape.missing.Contains(Note("C")));
}

TEST(Shapes, PowerChordsKeepBothNotes) {
  EXPECT_EQ(First("E", "1 5"), "022xxx");
  for (const Shape& shape : ShapesOf(Named("guitar"), ChordOf("F", "1 5")).shapes) {
    EXPECT_TRUE(shape.missing.IsEmpty());
  }
}

TEST(Shapes, AnOctaveHigherIsLeftOut) {
  const auto shapes = FirstShapes(Named("guitar"), ChordOf("F", "1 3 5"), 100'000);
  EXPECT_THAT(shapes, Contains("133211"));
  EXPECT_THAT(shapes, Not(Contains("13-15-15-14-13-13")));
  EXPECT_THAT(All("guitar", ChordOf("E", "1 3 5")), Not(Contains("12-14-14-13-12-12")));
}

TEST(Shapes, APartOfAFullerShapeComesLater) {
  const auto shapes = All("guitar", ChordOf("C", "1 3 5"));
  EXPECT_LT(PlaceOf(shapes, "x32010"), PlaceOf(shapes, "x3201x"));
  EXPECT_LT(PlaceOf(shapes, "x35553"), PlaceOf(shapes, "x3555x"));
  EXPECT_LT(PlaceOf(shapes, "8-10-10-9-8-8"), PlaceOf(shapes, "x-x-10-9-8-8"));
  EXPECT_LT(PlaceOf(shapes, "x3555x"), static_cast<std::ptrdiff_t>(shapes.size()));
}

TEST(Shapes, WithACapoAreThoseOfTheOpenStrings) {
  InstrumentSetup setup = Named("guitar").Description();
  setup.capo = 3;
  const Instrument guitar = Instrument::Make(setup).value();
  EXPECT_THAT(FirstShapes(guitar, ChordOf("Eb", "1 3 5"), 1), ElementsAre("x32010"));
}

TEST(Shapes, OtherInstrumentsHaveTheirWellKnownShapes) {
  EXPECT_THAT(FirstShapes(Named("ukulele"), ChordOf("C", "1 3 5"), 1), ElementsAre("0003"));
  EXPECT_THAT(FirstShapes(Named("ukulele"), ChordOf("F", "1 3 5"), 1), ElementsAre("2010"));
  EXPECT_THAT(FirstShapes(Named("ukulele"), ChordOf("G", "1 3 5"), 1), ElementsAre("0232"));
  EXPECT_THAT(FirstShapes(Named("banjo"), ChordOf("G", "1 3 5"), 1), ElementsAre("00000"));
  EXPECT_THAT(FirstShapes(Named("mandolin"), ChordOf("G", "1 3 5"), 1), ElementsAre("0023"));
}

TEST(Shapes, HaveTheFingersAndBarresOfTheirFrets) {
  const ShapeList list = ShapesOf(Named("guitar"), ChordOf("F", "1 3 5"), {.limit = 1});
  ASSERT_EQ(list.shapes.size(), 1U);
  EXPECT_THAT(list.shapes.front().fingering.fingers, ElementsAre(1, 3, 4, 2, 1, 1));
  EXPECT_THAT(list.shapes.front().fingering.barres, ElementsAre(Barre{1, 0, 5}));
  EXPECT_TRUE(list.isComplete);
}

TEST(Shapes, TheHighestFretIsALimit) {
  for (const std::string& shape : FirstShapes(Named("guitar"), ChordOf("C", "1 3 5"), 100'000)) {
    for (const Fret fret : FretsFrom(shape)) EXPECT_LE(fret.value_or(0), 15) << shape;
  }
  const ShapeList open = ShapesOf(Named("guitar-open-g"), ChordOf("G", "1 3 5"), {.highestFret = 0});
  EXPECT_FALSE(open.shapes.empty());
  EXPECT_TRUE(ShapesOf(Named("guitar"), ChordOf("C", "1 3 5"), {.highestFret = -1}).shapes.empty());
}

}  // namespace
}  // namespace tonalith::instrument::tests
