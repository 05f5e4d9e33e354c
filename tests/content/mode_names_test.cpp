// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Checks modes twice: as rotations of their parent scale, and by their names ("Dorian flat 2" is Dorian with its second
// note lowered).

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <string_view>

#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

const ScaleLibrary& Library() { return ScaleLibrary::WithPacks(); }

using Family = std::array<std::string_view, 7>;

constexpr Family kFamilies[] = {
    {"Major", "Dorian", "Phrygian", "Lydian", "Mixolydian", "Natural minor", "Locrian"},
    {"Ionian", "Dorian", "Phrygian", "Lydian", "Mixolydian", "Aeolian", "Locrian"},
    {"Harmonic minor", "Locrian natural 6", "Ionian augmented", "Dorian sharp 4", "Phrygian dominant", "Lydian sharp 2",
     "Ultra-Locrian"},
    {"Aeolian natural 7", "Locrian natural 6", "Ionian augmented", "Dorian sharp 4", "Phrygian dominant",
     "Lydian sharp 2", "Ultra-Locrian"},
    {"Melodic minor (ascending)", "Dorian flat 2", "Lydian augmented", "Lydian dominant", "Mixolydian flat 6",
     "Locrian natural 2", "Altered"},
    {"Jazz minor", "Dorian flat 2", "Lydian augmented", "Lydian dominant", "Mixolydian flat 6", "Locrian natural 2",
     "Altered"},
    {"Harmonic major", "Dorian flat 5", "Phrygian flat 4", "Lydian flat 3", "Mixolydian flat 2",
     "Lydian augmented sharp 2", "Locrian double flat 7"},
    {"Double harmonic major", "Lydian sharp 2 sharp 6", "Ultra-Phrygian", "Hungarian minor", "Oriental",
     "Ionian sharp 2 sharp 5", "Locrian double flat 3 double flat 7"},
    {"Neapolitan minor", "Lydian sharp 6", "Mixolydian augmented", "Hungarian gypsy", "Locrian natural 3",
     "Ionian sharp 2", "Ultra-Locrian double flat 3"},
    {"Neapolitan major", "Leading whole tone", "Lydian augmented dominant", "Lydian minor", "Major Locrian",
     "Altered natural 2", "Altered double flat 3"},
    {"Hungarian major", "Altered double flat 6 double flat 7", "Harmonic minor flat 5", "Altered natural 6",
     "Jazz minor sharp 5", "Dorian flat 2 sharp 4", "Lydian augmented sharp 3"},
    {"Romanian major", "Lydian augmented sharp 2 sharp 3", "Locrian natural 2 double flat 7", "Altered double flat 6",
     "Jazz minor flat 5", "Dorian flat 2 flat 4", "Lydian augmented flat 3"},
};

TEST(Modes, AreRotationsOfTheirParentInOrder) {
  for (const Family& family : kFamilies) {
    const std::string& parent = Library().Pattern(family[0]);
    ASSERT_EQ(parent.size(), 7U) << family[0];
    for (std::size_t degree = 0; degree < family.size(); ++degree) {
      EXPECT_EQ(Library().Pattern(family[degree]), parent.substr(degree) + parent.substr(0, degree))
          << family[degree] << " as mode " << degree + 1 << " of " << family[0];
    }
  }
}

TEST(Modes, ShareTheNotesOfTheirParent) {
  for (const Family& family : kFamilies) {
    const std::vector<int> degrees = Offsets(Library().Pattern(family[0]));
    for (std::size_t degree = 0; degree < family.size(); ++degree) {
      EXPECT_EQ(Transposed(Library().Notes(family[degree]), degrees[degree]), Library().Notes(family[0]))
          << family[degree];
    }
  }
}

TEST(Modes, AreInTheOrderOfTheParentsDegrees) {
  const std::map<std::string_view, std::string_view> firstModes = {
      {"Modes of the major scale", "Ionian"},
      {"Modes of the melodic minor scale", "Jazz minor"},
      {"Modes of the harmonic minor scale", "Aeolian natural 7"},
      {"Modes of the harmonic major scale", "Harmonic major"},
      {"Modes of the double harmonic major scale", "Double harmonic major"},
      {"Modes of the Neapolitan minor scale", "Neapolitan minor"},
      {"Modes of the Neapolitan major scale", "Neapolitan major"}};
  for (const auto& [type, firstMode] : firstModes) {
    const auto family = std::ranges::find(kFamilies, firstMode, [](const Family& modes) { return modes.front(); });
    ASSERT_NE(family, std::end(kFamilies)) << firstMode;
    const std::vector<ScaleRow> rows = Library().OfType(type);
    ASSERT_EQ(rows.size(), 7U) << type;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(PlainName(rows[i]), (*family)[i]);
    }
  }
}

/// The notes of a scale by degree: the n-th note of a seven-note scale, the known degrees of the pentatonics.
std::map<int, int> ByDegree(const std::string& name) {
  const std::map<std::string, std::array<int, 5>> pentatonics = {{"Minor pentatonic", {1, 3, 4, 5, 7}},
                                                                 {"Major pentatonic", {1, 2, 3, 5, 6}}};
  const std::vector<int> notes = Offsets(Library().Pattern(name));
  std::map<int, int> byDegree;
  const auto pentatonic = pentatonics.find(name);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    byDegree[pentatonic == pentatonics.end() ? static_cast<int>(i) + 1 : pentatonic->second.at(i)] = notes[i];
  }
  return byDegree;
}

/// "flat 2" as "b2", "double flat 7" as "bb7", "natural 6" as "6".
std::string AsDegree(const std::string& kind, const std::string& number) {
  const std::map<std::string, std::string> signs = {
      {"flat", "b"}, {"sharp", "#"}, {"natural", ""}, {"double flat", "bb"}};
  return signs.at(kind) + number;
}

TEST(Modes, HaveTheAlterationsOfTheirNames) {
  const std::regex altered("(.+?)((?: (?:double flat|flat|sharp|natural) [2-7])+)");
  const std::regex alteration(" (double flat|flat|sharp|natural) ([2-7])");
  int checked = 0;
  for (const ScaleRow& row : Library().Scales()) {
    const std::string name = PlainName(row);
    std::smatch parts;
    if (!std::regex_match(name, parts, altered)) {
      continue;
    }
    std::map<int, int> degrees = ByDegree(parts[1]);
    const std::string alterations = parts[2];
    for (std::sregex_iterator it(alterations.begin(), alterations.end(), alteration), end; it != end; ++it) {
      const int degree = std::stoi((*it)[2]);
      EXPECT_TRUE(degrees.contains(degree)) << row.scaleName;
      degrees[degree] = DegreeToPitchClass(AsDegree((*it)[1], (*it)[2]));
    }
    PitchClassSet expected;
    for (const auto& [degree, note] : degrees) {
      expected.set(static_cast<std::size_t>(note));
    }
    EXPECT_EQ(ToText(FromPattern(row.scaleIntervals)), ToText(expected)) << row.scaleName;
    ++checked;
  }
  EXPECT_GE(checked, 34);
}

TEST(Modes, HaveARaisedFifthIfCalledAugmented) {
  for (const std::string base : {"Ionian", "Lydian", "Mixolydian"}) {
    EXPECT_EQ(Library().Notes(base + " augmented"), Library().Notes(base).flip(7).flip(8)) << base;
  }
}

TEST(Modes, HaveAMajorThirdAndMinorSeventhIfCalledDominant) {
  for (const std::string name : {"Lydian dominant", "Phrygian dominant", "Lydian augmented dominant"}) {
    const PitchClassSet notes = Library().Notes(name);
    EXPECT_TRUE(notes[4] && notes[10] && !notes[3] && !notes[11]) << name;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
