// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scales by their notes, and the chords of a scale.

#include "theory/scale_finder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "theory/scale_chords.h"
#include "theory/spelling.h"
#include "theory/texts.h"

namespace tonalith::theory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::FormulaOf;

const std::vector<ScaleEntry>& SmallLibrary() {
  static const std::vector<ScaleEntry> entries = [] {
    const std::vector<std::tuple<std::string, std::string, int>> rows = {
        {"major", "1 2 3 4 5 6 7", 0},          {"minor", "1 2 b3 4 5 b6 b7", 0},
        {"Dorian", "1 2 b3 4 5 6 b7", 0},       {"harmonic minor", "1 2 b3 4 5 b6 7", 0},
        {"minor pentatonic", "1 b3 4 5 b7", 0}, {"major pentatonic", "1 2 3 5 6", 0},
        {"whole tone", "1 2 3 #4 #5 b7", 1},    {"Bilaval", "1 2 3 4 5 6 7", 2}};
    std::vector<ScaleEntry> made;
    for (const auto& [name, degrees, rarity] : rows) made.push_back({name, FormulaOf(degrees).Set(), rarity});
    return made;
  }();
  return entries;
}

PitchClassSet Notes(std::string_view names) {
  PitchClassSet set;
  for (const std::string& name : tests::Words(names)) set.Add(PitchClass(tests::PitchClassOf(tests::Name(name))));
  return set;
}

/// "C major, A minor (+2)" for each group.
std::vector<std::string> Texts(const ScaleIndex& index, const std::vector<ScaleGroup>& groups) {
  std::vector<std::string> texts;
  for (const ScaleGroup& group : groups) {
    std::string text;
    for (const ScaleMatch& match : group.matches) {
      text += (text.empty() ? "" : ", ") + tests::NamesText({SharpName(match.tonic)}) + " " +
              index.Entries()[match.entry].name;
    }
    texts.push_back(text + (group.extra.IsEmpty() ? "" : " +" + std::to_string(group.extra.Size())));
  }
  return texts;
}

TEST(ScaleFinder, GroupsEntriesWithTheSameNotes) {
  const ScaleIndex index(SmallLibrary());
  EXPECT_THAT(Texts(index, index.Containing(Notes("C D E F G A B"), PitchClass(0))),
              ElementsAre("C major, A minor, D Dorian, C Bilaval"));
}

TEST(ScaleFinder, TheBassPrecedesAmongEquallyCommonEntries) {
  const ScaleIndex index(SmallLibrary());
  EXPECT_THAT(Texts(index, index.Containing(Notes("A B C D E F G"), PitchClass(9))),
              ElementsAre("A minor, C major, D Dorian, C Bilaval"));
  EXPECT_EQ(Texts(index, index.Containing(Notes("A C D E G"), PitchClass(9)))[0],
            "A minor pentatonic, C major pentatonic");
}

TEST(ScaleFinder, FewestExtraNotesComeFirst) {
  const ScaleIndex index(SmallLibrary());
  const std::vector<ScaleGroup> groups = index.Containing(Notes("A C E G#"), PitchClass(9));
  EXPECT_THAT(Texts(index, groups), ElementsAre("A harmonic minor +3", "C# harmonic minor +3"));
  const std::vector<std::string> texts = Texts(index, index.Containing(Notes("C D E G A"), PitchClass(0)));
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_EQ(texts[0], "C major pentatonic, A minor pentatonic");
  EXPECT_EQ(texts[1], "C major, A minor, D Dorian, C Bilaval +2");
}

TEST(ScaleFinder, WhatIsContainedInAScaleIsFoundToo) {
  const ScaleIndex index(SmallLibrary());
  EXPECT_THAT(Texts(index, index.ContainedIn(Notes("C D E F G A"), PitchClass(0))),
              ElementsAre("C major pentatonic, A minor pentatonic", "D minor pentatonic, F major pentatonic"));
}

TEST(ScaleFinder, NoNotesFindNothing) {
  const ScaleIndex index(SmallLibrary());
  EXPECT_THAT(index.Containing({}, PitchClass(0)), IsEmpty());
  EXPECT_THAT(index.ContainedIn({}, PitchClass(0)), IsEmpty());
  EXPECT_THAT(ScaleIndex({}).Containing(Notes("C"), PitchClass(0)), IsEmpty());
}

TEST(ScaleFinder, EntriesWithoutTheirTonicAreIgnored) {
  const ScaleIndex index({{"no tonic", PitchClassSet{2, 4}, 0}, {"empty", {}, 0}, {"fifth", PitchClassSet{0, 7}, 0}});
  EXPECT_THAT(Texts(index, index.Containing(Notes("C G"), PitchClass(0))), ElementsAre("C fifth"));
}

/// All entries on all tonics, one by one: the finder without its index.
std::map<int, int> CountsByExtraNotes(const std::vector<ScaleEntry>& entries, PitchClassSet notes) {
  std::map<int, int> counts;
  for (const ScaleEntry& entry : entries) {
    for (int tonic = 0; tonic < 12; ++tonic) {
      unsigned bits = 0;
      for (int note = 0; note < 12; ++note) {
        if ((entry.pattern.Bits() >> note & 1U) != 0) bits |= 1U << (note + tonic) % 12;
      }
      if ((notes.Bits() & ~bits) == 0) ++counts[PitchClassSet::FromBits(bits).Size() - notes.Size()];
    }
  }
  return counts;
}

std::vector<ScaleEntry> RandomLibrary(std::size_t size) {
  std::mt19937 random(7);
  std::vector<ScaleEntry> entries;
  for (std::size_t i = 0; i < size; ++i) {
    entries.push_back({"scale " + std::to_string(i), PitchClassSet::FromBits(static_cast<unsigned>(random()) | 1U),
                       static_cast<int>(i % 3)});
  }
  return entries;
}

TEST(ScaleFinder, FindsWhatASearchThroughAllEntriesFinds) {
  const std::vector<ScaleEntry> entries = RandomLibrary(150);
  const ScaleIndex index(entries);
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 13) {
    const PitchClassSet notes = PitchClassSet::FromBits(bits);
    std::map<int, int> found;
    int total = 0;
    int last = 0;
    for (const ScaleGroup& group : index.Containing(notes, notes.Members().front())) {
      ASSERT_TRUE(group.notes.Contains(notes));
      ASSERT_GE(group.extra.Size(), last);
      last = group.extra.Size();
      found[group.extra.Size()] += static_cast<int>(group.matches.size());
      total += static_cast<int>(group.matches.size());
      for (const ScaleMatch& match : group.matches) {
        ASSERT_EQ(entries[match.entry].pattern.Transposed(match.tonic.Semitones()), group.notes);
      }
    }
    // A long answer is cut off.
    if (total == static_cast<int>(ScaleIndex::kMostMatches)) continue;
    ASSERT_EQ(found, CountsByExtraNotes(entries, notes)) << bits;
  }
}

TEST(ScaleFinder, TheLimitCountsMatches) {
  const ScaleIndex index(RandomLibrary(5000));
  std::size_t matches = 0;
  for (const ScaleGroup& group : index.Containing(Notes("C"), PitchClass(0), 10)) matches += group.matches.size();
  EXPECT_EQ(matches, 10U);
  matches = 0;
  for (const ScaleGroup& group : index.Containing(Notes("C"), PitchClass(0), 100'000)) matches += group.matches.size();
  EXPECT_EQ(matches, ScaleIndex::kMostMatches);
}

/// "I C Cmaj7" for each degree.
std::vector<std::string> ChordTexts(std::string_view tonic, std::string_view degrees) {
  std::vector<std::string> texts;
  for (const ScaleChord& chord : ChordsOfScale(tests::Name(tonic), FormulaOf(degrees))) {
    texts.push_back(chord.Numeral() + " " + chord.TriadSymbol() + " " + chord.SeventhSymbol());
  }
  return texts;
}

TEST(ScaleChords, TheChordsOfMajorAndMinorAreThoseOfTextbooks) {
  EXPECT_THAT(ChordTexts("C", "1 2 3 4 5 6 7"), ElementsAre("I C Cmaj7", "ii Dm Dm7", "iii Em Em7", "IV F Fmaj7",
                                                            "V G G7", "vi Am Am7", "vii\u00B0 Bdim Bm7b5"));
  EXPECT_THAT(ChordTexts("A", "1 2 b3 4 5 b6 7"),
              ElementsAre("i Am Am(maj7)", "ii\u00B0 Bdim Bm7b5", "bIII+ Caug Cmaj7#5", "iv Dm Dm7", "V E E7",
                          "bVI F Fmaj7", "vii\u00B0 G#dim G#dim7"));
  EXPECT_THAT(ChordTexts("F#", "1 2 b3 4 5 b6 b7"), ElementsAre("i F#m F#m7", "ii\u00B0 G#dim G#m7b5", "bIII A Amaj7",
                                                                "iv Bm Bm7", "v C#m C#m7", "bVI D Dmaj7", "bVII E E7"));
}

TEST(ScaleChords, OtherScalesHaveTheChordsWithinThem) {
  EXPECT_THAT(ChordTexts("A", "1 b3 4 5 b7"),
              ElementsAre("i Am Am7", "bIII C C6", "IV Dsus4 D7sus4", "V  ", "bVII Gsus4 "));
  EXPECT_THAT(ChordTexts("C", "1 2 3 #4 #5 b7")[1], "II+ Daug D7#5");
  EXPECT_THAT(ChordTexts("C", "1 2 3 4 5 6 b7 7")[2], "iii\u00B0 Edim Em7b5");
}

TEST(ScaleChords, EveryChordIsWithinItsScale) {
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 2) {
    const Formula formula = DeriveScaleFormula(PitchClassSet::FromBits(bits));
    for (const ScaleChord& chord : ChordsOfScale({}, formula)) {
      for (const ChordType* type : {chord.triad, chord.seventh}) {
        if (type == nullptr) continue;
        const PitchClassSet notes = type->formula.Set().Transposed(tests::PitchClassOf(chord.root));
        ASSERT_TRUE(formula.Set().Contains(notes)) << formula.ToText() << " " << chord.TriadSymbol();
      }
      if (chord.triad == nullptr || chord.seventh == nullptr) continue;
      ASSERT_TRUE(chord.seventh->formula.Set().Contains(chord.triad->formula.Set())) << chord.SeventhSymbol();
    }
  }
}

TEST(ScaleChords, ScalesFitOverChords) {
  const ScaleIndex index(SmallLibrary());
  const std::vector<ChordSymbol> chords = {*ParseChordSymbol("Dm7"), *ParseChordSymbol("G7"),
                                           *ParseChordSymbol("Cmaj7")};
  EXPECT_THAT(Texts(index, ScalesOver(index, chords)), ElementsAre("D Dorian, C major, A minor, C Bilaval"));
  EXPECT_THAT(ScalesOver(index, {}), IsEmpty());
}

}  // namespace
}  // namespace tonalith::theory
