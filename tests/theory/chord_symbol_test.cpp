// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/chord_symbol.h"

#include <gmock/gmock.h>

#include <bit>
#include <string>
#include <utility>
#include <vector>

namespace tonalith::theory {
namespace {

std::string Degrees(std::string_view suffix) {
  const Parsed<Formula> formula = ParseChordSuffix(suffix);
  return formula ? formula->ToText() : Describe(formula.Error(), suffix);
}

/// The symbol as Tonalith writes it, or the error.
std::string Read(std::string_view text, ChordReading reading = {}) {
  const Parsed<ChordSymbol> chord = ParseChordSymbol(text, reading);
  return chord ? Write(*chord) : Describe(chord.Error(), text);
}

TEST(ChordSymbols, SuffixesNameTheirDegrees) {
  // From common chord tables.
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "1 3 5"},
      {"m", "1 b3 5"},
      {"dim", "1 b3 b5"},
      {"aug", "1 3 #5"},
      {"5", "1 5"},
      {"6", "1 3 5 6"},
      {"m6", "1 b3 5 6"},
      {"7", "1 3 5 b7"},
      {"maj7", "1 3 5 7"},
      {"m7", "1 b3 5 b7"},
      {"m(maj7)", "1 b3 5 7"},
      {"dim7", "1 b3 b5 bb7"},
      {"m7b5", "1 b3 b5 b7"},
      {"7#5", "1 3 #5 b7"},
      {"7b5", "1 3 b5 b7"},
      {"maj7#5", "1 3 #5 7"},
      {"sus2", "1 2 5"},
      {"sus4", "1 4 5"},
      {"7sus4", "1 4 5 b7"},
      {"9sus4", "1 4 5 b7 9"},
      {"add9", "1 3 5 9"},
      {"madd11", "1 b3 5 11"},
      {"6/9", "1 3 5 6 9"},
      {"9", "1 3 5 b7 9"},
      {"maj9", "1 3 5 7 9"},
      {"m9", "1 b3 5 b7 9"},
      {"11", "1 3 5 b7 9 11"},
      {"m11", "1 b3 5 b7 9 11"},
      {"13", "1 3 5 b7 9 13"},
      {"maj13", "1 3 5 7 9 13"},
      {"m13", "1 b3 5 b7 9 11 13"},
      {"7b9", "1 3 5 b7 b9"},
      {"7#9", "1 3 5 b7 #9"},
      {"7#11", "1 3 5 b7 #11"},
      {"7b13", "1 3 5 b7 b13"},
      {"13b9", "1 3 5 b7 b9 13"},
      {"13#11", "1 3 5 b7 9 #11 13"},
      {"7b5b9", "1 3 b5 b7 b9"},
      {"7alt", "1 3 b5 #5 b7 b9 #9"},
      {"maj7#11", "1 3 5 7 #11"},
      {"dim7(maj7)", "1 b3 b5 bb7 7"},
      {"sus(b2)", "1 b2 5"},
      {"sus(#4)", "1 #4 5"},
  };
  for (const auto& [suffix, degrees] : cases) EXPECT_EQ(Degrees(suffix), degrees) << suffix;
}

TEST(ChordSymbols, VariantsOfASignMeanTheSame) {
  const std::vector<std::pair<std::string, std::string>> cases = {{"Cmaj", "C"},
                                                                  {"Cma", "C"},
                                                                  {"Cmin7", "Cm7"},
                                                                  {"C-7", "Cm7"},
                                                                  {"Cmi7", "Cm7"},
                                                                  {"CM7", "Cmaj7"},
                                                                  {"C\u0394", "Cmaj7"},
                                                                  {"C\u03947", "Cmaj7"},
                                                                  {"Cma7", "Cmaj7"},
                                                                  {"Cj7", "Cmaj7"},
                                                                  {"C7M", "Cmaj7"},
                                                                  {"Cm7M", "Cm(maj7)"},
                                                                  {"CmM7", "Cm(maj7)"},
                                                                  {"Cm/maj7", "Cm(maj7)"},
                                                                  {"Cm\u0394", "Cm(maj7)"},
                                                                  {"Cmmaj9", "Cm(maj9)"},
                                                                  {"C\u00B07", "Cdim7"},
                                                                  {"Co7", "Cdim7"},
                                                                  {"C\u00F8", "Cm7b5"},
                                                                  {"C\u00F87", "Cm7b5"},
                                                                  {"C+", "Caug"},
                                                                  {"C+5", "Caug"},
                                                                  {"C+7", "C7#5"},
                                                                  {"C7+", "C7#5"},
                                                                  {"C7-5", "C7b5"},
                                                                  {"C-5", "C(b5)"},
                                                                  {"C7+9", "C7#9"},
                                                                  {"C7(b9)", "C7b9"},
                                                                  {"C7(b9,#11)", "C7b9#11"},
                                                                  {"C69", "C6/9"},
                                                                  {"C6add9", "C6/9"},
                                                                  {"C2", "Cadd9"},
                                                                  {"C4", "Csus4"},
                                                                  {"Csus", "Csus4"},
                                                                  {"C7sus", "C7sus4"},
                                                                  {"C7susb9", "C7sus4b9"},
                                                                  {"Csus24", "Csus2sus4"},
                                                                  {"C7(no5)", "C7no5"},
                                                                  {"Calt", "C7alt"},
                                                                  {"C\u266Fm", "C#m"},
                                                                  {"C7\u266D9", "C7b9"},
                                                                  {"C major", "C"},
                                                                  {"C minor 7", "Cm7"},
                                                                  {"Cdom7", "C7"}};
  for (const auto& [text, symbol] : cases) EXPECT_EQ(Read(text), symbol) << text;
}

TEST(ChordSymbols, RootsAreReadInAllStyles) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"F#m7b5", "F#m7b5"}, {"Bbmaj7", "Bbmaj7"}, {"Esus4", "Esus4"}, {"Asus2", "Asus2"}, {"Es7", "Eb7"},
      {"Cis7", "C#7"},      {"Hm7", "Bm7"},       {"Sol7", "G7"},     {"Lam", "Am"},      {"Fa#m7", "F#m7"},
      {"Fadd9", "Fadd9"},   {"Dom7", "Cm7"},      {"am7", "Am7"},     {"Cb9", "Cb9"}};
  for (const auto& [text, symbol] : cases) EXPECT_EQ(Read(text), symbol) << text;
  EXPECT_EQ(Read("Do7"), "Ddim7");
  EXPECT_EQ(Read("Do7", ChordReadingIn(NoteLanguage::kSolfege)), "C7");
  EXPECT_EQ(Read("B7", ChordReadingIn(NoteLanguage::kGerman)), "Bb7");
  EXPECT_EQ(Read("H7", ChordReadingIn(NoteLanguage::kGerman)), "B7");
}

TEST(ChordSymbols, AreWrittenInEveryStyle) {
  const ChordSymbol chord = *ParseChordSymbol("Bb7b5#9/F#");
  EXPECT_EQ(Write(chord, {NoteLanguage::kEnglish, AccidentalSigns::kUnicode}), "B\u266D7\u266D5\u266F9/F\u266F");
  EXPECT_EQ(Write(chord, {NoteLanguage::kGerman, AccidentalSigns::kSyllables}), "B7b5#9/Fis");
  EXPECT_EQ(Read("B\u266D7\u266D5\u266F9/F\u266F"), "Bb7b5#9/F#");
}

TEST(ChordSymbols, ABassFollowsTheSlash) {
  EXPECT_EQ(Read("C/E"), "C/E");
  EXPECT_EQ(Read("D/F#"), "D/F#");
  EXPECT_EQ(Read("Am7/G"), "Am7/G");
  EXPECT_EQ(Read("C6/9/E"), "C6/9/E");
  EXPECT_EQ(Read("C/C"), "C");
  EXPECT_EQ(Read("C / Bb"), "C/Bb");
  EXPECT_EQ(ParseChordSymbol("C/E")->bass, (NoteName{Letter::kE}));
}

TEST(ChordSymbols, ErrorsSayWhatAndWhere) {
  EXPECT_EQ(Read(""), "Character 1: Nothing is written here");
  EXPECT_EQ(Read("Xm"), "Character 1: No note has this name");
  EXPECT_EQ(Read("Cqq"), "Character 2: No chord symbol continues like this");
  EXPECT_EQ(Read("Cm7b"), "Character 4: No chord symbol continues like this");
  EXPECT_EQ(Read("C7##5"), "Character 3: No chord symbol continues like this");
  EXPECT_EQ(Read("C/"), "Character 3: A bass note has to follow the slash");
  EXPECT_EQ(Read("Cm7/Q"), "Character 5: A bass note has to follow the slash");
  EXPECT_EQ(Read("Cbbb"), "Character 2: A note has at most two sharps or two flats");
  EXPECT_EQ(Read("C7no9"), "Character 6: The chord does not contain the degree to be omitted");
  EXPECT_EQ(Read(std::string(200, 'C')), "Character 101: The text is too long");
}

TEST(ChordSymbols, EveryFormulaIsReadAsItIsWritten) {
  const std::vector<std::string> texts = {"b9", "9",   "#9", "b3", "3",   "11", "#11", "b5", "5",
                                          "#5", "b13", "6",  "13", "bb7", "b7", "7",   "2",  "4"};
  std::vector<Degree> degrees;
  degrees.reserve(texts.size());
  for (const std::string& text : texts) degrees.push_back(*Degree::Parse(text));
  int count = 0;
  for (unsigned chosen = 0; chosen < 1U << degrees.size(); ++chosen) {
    PitchClassSet notes{0};
    for (std::size_t i = 0; i < degrees.size(); ++i) {
      if ((chosen >> i & 1U) != 0) notes.Add(degrees[i].PitchClass());
    }
    if (notes.Size() != std::popcount(chosen) + 1) continue;  // two degrees sound alike
    std::vector<Degree> own = {{1, 0}};
    for (std::size_t i = 0; i < degrees.size(); ++i) {
      if ((chosen >> i & 1U) != 0) own.push_back(degrees[i]);
    }
    const Formula formula(own);
    const Parsed<Formula> read = ParseChordSuffix(WriteChordSuffix(formula));
    ASSERT_TRUE(read) << WriteChordSuffix(formula);
    ASSERT_EQ(read->Set(), formula.Set()) << formula.ToText() << ": " << WriteChordSuffix(formula);
    ++count;
  }
  EXPECT_GT(count, 20'000);
}

}  // namespace
}  // namespace tonalith::theory
