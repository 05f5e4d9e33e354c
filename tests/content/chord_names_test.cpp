// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Compares the notes of chords with their names and symbols, through a grammar that is independent of the tables and is
// itself tested with chords written as notes.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "content/chord_grammar.h"
#include "content/scale_library.h"

namespace tonalith::content_tests {
namespace {

/// The types whose chord names do not describe the notes.
const std::set<std::string> kNamedTypes = {"Inversions of triads and seventh chords",
                                           "Common slash chords",
                                           "Power chord and dyads",
                                           "Quartal and named chords",
                                           "Slash chords",
                                           "Polychords and upper structures",
                                           "Voicings and famous chords",
                                           "Trichords",
                                           "Tetrachords",
                                           "Named set classes"};

PitchClassSet Notes(std::string_view name) { return ScaleLibrary::WithPacks().Notes(name); }

/// The chords whose name describes the notes.
std::vector<ScaleRow> SpelledChords() {
  std::set<std::int64_t> named;
  for (const ScaleTypeRow& type : ScaleLibrary::WithPacks().Types()) {
    if (kNamedTypes.contains(type.scaleTypeName)) named.insert(type.scaleTypeId);
  }
  std::vector<ScaleRow> chords = ScaleLibrary::WithPacks().Chords();
  std::erase_if(chords, [&named](const ScaleRow& row) { return named.contains(row.scaleTypeId); });
  return chords;
}

/// The symbols of a description that begins "Symbol 7#5 or aug7. ".
std::vector<std::string> Symbols(const std::string& description) {
  std::smatch sentence;
  if (!std::regex_search(description, sentence, std::regex("^Symbol ([^ ,]+(?:(?:, | or )[^ ,]+)*)\\. "))) {
    return {};
  }
  const std::string list = sentence[1];
  const std::regex separator(", | or ");
  return {std::sregex_token_iterator(list.begin(), list.end(), separator, -1), std::sregex_token_iterator()};
}

TEST(ChordGrammar, ReadsSymbolsAsNotes) {
  const std::map<std::string_view, std::string_view> known = {
      {"", "C E G"},
      {"-", "C Eb G"},
      {"5", "C G"},
      {"dim7", "C Eb Gb Bbb"},
      {"m7b5", "C Eb Gb Bb"},
      {"+", "C E G#"},
      {"sus", "C F G"},
      {"6/9", "C E G A D"},
      {"maj7#11", "C E G B F#"},
      {"mM7", "C Eb G B"},
      {"7b9#11", "C E G Bb Db F#"},
      {"7#5#9", "C E G# Bb D#"},
      {"9sus4", "C F G Bb D"},
      {"13", "C E G Bb D A"},
      {"13b9", "C E G Bb Db A"},
      {"m13", "C Eb G Bb D F A"},
      {"11", "C E G Bb D F"},
      {"7no5", "C E Bb"},
      {"dim7addM7", "C Eb Gb A B"},
      {"(b5)", "C E Gb"},
      {"7alt", "C E Bb Db D# Gb G#"},
      {"maj7sus4#5", "C F G# B"},
  };
  for (const auto& [symbol, notes] : known) {
    EXPECT_EQ(ToText(ChordFromSymbol(symbol)), ToText(FromNotes(notes))) << symbol;
  }
}

TEST(ChordGrammar, ReadsNamesAsNotes) {
  const std::map<std::string_view, std::string_view> known = {
      {"Minor triad", "C Eb G"},
      {"Power chord", "C G"},
      {"Major 6 added 9", "C E G A D"},
      {"Minor major 9", "C Eb G B D"},
      {"Diminished 7 added major 7", "C Eb Gb A B"},
      {"Dominant 13 suspended 4 flat 9", "C F G Bb Db A"},
      {"Major 13 sharp 11", "C E G B D F# A"},
      {"Dominant 7 sharp 9 no 5", "C E Bb D#"},
      {"Suspended 2 suspended 4", "C D F G"},
  };
  for (const auto& [words, notes] : known) {
    EXPECT_EQ(ToText(ChordFromWords(words)), ToText(FromNotes(notes))) << words;
  }
}

TEST(ChordGrammar, RefusesInvalidChords) {
  EXPECT_THROW(ChordFromSymbol("C7"), std::invalid_argument);
  EXPECT_THROW(ChordFromSymbol("8"), std::invalid_argument);
  EXPECT_THROW(ChordFromSymbol("7no9"), std::invalid_argument);
  EXPECT_THROW(ChordFromWords("Dominant seventh"), std::invalid_argument);
}

TEST(Chords, HaveTheNotesOfTheirNames) {
  EXPECT_GE(SpelledChords().size(), 170U);
  for (const ScaleRow& row : SpelledChords()) {
    EXPECT_EQ(ToText(FromPattern(row.scaleIntervals)), ToText(ChordFromWords(row.scaleName))) << row.scaleName;
  }
}

TEST(Chords, HaveTheNotesOfTheirSymbols) {
  for (const ScaleRow& row : SpelledChords()) {
    const std::vector<std::string> symbols = Symbols(row.scaleDescription);
    EXPECT_FALSE(symbols.empty()) << row.scaleName << ": " << row.scaleDescription;
    for (const std::string& symbol : symbols) {
      EXPECT_EQ(ToText(FromPattern(row.scaleIntervals)), ToText(ChordFromSymbol(symbol)))
          << row.scaleName << ", " << symbol;
    }
  }
}

TEST(Chords, EndTheBracketsOfTheirNameWithTheirSymbol) {
  int checked = 0;
  for (const ScaleRow& row : SpelledChords()) {
    std::smatch brackets;
    if (!std::regex_search(row.scaleName, brackets, std::regex("\\((?:.*, )?([^,]*)\\)$"))) continue;
    const std::vector<std::string> symbols = Symbols(row.scaleDescription);
    if (brackets[1] == "Hendrix chord") continue;  // Its symbol contains a wildcard of the search.
    EXPECT_NE(std::ranges::find(symbols, brackets[1].str()), symbols.end()) << row.scaleName;
    ++checked;
  }
  EXPECT_GE(checked, 25);
}

TEST(Chords, AreDescribedWithoutARoot) {
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Chords()) {
    EXPECT_EQ(row.scaleDescription.find("Written C"), std::string::npos) << row.scaleName;
  }
}

TEST(Chords, CalledInversionsStartOnAnotherNoteOfTheirChord) {
  const std::map<std::string, std::size_t> inversions = {{"first", 1}, {"second", 2}, {"third", 3}};
  const std::vector<ScaleRow> rows = ScaleLibrary::WithPacks().OfType("Inversions of triads and seventh chords");
  EXPECT_EQ(rows.size(), 3U * 2 + 5U * 3);
  for (const ScaleRow& row : rows) {
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(row.scaleName, parts, std::regex("(.+) (first|second|third) inversion")))
        << row.scaleName;
    const std::string& chord = ScaleLibrary::WithPacks().Pattern(parts[1].str());
    const std::size_t lowest = inversions.at(parts[2]);
    ASSERT_LT(lowest, chord.size()) << row.scaleName;
    EXPECT_EQ(row.scaleIntervals, chord.substr(lowest) + chord.substr(0, lowest)) << row.scaleName;
  }
}

TEST(Chords, CalledDyadsAreTheirIntervalAndItsComplement) {
  const std::map<std::string, int> intervals = {{"Minor third", 3}, {"Major third", 4}, {"Perfect fourth", 5},
                                                {"Tritone", 6},     {"Minor sixth", 8}, {"Major sixth", 9}};
  const std::vector<ScaleRow> rows = ScaleLibrary::WithPacks().OfType("Power chord and dyads");
  EXPECT_EQ(rows.size(), intervals.size() + 1);
  EXPECT_EQ(Notes("Power chord"), FromNotes("C G"));
  for (const auto& [name, semitones] : intervals) {
    EXPECT_EQ(ScaleLibrary::WithPacks().Pattern(name + " dyad"),
              std::to_string(semitones) + std::to_string(12 - semitones))
        << name;
  }
}

TEST(Chords, CalledMixedQuartalStackTheFourthsOfTheirName) {
  int checked = 0;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Chords()) {
    std::smatch parts;
    if (!std::regex_match(row.scaleName, parts, std::regex("Mixed quartal chord ([56](?:-[56])+)"))) continue;
    PitchClassSet stack = FromNotes("C");
    int top = 0;
    for (const char size : parts[1].str()) {
      if (size == '-') continue;
      top = (top + size - '0') % 12;
      stack.set(static_cast<std::size_t>(top));
    }
    EXPECT_EQ(ToText(FromPattern(row.scaleIntervals)), ToText(stack)) << row.scaleName;
    ++checked;
  }
  EXPECT_EQ(checked, 5);
}

TEST(Chords, ContainSeventhsAndNinthsWithAlteredFifths) {
  std::set<std::string> held;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Chords()) held.insert(ToText(FromPattern(row.scaleIntervals)));
  int checked = 0;
  for (const std::string quality : {"1 3 7", "1 3 b7", "1 b3 b7", "1 b3 7"}) {
    for (const std::string fifth : {" b5", " 5", " #5"}) {
      for (const std::string ninth : {"", " 9", " b9", " #9"}) {
        if (ninth == " #9" && quality.find("b3") != std::string::npos) continue;
        EXPECT_TRUE(held.contains(ToText(FromDegrees(quality + fifth + ninth)))) << quality << fifth << ninth;
        ++checked;
      }
    }
  }
  EXPECT_EQ(checked, 2 * 3 * 4 + 2 * 3 * 3);
}

TEST(Chords, ShareNoSymbol) {
  std::map<std::string, std::string> owner;
  for (const ScaleRow& row : SpelledChords()) {
    for (const std::string& symbol : Symbols(row.scaleDescription)) {
      const auto [known, isNew] = owner.try_emplace(symbol, row.scaleName);
      EXPECT_TRUE(isNew) << symbol << ": " << row.scaleName << " and " << known->second;
    }
  }
}

TEST(Chords, ThatAreInversionsOfEachOtherShareTheirNotes) {
  struct Inversion {
    std::string_view name;
    int semitones;
    std::string_view other;
  };
  constexpr Inversion kInversions[] = {
      {"Suspended 2", 7, "Suspended 4"},
      {"Major 6", 9, "Minor 7"},
      {"Minor 6", 9, "Minor 7 flat 5"},
      {"Minor sharp 5", 8, "Major triad"},
      {"Minor 7 sharp 5", 8, "Major added 9"},
      {"Major 6 suspended 4", 5, "Major added 9"},
      {"Major 6 flat 5", 9, "Minor 6"},
      {"Dominant 9 suspended 4", 7, "Minor 7 added 11"},
      {"Minor 7 flat 5 flat 13", 8, "Dominant 9"},
      {"Dominant 7 flat 5", 6, "Dominant 7 flat 5"},
      {"Slash chord flat II over I", 1, "Major 7"},
      {"Slash chord flat VII over I", 10, "Major added 9"},
  };
  for (const Inversion& inversion : kInversions) {
    const PitchClassSet other = Transposed(Notes(inversion.other), inversion.semitones);
    EXPECT_TRUE((Notes(inversion.name) & ~other).none() || (other & ~Notes(inversion.name)).none())
        << inversion.name << ": " << ToText(Notes(inversion.name)) << " and " << ToText(other);
  }
}

TEST(Chords, TritoneSubstitutesShareThirdAndSeventh) {
  for (const std::string_view name : {"Dominant 7", "Dominant 9", "Dominant 13", "Dominant 7 flat 9"}) {
    const PitchClassSet chord = Notes(name);
    EXPECT_TRUE((chord & Transposed(chord, 6))[4]) << name;
    EXPECT_TRUE((chord & Transposed(chord, 6))[10]) << name;
  }
  EXPECT_EQ(Notes("Dominant 7 flat 5 flat 9"), Transposed(Notes("Dominant 7"), 6).set(0));
}

TEST(Chords, StackKnownTriads) {
  const PitchClassSet major = Notes("Major triad");
  const PitchClassSet minor = Notes("Minor triad");
  EXPECT_EQ(Notes("Dominant 7 flat 9"), Transposed(Notes("Diminished 7"), 1).set(0));
  EXPECT_EQ(Notes("Diminished major 7"), Transposed(major, 11).set(0));
  EXPECT_EQ(Notes("Dominant 7 suspended 2"), Transposed(minor, 7).set(0));
  EXPECT_EQ(Notes("Major 7 suspended 2"), Transposed(major, 7).set(0));
  EXPECT_EQ(Notes("Major 9 suspended 4"), Transposed(Notes("Dominant 7"), 7).set(0));
  EXPECT_EQ(Notes("Major 7 sharp 9 sharp 11"), major | Transposed(major, 11));
  EXPECT_EQ(Notes("Dominant 13 flat 9"), Notes("Dominant 7") | Transposed(major, 9));
  EXPECT_EQ(Notes("Dominant 13 sharp 11"), Notes("Dominant 7") | Transposed(major, 2));
  EXPECT_EQ(Notes("Dominant 7 flat 9 sharp 11"), major | Transposed(major, 6));
  EXPECT_EQ(Notes("Elektra chord"), major | Transposed(major, 9));
  EXPECT_EQ(Notes("Minor 6 added 9 added 11"), minor | Transposed(minor, 2));
}

TEST(Chords, OfSevenNotesHaveTheNotesOfTheirScale) {
  EXPECT_EQ(Notes("Minor 13"), Notes("Dorian"));
  EXPECT_EQ(Notes("Minor major 13"), Notes("Jazz minor"));
  EXPECT_EQ(Notes("Major 13 sharp 11"), Notes("Lydian"));
  EXPECT_EQ(Notes("Dominant 13 sharp 11"), Notes("Lydian dominant"));
  EXPECT_EQ(Notes("Dominant 13 sharp 9 sharp 11"), Notes("Hungarian major"));
  EXPECT_EQ(Notes("Dominant 13 flat 5"), Notes("Prometheus"));
  EXPECT_EQ(Notes("Dominant 9 sharp 5 sharp 11"), Notes("Whole tone"));
  EXPECT_EQ(Notes("Dominant 7 altered"), Notes("Altered"));
}

/// The interval classes 1 to 6 of every pair of notes in the chord.
std::multiset<int> IntervalClasses(const PitchClassSet& chord) {
  std::multiset<int> classes;
  for (int low = 0; low < 12; ++low) {
    for (int high = low + 1; high < 12; ++high) {
      if (chord[static_cast<std::size_t>(low)] && chord[static_cast<std::size_t>(high)]) {
        classes.insert(high - low > 6 ? 12 - (high - low) : high - low);
      }
    }
  }
  return classes;
}

TEST(Chords, CalledAllIntervalContainEveryIntervalOnce) {
  const std::multiset<int> each = {1, 2, 3, 4, 5, 6};
  EXPECT_EQ(IntervalClasses(Notes("All-interval tetrachord")), each);
  EXPECT_EQ(IntervalClasses(Notes("Minor added flat 9")), each);
}

TEST(Chords, CalledAllTrichordContainEveryTrichord) {
  const PitchClassSet hexachord = Notes("All-trichord hexachord");
  std::set<std::string> kinds;
  for (unsigned long bits = 0; bits < 4096; ++bits) {
    const PitchClassSet part(bits);
    if (part.count() == 3 && (part & ~hexachord).none()) {
      kinds.insert(PrimeForm(part));
    }
  }
  EXPECT_EQ(kinds.size(), 12U);
}

}  // namespace
}  // namespace tonalith::content_tests
