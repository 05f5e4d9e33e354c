// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The answers in JSON: fields, types and values that musicians know.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "catalogue/library_fixture.h"
#include "cli/command_line_fixture.h"
#include "core/upper_case.h"

namespace tonalith::cli {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Le;
using ::testing::Not;
using ::testing::SizeIs;
using Json = nlohmann::ordered_json;
using Strings = std::vector<std::string>;

Json Ask(const std::vector<std::string>& arguments) {
  const std::string text = JsonOutput(arguments);
  EXPECT_TRUE(core::IsAscii(text));
  return Json::parse(text);
}

Strings Fields(const Json& object) {
  Strings names;
  for (const auto& field : object.items()) names.push_back(field.key());
  return names;
}

Strings Values(const Json& array, const char* field) {
  Strings values;
  for (const Json& element : array) values.push_back(element.at(field).get<std::string>());
  return values;
}

TEST(Answers, HaveTheDocumentedFieldsInTheirOrder) {
  EXPECT_THAT(Fields(Ask({"list", "dorian"}).front()),
              ElementsAre("id", "name", "type", "chord", "pattern", "degrees", "aliases"));
  EXPECT_THAT(Fields(Ask({"show", "Major"})), ElementsAre("name", "key", "alternative", "pattern", "notes", "degrees",
                                                          "midi", "keySignature", "description", "aliases"));
  const Json named = Ask({"name", "C", "E", "G"});
  EXPECT_THAT(Fields(named), ElementsAre("notes", "bass", "chords", "scales"));
  EXPECT_THAT(Fields(named["chords"][0]), ElementsAre("symbol", "name", "root", "bass", "missing", "added"));
  EXPECT_THAT(Fields(named["scales"][0]), ElementsAre("name", "key", "exact", "extra"));
  EXPECT_THAT(Fields(Ask({"shapes", "F"}).front()), ElementsAre("frets", "fingers", "barres", "notes"));
  EXPECT_THAT(Fields(Ask({"positions", "Major"}).front()), ElementsAre("number", "strings"));
  EXPECT_THAT(Fields(Ask({"chords", "Major"}).front()), ElementsAre("degree", "numeral", "triad", "seventh"));
  EXPECT_THAT(Fields(Ask({"instruments"}).front()), ElementsAre("name", "strings", "frets"));
}

TEST(List, MatchesWordsTypesAndKinds) {
  const Json dorian = Ask({"list", "DÓRIAN"});
  EXPECT_THAT(Values(dorian, "name"), AllOf(Contains("Dorian"), Contains("Dorian flat 2"), Not(Contains("Lydian"))));
  for (const Json& entry : dorian) EXPECT_THAT(entry.dump(), AnyOf(HasSubstr("Dorian"), HasSubstr("dorian")));
  EXPECT_THAT(Values(Ask({"list", "--type", "seventh CHORDS"}), "type"), Each("Seventh chords"));
  for (const Json& entry : Ask({"list", "--scales"})) EXPECT_FALSE(entry["chord"].get<bool>()) << entry;
  for (const Json& entry : Ask({"list", "--chords"})) EXPECT_TRUE(entry["chord"].get<bool>()) << entry;
  EXPECT_EQ(Ask({"list", "nothing-has-this-word"}), Json::array());
  EXPECT_EQ(Ask({"list"}).size(), Ask({"list", "--chords"}).size() + Ask({"list", "--scales"}).size());
}

TEST(List, HasLibraryAndPacksWithEqualNamesOnce) {
  const Strings all = Values(Ask({"list"}), "name");
  EXPECT_GT(all.size(), Values(Ask({"list", "--library", BuiltLibrary()}), "name").size());
  std::set<std::u32string> upper;
  for (const std::string& name : all) EXPECT_TRUE(upper.insert(core::UpperCase(name)).second) << name;
  EXPECT_EQ(all.front(), "Major");
}

TEST(List, HasDegreesAndAsciiAliases) {
  const catalogue::LibraryFolder folder;
  const std::string path = folder.Make("a.mdb", std::string(catalogue::kScales) + catalogue::kTextTables + R"sql(
    INSERT INTO ScaleAliases VALUES (1, 1, 'Major', '2212221', 'Ionian'), (1, 2, 'Major', '2212221', 'Majör');
  )sql");
  const Json major = Ask({"list", "majör", "--library", path}).front();
  EXPECT_EQ(major["degrees"], Json({"1", "2", "3", "4", "5", "6", "7"}));
  EXPECT_EQ(major["aliases"], Json({"Ionian"}));
  EXPECT_EQ(Ask({"list", "triad", "--library", path}).front()["aliases"], Json::array());
}

TEST(Show, SpellsScalesInTheirKey) {
  const Json dorian = Ask({"show", "Dorian", "--key", "F#"});
  EXPECT_EQ(dorian["key"], "F#");
  EXPECT_EQ(dorian["notes"], Json({"F#", "G#", "A", "B", "C#", "D#", "E"}));
  EXPECT_EQ(dorian["degrees"], Json({"1", "2", "b3", "4", "5", "6", "b7"}));
  EXPECT_EQ(dorian["midi"], Json({66, 68, 69, 71, 73, 75, 76}));
  EXPECT_EQ(dorian["keySignature"], 4);
  EXPECT_EQ(dorian["alternative"], nullptr);
  EXPECT_EQ(dorian["pattern"], "2122212");
}

TEST(Show, NamesTheEasierKey) {
  const Json major = Ask({"show", "Major", "--key", "A#"});
  EXPECT_EQ(major["alternative"], "Bb");
  EXPECT_EQ(major["keySignature"], nullptr);
  EXPECT_EQ(major["notes"], Json({"A#", "B#", "C##", "D#", "E#", "F##", "G##"}));
  EXPECT_EQ(Ask({"show", "Major", "--key", "Bb"})["keySignature"], -2);
}

TEST(Show, UnderstandsSymbolsWithRootAndBass) {
  const Json minor = Ask({"show", "Am7"});
  EXPECT_EQ(minor["notes"], Json({"A", "C", "E", "G"}));
  EXPECT_EQ(minor["midi"], Json({69, 72, 76, 79}));
  EXPECT_EQ(minor["keySignature"], nullptr);
  EXPECT_EQ(Ask({"show", "m7", "--key", "A"})["notes"], minor["notes"]);
  EXPECT_EQ(Ask({"show", "M7"})["notes"], Json({"C", "E", "G", "B"})) << "not the minor seventh chord";
  EXPECT_EQ(Ask({"show", "F"})["notes"], Json({"F", "A", "C"}));
  EXPECT_EQ(Ask({"show", "C/E"})["notes"], Json({"C", "E", "G"}));
  EXPECT_EQ(Ask({"show", "C/D"})["degrees"], Json({"1", "3", "5", "9"}));
  EXPECT_EQ(Ask({"show", "C7b13"})["notes"].back(), "Ab") << "and not a raised fifth";
  EXPECT_EQ(Ask({"show", "Cdim7"})["degrees"], Json({"1", "b3", "b5", "bb7"}));
  EXPECT_EQ(Ask({"show", "C9"})["midi"], Json({60, 64, 67, 70, 74}));
}

TEST(Show, OfEveryEntryHasArraysOfEqualLength) {
  const std::string library = BuiltLibrary();
  const Strings keys{"C", "F#", "Gb", "A#", "Eb"};
  std::size_t number = 0;
  for (const Json& entry : Ask({"list", "--library", library})) {
    const std::string name = entry["name"];
    const Json shown = Ask({"show", name, "--key", keys[number++ % keys.size()], "--library", library});
    EXPECT_EQ(shown["name"], name);
    EXPECT_EQ(shown["notes"].size(), shown["degrees"].size()) << name;
    EXPECT_EQ(shown["notes"].size(), shown["midi"].size()) << name;
    EXPECT_TRUE(std::is_sorted(shown["midi"].begin(), shown["midi"].end())) << name;
    EXPECT_THAT(shown["midi"].front().get<int>(), AllOf(Ge(60), Le(71))) << name;
    EXPECT_THAT(shown["aliases"], Each(Not(entry["name"]))) << name;
  }
}

TEST(Name, NamesNotesAndFrets) {
  EXPECT_THAT(Values(Ask({"name", "E", "G", "C"})["chords"], "symbol").front(), "C/E");
  const Json open = Ask({"name", "x32010"});
  EXPECT_EQ(open["notes"], Json({"C", "E", "G"}));
  EXPECT_EQ(open["bass"], "C");
  EXPECT_EQ(open["chords"][0]["name"], "C major");
  EXPECT_EQ(open["chords"][0]["bass"], "C");
  EXPECT_EQ(Ask({"name", "x-10-12-12-11-10"})["chords"][0]["symbol"], "Gm");
  EXPECT_EQ(Ask({"name", "x", "3", "2", "0", "1", "0"})["chords"][0]["symbol"], "C");
  EXPECT_EQ(Ask({"name", "0003", "--instrument", "Ukulele"})["chords"][0]["symbol"], "C");
  EXPECT_EQ(Ask({"name", "C", "E"})["chords"][0]["missing"], Json({"G"}));
}

TEST(Name, FindsModesWithExactlyTheNotes) {
  const Json scales = Ask({"name", "C D E F G A B", "--limit", "1"})["scales"];
  Strings names;
  for (const Json& scale : scales) {
    EXPECT_TRUE(scale["exact"].get<bool>());
    EXPECT_EQ(scale["extra"], Json::array());
    names.push_back(scale["key"].get<std::string>() + " " + scale["name"].get<std::string>());
  }
  EXPECT_THAT(names, IsSupersetOf(Strings{"C Major", "A Natural minor", "D Dorian", "B Locrian"}));
  EXPECT_EQ(names.front(), "C Major");
}

TEST(Name, FindsScalesWithFurtherNotesUpToTheLimit) {
  const Json scales = Ask({"name", "C", "E", "G", "--limit", "7"})["scales"];
  ASSERT_THAT(scales, SizeIs(7));
  EXPECT_FALSE(scales.back()["exact"].get<bool>());
  EXPECT_THAT(scales.back()["extra"], SizeIs(scales.front()["extra"].size() + 1)) << "fewest first";
}

TEST(Shapes, AreListedWithTheBestFirst) {
  const Json shapes = Ask({"shapes", "F"});
  EXPECT_THAT(shapes, SizeIs(20));
  EXPECT_EQ(shapes[0]["frets"], Json({1, 3, 3, 2, 1, 1}));
  EXPECT_EQ(shapes[0]["fingers"], Json({1, 3, 4, 2, 1, 1}));
  EXPECT_EQ(shapes[0]["barres"], Json::parse(R"([{"fret": 1, "from": 6, "to": 1}])"));
  EXPECT_EQ(shapes[0]["notes"], Json({"F", "C", "F", "A", "C", "F"}));
  EXPECT_EQ(Ask({"shapes", "F", "--limit", "3"}).size(), 3U);
  EXPECT_EQ(Ask({"shapes", "C"})[0]["frets"], Json({nullptr, 3, 2, 0, 1, 0}));
  for (const Json& shape : Ask({"shapes", "C/E"})) EXPECT_EQ(shape["notes"][0], "E");
  for (const Json& shape : Ask({"shapes", "Bb"})) EXPECT_THAT(shape["notes"], Contains("Bb")) << "not A#";
  EXPECT_EQ(Ask({"shapes", "Major triad", "--instrument", "ukulele"})[0]["frets"].size(), 4U);
}

TEST(Positions, HaveTheUsualNotesOnEachString) {
  const auto counts = [](const std::string& scale, const std::vector<std::string>& options) {
    std::vector<std::string> arguments{"positions", scale, "--system", "per-string"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Ask(arguments).front()["strings"].front().size();
  };
  EXPECT_EQ(counts("Minor pentatonic", {}), 2U);
  EXPECT_EQ(counts("Blues", {}), 3U);
  EXPECT_EQ(counts("Major", {}), 3U);
  EXPECT_EQ(counts("Dorian blues", {}), 4U);
  EXPECT_EQ(counts("Major", {"--per-string", "4"}), 4U);
  EXPECT_EQ(Ask({"positions", "Major", "--per-string", "4"}),
            Ask({"positions", "Major", "--system", "per-string", "--per-string", "4"}));
}

TEST(Positions, AreBoxesThatBeginWithTheRoot) {
  const Json boxes = Ask({"positions", "Major", "--key", "G"});
  std::set<int> numbers;
  for (const Json& box : boxes) {
    EXPECT_THAT(box["strings"], SizeIs(6));
    numbers.insert(box["number"].get<int>());
  }
  EXPECT_THAT(numbers, ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(boxes[0]["strings"][0], Contains(3)) << "the root G on the lowest string";
}

TEST(Chords, HaveTriadsAndSeventhsOnEachDegree) {
  const Json chords = Ask({"chords", "Major", "--key", "Bb"});
  EXPECT_THAT(Values(chords, "triad"), ElementsAre("Bb", "Cm", "Dm", "Eb", "F", "Gm", "Adim"));
  EXPECT_THAT(Values(chords, "seventh"), ElementsAre("Bbmaj7", "Cm7", "Dm7", "Ebmaj7", "F7", "Gm7", "Am7b5"));
  EXPECT_THAT(Values(chords, "numeral"), ElementsAre("I", "ii", "iii", "IV", "V", "vi", "vii\u00B0"));
}

TEST(Instruments, HaveTheirOpenStrings) {
  const Json guitar = Ask({"instruments"}).front();
  EXPECT_EQ(guitar["strings"], Json({"E2", "A2", "D3", "G3", "B3", "E4"}));
  EXPECT_GT(guitar["frets"].get<int>(), 15);
}

TEST(PlainAnswers, WriteNotesInTheStyle) {
  EXPECT_THAT(Output({"show", "Major", "--key", "Bb"}), HasSubstr("Bb C D Eb F G A"));
  EXPECT_THAT(Output({"--notes", "german", "show", "Major", "--key", "B"}), HasSubstr("B C D Es F G A"));
  EXPECT_THAT(Output({"show", "Major", "--key", "H", "--notes", "german"}), HasSubstr("H Cis Dis E Fis Gis Ais"));
  EXPECT_THAT(Output({"show", "Major", "--notes", "do-re-mi"}), HasSubstr("Do Ré Mi Fa Sol La Si"));
  EXPECT_EQ(Ask({"show", "Major", "--key", "B", "--notes", "german"})["key"], "Bb") << "JSON is in English";
}

TEST(PlainAnswers, ExistForEveryCommand) {
  for (const Strings& arguments : std::vector<Strings>{{"list", "blues"},
                                                       {"show", "C/E"},
                                                       {"name", "C", "F#"},
                                                       {"shapes", "Am7"},
                                                       {"positions", "Major"},
                                                       {"chords", "Blues"},
                                                       {"instruments"}}) {
    EXPECT_GT(Output(arguments).size(), 20U) << arguments[0];
  }
}

}  // namespace
}  // namespace tonalith::cli
