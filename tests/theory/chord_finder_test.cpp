// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The order of the finder's answers and what each contains.

#include "theory/chord_finder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "theory/chord_symbol.h"
#include "theory/texts.h"

namespace tonalith::theory {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<ChordName> Found(std::string_view notes, std::size_t limit = kMostChordNames) {
  std::vector<NoteName> names;
  for (const std::string& word : tests::Words(notes)) names.push_back(tests::Name(word));
  return FindChordNames(Sounding::FromNames(names), limit);
}

/// The symbols, with missing (-) and added (+) notes.
std::vector<std::string> Symbols(std::string_view notes, std::size_t limit = kMostChordNames) {
  std::vector<std::string> symbols;
  for (const ChordName& name : Found(notes, limit)) {
    std::string text = name.Symbol();
    for (const NoteName note : name.missing) text += " -" + tests::NamesText({note});
    for (const NoteName note : name.added) text += " +" + tests::NamesText({note});
    symbols.push_back(text);
  }
  return symbols;
}

ChordGroup GroupOfFirst(std::string_view notes) { return Found(notes, 1).front().group; }

TEST(ChordTypes, EachSymbolIsOfItsOwnNotes) {
  std::set<std::string> words;
  for (const ChordType& type : ChordTypes()) {
    const Parsed<Formula> formula = ParseChordSuffix(type.suffix);
    ASSERT_TRUE(formula) << type.suffix;
    EXPECT_EQ(type.formula, *formula);
    EXPECT_EQ(WriteChordSuffix(*formula), type.suffix);
    EXPECT_TRUE(words.insert(std::string(type.words)).second) << type.words;
  }
}

TEST(ChordFinder, TheOrderOfTheGroups) {
  EXPECT_EQ(GroupOfFirst("C E G"), ChordGroup::kRootPosition);
  EXPECT_EQ(GroupOfFirst("C E G Bb"), ChordGroup::kRootPosition);
  EXPECT_EQ(GroupOfFirst("C E G Bb D"), ChordGroup::kCommonOnRoot);
  EXPECT_EQ(GroupOfFirst("E G C"), ChordGroup::kInvertedTriad);
  EXPECT_EQ(GroupOfFirst("C E G A"), ChordGroup::kEqualNotes);
  EXPECT_EQ(GroupOfFirst("E G Bb C"), ChordGroup::kInvertedSeventh);
  EXPECT_EQ(GroupOfFirst("C E Bb D"), ChordGroup::kFifthOmitted);
  EXPECT_EQ(GroupOfFirst("D G C E"), ChordGroup::kForeignBass);
  EXPECT_EQ(GroupOfFirst("C E Gb"), ChordGroup::kRare);
  EXPECT_EQ(GroupOfFirst("C Db D"), ChordGroup::kNearest);
}

TEST(ChordFinder, AnInvertedTriadPrecedesAnAlteredChordOnTheBass) {
  EXPECT_THAT(Symbols("E G C"), ElementsAre("C/E", "Em#5"));
  for (const char* const suffix : {"", "m", "dim"}) {
    for (int root = 0; root < kSemitonesPerOctave; ++root) {
      const PitchClassSet notes = ParseChordSuffix(suffix)->Set().Transposed(root);
      for (const PitchClass bass : notes.Members()) {
        const std::vector<ChordName> names = FindChordNames({notes, bass, {}}, 1);
        ASSERT_EQ(names.size(), 1U);
        EXPECT_EQ(names[0].type->suffix, suffix);
        EXPECT_EQ(names[0].root.PitchClass().Semitones(), root);
        EXPECT_EQ(names[0].bass.has_value(), bass.Semitones() != root);
      }
    }
  }
}

TEST(ChordFinder, TheBassDecidesBetweenEqualNotesAndTheOtherNameFollows) {
  EXPECT_THAT(Symbols("C E G A", 2), ElementsAre("C6", "Am7/C"));
  EXPECT_THAT(Symbols("A C E G", 2), ElementsAre("Am7", "C6/A"));
  EXPECT_THAT(Symbols("F Ab C D", 2), ElementsAre("Fm6", "Dm7b5/F"));
  EXPECT_THAT(Symbols("D F Ab C", 2), ElementsAre("Dm7b5", "Fm6/D"));
  EXPECT_THAT(Symbols("C D G", 2), ElementsAre("Csus2", "Gsus4/C"));
  EXPECT_THAT(Symbols("G C D", 2), ElementsAre("Gsus4", "Csus2/G"));
}

TEST(ChordFinder, AMissingFifthIsListed) {
  EXPECT_THAT(Symbols("C E Bb", 1), ElementsAre("C7 -G"));
  EXPECT_THAT(Symbols("C Bb E A", 1), ElementsAre("C13 -D -G"));
  EXPECT_THAT(Symbols("E G# D G", 1), ElementsAre("E7#9 -B"));
}

TEST(ChordFinder, WithoutAnExactNameTheNearestSayWhatDiffers) {
  EXPECT_THAT(Symbols("C Bb", 1), ElementsAre("C7 -E -G"));
  EXPECT_THAT(Symbols("C E G F# C#", 1), ElementsAre("C7b9#11 -Bb"));
  for (const ChordName& name : Found("C Db D Eb E")) {
    EXPECT_EQ(name.group, ChordGroup::kNearest);
    EXPECT_FALSE(name.missing.empty() && name.added.empty());
  }
}

TEST(ChordFinder, TheTypedSpellingDecides) {
  EXPECT_THAT(Symbols("Db F Ab", 1), ElementsAre("Db"));
  EXPECT_THAT(Symbols("C# E# G#", 1), ElementsAre("C#"));
  EXPECT_THAT(Symbols("Bb Gb Db", 1), ElementsAre("Gb/Bb"));
  EXPECT_THAT(Symbols("A# F# C#", 1), ElementsAre("F#/A#"));
  EXPECT_THAT(Symbols("F# C E G", 1), ElementsAre("C/F#"));
  EXPECT_THAT(Symbols("Gb C E G", 1), ElementsAre("C/Gb"));
}

TEST(ChordFinder, PitchesAreNamedFromTheLowest) {
  const std::vector<Pitch> pitches = {Pitch(67), Pitch(60), Pitch(52)};
  EXPECT_EQ(FindChordNames(Sounding::FromPitches(pitches), 1).front().Symbol(), "C/E");
  EXPECT_EQ(FindChordNames(Sounding::FromPitches(std::vector{Pitch(54), Pitch(62), Pitch(57)}), 1).front().Symbol(),
            "D/F#");
}

TEST(ChordFinder, NamesAreWrittenInEveryStyle) {
  const ChordName name = Found("D F# Bb C", 1).front();
  EXPECT_EQ(name.Symbol(), "D7#5");
  EXPECT_EQ(name.FullName(), "D dominant 7 sharp 5");
  const ChordName inversion = Found("F Bb D", 1).front();
  EXPECT_EQ(inversion.FullName(), "Bb major over F");
  EXPECT_EQ(inversion.Symbol({NoteLanguage::kGerman, AccidentalSigns::kSyllables}), "B/F");
  EXPECT_EQ(inversion.Symbol({NoteLanguage::kSolfege, AccidentalSigns::kUnicode}), "Si\u266D/Fa");
}

TEST(ChordFinder, TheLimitHolds) {
  EXPECT_EQ(Found("C Db D", 3).size(), 3U);
  EXPECT_EQ(Found("C Bb", 1000).size(), kMostChordNames);
  EXPECT_THAT(Found("C", 0), IsEmpty());
  EXPECT_THAT(FindChordNames({}), IsEmpty());
}

/// The notes that an answer claims to sound.
PitchClassSet NotesOf(const ChordName& name) {
  PitchClassSet notes = name.type->formula.Set().Transposed(tests::PitchClassOf(name.root));
  for (const NoteName missing : name.missing) {
    EXPECT_TRUE(notes.Contains(PitchClass(tests::PitchClassOf(missing))));
    notes.Remove(PitchClass(tests::PitchClassOf(missing)));
  }
  for (const NoteName added : name.added) {
    EXPECT_FALSE(notes.Contains(PitchClass(tests::PitchClassOf(added))));
    notes.Add(PitchClass(tests::PitchClassOf(added)));
  }
  notes.Add(PitchClass(tests::PitchClassOf(name.bass.value_or(name.root))));
  return notes;
}

TEST(ChordFinder, EverySetHasANameWithExactlyItsNotesOverEveryBass) {
  for (unsigned bits = 1; bits < PitchClassSet::kCount; ++bits) {
    const PitchClassSet notes = PitchClassSet::FromBits(bits);
    for (const PitchClass bass : notes.Members()) {
      const std::vector<ChordName> names = FindChordNames({notes, bass, {}}, 2);
      ASSERT_FALSE(names.empty()) << bits;
      for (const ChordName& name : names) {
        ASSERT_EQ(NotesOf(name), notes) << bits << ": " << name.Symbol();
        ASSERT_EQ(tests::PitchClassOf(name.bass.value_or(name.root)), bass.Semitones()) << name.Symbol();
      }
      ASSERT_TRUE(names.size() < 2 || names[0].group <= names[1].group);
    }
  }
}

}  // namespace
}  // namespace tonalith::theory
