// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/fingering.h"

#include <gmock/gmock.h>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

/// "134211 barre 1 6-1": the fingers from the first string, and the barres with fret and string numbers.
std::string Fingers(const std::string& text) {
  const Frets frets = FretsFrom(text);
  const auto fingering = FingeringOf(frets);
  if (!fingering) return "none";
  std::string line;
  for (const int finger : fingering->fingers) line += std::to_string(finger);
  const int strings = static_cast<int>(frets.size());
  for (const Barre& barre : fingering->barres) {
    line += " barre " + std::to_string(barre.fret) + " " + std::to_string(strings - barre.fromString) + "-" +
            std::to_string(strings - barre.toString);
  }
  return line;
}

TEST(Fingering, OpenShapesHaveTheFingersOfMethods) {
  EXPECT_EQ(Fingers("x32010"), "032010");
  EXPECT_EQ(Fingers("320003"), "210003");
  EXPECT_EQ(Fingers("xx0232"), "000132");
  EXPECT_EQ(Fingers("022100"), "023100");
  EXPECT_EQ(Fingers("x02220"), "001230");
  EXPECT_EQ(Fingers("x02210"), "002310");
  EXPECT_EQ(Fingers("xx0231"), "000231");
  EXPECT_EQ(Fingers("x21202"), "021304");
  EXPECT_EQ(Fingers("x32310"), "032410");
  EXPECT_EQ(Fingers("320001"), "320001");
  EXPECT_EQ(Fingers("x32030"), "021030");
}

TEST(Fingering, BarresTakeTheIndexFinger) {
  EXPECT_EQ(Fingers("133211"), "134211 barre 1 6-1");
  EXPECT_EQ(Fingers("x24432"), "013421 barre 2 5-1");
  EXPECT_EQ(Fingers("x13331"), "012341 barre 1 5-1");
  EXPECT_EQ(Fingers("355333"), "134111 barre 3 6-1");
  EXPECT_EQ(Fingers("xx3211"), "003211 barre 1 2-1");
  EXPECT_EQ(Fingers("xx0211"), "000211 barre 1 2-1");
  EXPECT_EQ(Fingers("x02222"), "001111 barre 2 4-1");
}

TEST(Fingering, OpenStringsOnTheTrebleSidePreventAnUnneededBarre) {
  EXPECT_EQ(Fingers("022000"), "012000");
  EXPECT_EQ(Fingers("x02200"), "001200");
  // Five strings need one even so.
  EXPECT_EQ(Fingers("222220"), "111110 barre 2 6-2");
}

TEST(Fingering, ASecondFingerMayLieFlat) {
  EXPECT_EQ(Fingers("x3555x"), "012340");
  EXPECT_EQ(Fingers("875588"), "321144 barre 5 4-3 barre 8 2-1");
}

TEST(Fingering, MoreThanFourFingersAreRefused) {
  EXPECT_EQ(Fingers("x12345"), "none");
  EXPECT_EQ(Fingers("101010101"), "none") << "each open string ends a barre";
  EXPECT_EQ(Fingers("1x1x1x1x1"), "none") << "so does each muted one";
  EXPECT_EQ(Fingers("212121212"), "none") << "so does each string stopped lower";
}

TEST(Fingering, OpenAndMutedStringsNeedNoFinger) {
  EXPECT_EQ(Fingers("000000"), "000000");
  EXPECT_EQ(Fingers("xxxxxx"), "000000");
  EXPECT_EQ(FingeringOf({}), Fingering{});
}

}  // namespace
}  // namespace tonalith::instrument::tests
