// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/frets.h"

#include <gmock/gmock.h>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::ElementsAre;

Frets Read(const std::string& text) {
  const auto parsed = ParseFrets(text);
  EXPECT_TRUE(std::holds_alternative<Frets>(parsed)) << text;
  return std::holds_alternative<Frets>(parsed) ? std::get<Frets>(parsed) : Frets();
}

FretsError ErrorOf(const std::string& text) {
  const auto parsed = ParseFrets(text);
  EXPECT_TRUE(std::holds_alternative<FretsError>(parsed)) << text;
  return std::holds_alternative<FretsError>(parsed) ? std::get<FretsError>(parsed) : FretsError{};
}

TEST(Frets, AreReadWithAndWithoutHyphens) {
  EXPECT_THAT(Read("x32010"), ElementsAre(Fret(), 3, 2, 0, 1, 0));
  EXPECT_THAT(Read("X-10-12-12-11-10"), ElementsAre(Fret(), 10, 12, 12, 11, 10));
  EXPECT_THAT(Read("0"), ElementsAre(0));
  EXPECT_THAT(Read("7-36"), ElementsAre(7, 36));
}

TEST(Frets, AreWrittenAsTheyAreRead) {
  for (const char* text : {"x32010", "x-10-12-12-11-10", "0", "10-x", "9999", "0000000000"}) {
    EXPECT_EQ(ToText(Read(text)), text);
  }
  EXPECT_EQ(ToText({}), "");
}

TEST(Frets, ErrorsHaveAPlace) {
  EXPECT_EQ(ErrorOf(""), (FretsError{FretsProblem::kEmpty, 0}));
  EXPECT_EQ(ErrorOf("x3201O"), (FretsError{FretsProblem::kUnknownCharacter, 5}));
  EXPECT_EQ(ErrorOf("x-3-2 -0"), (FretsError{FretsProblem::kUnknownCharacter, 5}));
  EXPECT_EQ(ErrorOf("1-37"), (FretsError{FretsProblem::kFretTooHigh, 2}));
  EXPECT_EQ(ErrorOf("1-99999999999999999999"), (FretsError{FretsProblem::kFretTooHigh, 2}));
  EXPECT_EQ(ErrorOf("1--2"), (FretsError{FretsProblem::kFretMissing, 2}));
  EXPECT_EQ(ErrorOf("1-2-"), (FretsError{FretsProblem::kFretMissing, 4}));
  EXPECT_EQ(ErrorOf("-"), (FretsError{FretsProblem::kFretMissing, 0}));
  EXPECT_EQ(ErrorOf("00000000000"), (FretsError{FretsProblem::kTooManyStrings, 10}));
  EXPECT_EQ(ErrorOf(std::string("x3\0", 3)), (FretsError{FretsProblem::kUnknownCharacter, 2}));
  EXPECT_EQ(ErrorOf("♯"), (FretsError{FretsProblem::kUnknownCharacter, 0}));
  for (const FretsProblem problem : {FretsProblem::kEmpty, FretsProblem::kUnknownCharacter, FretsProblem::kFretTooHigh,
                                     FretsProblem::kTooManyStrings, FretsProblem::kFretMissing}) {
    EXPECT_FALSE(Text(problem).empty());
  }
}

TEST(Frets, HavePitchesOnlyOnAnInstrumentThatHasThem) {
  const Instrument& guitar = Named("guitar");
  const auto pitches = PitchesOf(guitar, Read("x32010"));
  ASSERT_TRUE(pitches.has_value());
  EXPECT_THAT(*pitches, ElementsAre(theory::Pitch(48), theory::Pitch(52), theory::Pitch(55), theory::Pitch(60),
                                    theory::Pitch(64)));
  EXPECT_EQ(PitchesOf(guitar, Read("x3201")), std::nullopt);
  EXPECT_EQ(PitchesOf(guitar, Read("23-23-23-23-23-23")), std::nullopt);
  EXPECT_EQ(PitchesOf(Named("banjo"), Read("30000")), std::nullopt);
}

}  // namespace
}  // namespace tonalith::instrument::tests
