// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/instrument.h"

#include <gmock/gmock.h>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using ::testing::ElementsAre;

Instrument WithCapo(const Instrument& instrument, int capo) {
  InstrumentSetup setup = instrument.Description();
  setup.capo = capo;
  return Instrument::Make(setup).value();
}

TEST(Instrument, StandardTuningHasItsPitches) {
  const Instrument& guitar = Named("guitar");
  std::vector<int> open;
  for (int string = 0; string < guitar.Strings(); ++string) open.push_back(guitar.Open(string).Midi());
  EXPECT_THAT(open, ElementsAre(40, 45, 50, 55, 59, 64));
  EXPECT_EQ(guitar.PitchAt(1, 3), theory::Pitch(48));
  EXPECT_EQ(guitar.FretOf(1, theory::Pitch(48)), 3);
  EXPECT_EQ(guitar.NumberOf(0), 6);
  EXPECT_EQ(guitar.NumberOf(5), 1);
}

TEST(Instrument, HasNoPitchBeyondItsStringsAndFrets) {
  const Instrument& guitar = Named("guitar");
  EXPECT_TRUE(guitar.PitchAt(5, guitar.Frets()).has_value());
  EXPECT_EQ(guitar.PitchAt(5, guitar.Frets() + 1), std::nullopt);
  EXPECT_EQ(guitar.PitchAt(0, -1), std::nullopt);
  EXPECT_EQ(guitar.PitchAt(6, 0), std::nullopt);
  EXPECT_EQ(guitar.PitchAt(-1, 0), std::nullopt);
  EXPECT_EQ(guitar.FretOf(0, theory::Pitch(39)), std::nullopt);
  EXPECT_EQ(guitar.FretOf(0, theory::Pitch(40 + guitar.Frets() + 1)), std::nullopt);
  EXPECT_EQ(guitar.FretOf(6, theory::Pitch(60)), std::nullopt);
}

TEST(Instrument, TheOrderOfStringsIsNotThatOfPitches) {
  EXPECT_THAT(Named("ukulele").LongStringsByPitch(), ElementsAre(1, 2, 0, 3));
  EXPECT_THAT(Named("guitar-nashville").LongStringsByPitch(), ElementsAre(0, 1, 4, 2, 5, 3));
  EXPECT_THAT(Named("balalaika").LongStringsByPitch(), ElementsAre(0, 1, 2));
}

TEST(Instrument, AShortStringBeginsAtItsFret) {
  const Instrument& banjo = Named("banjo");
  EXPECT_EQ(banjo.FirstFret(0), 5);
  EXPECT_EQ(banjo.PitchAt(0, 0), theory::Pitch(67));
  for (int fret = 1; fret <= 5; ++fret) EXPECT_EQ(banjo.PitchAt(0, fret), std::nullopt) << fret;
  EXPECT_EQ(banjo.PitchAt(0, 6), theory::Pitch(68));
  EXPECT_EQ(banjo.FretOf(0, theory::Pitch(67)), 0);
  EXPECT_EQ(banjo.FretOf(0, theory::Pitch(68)), 6);
  EXPECT_THAT(banjo.LongStringsByPitch(), ElementsAre(1, 2, 3, 4));
}

TEST(Instrument, ACapoRaisesTheStringsThatReachIt) {
  const Instrument guitar = WithCapo(Named("guitar"), 2);
  EXPECT_EQ(guitar.Open(0), theory::Pitch(42));
  EXPECT_EQ(guitar.PitchAt(0, 1), theory::Pitch(43));
  EXPECT_EQ(guitar.Frets(), Named("guitar").Frets() - 2);

  const Instrument low = WithCapo(Named("banjo"), 2);
  EXPECT_EQ(low.Open(0), theory::Pitch(67)) << "the fifth string begins above the capo";
  EXPECT_EQ(low.FirstFret(0), 3);
  EXPECT_EQ(low.PitchAt(0, 4), theory::Pitch(68));
  EXPECT_EQ(low.Open(1), theory::Pitch(52));

  const Instrument high = WithCapo(Named("banjo"), 7);
  EXPECT_EQ(high.Open(0), theory::Pitch(69)) << "the capo stops the fifth string two frets above its beginning";
  EXPECT_EQ(high.FirstFret(0), 0);
}

TEST(Instrument, HandAndOrientationDoNotChangePitches) {
  InstrumentSetup setup = Named("guitar").Description();
  setup.isLeftHanded = true;
  setup.orientation = Orientation::kLowStringOnTop;
  const Instrument guitar = Instrument::Make(setup).value();
  EXPECT_EQ(guitar.Description(), setup);
  EXPECT_EQ(guitar.PitchAt(0, 3), Named("guitar").PitchAt(0, 3));
}

struct BadSetup {
  const char* what;
  SetupProblem problem;
  std::optional<std::size_t> string;
  void (*change)(InstrumentSetup&);
};

void PrintTo(const BadSetup& bad, std::ostream* out) { *out << bad.what; }

class SetupErrors : public ::testing::TestWithParam<BadSetup> {};

TEST_P(SetupErrors, AreFoundAndExplained) {
  InstrumentSetup setup = SetupOf("E2 A2 D3 G3 B3 E4", 22);
  ASSERT_EQ(Instrument::ErrorIn(setup), std::nullopt);
  GetParam().change(setup);
  const SetupError expected{GetParam().problem, GetParam().string};
  EXPECT_EQ(Instrument::ErrorIn(setup), expected) << GetParam().what;
  EXPECT_EQ(Instrument::Make(setup), std::nullopt);
  EXPECT_FALSE(Text(GetParam().problem).empty());
}

INSTANTIATE_TEST_SUITE_P(
    Instrument, SetupErrors,
    ::testing::Values(
        BadSetup{"no strings", SetupProblem::kNoStrings, {}, [](InstrumentSetup& s) { s.strings.clear(); }},
        BadSetup{"30 strings", SetupProblem::kTooManyStrings, {}, [](InstrumentSetup& s) { s.strings.resize(30); }},
        BadSetup{"11 strings", SetupProblem::kTooManyStrings, {}, [](InstrumentSetup& s) { s.strings.resize(11); }},
        BadSetup{"no frets", SetupProblem::kFretsOutOfRange, {}, [](InstrumentSetup& s) { s.frets = 0; }},
        BadSetup{"negative frets", SetupProblem::kFretsOutOfRange, {}, [](InstrumentSetup& s) { s.frets = -22; }},
        BadSetup{"37 frets", SetupProblem::kFretsOutOfRange, {}, [](InstrumentSetup& s) { s.frets = 37; }},
        BadSetup{"capo below the nut", SetupProblem::kCapoOutOfRange, {}, [](InstrumentSetup& s) { s.capo = -1; }},
        BadSetup{"capo above 12", SetupProblem::kCapoOutOfRange, {}, [](InstrumentSetup& s) { s.capo = 13; }},
        BadSetup{"capo beyond the frets",
                 SetupProblem::kCapoOutOfRange,
                 {},
                 [](InstrumentSetup& s) {
                   s.frets = 5;
                   s.capo = 5;
                 }},
        BadSetup{"string from below the nut", SetupProblem::kFirstFretOutOfRange, 2,
                 [](InstrumentSetup& s) { s.strings[2].firstFret = -1; }},
        BadSetup{"string from the last fret", SetupProblem::kFirstFretOutOfRange, 3,
                 [](InstrumentSetup& s) { s.strings[3].firstFret = 22; }},
        BadSetup{"pitch below MIDI", SetupProblem::kPitchOutOfRange, 0,
                 [](InstrumentSetup& s) { s.strings[0].open = theory::Pitch(-1); }},
        BadSetup{"highest fret above MIDI", SetupProblem::kPitchOutOfRange, 5,
                 [](InstrumentSetup& s) { s.strings[5].open = theory::Pitch(106); }},
        BadSetup{"companion above MIDI", SetupProblem::kPitchOutOfRange, 1,
                 [](InstrumentSetup& s) { s.strings[1].companion = theory::Pitch(120); }},
        BadSetup{"a long name", SetupProblem::kNameTooLong, {}, [](InstrumentSetup& s) { s.name.assign(201, 'x'); }}));

TEST(Instrument, TheLimitsThemselvesAreAllowed) {
  InstrumentSetup setup = SetupOf("E2", 36);
  setup.capo = 12;
  setup.name.assign(200, 'x');
  EXPECT_EQ(Instrument::ErrorIn(setup), std::nullopt);
  setup.strings.assign(10, setup.strings.front());
  EXPECT_EQ(Instrument::ErrorIn(setup), std::nullopt);
  setup.capo = 0;
  setup.frets = 1;
  EXPECT_EQ(Instrument::ErrorIn(setup), std::nullopt);
  setup.strings.front().open = theory::Pitch(126);
  EXPECT_EQ(Instrument::ErrorIn(setup), std::nullopt);
}

}  // namespace
}  // namespace tonalith::instrument::tests
