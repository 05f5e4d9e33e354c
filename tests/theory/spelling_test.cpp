// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rules of spelling, for every set of notes on every tonic.

#include "theory/spelling.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "theory/texts.h"

namespace tonalith::theory {
namespace {

using tests::FormulaOf;
using tests::Name;
using tests::NamesText;
using tests::PitchClassOf;
using tests::Words;

const std::vector<std::string> kTonicNames = {"C",  "G",  "D",  "A",  "E",  "B",  "F#", "C#", "F",
                                              "Bb", "Eb", "Ab", "Db", "Gb", "Cb", "G#", "D#", "A#"};

std::string Spelled(std::string_view tonic, std::string_view degrees) {
  return NamesText(Spell(Name(tonic), FormulaOf(degrees)));
}

std::string Derived(std::initializer_list<int> pattern) { return DeriveScaleFormula(PitchClassSet(pattern)).ToText(); }

std::string DerivedChord(std::initializer_list<int> pattern) {
  return DeriveChordFormula(PitchClassSet(pattern)).ToText();
}

using Names = std::vector<NoteName>;

int MostAccidentals(const Names& notes) {
  int most = 0;
  for (const NoteName note : notes) most = std::max(most, std::abs(static_cast<int>(note.accidental)));
  return most;
}

/// How often the most frequent letter occurs.
int MostUsesOfALetter(const Names& notes) {
  std::array<int, 7> uses{};
  for (const NoteName note : notes) ++uses[static_cast<std::size_t>(note.letter)];
  return *std::ranges::max_element(uses);
}

/// Whether the letters of notes in ascending pitch go up, from the tonic's letter to the same letter at most.
bool LettersAscend(const Names& notes, NoteName tonic) {
  int last = 0;
  bool first = true;
  for (const NoteName note : notes) {
    int steps = (static_cast<int>(note.letter) - static_cast<int>(tonic.letter) + 7) % 7;
    if (steps == 0 && last > 0) steps = 7;
    if (!first && steps < last) return false;
    last = steps;
    first = false;
  }
  return true;
}

/// The rules that hold for any number of notes.
void CheckPitches(const Formula& formula, NoteName tonic, const Names& notes) {
  ASSERT_EQ(notes.size(), formula.Degrees().size());
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const int expected = (PitchClassOf(tonic) + formula.Degrees()[i].PitchClass().Semitones()) % 12;
    ASSERT_EQ(PitchClassOf(notes[i]), expected) << NamesText({tonic}) << " " << formula.ToText();
  }
  ASSERT_LE(MostAccidentals(notes), 2) << NamesText({tonic}) << " " << formula.ToText();
}

TEST(Spelling, TheTonicsAreThoseInUse) { EXPECT_EQ(Words(NamesText({kTonics.begin(), kTonics.end()})), kTonicNames); }

/// The rules for eight notes and more.
void CheckManyNotes(NoteName tonic, const Names& notes) {
  ASSERT_LE(MostAccidentals(notes), 1) << NamesText(notes);
  ASSERT_LE(MostUsesOfALetter(notes), 2) << NamesText(notes);
  ASSERT_TRUE(LettersAscend(notes, tonic)) << NamesText(notes);
}

TEST(Spelling, EveryScaleFollowsTheRulesOnEveryTonic) {
  for (unsigned bits = 0; bits < PitchClassSet::kCount; ++bits) {
    const PitchClassSet set = PitchClassSet::FromBits(bits);
    const Formula formula = DeriveScaleFormula(set);
    ASSERT_EQ(formula.Set(), set) << bits << ": " << formula.ToText();
    for (const NoteName tonic : kTonics) {
      const Names notes = Spell(tonic, formula);
      CheckPitches(formula, tonic, notes);
      if (set.Size() >= 8) CheckManyNotes(tonic, notes);
    }
  }
}

TEST(Spelling, EveryChordHasItsPitchesOnEveryTonic) {
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 2) {
    const PitchClassSet set = PitchClassSet::FromBits(bits);
    const Formula formula = DeriveChordFormula(set);
    ASSERT_EQ(formula.Set(), set) << bits << ": " << formula.ToText();
    for (const NoteName tonic : kTonics) CheckPitches(formula, tonic, Spell(tonic, formula));
  }
}

TEST(Spelling, SevenNotesHaveSevenLettersOnC) {
  // A note on its own letter is at most two semitones away from the white key; then every letter can be used once.
  const int whiteKeys[] = {0, 2, 4, 5, 7, 9, 11};
  int count = 0;
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 2) {
    const PitchClassSet set = PitchClassSet::FromBits(bits);
    if (set.Size() != 7) continue;
    const std::vector<PitchClass> members = set.Members();
    bool possible = true;
    for (std::size_t i = 0; i < 7; ++i) possible = possible && std::abs(members[i].Semitones() - whiteKeys[i]) <= 2;
    if (!possible) continue;
    const Names names = Spell({}, DeriveScaleFormula(set));
    EXPECT_EQ(MostUsesOfALetter(names), 1) << NamesText(names);
    ++count;
  }
  EXPECT_GT(count, 250);
}

TEST(Spelling, AModeHasTheNotesOfItsParentInEveryKey) {
  for (const char* const parent : {"1 2 3 4 5 6 7", "1 2 b3 4 5 b6 7", "1 2 b3 4 5 6 7", "1 2 3 4 5 b6 7"}) {
    for (const std::string& tonic : kTonicNames) {
      Names notes = Spell(Name(tonic), FormulaOf(parent));
      for (int mode = 1; mode < 7; ++mode) {
        std::rotate(notes.begin(), notes.begin() + 1, notes.end());
        const Formula formula = DeriveScaleFormula(FormulaOf(parent).Set().Mode(mode));
        EXPECT_EQ(NamesText(Spell(notes[0], formula)), NamesText(notes)) << parent << " on " << tonic;
      }
    }
  }
}

TEST(Spelling, SmallScalesTakeTheLettersOfTheirParent) {
  EXPECT_EQ(Spelled("C", "1 b3 4 5 b7"), "C Eb F G Bb");
  EXPECT_EQ(Spelled("Eb", "1 b3 4 5 b7"), "Eb Gb Ab Bb Db");
  EXPECT_EQ(Spelled("G#", "1 b3 4 5 b7"), "G# B C# D# F#");
  EXPECT_EQ(Spelled("F#", "1 2 3 5 6"), "F# G# A# C# D#");
  EXPECT_EQ(Spelled("A", "1 b3 4 b5 5 b7"), "A C D Eb E G");
}

TEST(Spelling, BeyondDoubleAccidentalsNotesAreRespelled) {
  EXPECT_EQ(Spelled("A#", "1 3 #5"), "A# C## E##");
  EXPECT_EQ(Spelled("A#", "1 #2 3 #4 5 #6 7"), "A# B## C## D## E# G# G##");
  EXPECT_EQ(Spelled("Cb", "1 bb7"), "Cb Ab");
}

TEST(Spelling, ChordsAreStackedInThirds) {
  EXPECT_EQ(Spelled("C", "1 b3 b5 bb7"), "C Eb Gb Bbb");
  EXPECT_EQ(Spelled("F#", "1 b3 b5 b7"), "F# A C E");
  EXPECT_EQ(Spelled("Ab", "1 3 5 b7 #9"), "Ab C Eb Gb B");
  EXPECT_EQ(Spelled("C", "1 3 5 b7 9 #11 13"), "C E G Bb D F# A");
}

TEST(Spelling, TheChromaticScaleFollowsItsTonic) {
  const Formula chromatic = FormulaOf("1 b2 2 b3 3 4 b5 5 b6 6 b7 7");
  EXPECT_EQ(NamesText(Spell(Name("C"), chromatic)), "C C# D D# E F F# G G# A A# B");
  EXPECT_EQ(NamesText(Spell(Name("E"), chromatic)), "E F F# G G# A A# B C C# D D#");
  EXPECT_EQ(NamesText(Spell(Name("F"), chromatic)), "F Gb G Ab A Bb B C Db D Eb E");
  EXPECT_EQ(NamesText(Spell(Name("Bb"), chromatic)), "Bb B C Db D Eb E F Gb G Ab A");
  EXPECT_EQ(NamesText(Spell(Name("Cb"), chromatic)), "Cb C Db D Eb E F Gb G Ab A Bb");
}

TEST(Spelling, EightNotesKeepTheirFormulaWhereTheyCan) {
  EXPECT_EQ(Spelled("C", "1 2 3 4 5 6 b7 7"), "C D E F G A Bb B");
  EXPECT_EQ(Spelled("G", "1 b2 b3 3 #4 5 6 b7"), "G Ab Bb B C# D E F");
  EXPECT_EQ(Spelled("C", "1 2 b3 4 b5 b6 6 7"), "C D Eb F Gb Ab A B");
  EXPECT_EQ(Spelled("G#", "1 2 3 4 5 6 b7 7"), "G# A# B# C# D# E# F# G");
}

TEST(Spelling, ManyNotesKeepTheOrderOfTheFormula) { EXPECT_EQ(Spelled("C", "7 1 2 3 4 5 6 b7"), "B C D E F G A Bb"); }

TEST(Spelling, SetsWithoutAFormulaGetCommonDegrees) {
  EXPECT_EQ(Derived({0, 2, 4, 5, 7, 9, 11}), "1 2 3 4 5 6 7");
  EXPECT_EQ(Derived({0, 2, 3, 5, 7, 8, 10}), "1 2 b3 4 5 b6 b7");
  EXPECT_EQ(Derived({0, 2, 4, 6, 7, 9, 10}), "1 2 3 #4 5 6 b7");
  EXPECT_EQ(Derived({0, 1, 3, 4, 6, 8, 10}), "1 b2 b3 b4 b5 b6 b7");
  EXPECT_EQ(Derived({0, 3, 5, 7, 10}), "1 b3 4 5 b7");
  EXPECT_EQ(Derived({0, 3, 5, 6, 7, 10}), "1 b3 4 b5 5 b7");
  EXPECT_EQ(Derived({0, 2, 4, 6, 8, 10}), "1 2 3 #4 #5 b7");
  EXPECT_EQ(Derived({0, 1, 3, 4, 6, 7, 9, 10}), "1 b2 b3 3 #4 5 6 b7");
  EXPECT_EQ(Derived({}), "");
  EXPECT_EQ(Derived({7}), "5");
}

TEST(Spelling, ChordsWithoutAFormulaAreReadInThirds) {
  EXPECT_EQ(DerivedChord({0, 4, 7, 10, 3}), "1 3 5 b7 #9");
  EXPECT_EQ(DerivedChord({0, 3, 6, 9}), "1 b3 b5 bb7");
  EXPECT_EQ(DerivedChord({0, 4, 7, 9, 2}), "1 3 5 6 9");
  EXPECT_EQ(DerivedChord({0, 5, 7, 10, 2}), "1 4 5 b7 9");
  EXPECT_EQ(DerivedChord({0, 2, 7}), "1 2 5");
  EXPECT_EQ(DerivedChord({0, 4, 6, 8, 10, 1, 3}), "1 3 b5 #5 b7 b9 #9");
  EXPECT_EQ(DerivedChord({0, 4, 7, 10, 9, 2, 6}), "1 3 5 b7 9 #11 13");
}

}  // namespace
}  // namespace tonalith::theory
