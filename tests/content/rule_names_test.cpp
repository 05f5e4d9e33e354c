// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rows of the data packs whose names are rules: triads over bass notes and over each other, rotations, repeated steps
// and set classes. The tests calculate the notes from the name and compare them with the tables. If a rule has a known
// number of cases, all must exist.

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

const ScaleLibrary& Library() { return ScaleLibrary::WithPacks(); }
PitchClassSet Notes(std::string_view name) { return Library().Notes(name); }

/// "flat III minor" as the notes of that triad: a Roman numeral of the major scale, and a quality unless it is major.
PitchClassSet Triad(const std::string& text) {
  static const std::map<std::string, int> kDegrees = {{"I", 0}, {"II", 2}, {"III", 4}, {"IV", 5},
                                                      {"V", 7}, {"VI", 9}, {"VII", 11}};
  static const std::map<std::string, std::string_view> kQualities = {
      {"", "1 3 5"}, {"minor", "1 b3 5"}, {"augmented", "1 3 #5"}};
  std::smatch parts;
  if (!std::regex_match(text, parts, std::regex("(flat )?([IV]+) ?([a-z]*)"))) {
    throw std::invalid_argument("no triad: " + text);
  }
  return Transposed(FromDegrees(kQualities.at(parts[3])), kDegrees.at(parts[2]) - (parts[1].matched ? 1 : 0));
}

struct NamedRow {
  std::string name;
  std::string rest;
  PitchClassSet notes;
};

/// The rows whose name begins with the prefix, with the rest of the name.
std::vector<NamedRow> RowsCalled(const std::string& beginning) {
  std::vector<NamedRow> rows;
  for (const ScaleRow& row : Library().Rows()) {
    if (row.scaleName.starts_with(beginning)) {
      rows.push_back({row.scaleName, row.scaleName.substr(beginning.size()), FromPattern(row.scaleIntervals)});
    }
  }
  return rows;
}

std::string BeforeOverI(const std::string& rest) {
  const std::string ending = " over I";
  EXPECT_TRUE(rest.ends_with(ending)) << rest;
  return rest.substr(0, rest.size() - ending.size());
}

TEST(RuleNames, CombineEveryMajorAndMinorTriadWithTheRoot) {
  const std::vector<NamedRow> rows = RowsCalled("Slash chord ");
  EXPECT_EQ(rows.size(), 22U) << "eleven roots, major and minor";
  for (const NamedRow& row : rows) {
    EXPECT_EQ(ToText(row.notes), ToText(Triad(BeforeOverI(row.rest)).set(0))) << row.name;
  }
}

TEST(RuleNames, CombineEveryMajorTriadWithAMajorTriad) {
  const std::vector<NamedRow> rows = RowsCalled("Polychord ");
  std::set<std::string> kinds = {ToText(Notes("Petrushka chord")), ToText(Notes("Elektra chord"))};
  for (const NamedRow& row : rows) {
    EXPECT_EQ(ToText(row.notes), ToText(Triad(BeforeOverI(row.rest)) | Triad("I"))) << row.name;
    kinds.insert(ToText(row.notes));
  }
  EXPECT_EQ(kinds.size(), 11U) << "eleven roots, with the two that have names of their own";
}

TEST(RuleNames, PlaceUpperStructuresOverRootThirdAndSeventh) {
  const std::vector<NamedRow> rows = RowsCalled("Upper structure ");
  EXPECT_EQ(rows.size(), 9U);
  for (const NamedRow& row : rows) {
    EXPECT_EQ(ToText(row.notes), ToText(Triad(row.rest) | FromDegrees("1 3 b7"))) << row.name;
  }
}

TEST(RuleNames, PairTriadsThatShareNoNote) {
  const std::vector<NamedRow> rows = RowsCalled("Triad pair ");
  EXPECT_GE(rows.size(), 15U);
  for (const NamedRow& row : rows) {
    const auto both = row.rest.find(" and ");
    ASSERT_NE(both, std::string::npos) << row.name;
    const PitchClassSet first = Triad(row.rest.substr(0, both));
    const PitchClassSet second = Triad(row.rest.substr(both + 5));
    EXPECT_TRUE((first & second).none()) << row.name;
    EXPECT_EQ(ToText(row.notes), ToText(first | second)) << row.name;
  }
}

TEST(RuleNames, RotateTheMessiaenModesUntilTheyRepeat) {
  const std::vector<NamedRow> rows = RowsCalled("Messiaen mode ");
  std::set<std::string> rotations;
  for (const NamedRow& row : rows) {
    std::smatch parts;
    if (!std::regex_match(row.rest, parts, std::regex("([1-7]) rotation ([2-9])"))) continue;
    const std::string& mode = Library().Pattern("Messiaen mode " + parts[1].str());
    const std::size_t first = std::stoul(parts[2]) - 1;
    const std::string rotated = mode.substr(first) + mode.substr(0, first);
    EXPECT_EQ(Library().Pattern(row.name), rotated) << row.name;
    EXPECT_NE(rotated, mode) << row.name;
    EXPECT_TRUE(rotations.insert(parts[1].str() + rotated).second) << row.name << " stands twice";
  }
  EXPECT_EQ(rotations.size(), 2U + 3U + 2U + 3U + 4U) << "modes 3 to 7; the two rotations of 1 and 2 have other names";
}

TEST(RuleNames, RepeatTheStepsOfSymmetricScalesUntilTheOctave) {
  const std::vector<NamedRow> rows = RowsCalled("Symmetric ");
  EXPECT_EQ(rows.size(), 9U);
  for (const NamedRow& row : rows) {
    const std::string steps = std::regex_replace(row.rest, std::regex("-"), "");
    const std::string& pattern = Library().Pattern(row.name);
    EXPECT_EQ(pattern, steps + steps) << row.name;
    EXPECT_EQ(TranspositionCount(row.notes), 6) << row.name;
  }
}

TEST(RuleNames, ComplementsOfCombinatorialHexachordsAreTranspositions) {
  const std::map<std::string, int> distances = {{"A", 6}, {"B", 6}, {"C", 6}, {"D", 3}, {"E", 2}, {"F", 1}};
  for (const auto& [letter, semitones] : distances) {
    const PitchClassSet hexachord = Notes("Combinatorial hexachord " + letter);
    EXPECT_EQ(hexachord.count(), 6U) << letter;
    EXPECT_EQ(~hexachord, Transposed(hexachord, semitones)) << letter;
  }
  EXPECT_EQ(RowsCalled("Combinatorial hexachord ").size(), distances.size());
}

TEST(RuleNames, TakePentatonicsFromTheirModes) {
  const std::map<std::string_view, std::string_view> modes = {{"Lydian dominant pentatonic", "Lydian dominant"},
                                                              {"Lydian augmented pentatonic", "Lydian augmented"},
                                                              {"Super-Locrian pentatonic", "Altered"}};
  for (const auto& [pentatonic, mode] : modes) {
    const std::vector<int> degrees = Offsets(Library().Pattern(mode));
    PitchClassSet rest = Notes(mode);
    rest.reset(static_cast<std::size_t>(degrees[1])).reset(static_cast<std::size_t>(degrees[5]));
    EXPECT_EQ(ToText(Notes(pentatonic)), ToText(rest)) << pentatonic;
  }
  EXPECT_EQ(Notes("Whole tone pentatonic"), Notes("Whole tone").reset(2));
}

TEST(RuleNames, WriteChordsAsPentatonics) {
  const std::map<std::string_view, std::string_view> chords = {
      {"Major 9 pentatonic", "Major 9"},
      {"Minor 9 pentatonic", "Minor 9"},
      {"Minor major 9 pentatonic", "Minor major 9"},
      {"Minor 9 flat 5 pentatonic", "Minor 9 flat 5"},
      {"Dominant flat 9 pentatonic", "Dominant 7 flat 9"},
      {"Dominant sharp 9 pentatonic", "Dominant 7 sharp 9"},
      {"Dominant 9 sharp 5 pentatonic", "Dominant 9 sharp 5"},
  };
  for (const auto& [pentatonic, chord] : chords) EXPECT_EQ(Notes(pentatonic), Notes(chord)) << pentatonic;
}

/// The prime forms of all sets of this size, calculated from every set.
std::set<std::string> PrimeForms(std::size_t size) {
  std::set<std::string> forms;
  for (unsigned long bits = 0; bits < 4096; ++bits) {
    if (PitchClassSet(bits).count() == size) forms.insert(PrimeForm(PitchClassSet(bits)));
  }
  return forms;
}

/// The prime forms in parentheses in the names of a type; each is compared with the notes of the row.
std::set<std::string> FormsInNames(const std::string& type) {
  std::set<std::string> forms;
  for (const ScaleRow& row : Library().OfType(type)) {
    std::smatch parts;
    EXPECT_TRUE(std::regex_match(row.scaleName, parts, std::regex("T[a-z]+chord ([34]-Z?[0-9]+) \\(([0-9 ]+)\\)")))
        << row.scaleName;
    const std::string form = std::regex_replace(parts[2].str(), std::regex(" "), "");
    EXPECT_EQ(PrimeForm(FromPattern(row.scaleIntervals)), form) << row.scaleName;
    EXPECT_EQ(ToText(FromPattern(row.scaleIntervals)), parts[2].str()) << row.scaleName;
    EXPECT_EQ(row.source, "Forte " + parts[1].str()) << row.scaleName;
    EXPECT_TRUE(forms.insert(form).second) << row.scaleName << " stands twice";
  }
  return forms;
}

TEST(RuleNames, ContainEverySetClassOfThreeAndFourNotes) {
  std::set<std::string> trichords = PrimeForms(3);
  EXPECT_EQ(trichords.erase("012"), 1U) << "its widest step needs two digits";
  EXPECT_EQ(FormsInNames("Trichords"), trichords);
  EXPECT_EQ(FormsInNames("Tetrachords"), PrimeForms(4));
}

/// How often each interval class from 1 to 6 occurs: "111111" for an all-interval tetrachord.
std::string IntervalVector(const PitchClassSet& set) {
  std::string vector(6, '0');
  for (int interval = 1; interval <= 6; ++interval) {
    const std::size_t pairs = (set & Transposed(set, interval)).count();
    vector[static_cast<std::size_t>(interval - 1)] = static_cast<char>('0' + (interval == 6 ? pairs / 2 : pairs));
  }
  return vector;
}

TEST(RuleNames, DescribeSetClassesWithTheirIntervalVector) {
  for (const std::string type : {"Trichords", "Tetrachords"}) {
    for (const ScaleRow& row : Library().OfType(type)) {
      const std::string sentence = "Its interval vector is " + IntervalVector(FromPattern(row.scaleIntervals)) + ".";
      EXPECT_NE(row.scaleDescription.find(sentence), std::string::npos)
          << row.scaleName << ": " << row.scaleDescription;
    }
  }
}

}  // namespace
}  // namespace tonalith::content_tests
