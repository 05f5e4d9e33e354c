// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "instrument/catalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "instrument/instruments.h"

namespace tonalith::instrument::tests {
namespace {

constexpr const char* kHeader = "Id\tName\tGroup\tStrings\tFrets\tSource\n";

/// The description of the error in a table with this text after the line of column names.
std::string ErrorAfterHeader(const std::string& rows) {
  const Catalogue catalogue = ParseCatalogue(kHeader + rows);
  return catalogue.error ? Describe(*catalogue.error) : "none";
}

TEST(Catalogue, TheShippedTableIsTheBuiltInOne) {
  std::ifstream file(TONALITH_SOURCE_DIR "/content/instruments/instruments.tsv", std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  const Catalogue catalogue = ParseCatalogue(text.str());
  ASSERT_EQ(catalogue.error, std::nullopt) << Describe(*catalogue.error);
  ASSERT_EQ(catalogue.entries.size(), BuiltInCatalogue().size());
  for (std::size_t i = 0; i < catalogue.entries.size(); ++i) {
    EXPECT_EQ(catalogue.entries[i].instrument, BuiltInCatalogue()[i].instrument);
  }
}

TEST(Catalogue, HasAtLeast60InstrumentsAnd25TuningsOfTheGuitar) {
  const auto& entries = BuiltInCatalogue();
  EXPECT_GE(entries.size(), 60U);
  const auto tunings = std::count_if(entries.begin(), entries.end(), [](const CatalogueEntry& entry) {
    return entry.group == "Guitar" && entry.instrument.Strings() == 6 && entry.instrument.Name().starts_with("Guitar,");
  });
  EXPECT_GE(tunings, 25);
}

TEST(Catalogue, HasTheInstrumentsThatGuitaristsAskFor) {
  const auto strings = [](const std::string& id) { return Named(id).Strings(); };
  EXPECT_EQ(strings("guitar-7-string"), 7);
  EXPECT_EQ(strings("guitar-8-string"), 8);
  EXPECT_EQ(strings("guitar-9-string"), 9);
  EXPECT_EQ(strings("bass"), 4);
  EXPECT_EQ(strings("bass-5-string"), 5);
  EXPECT_EQ(strings("bass-6-string"), 6);
  for (const char* id : {"guitar-dadgad",
                         "guitar-open-d",
                         "guitar-open-e",
                         "guitar-open-g",
                         "guitar-open-a",
                         "guitar-open-c",
                         "guitar-open-d-minor",
                         "guitar-all-fourths",
                         "guitar-all-fifths",
                         "guitar-nashville",
                         "guitar-drop-d",
                         "guitar-double-drop-d",
                         "guitar-drop-c",
                         "guitar-half-step-down",
                         "guitar-whole-step-down",
                         "guitar-baritone",
                         "ukulele",
                         "banjo",
                         "mandolin",
                         "bouzouki",
                         "cavaquinho",
                         "charango",
                         "lap-steel-c6"}) {
    EXPECT_NE(FindInstrument(BuiltInCatalogue(), id), nullptr) << id;
  }
}

TEST(Catalogue, TheDefaultIsTheGuitarInStandardTuning) {
  EXPECT_EQ(DefaultInstrument().Name(), "Guitar, standard");
  EXPECT_THAT(BuiltInCatalogue().front().openStrings, ::testing::ElementsAre("E2", "A2", "D3", "G3", "B3", "E4"));
}

TEST(Catalogue, NoTwoEntriesOfAGroupHaveTheSameStringsAndFrets) {
  std::set<std::string> seen;
  for (const CatalogueEntry& entry : BuiltInCatalogue()) {
    // The requinto and the guitalele differ in size only.
    if (entry.id == "guitalele") continue;
    std::string key = entry.group + std::to_string(entry.instrument.Frets());
    for (const String& string : entry.instrument.Description().strings) {
      key += " " + std::to_string(string.open.Midi()) + "@" + std::to_string(string.firstFret);
      if (string.companion) key += "+" + std::to_string(string.companion->Midi());
    }
    EXPECT_TRUE(seen.insert(key).second) << entry.id;
  }
}

TEST(Catalogue, IsSearchedByIdAndName) {
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "GUITAR-DROP-D")->id, "guitar-drop-d");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "guitar, drop d")->id, "guitar-drop-d");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "Guitarrón")->id, "guitarron");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "Drop D")->id, "guitar-drop-d");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "open g")->id, "guitar-open-g");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "low g")->id, "ukulele-low-g");
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "Guitar, "), nullptr);
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), "zither"), nullptr);
  EXPECT_EQ(FindInstrument(BuiltInCatalogue(), ""), nullptr);
}

TEST(Catalogue, AStringMayBeShortOrADoubleCourse) {
  EXPECT_EQ(ParseString("Bb2"), (String{theory::Pitch(46), 0, std::nullopt}));
  EXPECT_EQ(ParseString("Cb4"), (String{theory::Pitch(59), 0, std::nullopt})) << "the octave is that of the letter";
  EXPECT_EQ(ParseString("G4@5"), (String{theory::Pitch(67), 5, std::nullopt}));
  EXPECT_EQ(ParseString("E2+E3"), (String{theory::Pitch(40), 0, theory::Pitch(52)}));
  for (const char* text : {"", "H2", "E", "2", "E22", "e2", "E-1", "E2+", "E2+x", "E2@", "E2@0", "E2@36", "E2@5x",
                           "E##2", "E2 ", "E2@99999999999", "♯"}) {
    EXPECT_EQ(ParseString(text), std::nullopt) << text;
  }
}

TEST(CatalogueErrors, HaveALineAndAColumn) {
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t5\tS\n"), "none");
  EXPECT_EQ(ErrorAfterHeader("# comment\n\na b\tA\tG\tE2\t5\tS\n"),
            "Line 4, column 1: An id has lower-case letters, digits and hyphens");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t5\n"), "Line 2, column 11: A column is missing");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t5\tS\tmore\n"), "Line 2, column 14: There are too many columns");
  EXPECT_EQ(ErrorAfterHeader("a\t\tG\tE2\t5\tS\n"), "Line 2, column 3: This column is empty");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2 H3\t5\tS\n"), "Line 2, column 10: This is no pitch such as E2, F#3 or Bb2");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2  A2\t5\tS\n"), "Line 2, column 10: This is no pitch such as E2, F#3 or Bb2");
  EXPECT_EQ(ErrorAfterHeader("a\tÄä\tG\tE2 G4@x\t5\tS\n"),
            "Line 2, column 11: The fret after @ is not a number from 1 to 35");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\tmany\tS\n"), "Line 2, column 10: This is not a whole number");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t0\tS\n"), "Line 2, column 10: An instrument has 1 to 36 frets");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2 G4@5\t5\tS\n"),
            "Line 2, column 10: A string begins at the nut or at a fret below the last one");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2 E2 E2 E2 E2 E2 E2 E2 E2 E2 E2\t5\tS\n"),
            "Line 2, column 7: An instrument has at most 10 strings");
  EXPECT_EQ(ErrorAfterHeader("a\t" + std::string(201, 'x') + "\tG\tE2\t5\tS\n"),
            "Line 2, column 3: The name of an instrument has at most 200 bytes");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t5\tS\na\tB\tG\tE2\t5\tS\n"), "Line 3, column 1: Another row has this id");
  EXPECT_EQ(ErrorAfterHeader("a\tA\tG\tE2\t5\tS\nb\tA\tG\tE2\t5\tS\n"), "Line 3, column 3: Another row has this name");
  EXPECT_EQ(ErrorAfterHeader("a\tA\r\tG\tE2\t5\tS\n"), "Line 2, column 4: There is a control character in this line");
}

TEST(CatalogueErrors, TheRowsBeforeAnErrorAreKept) {
  const Catalogue catalogue = ParseCatalogue(kHeader + std::string("a\tA\tG\tE2\t5\tS\nb\tB\tG\tE2\tx\tS\n"));
  ASSERT_EQ(catalogue.entries.size(), 1U);
  EXPECT_EQ(catalogue.entries.front().id, "a");
  EXPECT_TRUE(catalogue.error.has_value());
}

TEST(CatalogueErrors, ATableNeedsItsColumnNames) {
  EXPECT_EQ(Describe(*ParseCatalogue("").error),
            "Line 1, column 1: The table has no line with the names of its columns");
  EXPECT_EQ(Describe(*ParseCatalogue("# only\n# comments").error),
            "Line 2, column 1: The table has no line with the names of its columns");
  EXPECT_EQ(Describe(*ParseCatalogue("Id\tName\n").error), "Line 1, column 1: These are not the columns of this table");
}

TEST(CatalogueErrors, TooLongATableIsRefused) {
  EXPECT_EQ(Describe(*ParseCatalogue(std::string(kMostTableBytes + 1, '#')).error),
            "Line 1, column 1: The table is longer than 1 MiB");
  std::string rows = kHeader;
  for (std::size_t i = 0; i <= kMostTableRows; ++i) {
    const std::string number = std::to_string(i);
    rows += number + "\t" + number + "\tG\tE2\t5\tS\n";
  }
  const Catalogue catalogue = ParseCatalogue(rows);
  EXPECT_EQ(Describe(*catalogue.error), "Line 10002, column 1: The table has more than 10,000 rows");
  EXPECT_EQ(catalogue.entries.size(), kMostTableRows);
}

}  // namespace
}  // namespace tonalith::instrument::tests
