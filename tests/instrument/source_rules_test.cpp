// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Every instrument and known shape states its source: a work with its year, or a rule, which is calculated here.

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <regex>
#include <vector>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

using Pitches = std::vector<int>;

const std::regex& Work() {
  static const std::regex work("[A-Z][^,]*, .+ (1[5-9]|20)[0-9][0-9]");
  return work;
}

Pitches PitchesOfEntry(const CatalogueEntry& entry) {
  Pitches pitches;
  for (int string = 0; string < entry.instrument.Strings(); ++string) {
    pitches.push_back(entry.instrument.Open(string).Midi());
  }
  return pitches;
}

const CatalogueEntry* ByName(const std::string& name) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    if (entry.instrument.Name() == name) return &entry;
  }
  return nullptr;
}

int Midi(const std::string& pitch) { return ParseString(pitch).value().open.Midi(); }

/// "Guitar, open G, string 6 to C2": the strings are numbered from the last one.
void Retune(Pitches& pitches, const std::string& changes) {
  const std::regex change("string ([0-9]+) to ([A-G][#b]?[0-9])");
  for (auto found = std::sregex_iterator(changes.begin(), changes.end(), change); found != std::sregex_iterator();
       ++found) {
    pitches.at(pitches.size() - std::stoul((*found)[1])) = Midi((*found)[2]);
  }
}

/// The pitches by a rule; empty if the rule is unknown.
Pitches ByRule(const std::string& rule, std::size_t strings) {
  std::smatch part;
  if (std::regex_match(rule, part, std::regex("steps of ([0-9]+) semitones from (.+)"))) {
    Pitches pitches;
    for (std::size_t i = 0; i < strings; ++i)
      pitches.push_back(Midi(part[2]) + std::stoi(part[1]) * static_cast<int>(i));
    return pitches;
  }
  const std::regex based(
      "(.+), (all strings ([0-9]+) semitones? (lower|higher)|all strings the same|string [0-9].*|"
      "a string added below at (.+)|strings 4 to 1|the second string of each course)");
  if (!std::regex_match(rule, part, based)) return {};
  const CatalogueEntry* base = ByName(part[1]);
  if (base == nullptr) return {};
  Pitches pitches = PitchesOfEntry(*base);
  const std::string change = part[2];
  if (part[3].matched) {
    const int interval = std::stoi(part[3]) * (part[4] == "lower" ? -1 : 1);
    for (int& pitch : pitches) pitch += interval;
  } else if (part[5].matched) {
    pitches.insert(pitches.begin(), Midi(part[5]));
  } else if (change == "strings 4 to 1") {
    pitches.erase(pitches.begin(), pitches.end() - 4);
  } else if (change == "the second string of each course") {
    for (std::size_t i = 0; i < pitches.size(); ++i) {
      pitches[i] = base->instrument.Description().strings[i].companion.value().Midi();
    }
  } else if (change != "all strings the same") {
    Retune(pitches, change);
  }
  return pitches;
}

TEST(SourcesOfInstruments, NameAWorkOrARule) {
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    std::smatch part;
    if (!std::regex_match(entry.source, part, std::regex("by construction: (.+)"))) {
      EXPECT_TRUE(std::regex_match(entry.source, Work())) << entry.id << ": " << entry.source;
      continue;
    }
    const Pitches expected = ByRule(part[1], static_cast<std::size_t>(entry.instrument.Strings()));
    EXPECT_EQ(PitchesOfEntry(entry), expected) << entry.id << ": " << entry.source;
  }
}

TEST(SourcesOfInstruments, TheRulesAreNotEmpty) {
  EXPECT_EQ(ByRule("steps of 5 semitones from E2", 3), (Pitches{40, 45, 50}));
  EXPECT_EQ(ByRule("Guitar, open G, string 6 to C2", 6).front(), 36);
  EXPECT_TRUE(ByRule("Guitar, open G, something else", 6).empty());
  EXPECT_TRUE(ByRule("Zither, all strings the same", 6).empty());
}

TEST(SourcesOfKnownShapes, NameAWorkOrAShapeThatIsMoved) {
  for (const KnownShape& shape : BuiltInKnownShapes()) {
    std::smatch part;
    if (!std::regex_match(shape.source, part, std::regex("by construction: ([A-G][#b]?) moved up ([0-9]+)"))) {
      EXPECT_TRUE(std::regex_match(shape.source, Work())) << shape.source;
      continue;
    }
    const theory::PitchClass root = Note(part[1]);
    const int steps = std::stoi(part[2]);
    EXPECT_EQ(root.Up(steps), shape.chord.root);
    const auto isBase = [&](const KnownShape& base) {
      if (base.instrumentId != shape.instrumentId || base.chord.root != root) return false;
      Frets moved = base.frets;
      for (Fret& fret : moved) {
        if (fret) *fret += steps;
      }
      return base.chord.formula == shape.chord.formula && !base.chord.bass && moved == shape.frets;
    };
    EXPECT_TRUE(std::any_of(BuiltInKnownShapes().begin(), BuiltInKnownShapes().end(), isBase))
        << ToText(shape.frets) << ": " << shape.source;
  }
}

}  // namespace
}  // namespace tonalith::instrument::tests
