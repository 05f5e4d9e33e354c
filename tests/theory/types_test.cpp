// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>

#include "theory/degree.h"
#include "theory/formula.h"
#include "theory/note_name.h"
#include "theory/pitch.h"

namespace tonalith::theory {
namespace {

using ::testing::ElementsAre;

constexpr NoteName kBSharp{Letter::kB, Accidental::kSharp};
constexpr NoteName kCFlat{Letter::kC, Accidental::kFlat};
constexpr NoteName kBFlat{Letter::kB, Accidental::kFlat};

std::vector<int> Midi(const std::vector<Pitch>& pitches) {
  std::vector<int> numbers;
  for (const Pitch pitch : pitches) numbers.push_back(pitch.Midi());
  return numbers;
}

TEST(Pitches, APitchClassWrapsAroundTheOctave) {
  EXPECT_EQ(PitchClass(-1), PitchClass(11));
  EXPECT_EQ(PitchClass(25).Semitones(), 1);
  EXPECT_EQ(PitchClass(-2400).Semitones(), 0);
  EXPECT_EQ(PitchClass(9).SemitonesUpTo(PitchClass(2)), 5);
  EXPECT_EQ(PitchClass(2).Up(-3), PitchClass(11));
}

TEST(Pitches, TheNextPitchOfAClassIsAtMostElevenSemitonesHigher) {
  EXPECT_EQ(Pitch(60).NextUp(PitchClass(0)).Midi(), 60);
  EXPECT_EQ(Pitch(60).NextUp(PitchClass(11)).Midi(), 71);
  EXPECT_EQ(Pitch(64).NextUp(PitchClass(0)).Midi(), 72);
}

TEST(Pitches, OnlySevenBitsAreMidi) {
  EXPECT_TRUE(Pitch(127).IsMidi());
  EXPECT_FALSE(Pitch(128).IsMidi());
  EXPECT_FALSE(Pitch(-1).IsMidi());
}

TEST(NoteNames, TheOctaveFollowsTheLetter) {
  EXPECT_EQ((SpelledNote{kBSharp, 3}.Pitch().Midi()), 60);
  EXPECT_EQ((SpelledNote{kCFlat, 4}.Pitch().Midi()), 59);
  EXPECT_EQ((SpelledNote{{Letter::kA}, 4}.Pitch().Midi()), 69);
  EXPECT_EQ((SpelledNote{{}, -1}.Pitch().Midi()), 0);
  EXPECT_EQ(SpelledNote::At(kCFlat, Pitch(59))->octave, 4);
  EXPECT_EQ(SpelledNote::At(kBSharp, Pitch(60))->octave, 3);
  EXPECT_FALSE(SpelledNote::At(kBSharp, Pitch(61)));
}

TEST(NoteNames, EveryPitchHasItsOctaveWithEverySpelling) {
  for (int midi = Pitch::kLowest; midi <= Pitch::kHighest; ++midi) {
    for (int letter = 0; letter < kLetters; ++letter) {
      const auto name = NoteName::At(static_cast<Letter>(letter), Pitch(midi).Class());
      if (!name) continue;
      EXPECT_EQ(name->PitchClass(), Pitch(midi).Class());
      EXPECT_EQ(SpelledNote::At(*name, Pitch(midi))->Pitch().Midi(), midi);
    }
  }
}

TEST(NoteNames, ALetterReachesTwoSemitonesEachWay) {
  EXPECT_EQ(NoteName::At(Letter::kC, PitchClass(10)), (NoteName{Letter::kC, Accidental::kDoubleFlat}));
  EXPECT_EQ(NoteName::At(Letter::kB, PitchClass(1)), (NoteName{Letter::kB, Accidental::kDoubleSharp}));
  EXPECT_FALSE(NoteName::At(Letter::kC, PitchClass(3)));
  EXPECT_FALSE(NoteName::At(Letter::kC, PitchClass(9)));
}

TEST(NoteNames, BlackKeysHaveASharpAndAFlatName) {
  EXPECT_EQ(FlatName(PitchClass(10)), kBFlat);
  EXPECT_EQ(SharpName(PitchClass(10)), (NoteName{Letter::kA, Accidental::kSharp}));
  EXPECT_EQ(FlatName(PitchClass(11)), (NoteName{Letter::kB, Accidental::kNatural}));
  for (int semitone = 0; semitone < kSemitonesPerOctave; ++semitone) {
    EXPECT_EQ(SharpName(PitchClass(semitone)).PitchClass(), PitchClass(semitone));
    EXPECT_EQ(FlatName(PitchClass(semitone)).PitchClass(), PitchClass(semitone));
  }
}

TEST(NoteNames, LettersRepeatAfterSeven) {
  EXPECT_EQ(LetterUp(Letter::kA, 2), Letter::kC);
  EXPECT_EQ(LetterUp(Letter::kC, -1), Letter::kB);
  EXPECT_EQ(LetterUp(Letter::kC, -15), Letter::kB);
}

TEST(Degrees, AreReadAndWritten) {
  for (const char* const text : {"1", "b3", "#11", "bb7", "##4", "b13"}) {
    EXPECT_EQ(Degree::Parse(text)->ToText(), text);
  }
  EXPECT_EQ(Degree::Parse("\u266D\u266D7")->ToText(), "bb7");
  EXPECT_EQ(Degree::Parse("b3")->Semitones(), 3);
  EXPECT_EQ(Degree::Parse("9")->Semitones(), 14);
  EXPECT_EQ(Degree::Parse("b1")->PitchClass(), PitchClass(11));
}

TEST(Degrees, ErrorsSayWhatAndWhere) {
  EXPECT_EQ(Degree::Parse("").Error(), (ParseError{ParseReason::kEmpty, 0}));
  EXPECT_EQ(Degree::Parse("bbb7").Error(), (ParseError{ParseReason::kTooManyAccidentals, 0}));
  EXPECT_EQ(Degree::Parse("b").Error(), (ParseError{ParseReason::kUnknownDegree, 1}));
  EXPECT_EQ(Degree::Parse("0").Error(), (ParseError{ParseReason::kUnknownDegree, 0}));
  EXPECT_EQ(Degree::Parse("14").Error(), (ParseError{ParseReason::kUnknownDegree, 0}));
  EXPECT_EQ(Degree::Parse("b9z").Error(), (ParseError{ParseReason::kUnknownDegree, 2}));
  EXPECT_EQ(Degree::Parse("99999999999999999999").Error().reason, ParseReason::kUnknownDegree);
}

TEST(Degrees, AreSpelledOnTheLetterOfTheirNumber) {
  EXPECT_EQ(Degree::Parse("bb7")->Above({}), (NoteName{Letter::kB, Accidental::kDoubleFlat}));
  EXPECT_EQ(Degree::Parse("#9")->Above(kBFlat), (NoteName{Letter::kC, Accidental::kSharp}));
  EXPECT_FALSE(Degree::Parse("#2")->Above(kBSharp));
}

TEST(Formulas, AreReadAndWritten) {
  const Parsed<Formula> formula = Formula::Parse("  1, b3 5  b7 9 ");
  ASSERT_TRUE(formula);
  EXPECT_EQ(formula->ToText(), "1 b3 5 b7 9");
  EXPECT_EQ(formula->Set(), (PitchClassSet{0, 2, 3, 7, 10}));
  EXPECT_THAT(Midi(formula->PitchesFrom(Pitch(60))), ElementsAre(60, 63, 67, 70, 74));
  EXPECT_EQ(formula->At(PitchClass(2))->ToText(), "9");
  EXPECT_EQ(formula->At(PitchClass(4)), nullptr);
}

TEST(Formulas, ErrorsSayWhatAndWhere) {
  EXPECT_EQ(Formula::Parse(" ").Error(), (ParseError{ParseReason::kEmpty, 0}));
  EXPECT_EQ(Formula::Parse("1 x").Error(), (ParseError{ParseReason::kUnknownDegree, 3}));
  EXPECT_EQ(Formula::Parse("1 b3 #2").Error(), (ParseError{ParseReason::kDegreeTwice, 5}));
  EXPECT_EQ(Formula::Parse(std::string(100'000, '1')).Error().reason, ParseReason::kTooLong);
  EXPECT_EQ(Describe({ParseReason::kUnknownDegree, 5}, "1 \u266D3 x"),
            "Character 4: This is not a degree, such as 1, b3 or #11");
}

}  // namespace
}  // namespace tonalith::theory
