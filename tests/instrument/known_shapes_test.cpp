// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/known_shapes.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::ElementsAre;

constexpr const char* kHeader = "Instrument\tRoot\tDegrees\tBass\tFrets\tSource\n";

std::string ErrorAfterHeader(const std::string& rows) {
  const KnownShapes known = ParseKnownShapes(kHeader + rows, BuiltInCatalogue());
  return known.error ? Describe(*known.error) : "none";
}

std::vector<std::string> Known(const std::string& instrument, const Chord& chord) {
  std::vector<std::string> shapes;
  for (const Frets& frets : KnownShapesOf(BuiltInKnownShapes(), Named(instrument), chord)) {
    shapes.push_back(ToText(frets));
  }
  return shapes;
}

TEST(KnownShapes, TheShippedTableIsTheBuiltInOne) {
  std::ifstream file(TONALITH_SOURCE_DIR "/content/instruments/known_shapes.tsv", std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  const KnownShapes known = ParseKnownShapes(text.str(), BuiltInCatalogue());
  EXPECT_EQ(known.error, std::nullopt) << Describe(*known.error);
  EXPECT_EQ(known.shapes.size(), BuiltInKnownShapes().size());
  EXPECT_GT(known.shapes.size(), 100U);
}

TEST(KnownShapes, EachOneComesFirstAmongTheShapesOfItsChord) {
  for (const KnownShape& shape : BuiltInKnownShapes()) {
    const std::vector<Frets> known = KnownShapesOf(BuiltInKnownShapes(), Named(shape.instrumentId), shape.chord);
    const ShapeList list = ShapesOf(Named(shape.instrumentId), shape.chord);
    const auto place = static_cast<std::size_t>(std::find(known.begin(), known.end(), shape.frets) - known.begin());
    ASSERT_LT(place, list.shapes.size()) << ToText(shape.frets);
    EXPECT_EQ(list.shapes[place].frets, shape.frets) << ToText(shape.frets);
  }
}

TEST(KnownShapes, HoldForTuningsWithTheSameIntervals) {
  EXPECT_THAT(Known("guitar-half-step-down", ChordOf("B", "1 3 5")), ::testing::Contains("x32010"));
  EXPECT_THAT(Known("ukulele-d", ChordOf("D", "1 3 5")), ::testing::Contains("0003"));
  EXPECT_THAT(Known("guitar-drop-d", ChordOf("C", "1 3 5")), ElementsAre());
  EXPECT_THAT(Known("bass", ChordOf("C", "1 3 5")), ElementsAre());
}

TEST(KnownShapes, WithoutOpenStringsMoveAlongTheNeck) {
  EXPECT_THAT(Known("guitar", ChordOf("C", "1 3 5")), ElementsAre("x32010", "x35553", "8-10-10-9-8-8"));
  EXPECT_THAT(Known("guitar", ChordOf("F", "1 3 5")), ElementsAre("133211", "x-8-10-10-10-8"));
}

TEST(KnownShapes, WithABassAreOnlyForThatBass) {
  EXPECT_THAT(Known("guitar", ChordOf("C", "1 3 5", "E")), ElementsAre("032010"));
  EXPECT_THAT(Known("guitar", ChordOf("C", "1 3 5", "C")), ::testing::Contains("x32010"));
  EXPECT_THAT(Known("guitar", ChordOf("Eb", "1 3 5", "G")), ElementsAre());
}

TEST(KnownShapes, ErrorsHaveALineAndAColumn) {
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\tx32010\tS\n"), "none");
  EXPECT_EQ(ErrorAfterHeader("zither\tC\t1 3 5\t-\tx32010\tS\n"), "Line 2, column 1: No instrument has this id");
  EXPECT_EQ(ErrorAfterHeader("guitar\tH\t1 3 5\t-\tx32010\tS\n"), "Line 2, column 8: No note has this name");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 q\t-\tx32010\tS\n"),
            "Line 2, column 14: These are not the degrees of a chord");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\tX\tx32010\tS\n"), "Line 2, column 16: No note has this name");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\tx3201?\tS\n"),
            "Line 2, column 23: These are not frets such as x32010 or x-10-12-12-11-10");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\tx3201\tS\n"),
            "Line 2, column 18: The instrument does not have these strings or frets");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\tx32011\tS\n"),
            "Line 2, column 18: These frets do not sound as this chord");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\tG\tx32010\tS\n"),
            "Line 2, column 18: These frets do not sound as this chord");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\tx3x0xx\tS\n"),
            "Line 2, column 18: These frets do not sound as this chord");
  EXPECT_EQ(ErrorAfterHeader("guitar\tC\t1 3 5\t-\txxxxxx\tS\n"),
            "Line 2, column 18: These frets do not sound as this chord");
}

}  // namespace
}  // namespace tonalith::instrument::tests
