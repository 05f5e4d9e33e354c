// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The examples in the help are correct: searches, patterns, and the data pack.

#include <SQLiteCpp/Database.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "core/scale_construction.h"
#include "core/step_words.h"
#include "data/data_pack_import.h"
#include "data/formula_tables.h"
#include "data/scale_database.h"
#include "data/schema.h"
#include "help_text/help_folder.h"
#include "search/like_matcher.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::help_text {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

using Faults = std::vector<std::string>;
using Names = std::set<std::string>;

/// The names in the shipped tables of the main database.
Names ShippedNames() {
  Names names;
  for (const char* const table : {"scales.tsv", "chords.tsv"}) {
    for (const std::string& line : house::LinesOf(house::ProjectRoot() / "content/scales" / table)) {
      const std::vector<std::string> columns = house::Split(line, "\t");
      if (columns.size() == 9 && columns[0] != "ScaleName") names.insert(columns[0]);
    }
  }
  return names;
}

std::u32string ToUpperCase(std::string_view text) {
  std::u32string upper;
  for (const char c : text) upper += static_cast<char32_t>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return upper;
}

/// Matches like the search: in any case, anywhere in the name.
bool Finds(std::string_view text, std::string_view name) {
  return search::LikePattern(U"*" + ToUpperCase(text) + U"*").Matches(ToUpperCase(name));
}

Faults WildcardFaults(const Element& example, const Names& shipped) {
  Faults faults;
  const auto check = [&](const std::string& attribute, bool isFound) {
    for (const std::string& name : house::Split(example.Attribute(attribute), "|")) {
      if (shipped.count(name) == 0) faults.push_back(example.text + ": there is no scale " + name);
      if (Finds(example.text, name) != isFound) {
        faults.push_back(example.text + (isFound ? " does not find " : " finds ") + name);
      }
    }
  };
  check("data-finds", true);
  check("data-misses", false);
  if (example.Attribute("data-finds").empty()) faults.push_back(example.text + " finds nothing");
  return faults;
}

/// Checks the notes of a pattern without the octave, and its step words, separated by blanks.
Faults PatternFaults(const Element& example) {
  Faults faults;
  const std::vector<std::string> notes = house::Split(example.Attribute("data-notes"), " ");
  if (!notes.empty() && core::WrappedScaleNotes(core::CNoteToNumber(notes.front()), example.text) != notes) {
    faults.push_back(example.text + " has other notes than " + example.Attribute("data-notes"));
  }
  const std::vector<std::string> steps = house::Split(example.Attribute("data-steps"), " ");
  if (!steps.empty() && house::Split(core::StepLine(example.text), " ") != steps) {
    faults.push_back(example.text + " has other steps than " + example.Attribute("data-steps"));
  }
  return faults;
}

std::vector<Element> Examples(std::string_view element, std::string_view className) {
  std::vector<Element> examples;
  for (const auto& [name, topic] : HelpFolder::Shipped().topics) {
    const std::vector<Element> found = topic.Of(element, className);
    examples.insert(examples.end(), found.begin(), found.end());
  }
  return examples;
}

TEST(WorkedExamples, EveryWildcardFindsItsScales) {
  const Names shipped = ShippedNames();
  ASSERT_THAT(shipped, IsSupersetOf({"Major", "Dominant 7"}));
  const std::vector<Element> examples = Examples("code", "wildcard");
  ASSERT_THAT(examples, SizeIs(::testing::Ge(12U)));
  for (const Element& example : examples) EXPECT_THAT(WildcardFaults(example, shipped), IsEmpty());
}

TEST(WorkedExamples, EveryWildcardCharacterHasAnExample) {
  std::string all;
  for (const Element& example : Examples("code", "wildcard")) all += example.text + "\n";
  for (const char* const wildcard : {"*", "?", "#", "[", "[!", "-"}) {
    EXPECT_THAT(all, ::testing::HasSubstr(wildcard));
  }
}

TEST(WorkedExamples, AWrongWildcardExampleIsReported) {
  const Names shipped{"Blues", "Major"};
  const auto example = [](const std::string& text, const std::string& finds, const std::string& misses) {
    return Element{"code", {{"data-finds", finds}, {"data-misses", misses}}, text};
  };
  EXPECT_THAT(WildcardFaults(example("bl?es", "Blues", "Major"), shipped), IsEmpty());
  EXPECT_THAT(WildcardFaults(example("bl#es", "Blues", ""), shipped), ElementsAre("bl#es does not find Blues"));
  EXPECT_THAT(WildcardFaults(example("*", "Blues", "Major"), shipped), ElementsAre("* finds Major"));
  EXPECT_THAT(WildcardFaults(example("reds", "Reds", ""), shipped), ElementsAre("reds: there is no scale Reds"));
  EXPECT_THAT(WildcardFaults(example("reds", "", ""), shipped), ElementsAre("reds finds nothing"));
}

TEST(WorkedExamples, EveryPatternHasItsNotesAndSteps) {
  const std::vector<Element> examples = Examples("code", "pattern");
  ASSERT_THAT(examples, SizeIs(::testing::Ge(10U)));
  for (const Element& example : examples) EXPECT_THAT(PatternFaults(example), IsEmpty());
}

TEST(WorkedExamples, AWrongPatternExampleIsReported) {
  const Element right{"code", {{"data-notes", "G B D"}, {"data-steps", "T2 T1.5 T2.5"}}, "435"};
  const Element wrong{"code", {{"data-notes", "G B D#"}, {"data-steps", "T2 T1.5"}}, "435"};
  EXPECT_THAT(PatternFaults(right), IsEmpty());
  EXPECT_THAT(PatternFaults(wrong), ElementsAre("435 has other notes than G B D#", "435 has other steps than T2 T1.5"));
}

/// The packs that the build creates in DataPacks, from their CMake file.
Names ShippedPacks() {
  static const std::regex line(R"(^tonalith_pack\(\w+ (\w+)\)$)");
  Names packs;
  for (const std::string& text : house::LinesOf(house::ProjectRoot() / "content/packs/CMakeLists.txt")) {
    std::smatch name;
    if (std::regex_match(text, name, line)) packs.insert("DataPack_" + name[1].str() + ".mdb");
  }
  return packs;
}

TEST(WorkedExamples, TheListOfShippedPacksIsComplete) {
  Names listed;
  for (const Element& pack : Examples("code", "shipped-pack")) listed.insert(pack.text);
  EXPECT_THAT(listed, SizeIs(::testing::Ge(4U)));
  EXPECT_EQ(listed, ShippedPacks());
}

class NullObserver : public data::DataPackObserver {
  void DataPackDone() override {}
  void ImportProgress(const std::string& /*path*/, std::int64_t /*rows*/) override {}
};

/// Changes the current folder for the current scope.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~CurrentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::filesystem::path before_;
};

TEST(WorkedExamples, TheDataPackExampleInstalls) {
  const std::vector<Element> packs = Examples("pre", "pack");
  const std::vector<Element> formulas = Examples("pre", "pack-formulas");
  ASSERT_THAT(packs, SizeIs(1));
  ASSERT_THAT(formulas, SizeIs(1));
  const tests::TempFolder program;
  const CurrentFolder current(program.Path());
  const std::string library = program / data::kDatabaseFileName;
  data::CreateScaleDatabase(library);
  data::AddFormulasToFile(library, "");
  std::filesystem::create_directory(program.Path() / "DataPacks");
  const std::string pack = program / "DataPacks/DataPack_Folk.mdb";
  SQLite::Database(pack, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(packs.front().text + formulas.front().text);

  tests::RecordingMsgBox msgBox;
  NullObserver observer;
  data::DataPackImport(program.Path().string(), msgBox, observer).GetAvailableDataPacks();

  EXPECT_EQ(msgBox.Texts(), "Imported data pack: \n" + pack + "\n");
  SQLite::Database imported(library);
  EXPECT_EQ(imported.execAndGet("SELECT count(*) FROM ScalesQuery").getInt(), 2);
  EXPECT_EQ(imported.execAndGet("SELECT ScaleName || ', ' || ScaleTypeName FROM ScalesQuery LIMIT 1").getString(),
            "Miller's lament, Songs of our valley");
  EXPECT_EQ(imported
                .execAndGet("SELECT Formula || ', ' || group_concat(Alias) FROM ScaleFormulas JOIN ScaleAliases "
                            "USING (ScaleID)")
                .getString(),
            "1 2 b3 #4 5 b6 b7, Mill tune,Lament of the mill");
}

}  // namespace
}  // namespace tonalith::help_text
