// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Sources and filters of record sets.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "data/data_failure.h"
#include "data/record_set.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

TEST(RecordSetSource, FindsTheScaleOfTheByIdStatement) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery WHERE (Scales.ScaleID) =7;", folder.Open());
  EXPECT_EQ(Lines(records, {"ScaleID", "ScaleName"}), "7 | Minor triad\n");
}

TEST(RecordSetSource, FindsANameWithSpecialCharacters) {
  const std::string name = "O'Neil's \"odd\" 100% _ -- /* [x] ; Ünïcödé 音";
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet adder;
  adder.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  adder.AddNew();
  adder.SetFieldValue("ScaleName", name);
  adder.SetFieldValue("ScaleTypeID", 1);
  adder.SetFieldValue("ScaleIntervals", "66");
  adder.Update();
  RecordSet records;
  records.Open(ScaleByNameStatement(name), connection);
  EXPECT_EQ(Lines(records, {"ScaleIntervals"}), "66\n");
}

TEST(RecordSetSource, ComparesNamesWithoutRegardToCase) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'mAJOR'", folder.Open());
  EXPECT_EQ(Lines(records, {"ScaleIntervals"}), "2212221\n");
}

TEST(RecordSetSource, ReturnsTwoRowsOfOneNameInTheOrderOfTheirNumbers) {
  const DatabaseFolder folder(
      "INSERT INTO ScaleTypes VALUES (1, 1, 'A');"
      "INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID, ScaleIntervals) VALUES (9, 'Twin', 1, '9'), (3, 'twin', 1, "
      "'3')");
  RecordSet records;
  records.Open("SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'Twin'", folder.Open());
  EXPECT_EQ(Lines(records, {"ScaleIntervals"}), "3\n9\n");
}

TEST(RecordSetSource, AcceptsTheTextOfTheStoredQueryAsASource) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open(
      "SELECT DISTINCTROW Scales.ScaleID, Scales.ScaleName, Scales.ScaleTypeID, Scales.ScaleDescription, "
      "Scales.StartNote, Scales.ScaleIntervals, Scales.Chord, Scales.Sort, ScaleTypes.ScaleTypeNo, "
      "ScaleTypes.ScaleTypeName\r\nFROM ScaleTypes INNER JOIN Scales ON ScaleTypes.ScaleTypeID = "
      "Scales.ScaleTypeID;\r\n",
      folder.Open());
  EXPECT_EQ(records.RecordCount(), 4);
  EXPECT_EQ(records.FieldName(9), "ScaleTypeName");
}

TEST(RecordSetSource, ReadsAnySelectAndReturnsToItsBookmarks) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT ScaleName FROM Scales ORDER BY ScaleName DESC", folder.Open());
  EXPECT_EQ(Lines(records, {"ScaleName"}), "Minor triad\nMinor\nMajor triad\nMajor\n");
  records.MoveLast();
  const Bookmark last = records.GetBookmark();
  records.MovePrevious();
  EXPECT_EQ(Here(records), "Major triad");
  EXPECT_EQ(records.AbsolutePosition(), 3);
  records.SetFilter("ScaleName LIKE 'Ma%'");
  EXPECT_EQ(Lines(records, {"ScaleName"}), "Major triad\nMajor\n");
  records.SetBookmark(last);
  EXPECT_EQ(Here(records), "Major");
}

TEST(RecordSetSource, NamesATableAStoredQueryAndAFieldThatDoNotExist) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet records;
  const core::Failure table = FailureOf([&] { records.Open("SELECT * FROM Modes", connection); });
  EXPECT_EQ(table.Number(), failure_number::kUnknownTable);
  EXPECT_EQ(table.Description(), "The database '" + folder.Path() + "' has no table or stored query 'Modes'.");
  const core::Failure field = FailureOf([&] { records.Open("SELECT Colour FROM Scales", connection); });
  EXPECT_EQ(field.Number(), failure_number::kUnknownField);
  EXPECT_EQ(field.Description(), "There is no field 'Colour'.");
  EXPECT_EQ(FailureOf([&] { records.Open("SELECT FROM WHERE", connection); }).Number(), failure_number::kSyntax);
  EXPECT_FALSE(records.IsOpen());
}

TEST(RecordSetSource, RefusesAnUnknownFieldInBrackets) {
  const DatabaseFolder folder;
  RecordSet records;
  EXPECT_EQ(FailureOf([&] { records.Open("SELECT [Colour] FROM Scales", folder.Open()); }).Number(),
            failure_number::kUnknownField);
}

TEST(RecordSetSource, ReadsATableOfAnotherProgramByItsRowNumber) {
  const tests::TempFolder folder;
  const std::string path = folder / "pack.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(
          "CREATE TABLE Scales (ScaleID INT, ScaleName TEXT);"
          "INSERT INTO Scales VALUES (5, 'Five'), (5, 'Again'), (NULL, 'Null'), (1, 'One')");
  auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  RecordSet records;
  records.Open("SELECT * FROM Scales", connection, CursorType::kStatic, LockType::kReadOnly);
  EXPECT_EQ(records.FieldCount(), 2);
  EXPECT_EQ(Lines(records, {"ScaleID", "ScaleName"}), "5 | Five\n5 | Again\n(null) | Null\n1 | One\n");
}

TEST(RecordSetSource, ReadsEveryRowOfAForeignTable) {
  const tests::TempFolder folder;
  const std::string path = folder / "pack.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(
          "CREATE TABLE Shadowed (_rowid_, ScaleName); INSERT INTO Shadowed VALUES (1, 'a'), (1, 'b'), (NULL, 'c');"
          "CREATE TABLE Keyed (ScaleName TEXT PRIMARY KEY) WITHOUT ROWID; INSERT INTO Keyed VALUES ('x'), ('y');"
          "CREATE VIEW ScalesQuery AS SELECT 1 AS ScaleID, ScaleName FROM Shadowed");
  auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  for (const auto& [source, expected] :
       {std::pair("Shadowed", 3), std::pair("Keyed", 2), std::pair("ScalesQuery", 3)}) {
    RecordSet records;
    records.Open(source, connection);
    int rows = 0;
    for (; !records.IsEof(); records.MoveNext()) ++rows;
    EXPECT_EQ(rows, expected) << source;
  }
}

TEST(RecordSetSource, ReadsEveryKindOfContent) {
  const tests::TempFolder folder;
  const std::string path = folder / "kinds.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec("CREATE TABLE Kinds (a, b, c, d, e, f); INSERT INTO Kinds VALUES (NULL, 7, 1.5, 'text', x'00FF', x'')");
  auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  RecordSet records;
  records.Open("Kinds", connection);
  EXPECT_EQ(records.FieldValue(0), core::Value());
  EXPECT_EQ(records.FieldValue(1), core::Value(7));
  EXPECT_EQ(records.FieldValue(2), core::Value(1.5));
  EXPECT_EQ(records.FieldValue(3), core::Value("text"));
  EXPECT_EQ(records.FieldValue(4), core::Value(core::Bytes{0x00, 0xFF}));
  EXPECT_EQ(records.FieldValue(5), core::Value(core::Bytes{}));
}

TEST(RecordSetSource, ShowsTheRowsThatMatchItsFilter) {
  const DatabaseFolder folder(std::string(kFourScales) +
                              "INSERT INTO Scales (ScaleID, ScaleName, ScaleTypeID) VALUES (8, 'O''Neil', 2)");
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.SetFilter("ScaleTypeID=2");
  EXPECT_EQ(Lines(records, {"ScaleName"}), "Major triad\nMinor triad\nO'Neil\n");
  EXPECT_EQ(records.RecordCount(), 3);
  records.SetFilter("ScaleName='O''Neil'");
  EXPECT_EQ(Here(records), "O'Neil");
  EXPECT_EQ(records.AbsolutePosition(), 1);
  records.SetFilter("ScaleTypeID=5");
  EXPECT_TRUE(records.IsEof());
  records.SetFilter("");
  EXPECT_EQ(records.RecordCount(), 5);
  EXPECT_EQ(Here(records), "Major");
}

TEST(RecordSetSource, HidesAFilteredRowFromBookmarks) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  const Bookmark major = records.GetBookmark();
  records.SetFilter("Chord=True");
  EXPECT_EQ(FailureOf([&] { records.SetBookmark(major); }).Number(), failure_number::kInvalidBookmark);
  EXPECT_EQ(Here(records), "Major triad");
}

TEST(RecordSetSource, KeepsItsFilterWhenANewOneIsRefused) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("ScalesQuery", folder.Open());
  records.SetFilter("Chord=True");
  for (const char* filter : {"Chord=", "Colour=1", "1=1) OR (1=1", "Chord=True; DELETE FROM Scales", "ScaleName='"}) {
    EXPECT_THROW(records.SetFilter(filter), core::Failure) << filter;
    EXPECT_EQ(records.Filter(), "Chord=True");
    EXPECT_EQ(records.RecordCount(), 2);
  }
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

}  // namespace
}  // namespace tonalith::data
