// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The finder against the names that guitar methods print, in named_chords.txt.

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <string>
#include <vector>

#include "theory/chord_finder.h"
#include "theory/texts.h"

namespace tonalith::theory {
namespace {

struct Case {
  std::string notes;
  std::string name;
};

std::vector<Case> ReadCases() {
  std::ifstream file(TONALITH_SOURCE_DIR "/tests/theory/named_chords.txt");
  std::vector<Case> cases;
  for (std::string line; std::getline(file, line);) {
    const std::size_t tab = line.find('\t');
    if (line.starts_with('#') || tab == std::string::npos) continue;
    cases.push_back({line.substr(0, tab), line.substr(tab + 1)});
  }
  return cases;
}

/// The frets of "x32010" or "x-10-12-12-12-10", from the lowest string; -1 for a muted one. Empty for notes.
std::vector<int> Frets(const std::string& text) {
  if (text.find(' ') != std::string::npos) return {};
  std::string spaced;
  const bool hyphens = text.find('-') != std::string::npos;
  for (const char c : text) spaced += hyphens && c != '-' ? std::string(1, c) : std::string(" ") + (c == '-' ? ' ' : c);
  std::vector<int> frets;
  for (const std::string& word : tests::Words(spaced)) frets.push_back(word == "x" ? -1 : std::stoi(word));
  return frets;
}

Sounding SoundingOf(const std::string& text) {
  constexpr int kStandardTuning[] = {40, 45, 50, 55, 59, 64};
  const std::vector<int> frets = Frets(text);
  if (!frets.empty()) {
    EXPECT_EQ(frets.size(), std::size(kStandardTuning)) << text;
    std::vector<Pitch> pitches;
    for (std::size_t i = 0; i < frets.size(); ++i) {
      if (frets[i] >= 0) pitches.emplace_back(kStandardTuning[i] + frets[i]);
    }
    return Sounding::FromPitches(pitches);
  }
  std::vector<NoteName> names;
  for (const std::string& word : tests::Words(text)) names.push_back(tests::Name(word));
  return Sounding::FromNames(names);
}

std::string FirstAnswer(const std::string& notes) {
  const std::vector<ChordName> names = FindChordNames(SoundingOf(notes), 1);
  return names.empty() ? "nothing" : names.front().Symbol();
}

TEST(NamedChords, AreAtLeastTwoHundred) { EXPECT_GE(ReadCases().size(), 200U); }

TEST(NamedChords, TheFirstAnswerIsThePrintedName) {
  // Song books name a few shapes by their triad and bass, or an eleventh without its ninth, where the order of the
  // groups puts a complete chord first. These differ on purpose, and no others do.
  const std::vector<std::string> different = {"000000: Em11, not Em7add11", "3x2210: Am/G, not Am7/G",
                                              "x2x010: C/B, not Cmaj7/B"};
  std::vector<std::string> misses;
  for (const Case& named : ReadCases()) {
    const std::string answer = FirstAnswer(named.notes);
    if (answer != named.name) misses.push_back(named.notes + ": " + named.name + ", not " + answer);
  }
  EXPECT_EQ(misses, different);
}

}  // namespace
}  // namespace tonalith::theory
