// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "theory/interval.h"

#include <gmock/gmock.h>

#include <string>
#include <tuple>
#include <vector>

#include "theory/texts.h"

namespace tonalith::theory {
namespace {

using tests::Name;

std::string Between(std::string_view lower, std::string_view upper) {
  return Interval::Between(Name(lower), Name(upper)).ToText();
}

TEST(Intervals, HaveTheNamesOfTextbooks) {
  const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
      {"C", "C", "P1"},  {"C", "Db", "m2"},  {"C", "D", "M2"},  {"C", "D#", "A2"},   {"C", "Eb", "m3"},
      {"C", "E", "M3"},  {"C", "Fb", "d4"},  {"C", "F", "P4"},  {"C", "F#", "A4"},   {"C", "Gb", "d5"},
      {"C", "G", "P5"},  {"C", "G#", "A5"},  {"C", "Ab", "m6"}, {"C", "A", "M6"},    {"C", "Bbb", "d7"},
      {"C", "Bb", "m7"}, {"C", "B", "M7"},   {"B", "C", "m2"},  {"B", "F", "d5"},    {"F", "B", "A4"},
      {"A", "E", "P5"},  {"Eb", "F#", "A2"}, {"G#", "F", "d7"}, {"Cb", "F#", "AA4"}, {"C#", "Bbb", "dd7"},
      {"B", "Bb", "-A1"}};
  for (const auto& [lower, upper, text] : cases) EXPECT_EQ(Between(lower, upper), text) << lower << " " << upper;
}

TEST(Intervals, OctavesCount) {
  const SpelledNote c4{Name("C"), 4};
  EXPECT_EQ(Interval::Between(c4, {Name("C"), 5}).ToText(), "P8");
  EXPECT_EQ(Interval::Between(c4, {Name("Eb"), 5}).ToText(), "m10");
  EXPECT_EQ(Interval::Between(c4, {Name("A"), 3}).ToText(), "-m3");
  EXPECT_EQ(Interval::Between(c4, {Name("B"), 3}).semitones, -1);
}

TEST(Intervals, LeadFromANoteToANote) {
  for (int lower = 0; lower < kLetters; ++lower) {
    for (int upper = 0; upper < kLetters; ++upper) {
      const NoteName from{static_cast<Letter>(lower)};
      const NoteName to{static_cast<Letter>(upper), Accidental::kFlat};
      EXPECT_EQ(Interval::Between(from, to).Above(from), to);
    }
  }
  EXPECT_EQ(Interval::To(*Degree::Parse("b3")).ToText(), "m3");
  EXPECT_EQ(Interval::To(*Degree::Parse("#11")).ToText(), "A11");
  EXPECT_EQ(Interval::To(*Degree::Parse("bb7")).Above(Name("F#")), Name("Eb"));
}

TEST(Intervals, AnInversionCompletesTheOctave) {
  EXPECT_EQ(Interval::Between(Name("C"), Name("E")).Inverted().ToText(), "m6");
  EXPECT_EQ(Interval::Between(Name("F"), Name("B")).Inverted().ToText(), "d5");
  EXPECT_EQ(Interval::To(*Degree::Parse("b9")).Inverted().ToText(), "M7");
  EXPECT_EQ((Interval{-2, -3}).Inverted().ToText(), "m3");
}

}  // namespace
}  // namespace tonalith::theory
