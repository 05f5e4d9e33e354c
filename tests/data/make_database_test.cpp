// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "data_fixture.h"
#include "make_database/database_maker.h"
#include "make_database/scale_tables.h"

namespace tonalith::make_database {
namespace {

using data::AskRaw;
using data::FailureOf;

constexpr const char* kTypes =
    "# types\n"
    "ScaleTypeID\tScaleTypeNo\tScaleTypeName\n"
    "1\t10\tCommon scales\n"
    "2\t20\tTriads\n";
constexpr const char* kScaleColumns =
    "ScaleName\tScaleTypeID\tStartNote\tScaleIntervals\tChord\tSource\tScaleDescription\tFormula\tAliases\n";
constexpr const char* kMajor =
    "Major\t1\tC\t2212221\tno\ta book\tBright, \"plain\" and it's settled.\t1 2 3 4 5 6 7\tIonian mode; Dur\n";
constexpr const char* kTriad = "Major triad\t2\tC\t435\tyes\tanother book\tÜberall.\t1 3 5\t\n";

// A content folder with tables that a test may change.
class MakeDatabaseTest : public testing::Test {
 protected:
  MakeDatabaseTest() {
    std::filesystem::create_directory(folder_.Path() / "scales");
    Types(kTypes);
    Scales(std::string("# scales\n") + kScaleColumns + kMajor);
    (void)folder_.Write("scales/chords.tsv", std::string(kScaleColumns) + kTriad);
  }

  void Types(const std::string& text) { (void)folder_.Write("scales/types.tsv", text); }
  void Scales(const std::string& text) { (void)folder_.Write("scales/scales.tsv", text); }
  [[nodiscard]] std::string Output() const { return folder_ / "made.mdb"; }
  void Make() { MakeDatabase(ReadScaleTables(folder_.Path() / "scales"), Output()); }
  // The message of the maker without the folder.
  std::string Refusal() {
    const std::string message = FailureOf([&] { Make(); }).Description();
    const std::string prefix = folder_ / "scales/";
    EXPECT_TRUE(message.starts_with(prefix)) << message;
    return message.substr(std::min(prefix.size(), message.size()));
  }

  tests::TempFolder folder_;
};

TEST_F(MakeDatabaseTest, ReadsRowsWithTheirLineAndSource) {
  const ScaleTables tables = ReadScaleTables(folder_.Path() / "scales");
  ASSERT_EQ(tables.types.size(), 2U);
  EXPECT_EQ(tables.types[1].location.line, 4);
  ASSERT_EQ(tables.scales.size(), 2U);
  EXPECT_EQ(tables.scales[0].source, "a book");
  EXPECT_EQ(tables.scales[0].location.line, 3);
  EXPECT_EQ(tables.scales[1].location.file, folder_ / "scales/chords.tsv");
  EXPECT_TRUE(tables.scales[1].isChord);
  EXPECT_EQ(tables.scales[0].formula, "1 2 3 4 5 6 7");
  EXPECT_EQ(tables.scales[0].aliases, (std::vector<std::string>{"Ionian mode", "Dur"}));
  EXPECT_TRUE(tables.scales[1].aliases.empty());
}

TEST_F(MakeDatabaseTest, NumbersTheRowsInTheirOrder) {
  Scales(std::string(kScaleColumns) + kMajor + "Other\t2\tC\t66\tno\ts\td\t1\t\nMinor\t1\tC\t2122122\tno\ts\td\t1\t\n");
  std::string numbers;
  for (const ScaleRow& row : ReadScaleTables(folder_.Path() / "scales").scales) {
    numbers += row.scaleName + " " + std::to_string(row.scaleId) + "." + std::to_string(row.sort) + "; ";
  }
  EXPECT_EQ(numbers, "Major 1.1; Other 2.1; Minor 3.2; Major triad 4.2; ");
}

TEST_F(MakeDatabaseTest, CreatesADatabaseThatTheProgramReads) {
  Make();
  auto connection = std::make_shared<data::Connection>();
  connection->Open(data::FullConnectionString(Output()));
  data::RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", connection);
  EXPECT_EQ(data::Lines(records, {"ScaleID", "ScaleName", "ScaleIntervals", "Chord", "Sort", "ScaleTypeName"}),
            "1 | Major | 2212221 | 0 | 1 | Common scales\n2 | Major triad | 435 | 1 | 1 | Triads\n");
  EXPECT_EQ(AskRaw(Output(), "SELECT ScaleDescription FROM Scales WHERE ScaleID = 1"),
            "Bright, \"plain\" and it's settled.");
}

TEST_F(MakeDatabaseTest, AddsTheFormulasAndAliasesToLibraryAndPack) {
  Make();
  MakeDatabase(ReadScaleTables(folder_.Path() / "scales"), folder_ / "TonalithDB97.mdb");
  for (const std::string& file : {Output(), folder_ / "TonalithDB97.mdb"}) {
    EXPECT_EQ(AskRaw(file,
                     "SELECT group_concat(ScaleID || ScaleName || ScaleIntervals || ':' || Formula) FROM "
                     "ScaleFormulas"),
              "1Major2212221:1 2 3 4 5 6 7,2Major triad435:1 3 5");
  }
  EXPECT_EQ(AskRaw(Output(), "SELECT group_concat(Place || Alias) FROM ScaleAliases"), "0Ionian mode,1Dur");
  EXPECT_EQ(AskRaw(Output(), "SELECT count(*) FROM sqlite_schema WHERE name = 'Revisions'"), "0");
  EXPECT_EQ(AskRaw(folder_ / "TonalithDB97.mdb", "SELECT group_concat(Revision) FROM Revisions"), "3,4");
}

TEST_F(MakeDatabaseTest, ReplacesAnOlderFileAndLeavesNoOtherFiles) {
  (void)folder_.Write("made.mdb", "older");
  Make();
  EXPECT_EQ(AskRaw(Output(), "SELECT count(*) FROM ScalesQuery"), "2");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), std::filesystem::directory_iterator()),
            2);
}

TEST_F(MakeDatabaseTest, KeepsTheOlderFileIfATableIsRefused) {
  (void)folder_.Write("made.mdb", "older");
  Scales(std::string(kScaleColumns) + kMajor + kMajor);
  Refusal();
  EXPECT_EQ(std::filesystem::file_size(Output()), 5U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.Path()), std::filesystem::directory_iterator()),
            2);
}

TEST_F(MakeDatabaseTest, NamesAMalformedLine) {
  const std::string columns = kScaleColumns;
  Scales(columns + kMajor + "\n");
  EXPECT_EQ(Refusal(), "scales.tsv:3: the line has 1 columns instead of 9");
  Scales(columns + "A\tx\tC\t66\tno\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: 'x' is not a whole number");
  Scales(columns + "A\t1\tC\t66\tNo\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: 'No' is neither yes nor no");
  Scales(columns + "A\t1\tC\t66\tno\ts\td\t1\t\r\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: the line holds a control character");
  Scales(columns + "A\xC0\x80\t1\tC\t66\tno\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: the line is not UTF-8");
  for (const std::string alias : {" A", "A ", "A;B", "A; ; B"}) {
    Scales(columns + "A\t1\tC\t66\tno\ts\td\t1\t" + alias + "\n");
    EXPECT_THAT(Refusal(), testing::MatchesRegex("scales.tsv:2: '.*' is not an alias"));
  }
  Scales(columns + "A\t1\tC\t66\tno\ts\td\t1\tB; \n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: an alias is missing at the end");
  Scales("ScaleName\tScaleID\n");
  EXPECT_EQ(Refusal(), "scales.tsv:1: these are not the table's columns");
  Scales("# nothing\n");
  EXPECT_EQ(Refusal(), "scales.tsv:1: the table has no line of column names");
  std::filesystem::remove(folder_ / "scales/scales.tsv");
  EXPECT_EQ(Refusal(), "scales.tsv:0: the table cannot be read");
}

TEST_F(MakeDatabaseTest, NamesALineThatViolatesARuleOfTheDatabase) {
  const std::string columns = kScaleColumns;
  Scales(columns + kMajor + "major\t1\tC\t66\tno\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:3: There is a scale of this name already.");
  Scales(columns + "A\t7\tC\t66\tno\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: There is no scale type of this number.");
  Scales(columns + "A\t1\tC\t6x\tno\ts\td\t1\t\n");
  EXPECT_EQ(Refusal(), "scales.tsv:2: The interval pattern may hold digits and blanks only.");
  Scales(columns + kMajor);
  Types(std::string(kTypes) + "2\t3\tAgain\n");
  EXPECT_EQ(Refusal(), "types.tsv:5: The record was not saved, because another record has the same key.");
}

// Copies made.mdb to a stage as the build does.
bool Stage(const std::string& from, const std::string& to) {
  const std::string script = TONALITH_SOURCE_DIR "/tools/make_database/stage_database.cmake";
  const std::string command = "cmake -D 'FROM=" + from + "' -D 'TO=" + to + "' -P '" + script + "'";
  return std::system(command.c_str()) == 0;
}

TEST_F(MakeDatabaseTest, CopiesADatabaseOnlyToAStageWithoutOne) {
  Make();
  const std::string stage = folder_ / "stage dir/TonalithDB97.mdb";
  ASSERT_TRUE(Stage(Output(), stage));
  EXPECT_EQ(AskRaw(stage, "SELECT count(*) FROM ScalesQuery"), "2");
  EXPECT_EQ(std::filesystem::hard_link_count(stage), 1U);
  data::RunRaw(stage, "DELETE FROM Scales WHERE ScaleID = 2");
  ASSERT_TRUE(Stage(Output(), stage));
  EXPECT_EQ(AskRaw(stage, "SELECT count(*) FROM ScalesQuery"), "1");
}

}  // namespace
}  // namespace tonalith::make_database
