// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The commands on all sets of notes.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "catalogue/library_fixture.h"
#include "cli/command_line_fixture.h"
#include "cli/commands.h"
#include "cli/json_text.h"
#include "theory/note_style.h"
#include "theory/pitch_class_set.h"

namespace tonalith::cli {
namespace {

using nlohmann::json;
using theory::PitchClassSet;

TEST(AllSets, HaveChordNames) {
  // A small library: its scales are searched for each set.
  const catalogue::LibraryFolder folder;
  const catalogue::Catalogue catalogue = catalogue::Read(folder.Make("small.mdb"));
  for (unsigned bits = 1; bits < PitchClassSet::kCount; ++bits) {
    Options options;
    for (const theory::PitchClass note : PitchClassSet::FromBits(bits).Members()) {
      options.text += theory::Write(theory::SharpName(note)) + " ";
    }
    const json named = json::parse(JsonText(NameNotes(catalogue, options)));
    ASSERT_FALSE(named["chords"].empty()) << options.text;
    ASSERT_EQ(named["notes"].size(), static_cast<std::size_t>(PitchClassSet::FromBits(bits).Size()));
  }
}

/// A library with a scale of every pattern that steps can write; every second one is a chord.
std::string PatternRows() {
  std::string rows = "INSERT INTO ScaleTypes VALUES (1, 1, 'All');";
  for (unsigned bits = 1; bits < PitchClassSet::kCount; bits += 2) {
    const auto pattern = PitchClassSet::FromBits(bits).Pattern();
    if (!pattern) continue;
    rows += "INSERT INTO Scales VALUES (" + std::to_string(bits) + ", 'Set " + std::to_string(bits) +
            "', 1, '', 'C', '" + *pattern + "', " + std::to_string(bits / 2 % 2) + ", 1);";
  }
  return rows;
}

TEST(AllSets, CanBeShownAndPlayed) {
  const catalogue::LibraryFolder folder;
  const catalogue::Catalogue catalogue = catalogue::Read(folder.Make("all.mdb", PatternRows()));
  ASSERT_GT(catalogue.Size(), 2000U);
  // Shapes take longest.
  constexpr std::size_t kStepOfShapes = 29;
  for (std::size_t i = 0; i < catalogue.Size(); ++i) {
    Options options;
    options.text = catalogue.NameAt(i);
    options.key = "Gb";
    options.limit = 1;
    const json shown = json::parse(JsonText(ShowMusic(catalogue, options)));
    ASSERT_EQ(shown["notes"].size(), shown["degrees"].size()) << options.text;
    ASSERT_EQ(shown["midi"].size(), shown["degrees"].size()) << options.text;
    ASSERT_EQ(json::parse(JsonText(FindChords(catalogue, options))).size(), shown["degrees"].size()) << options.text;
    ASSERT_TRUE(json::parse(JsonText(FindPositions(catalogue, options))).is_array()) << options.text;
    if (i % kStepOfShapes != 0) continue;
    ASSERT_LE(json::parse(JsonText(FindShapes(catalogue, options))).size(), 1U) << options.text;
  }
}

}  // namespace
}  // namespace tonalith::cli
