// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The rules of positions, each checked on its own, for every instrument of the catalogue.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "instrument/instruments.h"
#include "instrument/positions.h"

namespace tonalith::instrument::tests {
namespace {

/// Notes of the neck as string and fret.
using Notes = std::set<std::pair<int, int>>;

const std::vector<std::string>& Patterns() {
  static const std::vector<std::string> patterns = {"2212221",      "2122131",  "32232", "22323",
                                                    "222222",       "21212121", "435",   "3333",
                                                    "111111111111", "1312131",  "75",    "3121212"};
  return patterns;
}

std::string Name(const Instrument& instrument, const Scale& scale, const Position& position) {
  return instrument.Name() + ", root " + std::to_string(scale.root.Semitones()) + ", set " +
         std::to_string(scale.notes.Bits()) + ": " + Line(position);
}

/// The indices of the strings from the nut, by pitch; of strings in unison only the last one.
std::vector<int> LongStrings(const Instrument& instrument) {
  std::vector<int> strings;
  for (int i = 0; i < instrument.Strings(); ++i) {
    if (instrument.Description().strings[static_cast<std::size_t>(i)].firstFret == 0) strings.push_back(i);
  }
  std::stable_sort(strings.begin(), strings.end(),
                   [&](int a, int b) { return instrument.PitchAt(a, 0)->Midi() < instrument.PitchAt(b, 0)->Midi(); });
  std::vector<int> different;
  for (const int string : strings) {
    if (!different.empty() && instrument.PitchAt(different.back(), 0) == instrument.PitchAt(string, 0)) {
      different.pop_back();
    }
    different.push_back(string);
  }
  return different;
}

int WidestInterval(const Instrument& instrument) {
  const std::vector<int> strings = LongStrings(instrument);
  int widest = 0;
  for (std::size_t i = 1; i < strings.size(); ++i) {
    widest =
        std::max(widest, instrument.PitchAt(strings[i], 0)->Midi() - instrument.PitchAt(strings[i - 1], 0)->Midi());
  }
  return widest;
}

/// The pitches of a position, string by string in the order of pitch. Every note must be on the neck and in the scale.
std::vector<int> PitchesOfPosition(const Instrument& instrument, const Scale& scale, const Position& position) {
  std::vector<int> pitches;
  for (const int string : LongStrings(instrument)) {
    for (const int fret : position.frets.at(static_cast<std::size_t>(string))) {
      const auto pitch = instrument.PitchAt(string, fret);
      EXPECT_TRUE(pitch && scale.notes.Contains(pitch->Class())) << Name(instrument, scale, position);
      pitches.push_back(pitch ? pitch->Midi() : -1);
    }
  }
  return pitches;
}

void ExpectNoGapNorRepetition(const Instrument& instrument, const Scale& scale, const Position& position) {
  const std::vector<int> pitches = PitchesOfPosition(instrument, scale, position);
  ASSERT_FALSE(pitches.empty());
  std::vector<int> expected;
  for (int pitch = pitches.front(); pitch <= pitches.back(); ++pitch) {
    if (scale.notes.Contains(theory::PitchClass(pitch))) expected.push_back(pitch);
  }
  ASSERT_EQ(pitches, expected) << Name(instrument, scale, position);
}

std::pair<int, int> FretsOf(const Position& position) {
  int lowest = Instrument::kMostFrets;
  int highest = 0;
  for (const auto& string : position.frets) {
    for (const int fret : string) {
      lowest = std::min(lowest, fret);
      highest = std::max(highest, fret);
    }
  }
  return {lowest, highest};
}

void ExpectTheHandReachesAll(const Instrument& instrument, const Scale& scale, const Position& position) {
  const auto [lowest, highest] = FretsOf(position);
  // Four frets and a stretch of one; between strings wider than a fourth, as many as their interval needs.
  const int frets = 4 + std::max(1, WidestInterval(instrument) - 4);
  EXPECT_LE(highest - lowest + 1, frets) << Name(instrument, scale, position);
}

/// The notes of the neck that have to be in a box.
Notes NotesToCover(const Instrument& instrument, const Scale& scale) {
  Notes notes;
  for (const int string : LongStrings(instrument)) {
    for (int fret = 0; fret <= instrument.Frets(); ++fret) {
      if (scale.notes.Contains(instrument.PitchAt(string, fret)->Class())) notes.insert({string, fret});
    }
  }
  return notes;
}

void ExpectTheNeckIsCovered(const Instrument& instrument, const Scale& scale, const std::vector<Position>& positions) {
  Notes missing = NotesToCover(instrument, scale);
  for (const Position& position : positions) {
    for (int string = 0; string < instrument.Strings(); ++string) {
      for (const int fret : position.frets.at(static_cast<std::size_t>(string))) missing.erase({string, fret});
    }
  }
  for (const auto& [string, fret] : missing) {
    ADD_FAILURE() << instrument.Name() << ", set " << scale.notes.Bits() << ": string " << string << ", fret " << fret;
  }
}

/// Whether the lowest string has the root on one of its frets.
bool IsRootOnNeck(const Instrument& instrument, const Scale& scale) {
  const int lowest = LongStrings(instrument).front();
  return instrument.PitchAt(lowest, 0)->Class().SemitonesUpTo(scale.root) <= instrument.Frets();
}

bool HasRootOnTheLowestString(const Instrument& instrument, const Scale& scale, const Position& position) {
  const int lowest = LongStrings(instrument).front();
  const auto& frets = position.frets.at(static_cast<std::size_t>(lowest));
  return std::any_of(frets.begin(), frets.end(),
                     [&](int fret) { return instrument.PitchAt(lowest, fret)->Class() == scale.root; });
}

void ExpectBoxes(const Instrument& instrument, const Scale& scale) {
  const std::vector<Position> positions = Boxes(instrument, scale);
  std::set<std::vector<std::vector<int>>> seen;
  for (const Position& position : positions) {
    ASSERT_EQ(position.frets.size(), static_cast<std::size_t>(instrument.Strings()));
    ExpectNoGapNorRepetition(instrument, scale, position);
    ExpectTheHandReachesAll(instrument, scale, position);
    EXPECT_TRUE(seen.insert(position.frets).second) << "twice: " << Name(instrument, scale, position);
  }
  ExpectTheNeckIsCovered(instrument, scale, positions);
  ASSERT_FALSE(positions.empty()) << instrument.Name();
  EXPECT_EQ(positions.front().number, 1) << instrument.Name();
  for (const Position& position : positions) {
    EXPECT_TRUE(position.number != 1 || !IsRootOnNeck(instrument, scale) ||
                HasRootOnTheLowestString(instrument, scale, position))
        << Name(instrument, scale, position);
  }
}

TEST(PositionsByRules, BoxesOfEveryInstrumentKeepAllRules) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    for (const std::string& pattern : Patterns()) {
      for (const char* root : {"C", "D", "F", "A"}) ExpectBoxes(entry.instrument, ScaleOf(root, pattern));
    }
  }
}

TEST(PositionsByRules, BoxesOfMajorKeepAllRulesInEveryKeyAndWithACapo) {
  for (int root = 0; root < 12; ++root) {
    const Scale scale{theory::PitchClass(root), theory::PitchClassSet::FromPattern("2212221")->Transposed(root)};
    for (const int capo : {0, 1, 7}) {
      InstrumentSetup setup = DefaultInstrument().Description();
      setup.capo = capo;
      const Instrument guitar = Instrument::Make(setup).value();
      ExpectBoxes(guitar, scale);
      const std::vector<Position> positions = Boxes(guitar, scale);
      EXPECT_EQ(positions.back().number, 5) << "five boxes in every key";
    }
  }
}

void ExpectNotesPerString(const Instrument& instrument, const Scale& scale, std::size_t count) {
  std::map<int, int> starts;
  for (const Position& position : NotesPerString(instrument, scale, static_cast<int>(count))) {
    ExpectNoGapNorRepetition(instrument, scale, position);
    bool hasEnded = false;
    for (const int string : LongStrings(instrument)) {
      const auto& frets = position.frets.at(static_cast<std::size_t>(string));
      EXPECT_TRUE(frets.empty() || (!hasEnded && frets.size() == count)) << Name(instrument, scale, position);
      hasEnded = hasEnded || frets.empty();
    }
    const int first = PitchesOfPosition(instrument, scale, position).front();
    const int note = (first - scale.root.Semitones() + 24) % 12;
    const auto [start, isNew] = starts.insert({position.number, note});
    EXPECT_TRUE(isNew || start->second == note) << "one number for two notes: " << Name(instrument, scale, position);
    EXPECT_TRUE(position.number != 1 || note == 0 || !scale.notes.Contains(scale.root))
        << Name(instrument, scale, position);
  }
}

TEST(PositionsByRules, NotesPerStringOfEveryInstrumentKeepAllRules) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    for (const std::string& pattern : Patterns()) {
      for (const std::size_t count : {1, 2, 3, 4}) ExpectNotesPerString(entry.instrument, ScaleOf("E", pattern), count);
    }
  }
}

TEST(PositionsByRules, EveryDegreeHasAPositionOfThreeNotesPerString) {
  for (int root = 0; root < 12; ++root) {
    const Scale scale{theory::PitchClass(root), theory::PitchClassSet::FromPattern("2212221")->Transposed(root)};
    std::set<int> numbers;
    for (const Position& position : NotesPerString(DefaultInstrument(), scale, 3)) numbers.insert(position.number);
    EXPECT_EQ(numbers, (std::set<int>{1, 2, 3, 4, 5, 6, 7})) << root;
  }
}

TEST(PositionsByRules, AnOctaveRunsFromRootToRootInOneHand) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    for (const std::string& pattern : Patterns()) {
      const Scale scale = ScaleOf("G", pattern);
      int number = 0;
      for (const Position& position : OneOctave(entry.instrument, scale)) {
        EXPECT_EQ(position.number, ++number);
        ExpectNoGapNorRepetition(entry.instrument, scale, position);
        ExpectTheHandReachesAll(entry.instrument, scale, position);
        const std::vector<int> pitches = PitchesOfPosition(entry.instrument, scale, position);
        EXPECT_EQ(theory::PitchClass(pitches.front()), scale.root);
        EXPECT_EQ(pitches.back(), pitches.front() + 12);
      }
    }
  }
}

TEST(PositionsByRules, OpenPositionsAndSingleStringsAreOnTheNeck) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    const Scale scale = ScaleOf("D", "2212221");
    for (const Position& position : OpenPosition(entry.instrument, scale)) {
      ExpectNoGapNorRepetition(entry.instrument, scale, position);
      EXPECT_LE(FretsOf(position).second, 4 + std::max(0, WidestInterval(entry.instrument) - 5)) << Line(position);
    }
    for (const Position& position : SingleStrings(entry.instrument, scale)) {
      const auto string = static_cast<std::size_t>(position.number - 1);
      EXPECT_FALSE(position.frets.at(string).empty());
      for (std::size_t i = 0; i < position.frets.size(); ++i) EXPECT_TRUE(i == string || position.frets[i].empty());
    }
  }
}

}  // namespace
}  // namespace tonalith::instrument::tests
