// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Relations between scales that are facts of music theory.

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <utility>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

PitchClassSet Notes(std::string_view name) { return ScaleLibrary::WithPacks().Notes(name); }
std::string_view Pattern(std::string_view name) { return ScaleLibrary::WithPacks().Pattern(name); }

bool Contains(const PitchClassSet& whole, const PitchClassSet& part) { return (whole & part) == part; }

TEST(ScaleFacts, RelativeMinorHasTheNotesOfMajorFromItsSixthDegree) {
  EXPECT_EQ(Transposed(Notes("Natural minor"), 9), Notes("Major"));
  EXPECT_EQ(Transposed(Notes("Minor pentatonic"), 9), Notes("Major pentatonic"));
  EXPECT_EQ(Transposed(Notes("Blues"), 9), Notes("Major blues"));
  EXPECT_EQ(Transposed(Notes("Minor hexatonic"), 2), Notes("Major hexatonic"));
}

TEST(ScaleFacts, MajorPentatonicIsMajorWithoutFourthAndSeventh) {
  EXPECT_EQ(Notes("Major pentatonic"), Notes("Major").reset(5).reset(11));
  EXPECT_EQ(Notes("Minor pentatonic"), Notes("Natural minor").reset(2).reset(8));
  EXPECT_EQ(Notes("Major hexatonic"), Notes("Major").reset(11));
}

TEST(ScaleFacts, TheNotesOutsideMajorAreAMajorPentatonic) {
  EXPECT_EQ(~Notes("Major"), Transposed(Notes("Major pentatonic"), 6));
  EXPECT_EQ(Notes("Major") | Transposed(Notes("Major pentatonic"), 6), Notes("Chromatic"));
}

TEST(ScaleFacts, SymmetricScalesOmitASymmetricSet) {
  EXPECT_EQ(~Notes("Whole tone"), Transposed(Notes("Whole tone"), 1));
  EXPECT_EQ(~Notes("Augmented"), Transposed(Notes("Augmented"), 2));
  EXPECT_EQ(~Notes("Diminished half-whole"), Transposed(Notes("Diminished 7"), 2));
  EXPECT_EQ(~Notes("Messiaen mode 3"), Transposed(Notes("Augmented triad"), 1));
  EXPECT_EQ(~Notes("Messiaen mode 7"), Transposed(FromNotes("C F#"), 4));
}

TEST(ScaleFacts, FivePentatonicModesAreRotationsOfMajorPentatonic) {
  constexpr std::string_view kModes[] = {"Major pentatonic", "Suspended pentatonic (Egyptian)", "Man Gong", "Ritusen",
                                         "Minor pentatonic"};
  const std::string parent(Pattern(kModes[0]));
  for (std::size_t degree = 0; degree < 5; ++degree) {
    EXPECT_EQ(Pattern(kModes[degree]), parent.substr(degree) + parent.substr(0, degree)) << kModes[degree];
  }
}

TEST(ScaleFacts, MinorScalesDifferOnlyInSixthAndSeventh) {
  EXPECT_EQ(Notes("Harmonic minor"), Notes("Natural minor").flip(10).flip(11));
  EXPECT_EQ(Notes("Melodic minor (ascending)"), Notes("Harmonic minor").flip(8).flip(9));
  EXPECT_EQ(Notes("Melodic minor (descending)"), Notes("Natural minor"));
  EXPECT_EQ(Notes("Melodic minor (ascending)"), Notes("Major").flip(4).flip(3));
  EXPECT_EQ(Notes("Harmonic major"), Notes("Major").flip(9).flip(8));
}

TEST(ScaleFacts, HarmonicMajorIsInvertedHarmonicMinor) {
  std::string mirrored(Pattern("Harmonic minor"));
  mirrored = {mirrored.rbegin(), mirrored.rend()};
  EXPECT_EQ(Transposed(FromPattern(mirrored), 7), Notes("Harmonic major"));
}

TEST(ScaleFacts, BluesAddsTheFlatFifthToThePentatonic) {
  EXPECT_EQ(Notes("Blues"), Notes("Minor pentatonic").set(6));
  EXPECT_EQ(Notes("Dorian blues"), Notes("Dorian").set(6));
  EXPECT_EQ(Notes("Mixed-third blues"), Notes("Blues").set(4));
  EXPECT_EQ(Notes("Nine-note blues"), Notes("Major").set(3).set(10));
  EXPECT_EQ(Notes("Major and minor blues combined"), Notes("Blues") | Notes("Major blues"));
}

TEST(ScaleFacts, BebopScalesAreSevenNoteScalesWithOnePassingNote) {
  EXPECT_EQ(Notes("Bebop dominant"), Notes("Mixolydian").set(11));
  EXPECT_EQ(Notes("Bebop major"), Notes("Major").set(8));
  EXPECT_EQ(Notes("Bebop Dorian"), Notes("Dorian").set(4));
  EXPECT_EQ(Notes("Bebop melodic minor"), Notes("Jazz minor").set(8));
  EXPECT_EQ(Notes("Bebop harmonic minor"), Notes("Harmonic minor").set(10));
  EXPECT_EQ(Notes("Bebop half-diminished"), Notes("Locrian").set(7));
}

TEST(ScaleFacts, SixthDiminishedScalesJoinAChordAndADiminishedChord) {
  const PitchClassSet diminished = Transposed(Notes("Diminished 7"), 2);
  EXPECT_EQ(Notes("Bebop major"), Notes("Major 6") | diminished);
  EXPECT_EQ(Notes("Bebop melodic minor"), Notes("Minor 6") | diminished);
  EXPECT_EQ(Notes("Dominant seventh diminished"), Notes("Dominant 7") | diminished);
  EXPECT_EQ(Notes("Dominant seventh flat five diminished"), Notes("Dominant 7 flat 5") | diminished);
}

TEST(ScaleFacts, MessiaenModesHaveTheirNumberOfTranspositions) {
  constexpr int kTranspositions[] = {2, 3, 4, 6, 6, 6, 6};
  for (int mode = 1; mode <= 7; ++mode) {
    EXPECT_EQ(TranspositionCount(Notes("Messiaen mode " + std::to_string(mode))), kTranspositions[mode - 1]) << mode;
  }
}

TEST(ScaleFacts, SymmetricScalesRepeatWithinTheOctave) {
  const std::map<std::string_view, int> period = {{"Whole tone", 2},
                                                  {"Diminished whole-half", 3},
                                                  {"Diminished half-whole", 3},
                                                  {"Augmented", 4},
                                                  {"Inverse augmented", 4},
                                                  {"Tcherepnin nine-note", 4},
                                                  {"Tritone scale", 6},
                                                  {"Two-semitone tritone scale", 6},
                                                  {"Chromatic", 1},
                                                  {"Major", 12},
                                                  {"Augmented triad", 4},
                                                  {"Diminished 7", 3},
                                                  {"French sixth", 6}};
  for (const auto& [name, semitones] : period) {
    EXPECT_EQ(TranspositionCount(Notes(name)), semitones) << name;
  }
}

TEST(ScaleFacts, DiminishedScalesAreTwoDiminishedSevenths) {
  const PitchClassSet seventh = Notes("Diminished 7");
  EXPECT_EQ(Notes("Diminished whole-half"), seventh | Transposed(seventh, 2));
  EXPECT_EQ(Notes("Diminished half-whole"), seventh | Transposed(seventh, 1));
  EXPECT_EQ(Notes("Augmented"), Notes("Augmented triad") | Transposed(Notes("Augmented triad"), 3));
  EXPECT_EQ(Notes("Inverse augmented"), Notes("Augmented triad") | Transposed(Notes("Augmented triad"), 1));
}

TEST(ScaleFacts, TriadScalesJoinTheirTriads) {
  EXPECT_EQ(Notes("Major triad pair a tone apart"), Notes("Major triad") | Transposed(Notes("Major triad"), 2));
  EXPECT_EQ(Notes("Minor triad pair a tone apart"), Notes("Minor triad") | Transposed(Notes("Minor triad"), 2));
  EXPECT_EQ(Notes("Tritone scale"), Notes("Major triad") | Transposed(Notes("Major triad"), 6));
}

TEST(ScaleFacts, JapaneseScalesAreTwoEqualTetrachords) {
  const std::map<std::string_view, std::string_view> tetrachord = {
      {"Min'yo", "32"}, {"Yo", "23"}, {"Miyako-bushi", "14"}, {"Ryukyu", "41"}};
  for (const auto& [name, steps] : tetrachord) {
    EXPECT_EQ(Pattern(name), std::string(steps) + "2" + std::string(steps)) << name;
  }
}

TEST(ScaleFacts, DoubleHarmonicAndMayamalavagowlaAreTwoEqualTetrachords) {
  EXPECT_EQ(Pattern("Double harmonic major"),
            "131"
            "2"
            "131");
  EXPECT_EQ(Pattern("Mayamalavagowla"), Pattern("Double harmonic major"));
}

TEST(ScaleFacts, DominantScalesContainTheirChords) {
  constexpr std::pair<std::string_view, std::string_view> kChordScales[] = {
      {"Mixolydian", "Dominant 13"},
      {"Lydian dominant", "Dominant 13 sharp 11"},
      {"Mixolydian flat 6", "Dominant 9 flat 13"},
      {"Altered", "Dominant 7 sharp 5 sharp 9"},
      {"Altered", "Dominant 7 flat 5 flat 9"},
      {"Diminished half-whole", "Dominant 13 flat 9 sharp 11"},
      {"Diminished half-whole", "Dominant 7 flat 9 sharp 9"},
      {"Whole tone", "Dominant 9 sharp 5"},
      {"Phrygian dominant", "Dominant 7 flat 9 flat 13"},
      {"Mixolydian flat 2", "Dominant 13 flat 9"},
      {"Dorian flat 2", "Dominant 13 suspended 4 flat 9"},
      {"Locrian", "Minor 7 flat 5 flat 9"},
      {"Locrian natural 2", "Minor 11 flat 5"},
      {"Lydian", "Major 13 sharp 11"},
      {"Lydian augmented", "Major 9 sharp 5"},
      {"Dorian", "Minor 13"},
      {"Phrygian", "Minor 7 flat 9"},
      {"Harmonic minor", "Minor major 11"},
  };
  for (const auto& [scale, chord] : kChordScales) {
    EXPECT_TRUE(Contains(Notes(scale), Notes(chord))) << chord << " in " << scale;
  }
}

TEST(ScaleFacts, ForteNumbersInSourcesMatchThePattern) {
  const std::map<std::string, std::string> primeForms = {
      {"3-2", "013"},       {"3-3", "014"},       {"3-4", "015"},        {"3-5", "016"},        {"3-6", "024"},
      {"3-7", "025"},       {"3-8", "026"},       {"3-9", "027"},        {"3-10", "036"},       {"3-11", "037"},
      {"3-12", "048"},      {"4-1", "0123"},      {"4-2", "0124"},       {"4-3", "0134"},       {"4-4", "0125"},
      {"4-5", "0126"},      {"4-6", "0127"},      {"4-7", "0145"},       {"4-8", "0156"},       {"4-9", "0167"},
      {"4-10", "0235"},     {"4-11", "0135"},     {"4-12", "0236"},      {"4-13", "0136"},      {"4-14", "0237"},
      {"4-Z15", "0146"},    {"4-16", "0157"},     {"4-17", "0347"},      {"4-18", "0147"},      {"4-19", "0148"},
      {"4-20", "0158"},     {"4-21", "0246"},     {"4-22", "0247"},      {"4-23", "0257"},      {"4-24", "0248"},
      {"4-25", "0268"},     {"4-26", "0358"},     {"4-27", "0258"},      {"4-28", "0369"},      {"4-Z29", "0137"},
      {"5-35", "02479"},    {"6-1", "012345"},    {"6-7", "012678"},     {"6-8", "023457"},     {"6-Z17", "012478"},
      {"6-20", "014589"},   {"6-30", "013679"},   {"6-32", "024579"},    {"6-33", "023579"},    {"6-34", "013579"},
      {"6-35", "02468T"},   {"6-Z44", "012569"},  {"7-22", "0125689"},   {"7-30", "0124689"},   {"7-31", "0134679"},
      {"7-32", "0134689"},  {"7-33", "012468T"},  {"7-34", "013468T"},   {"7-35", "013568T"},   {"8-9", "01236789"},
      {"8-25", "0124678T"}, {"8-28", "0134679T"}, {"9-12", "01245689T"}, {"10-6", "012346789T"}};
  int checked = 0;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    std::smatch number;
    if (std::regex_search(row.source, number, std::regex("Forte ([0-9]+-Z?[0-9]+)$"))) {
      ASSERT_TRUE(primeForms.contains(number[1])) << row.scaleName;
      EXPECT_EQ(PrimeForm(FromPattern(row.scaleIntervals)), primeForms.at(number[1])) << row.scaleName;
      ++checked;
    }
  }
  EXPECT_GT(checked, 140);
}

}  // namespace
}  // namespace tonalith::content_tests
