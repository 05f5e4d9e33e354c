// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scales, modes and seventh chords as textbooks print them, and the signatures of their keys.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "theory/chord_symbol.h"
#include "theory/key.h"
#include "theory/spelling.h"
#include "theory/texts.h"

namespace tonalith::theory {
namespace {

using tests::FormulaOf;
using tests::Name;
using tests::NamesText;
using tests::Words;

struct PrintedScale {
  std::string notes;
  int signature = 0;
};

void ExpectScales(std::string_view degrees, const std::vector<PrintedScale>& scales) {
  const Formula formula = FormulaOf(degrees);
  for (const PrintedScale& scale : scales) {
    const NoteName tonic = Name(Words(scale.notes)[0]);
    EXPECT_EQ(NamesText(Spell(tonic, formula)), scale.notes);
    EXPECT_EQ(TheoreticalSignature(tonic, formula.Set()), scale.signature) << scale.notes;
  }
}

TEST(Textbook, MajorScales) {
  ExpectScales("1 2 3 4 5 6 7", {{"C D E F G A B", 0},
                                 {"G A B C D E F#", 1},
                                 {"D E F# G A B C#", 2},
                                 {"A B C# D E F# G#", 3},
                                 {"E F# G# A B C# D#", 4},
                                 {"B C# D# E F# G# A#", 5},
                                 {"F# G# A# B C# D# E#", 6},
                                 {"C# D# E# F# G# A# B#", 7},
                                 {"F G A Bb C D E", -1},
                                 {"Bb C D Eb F G A", -2},
                                 {"Eb F G Ab Bb C D", -3},
                                 {"Ab Bb C Db Eb F G", -4},
                                 {"Db Eb F Gb Ab Bb C", -5},
                                 {"Gb Ab Bb Cb Db Eb F", -6},
                                 {"Cb Db Eb Fb Gb Ab Bb", -7},
                                 {"G# A# B# C# D# E# F##", 8},
                                 {"D# E# F## G# A# B# C##", 9},
                                 {"A# B# C## D# E# F## G##", 10}});
}

TEST(Textbook, NaturalMinorScales) {
  ExpectScales("1 2 b3 4 5 b6 b7", {{"A B C D E F G", 0},
                                    {"E F# G A B C D", 1},
                                    {"B C# D E F# G A", 2},
                                    {"F# G# A B C# D E", 3},
                                    {"C# D# E F# G# A B", 4},
                                    {"G# A# B C# D# E F#", 5},
                                    {"D# E# F# G# A# B C#", 6},
                                    {"A# B# C# D# E# F# G#", 7},
                                    {"D E F G A Bb C", -1},
                                    {"G A Bb C D Eb F", -2},
                                    {"C D Eb F G Ab Bb", -3},
                                    {"F G Ab Bb C Db Eb", -4},
                                    {"Bb C Db Eb F Gb Ab", -5},
                                    {"Eb F Gb Ab Bb Cb Db", -6},
                                    {"Ab Bb Cb Db Eb Fb Gb", -7}});
}

TEST(Textbook, HarmonicAndMelodicMinorShareTheSignature) {
  ExpectScales("1 2 b3 4 5 b6 7", {{"A B C D E F G#", 0},
                                   {"E F# G A B C D#", 1},
                                   {"G# A# B C# D# E F##", 5},
                                   {"D# E# F# G# A# B C##", 6},
                                   {"C D Eb F G Ab B", -3},
                                   {"Bb C Db Eb F Gb A", -5},
                                   {"Ab Bb Cb Db Eb Fb G", -7}});
  ExpectScales("1 2 b3 4 5 6 7",
               {{"A B C D E F# G#", 0}, {"C# D# E F# G# A# B#", 4}, {"D E F G A B C#", -1}, {"F G Ab Bb C D E", -4}});
}

TEST(Textbook, ModesOfTheMajorScale) {
  ExpectScales("1 2 b3 4 5 6 b7", {{"D E F G A B C", 0}, {"C D Eb F G A Bb", -2}, {"F# G# A B C# D# E", 4}});
  ExpectScales("1 b2 b3 4 5 b6 b7", {{"E F G A B C D", 0}, {"C Db Eb F G Ab Bb", -4}, {"G# A B C# D# E F#", 4}});
  ExpectScales("1 2 3 #4 5 6 7", {{"F G A B C D E", 0}, {"C D E F# G A B", 1}, {"Ab Bb C D Eb F G", -3}});
  ExpectScales("1 2 3 4 5 6 b7", {{"G A B C D E F", 0}, {"C D E F G A Bb", -1}, {"E F# G# A B C# D", 3}});
  ExpectScales("1 b2 b3 4 b5 b6 b7", {{"B C D E F G A", 0}, {"C Db Eb F Gb Ab Bb", -5}, {"C# D E F# G A B", 2}});
}

TEST(Textbook, PentatonicsHaveTheSignatureOfTheirParent) {
  ExpectScales("1 2 3 5 6", {{"C D E G A", 0}, {"Eb F G Bb C", -3}});
  ExpectScales("1 b3 4 5 b7", {{"A C D E G", 0}, {"C Eb F G Bb", -3}});
  ExpectScales("1 2 4 5 b7", {{"D E G A C", 0}, {"C D F G Bb", -2}});
  ExpectScales("1 2 b3 5 b6", {{"A B C E F", 0}, {"C D Eb G Ab", -3}});
  ExpectScales("1 b3 4 5 7", {{"A C D E G#", 0}});
}

TEST(Textbook, OtherSetsHaveNoSignature) {
  for (const char* const degrees : {"1 2 3 #4 #5 b7", "1 b3 4 b5 5 b7", "1 b2 3 4 5 b6 b7", "1 2 3 4 5 b6 7",
                                    "1 2 3 4 5 6 b7 7", "1 3 5", "1 2 3 #4 #5"}) {
    EXPECT_EQ(TheoreticalSignature({}, FormulaOf(degrees).Set()), std::nullopt) << degrees;
  }
}

TEST(Textbook, SeventhChords) {
  const std::vector<std::pair<std::string, std::string>> chords = {
      {"Cmaj7", "C E G B"},     {"C7", "C E G Bb"},         {"Cm7", "C Eb G Bb"},     {"Cm7b5", "C Eb Gb Bb"},
      {"Cdim7", "C Eb Gb Bbb"}, {"Cm(maj7)", "C Eb G B"},   {"C7#5", "C E G# Bb"},    {"F#maj7", "F# A# C# E#"},
      {"F#7", "F# A# C# E"},    {"F#m7", "F# A C# E"},      {"F#m7b5", "F# A C E"},   {"F#dim7", "F# A C Eb"},
      {"Bbmaj7", "Bb D F A"},   {"Bb7", "Bb D F Ab"},       {"Bbm7", "Bb Db F Ab"},   {"Bbm7b5", "Bb Db Fb Ab"},
      {"Bdim7", "B D F Ab"},    {"C#dim7", "C# E G Bb"},    {"G#dim7", "G# B D F"},   {"Ebmaj7", "Eb G Bb D"},
      {"Abm7", "Ab Cb Eb Gb"},  {"G#m7", "G# B D# F#"},     {"D7", "D F# A C"},       {"E7#9", "E G# B D F##"},
      {"A7b9", "A C# E G Bb"},  {"Dbmaj9", "Db F Ab C Eb"}, {"Gbm7", "Gb Bbb Db Fb"}, {"B7", "B D# F# A"},
      {"Am(maj7)", "A C E G#"}, {"Ebm7b5", "Eb Gb Bbb Db"}, {"G13", "G B D F A E"},   {"A#dim7", "A# C# E G"}};
  for (const auto& [symbol, notes] : chords) {
    const Parsed<ChordSymbol> chord = ParseChordSymbol(symbol);
    ASSERT_TRUE(chord) << symbol;
    EXPECT_EQ(NamesText(Spell(chord->root, chord->formula)), notes) << symbol;
  }
}

std::string Conventional(int pitchClass, std::string_view degrees, SetKind kind = SetKind::kScale) {
  return NamesText({ConventionalTonic(PitchClass(pitchClass), FormulaOf(degrees), kind)});
}

TEST(Keys, TheConventionalTonicHasTheFewestAccidentals) {
  const std::vector<std::string> major = {"C", "Db", "D", "Eb", "E", "F", "F#", "G", "Ab", "A", "Bb", "B"};
  const std::vector<std::string> minor = {"C", "C#", "D", "Eb", "E", "F", "F#", "G", "G#", "A", "Bb", "B"};
  for (int pitchClass = 0; pitchClass < 12; ++pitchClass) {
    EXPECT_EQ(Conventional(pitchClass, "1 2 3 4 5 6 7"), major[static_cast<std::size_t>(pitchClass)]);
    EXPECT_EQ(Conventional(pitchClass, "1 2 b3 4 5 b6 b7"), minor[static_cast<std::size_t>(pitchClass)]);
  }
  EXPECT_EQ(Conventional(8, "1 2 3 #4 5 6 7"), "Ab");
  EXPECT_EQ(Conventional(1, "1 b2 b3 4 5 b6 b7"), "C#");
  EXPECT_EQ(Conventional(11, "1 2 3 #4 5 6 7"), "B");
  EXPECT_EQ(Conventional(10, "1 3 5 b7", SetKind::kChord), "Bb");
  EXPECT_EQ(Conventional(6, "1 b3 b5 b7", SetKind::kChord), "F#");
}

TEST(Keys, TheEnharmonicTonicIsKnown) {
  EXPECT_EQ(EnharmonicTonic(Name("F#")), Name("Gb"));
  EXPECT_EQ(EnharmonicTonic(Name("Bb")), Name("A#"));
  EXPECT_EQ(EnharmonicTonic(Name("Cb")), Name("B"));
  EXPECT_EQ(EnharmonicTonic(Name("E#")), Name("F"));
  EXPECT_EQ(EnharmonicTonic(Name("D")), std::nullopt);
}

TEST(Keys, MoreThanSevenAccidentalsComeWithAnAlternative) {
  const Formula major = FormulaOf("1 2 3 4 5 6 7");
  const Key gSharp = KeyOf(Name("G#"), major, SetKind::kScale);
  EXPECT_EQ(gSharp.signature, std::nullopt);
  EXPECT_EQ(gSharp.alternative, Name("Ab"));
  const Key cSharp = KeyOf(Name("C#"), major, SetKind::kScale);
  EXPECT_EQ(cSharp.signature, 7);
  EXPECT_EQ(cSharp.alternative, std::nullopt);
  EXPECT_EQ(KeyOf(Name("Cb"), FormulaOf("1 2 b3 4 5 b6 b7"), SetKind::kScale).alternative, Name("B"));
  EXPECT_EQ(KeyOf(Name("Fb"), major, SetKind::kScale).alternative, Name("E"));
  EXPECT_EQ(KeyOf(Name("A#"), FormulaOf("1 3 5"), SetKind::kChord).alternative, std::nullopt);
  EXPECT_EQ(KeyOf(Name("C"), FormulaOf("1 2 3 5 b7"), SetKind::kChord).signature, std::nullopt);
}

}  // namespace
}  // namespace tonalith::theory
