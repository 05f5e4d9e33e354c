// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/schema.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <memory>
#include <regex>
#include <set>
#include <string>

#include "data/data_failure.h"
#include "data/messages.h"
#include "data_fixture.h"
#include "support/timed.h"

namespace tonalith::data {
namespace {

std::string RawRefusal(const std::string& path, const std::string& sql) {
  try {
    RunRaw(path, sql);
  } catch (const SQLite::Exception& exception) {
    return exception.what();
  }
  return "not refused";
}

TEST(Schema, MarksTheFileWithItsApplicationAndRevision) {
  const DatabaseFolder folder;
  EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA application_id"), "1414417480");
  EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA user_version"), std::to_string(SchemaRevisions().size()));
  EXPECT_EQ(SchemaRevisions().size(), 2U) << "version 1.0 refuses a library of a newer revision";
}

TEST(Schema, HasTheTablesTheStoredQueryAndTheIndexes) {
  const DatabaseFolder folder;
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(name) FROM pragma_table_info('Scales')"),
            "ScaleID,ScaleName,ScaleTypeID,ScaleDescription,StartNote,ScaleIntervals,Chord,Sort");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(name) FROM pragma_table_info('ScaleTypes')"),
            "ScaleTypeID,ScaleTypeNo,ScaleTypeName");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(name) FROM pragma_table_info('ScalesQuery')"),
            "ScaleID,ScaleName,ScaleTypeID,ScaleDescription,StartNote,ScaleIntervals,Chord,Sort,ScaleTypeNo,"
            "ScaleTypeName");
  EXPECT_EQ(AskRaw(folder.Path(),
                   "SELECT group_concat(name) FROM (SELECT name FROM pragma_index_list('Scales') "
                   "ORDER BY name)"),
            "ScalesByName,ScalesByTypeAndSort");
}

TEST(Schema, DoesNotReplaceAnExistingFile) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("there.mdb", "somebody's");
  EXPECT_EQ(FailureOf([&] { CreateScaleDatabase(path); }).Description(), "There is a file '" + path + "' already.");
  EXPECT_EQ(std::filesystem::file_size(path), 10U);
  EXPECT_EQ(FailureOf([&] { CreateScaleDatabase(folder / "none/x.mdb"); }).Number(),
            core::failure_number::kUnspecified);
}

constexpr std::array<SchemaRevision, 3> kThreeRevisions = {{
    {"CREATE TABLE One (a); INSERT INTO One VALUES ('first')"},
    {"ALTER TABLE One ADD COLUMN b DEFAULT 'second'"},
    {"CREATE TABLE Three (c)"},
}};

std::string AtRevision(const tests::TempFolder& folder, std::size_t revision) {
  std::string path = folder / "revisions.mdb";
  SQLite::Database database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
  UpgradeSchema(database, path, std::span(kThreeRevisions).first(revision));
  return path;
}

TEST(Schema, AppliesTheRevisionsThatAnOlderFileLacks) {
  const tests::TempFolder folder;
  const std::string path = AtRevision(folder, 1);
  EXPECT_EQ(AskRaw(path, "PRAGMA user_version"), "1");
  SQLite::Database database(path, SQLite::OPEN_READWRITE);
  UpgradeSchema(database, path, kThreeRevisions);
  EXPECT_EQ(AskRaw(path, "PRAGMA user_version"), "3");
  EXPECT_EQ(AskRaw(path, "SELECT a || ' ' || b FROM One"), "first second");
  EXPECT_EQ(AskRaw(path, "SELECT count(*) FROM One"), "1");
}

TEST(Schema, DoesNotChangeAnOlderFileIfARevisionFails) {
  const tests::TempFolder folder;
  const std::string path = AtRevision(folder, 1);
  constexpr std::array<SchemaRevision, 3> kBroken = {
      {kThreeRevisions[0], kThreeRevisions[1], {"CREATE TABLE One (a)"}}};
  {
    SQLite::Database database(path, SQLite::OPEN_READWRITE);
    EXPECT_THROW(UpgradeSchema(database, path, kBroken), SQLite::Exception);
  }
  EXPECT_EQ(AskRaw(path, "PRAGMA user_version"), "1");
  EXPECT_EQ(AskRaw(path, "SELECT group_concat(name) FROM pragma_table_info('One')"), "a");
}

TEST(Schema, RefusesAFileOfANewerRevisionWithAMessage) {
  const tests::TempFolder folder;
  const std::string path = AtRevision(folder, 3);
  SQLite::Database database(path, SQLite::OPEN_READWRITE);
  EXPECT_EQ(
      FailureOf([&] { UpgradeSchema(database, path, std::span(kThreeRevisions).first(2)); }).Description(),
      "The database '" + path + "' was made by a newer version of Tonalith (revision 3, this version reads up to 2).");
}

/// A scale database of an earlier `revision`, with the four scales and one whose sort number is text.
class FileOfRevision {
 public:
  explicit FileOfRevision(int revision) {
    SQLite::Database database(Path(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    UpgradeSchema(database, Path(), SchemaRevisions().first(static_cast<std::size_t>(revision)));
    database.exec(kFourScales);
    database.exec("INSERT INTO Scales (ScaleName, ScaleTypeID, Sort) VALUES ('Odd', 1, 'x')");
  }

  [[nodiscard]] std::string Path() const { return folder_ / kDatabaseFileName; }
  [[nodiscard]] std::string Ask(const std::string& sql) const { return AskRaw(Path(), sql); }
  [[nodiscard]] std::string Revision() const { return Ask("PRAGMA user_version"); }
  [[nodiscard]] std::string Rows() const {
    return Ask("SELECT group_concat(ScaleID || ScaleName || ScaleTypeID || Sort || typeof(Sort), ' ') FROM Scales") +
           Ask("SELECT group_concat(ScaleTypeID || ScaleTypeName, ' ') FROM ScaleTypes");
  }
  /// Opens it as the program does and returns the names of its scales.
  [[nodiscard]] std::string NamesWhenOpened() const {
    auto connection = std::make_shared<Connection>();
    connection->Open(FullConnectionString(Path()));
    RecordSet records;
    records.Open("SELECT ScaleName FROM ScalesQuery", connection);
    std::string names;
    for (; !records.IsEof(); records.MoveNext()) names += records.FieldValue(0).AsText() + ",";
    return names;
  }

 private:
  tests::TempFolder folder_;
};

constexpr const char* kFiveNames = "Major,Minor,Major triad,Minor triad,Odd,";

class EveryOlderRevision : public testing::TestWithParam<int> {};

TEST_P(EveryOlderRevision, IsUpgradedWhenItIsOpenedAndKeepsItsRows) {
  const FileOfRevision file(GetParam());
  const std::string rows = file.Rows();
  ASSERT_EQ(file.Revision(), std::to_string(GetParam()));
  EXPECT_EQ(file.NamesWhenOpened(), kFiveNames);
  EXPECT_EQ(file.Revision(), std::to_string(SchemaRevisions().size()));
  EXPECT_EQ(file.Rows(), rows);
  EXPECT_EQ(file.Ask("PRAGMA integrity_check"), "ok");
  // The same objects as in a new file, with identical statements.
  const DatabaseFolder fresh;
  constexpr const char* kSchema = "SELECT group_concat(sql, ';') FROM (SELECT sql FROM sqlite_schema ORDER BY name)";
  EXPECT_EQ(file.Ask(kSchema), AskRaw(fresh.Path(), kSchema));
}

INSTANTIATE_TEST_SUITE_P(Schema, EveryOlderRevision, testing::Range(1, static_cast<int>(SchemaRevisions().size())),
                         testing::PrintToStringParamName());

TEST(Schema, OpensAnOlderFileThatAnotherProgramIsWritingAndUpgradesItLater) {
  const FileOfRevision file(1);
  {
    SQLite::Database other(file.Path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(file.NamesWhenOpened(), kFiveNames);
    // Opening does not wait for it, no matter how often.
    EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::milliseconds(100)));
    EXPECT_EQ(file.Revision(), "1");
  }
  EXPECT_EQ(file.NamesWhenOpened(), kFiveNames);
  EXPECT_EQ(file.Revision(), std::to_string(SchemaRevisions().size()));
}

TEST(Schema, StillWaitsForAnotherProgramAfterAPostponedUpgrade) {
  const FileOfRevision file(1);
  SQLite::Database other(file.Path(), SQLite::OPEN_READWRITE);
  other.exec("BEGIN IMMEDIATE");
  SQLite::Database database(file.Path(), SQLite::OPEN_READWRITE, kBusyMilliseconds);
  UpgradeSchema(database, file.Path());
  EXPECT_EQ(database.execAndGet("PRAGMA busy_timeout").getInt(), kBusyMilliseconds);
}

TEST(Schema, OpensAnOlderFileThatCannotGrow) {
  const FileOfRevision file(1);
  SQLite::Database database(file.Path(), SQLite::OPEN_READWRITE);
  database.exec("PRAGMA max_page_count = " + database.execAndGet("PRAGMA page_count").getString());
  UpgradeSchema(database, file.Path());
  EXPECT_EQ(database.execAndGet("SELECT count(*) FROM ScalesQuery").getInt(), 5);
  EXPECT_EQ(file.Revision(), "1");
}

TEST(Schema, OpensAReadOnlyOlderFileWithoutChanges) {
  const FileOfRevision file(1);
  SQLite::Database database(file.Path(), SQLite::OPEN_READONLY);
  UpgradeSchema(database, file.Path());
  EXPECT_EQ(database.execAndGet("SELECT count(*) FROM ScalesQuery").getInt(), 5);
  EXPECT_EQ(file.Revision(), "1");
}

TEST(Schema, FindsTheLastScaleOfATypeThroughItsIndex) {
  const DatabaseFolder folder;
  SQLite::Database database(folder.Path());
  SQLite::Statement plan(database,
                         "EXPLAIN QUERY PLAN SELECT max(CAST(Sort AS INTEGER)) FROM Scales WHERE ScaleTypeID = 1");
  ASSERT_TRUE(plan.executeStep());
  EXPECT_EQ(plan.getColumn(3).getString(), "SEARCH Scales USING INDEX ScalesByTypeAndSort (ScaleTypeID=?)");
}

TEST(ScalesQueryTriggers, FillInTheDefaultsOfAnInsert) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "INSERT INTO ScalesQuery (ScaleName, ScaleTypeID, ScaleIntervals) VALUES ('Tritone', 1, '66')");
  EXPECT_EQ(
      AskRaw(folder.Path(),
             "SELECT ScaleID || ' ' || StartNote || ' ' || Chord || ' ' || Sort || ' ' || typeof(ScaleDescription) "
             "FROM Scales WHERE ScaleName = 'Tritone'"),
      "8 C 0 3 null");
}

TEST(ScalesQueryTriggers, NumberANewScaleAfterThoseOfItsType) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "INSERT INTO Scales (ScaleName, ScaleTypeID, Sort) VALUES ('Of another type', 2, 70)");
  RunRaw(folder.Path(), "INSERT INTO ScalesQuery (ScaleName, ScaleTypeID) VALUES ('Tritone', 1)");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT Sort FROM Scales WHERE ScaleName = 'Tritone'"), "3");
}

TEST(ScalesQueryTriggers, WriteYesAsOne) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "INSERT INTO ScalesQuery (ScaleName, ScaleTypeID, Chord) VALUES ('A', 1, -1)");
  RunRaw(folder.Path(), "UPDATE ScalesQuery SET Chord = -1 WHERE ScaleID = 1");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT group_concat(Chord) FROM Scales WHERE ScaleName IN ('A', 'Major')"), "1,1");
}

TEST(ScalesQueryTriggers, RaiseMessagesOfTheCatalogue) {
  const DatabaseFolder folder;
  const std::string triggers =
      AskRaw(folder.Path(), "SELECT group_concat(sql, char(10)) FROM sqlite_schema WHERE type = 'trigger'");
  static const std::regex raise(R"(RAISE\s*\(\s*\w+\s*,\s*'((?:[^']|'')*)')");
  std::set<std::string> raised;
  for (std::sregex_iterator found(triggers.begin(), triggers.end(), raise); found != std::sregex_iterator(); ++found) {
    raised.insert((*found)[1]);
  }
  EXPECT_EQ(raised.size(), 8U);
  for (const core::MessageText& text : CatalogueOf(MessageId())) raised.erase(text.english);
  EXPECT_THAT(raised, testing::IsEmpty());
}

TEST(ScalesQueryTriggers, RefuseAnInvalidInsertWithAReadableMessage) {
  const DatabaseFolder folder;
  const auto refusal = [&](const std::string& values) {
    return RawRefusal(folder.Path(),
                      "INSERT INTO ScalesQuery (ScaleName, ScaleTypeID, ScaleIntervals, Sort) VALUES (" + values + ")");
  };
  EXPECT_EQ(refusal("NULL, 1, '66', 1"), "The scale needs a name.");
  EXPECT_EQ(refusal("'  ', 1, '66', 1"), "The scale needs a name.");
  EXPECT_EQ(refusal("'mAJOR', 1, '66', 1"), "There is a scale of this name already.");
  EXPECT_EQ(refusal("'A', 1, '6-6', 1"), "The interval pattern may hold digits and blanks only.");
  EXPECT_EQ(refusal("'A', 1, '6６', 1"), "The interval pattern may hold digits and blanks only.");
  EXPECT_EQ(refusal("'A', 9, '66', 1"), "There is no scale type of this number.");
  EXPECT_EQ(refusal("'A', NULL, '66', 1"), "There is no scale type of this number.");
  EXPECT_EQ(refusal("'A', 'x', '66', 1"), "There is no scale type of this number.");
  EXPECT_EQ(refusal("'A', 1, '66', 'x'"), "The sort order number has to be a whole number.");
  EXPECT_EQ(refusal("'A', 1, '66', ''"), "The sort order number has to be a whole number.");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
  EXPECT_EQ(refusal("'A', '1', '6 6', '12'"), "not refused");
}

TEST(ScalesQueryTriggers, RefuseAnInvalidChangeWithAReadableMessage) {
  const DatabaseFolder folder;
  const auto refusal = [&](const std::string& setting) {
    return RawRefusal(folder.Path(), "UPDATE ScalesQuery SET " + setting + " WHERE ScaleID = 1");
  };
  EXPECT_EQ(refusal("ScaleName = ''"), "The scale needs a name.");
  EXPECT_EQ(refusal("ScaleName = 'minor'"), "There is a scale of this name already.");
  EXPECT_EQ(refusal("ScaleIntervals = '2a'"), "The interval pattern may hold digits and blanks only.");
  EXPECT_EQ(refusal("ScaleTypeID = 9"), "There is no scale type of this number.");
  EXPECT_EQ(refusal("ScaleTypeID = NULL"), "There is no scale type of this number.");
  EXPECT_EQ(refusal("Sort = '1.5'"), "The sort order number has to be a whole number.");
  EXPECT_EQ(refusal("ScaleID = 99"), "The number of a scale cannot be changed.");
  EXPECT_EQ(refusal("ScaleTypeName = 'Mine'"),
            "The number and name of a scale type cannot be changed through a scale.");
  EXPECT_EQ(refusal("ScaleTypeNo = 9"), "The number and name of a scale type cannot be changed through a scale.");
  EXPECT_EQ(
      AskRaw(folder.Path(), "SELECT ScaleName || ScaleIntervals || ScaleTypeID || Sort FROM Scales WHERE ScaleID = 1"),
      "Major221222111");
}

TEST(ScalesQueryTriggers, AllowValidChanges) {
  const DatabaseFolder folder;
  const auto refusal = [&](const std::string& setting) {
    return RawRefusal(folder.Path(), "UPDATE ScalesQuery SET " + setting + " WHERE ScaleID = 1");
  };
  EXPECT_EQ(refusal("ScaleName = 'MAJOR'"), "not refused");
  EXPECT_EQ(refusal("ScaleName = 'O''Neil'"), "not refused");
  EXPECT_EQ(refusal("ScaleIntervals = '22 1'"), "not refused");
  EXPECT_EQ(refusal("ScaleIntervals = NULL"), "not refused");
  EXPECT_EQ(refusal("ScaleTypeID = 2"), "not refused");
  EXPECT_EQ(refusal("ScaleTypeID = 1, ScaleTypeName = 'Common scales'"), "not refused");
  EXPECT_EQ(refusal("Sort = '7'"), "not refused");
  EXPECT_EQ(
      AskRaw(folder.Path(), "SELECT ScaleName || typeof(ScaleIntervals) || typeof(Sort) FROM Scales WHERE ScaleID = 1"),
      "O'Neilnullinteger");
}

TEST(ScalesQueryTriggers, AllowRepairingAnInvalidRowFieldByField) {
  const DatabaseFolder folder(
      "INSERT INTO ScaleTypes VALUES (1, 1, 'A'); INSERT INTO Scales (ScaleName, ScaleTypeID, ScaleIntervals, Sort) "
      "VALUES ('Twin', 1, 'bad', 'x'), ('twin', 1, '66', 1), (NULL, 1, '66', 1)");
  const auto connection = folder.Open();
  RecordSet records;
  records.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.SetFieldValue("ScaleDescription", "Still two of a name.");
  records.Update();
  records.SetFieldValue("ScaleIntervals", "66");
  records.Update();
  records.SetFieldValue("ScaleName", "Not a twin");
  records.Update();
  records.MoveLast();
  records.SetFieldValue("ScaleDescription", "Nameless.");
  records.Update();
  EXPECT_EQ(Lines(records, {"ScaleName", "ScaleIntervals", "ScaleDescription"}),
            "Not a twin | 66 | Still two of a name.\ntwin | 66 | (null)\n(null) | 66 | Nameless.\n");
}

TEST(ScalesQueryTriggers, DeleteTheScaleAndNotItsType) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "DELETE FROM ScalesQuery WHERE ScaleTypeID = 2");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "2");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM ScaleTypes"), "2");
}

}  // namespace
}  // namespace tonalith::data
