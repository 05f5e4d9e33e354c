// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Input that means nothing: one line that says what and why, an exit code, and no output.

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

#include "catalogue/library_fixture.h"
#include "cli/command_line_fixture.h"
#include "theory/note_name.h"
#include "theory/note_style.h"

namespace tonalith::cli {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using Arguments = std::vector<std::string>;

/// "2: tonalith-cli: text": the exit code and the error text.
std::string Refusal(const Arguments& arguments) {
  const Outcome outcome = Shipped().Run(arguments);
  EXPECT_EQ(outcome.output, "");
  EXPECT_TRUE(outcome.error.ends_with('\n'));
  return std::to_string(outcome.exitCode) + ": " + outcome.error.substr(0, outcome.error.size() - 1);
}

std::string LineRefusal(const Arguments& arguments) {
  const std::string refusal = Refusal(arguments);
  EXPECT_EQ(std::count(refusal.begin(), refusal.end(), '\n'), 0) << refusal;
  return refusal;
}

TEST(BadInput, UnknownNamesSuggestTheThreeNearest) {
  EXPECT_THAT(
      LineRefusal({"show", "Doriann"}),
      AllOf(HasSubstr("1: tonalith-cli: No scale or chord is called \"Doriann\". The nearest names are \"Dorian\", "),
            HasSubstr("\" and \"")));
  for (const char* const command : {"shapes", "positions", "chords"}) {
    EXPECT_THAT(LineRefusal({command, "Ionain"}), AllOf(HasSubstr("1: "), HasSubstr("\"Ionian\""))) << command;
  }
  EXPECT_THAT(LineRefusal({"shapes", "C", "--instrument", "ukelele"}),
              AllOf(HasSubstr("1: tonalith-cli: No instrument is called \"ukelele\". "), HasSubstr("\"ukulele\"")));
  EXPECT_THAT(LineRefusal({"list", "--type", "Modes"}),
              AllOf(HasSubstr("1: tonalith-cli: No type is called \"Modes\". "), HasSubstr("\"Modes of ")));
}

TEST(BadInput, TextsOfAnyLengthAndScriptAreUnknownNames) {
  for (const std::string& text :
       {std::string(200, 'a'), std::string(100'000, 'x'), std::string("音階"), std::string("\xFF\xC3"),
        std::string("\x01\x1B[31m"), std::string("гамма"), std::string("\""), std::string(" ")}) {
    const std::string refusal = LineRefusal({"show", text});
    EXPECT_THAT(refusal, HasSubstr("1: tonalith-cli: No scale or chord is called \""));
    EXPECT_LT(refusal.size(), 700U);
    EXPECT_EQ(refusal.find('\x1B'), std::string::npos);
    EXPECT_THAT(Refusal({"name", text}), HasSubstr("2: "));
    EXPECT_EQ(Shipped().Run({"list", text, "--json"}).exitCode, 0);
  }
}

TEST(BadInput, KeysAreNamesOfOneNote) {
  EXPECT_EQ(LineRefusal({"show", "Major", "--key", "X"}),
            "2: tonalith-cli: \"X\" is not a key. No note has this name.");
  EXPECT_THAT(LineRefusal({"show", "Major", "--key", "C4"}), HasSubstr("2: tonalith-cli: \"C4\" is not a key"));
  for (const std::string& key :
       {std::string(), std::string("C###"), std::string("C E"), std::string("キー"), std::string(5000, 'b')}) {
    EXPECT_THAT(LineRefusal({"chords", "Major", "--key", key}), HasSubstr("2: tonalith-cli: \"")) << key;
  }
  EXPECT_EQ(LineRefusal({"show", "Am7", "--key", "D"}),
            "2: tonalith-cli: \"Am7\" has a root, so it cannot be in the key D.");
  EXPECT_EQ(Shipped().Run({"show", "Am7", "--key", "A"}).exitCode, 0);
}

TEST(BadInput, EveryLetterAndAccidentalIsAKey) {
  for (int letter = 0; letter < theory::kLetters; ++letter) {
    for (int alteration = -2; alteration <= 2; ++alteration) {
      const theory::NoteName key{static_cast<theory::Letter>(letter), static_cast<theory::Accidental>(alteration)};
      EXPECT_EQ(Shipped().Run({"show", "Harmonic minor", "--key", theory::Write(key)}).exitCode, 0)
          << theory::Write(key);
    }
  }
}

TEST(BadInput, FretsFitTheInstrument) {
  EXPECT_EQ(LineRefusal({"name", "x-30-0-0-0-0"}), "2: tonalith-cli: String 5 of \"Guitar, standard\" has no fret 30.");
  EXPECT_THAT(LineRefusal({"name", "99-0-0-0-0-0"}), HasSubstr("The highest fret is 36."));
  EXPECT_EQ(LineRefusal({"name", "x3201"}),
            "2: tonalith-cli: The number of strings of \"Guitar, standard\" is 6, but these are 5 frets.");
  EXPECT_THAT(LineRefusal({"name", "00000000000"}), HasSubstr("There are at most 10 strings."));
  EXPECT_EQ(LineRefusal({"name", "xxxxxx"}), "2: tonalith-cli: All strings are muted.");
  EXPECT_THAT(LineRefusal({"name", "x--3-2-0-1"}), HasSubstr("A fret is missing."));
  EXPECT_THAT(LineRefusal({"name", "C", "E", "--instrument", "ukulele"}), HasSubstr("\"C E\" is not a list of frets."));
  EXPECT_THAT(LineRefusal({"name", std::string(100'000, '1')}), HasSubstr("2: "));
}

TEST(BadInput, NotesHaveNames) {
  EXPECT_THAT(LineRefusal({"name", "C", "X"}),
              AllOf(HasSubstr("2: tonalith-cli: \"C X\" is not a list of notes."), HasSubstr("3")));
  EXPECT_THAT(LineRefusal({"name", ""}), HasSubstr("2: tonalith-cli: \"\" is not a list of notes."));
  std::string many;
  for (int i = 0; i < 100; ++i) many += "C ";
  EXPECT_THAT(LineRefusal({"name", many}), HasSubstr("2: "));
}

TEST(BadInput, WrongUsageNamesTheOption) {
  for (const Arguments& arguments :
       std::vector<Arguments>{{},
                              {"dance"},
                              {"show"},
                              {"show", "Major", "--loud"},
                              {"shapes", "C", "--limit", "0"},
                              {"shapes", "C", "--limit", "99999999999999999999"},
                              {"shapes", "C", "--limit", "many"},
                              {"positions", "Major", "--system", "circles"},
                              {"positions", "Major", "--per-string", "13"},
                              {"positions", "Major", "--system", "boxes", "--per-string", "3"},
                              {"list", "--chords", "--scales"},
                              {"list", "--notes", "klingon"},
                              {"list", "--library"}}) {
    EXPECT_THAT(Refusal(arguments), ::testing::StartsWith("2: ")) << ::testing::PrintToString(arguments);
  }
}

// Names of commands are also words of names.
TEST(BadInput, WordsAfterACommandAreNoCommands) {
  EXPECT_EQ(Shipped().Run({"list", "chords"}).exitCode, 0);
  EXPECT_THAT(LineRefusal({"show", "name"}), HasSubstr("\"name\""));
}

TEST(BadInput, PatternsThatAreNoOctaveAreListedButNotShown) {
  const catalogue::LibraryFolder folder;
  const std::string path = folder.Make("a.mdb",
                                       "INSERT INTO ScaleTypes VALUES (1, 1, 'Odd'); INSERT INTO Scales VALUES "
                                       "(1, 'Short', 1, '', 'C', '22', 0, 1), (2, '\xFF', 1, '', 'C', '\xFE', 0, 1)");
  const auto listed = nlohmann::json::parse(JsonOutput({"list", "--library", path}));
  EXPECT_EQ(listed[0]["pattern"], "22");
  EXPECT_EQ(listed[0]["degrees"], nlohmann::json::array());
  EXPECT_EQ(LineRefusal({"show", "Short", "--library", path}),
            "1: tonalith-cli: The steps of \"Short\" do not sum to an octave: 22");
  EXPECT_EQ(Shipped().Run({"name", "C", "D", "--library", path}).exitCode, 0);
}

TEST(BadInput, NamesOfTwoHundredCharactersWork) {
  const catalogue::LibraryFolder folder;
  const std::string name(200, 'n');
  const std::string path = folder.Make("a.mdb",
                                       "INSERT INTO ScaleTypes VALUES (1, 1, 'Long'); INSERT INTO Scales VALUES "
                                       "(1, '" +
                                           name + "', 1, '', 'C', '66', 0, 1)");
  EXPECT_EQ(nlohmann::json::parse(JsonOutput({"show", name, "--library", path}))["name"], name);
  EXPECT_EQ(Shipped().Run({"list", "--library", path}).exitCode, 0);
}

TEST(BadInput, LibrariesThatCannotBeReadAreNamed) {
  const catalogue::LibraryFolder folder;
  const std::string path = folder.Make("a.mdb");
  EXPECT_EQ(LineRefusal({"list", "--library", folder / "none.mdb"}),
            "1: tonalith-cli: Could not find file '" + folder / "none.mdb" + "'.");
  SQLite::Database writer(path, SQLite::OPEN_READWRITE);
  writer.exec("BEGIN EXCLUSIVE");
  EXPECT_THAT(LineRefusal({"list", "--library", path}), AllOf(HasSubstr("1: tonalith-cli: "), HasSubstr("in use")));
  writer.exec("ROLLBACK");
  std::ofstream(path) << "damaged";
  EXPECT_THAT(LineRefusal({"list", "--library", path}), AllOf(HasSubstr("1: "), HasSubstr(path)));
  const tests::TempFolder empty;
  const Outcome outcome = RunCommandLine({"list"}, {empty.Path(), {}});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.error, HasSubstr("TonalithDB97.mdb"));
}

TEST(BadInput, EmptyLibrariesHaveNoNearestNames) {
  const catalogue::LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", "");
  EXPECT_EQ(LineRefusal({"show", "Majr", "--library", path}),
            "1: tonalith-cli: No scale or chord is called \"Majr\", because there are none.");
  EXPECT_EQ(JsonOutput({"list", "--library", path}), "[]\n");
  EXPECT_EQ(Shipped().Run({"show", "Am7", "--library", path}).exitCode, 0) << "a symbol needs no library";
}

}  // namespace
}  // namespace tonalith::cli
