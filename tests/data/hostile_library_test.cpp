// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Malicious libraries: their stored queries and triggers never run, and fields of any length neither prevent the
// library from opening nor use all memory.

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "core/field_limits.h"
#include "data/schema_guard.h"
#include "data_fixture.h"
#include "support/recording_msg_box.h"
#include "support/timed.h"

namespace tonalith::data {
namespace {

using tests::RecordingMsgBox;

constexpr const char* kEndless = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) ";
constexpr const char* kFields =
    "1 AS ScaleTypeID, 'd' AS ScaleDescription, 'C' AS StartNote, '2' AS ScaleIntervals, "
    "0 AS Chord, 0 AS Sort, 1 AS ScaleTypeNo, 't' AS ScaleTypeName FROM n";

std::string ContentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::string NamesIn(RecordSet& records) { return Lines(records, {"ScaleName"}); }

/// Changes the name of the first scale as the editor does.
void RenameFirst(const DatabaseFolder& folder, const std::string& name) {
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open(), CursorType::kKeyset, LockType::kOptimistic);
  records.SetFieldValue("ScaleName", name);
  records.Update();
}

/// Runs a step that must end within a second.
template <class Step>
void Soon(Step step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::seconds(1)));
}

constexpr const char* kAllNames = "SELECT group_concat(ScaleName) FROM (SELECT ScaleName FROM Scales ORDER BY ScaleID)";
const std::string kFourNames = "Major\nMinor\nMajor triad\nMinor triad\n";

TEST(HostileLibrary, OwnSchemaIsRecognised) {
  const DatabaseFolder folder;
  SQLite::Database database(folder.Path(), SQLite::OPEN_READWRITE);
  EXPECT_TRUE(GuardSchema(database).isOurs);
  EXPECT_EQ(folder.Open()->NoticeText().English(), "");
  database.exec("CREATE INDEX Another ON Scales (Chord)");
  const SchemaGuard guard = GuardSchema(database);
  EXPECT_FALSE(guard.isOurs);
  EXPECT_FALSE(guard.replacesQuery);
  EXPECT_FALSE(guard.stopsTriggers);
}

TEST(HostileLibrary, EndlessStoredQueryIsReplacedWithANotice) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), std::string("DROP VIEW ScalesQuery; CREATE VIEW ScalesQuery AS ") + kEndless +
                            "SELECT i AS ScaleID, 'n' AS ScaleName, " + kFields);
  const std::string before = ContentOf(folder.Path());
  Soon([&] {
    tests::RecordingMsgBox msgBox;
    ScaleDatabase database(folder.Folder(), msgBox);
    database.OpenShared();
    EXPECT_EQ(NamesIn(*database.ScaleRecordset()), kFourNames);
    EXPECT_EQ(database.ScaleConnection()->NoticeText().English(),
              "The stored query ScalesQuery of '" + folder.Path() +
                  "' is not Tonalith's. Tonalith reads the tables with its own query and leaves the file as it is.");
  });
  EXPECT_EQ(ContentOf(folder.Path()), before);
  RenameFirst(folder, "Ionian");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Ionian");
}

TEST(HostileLibrary, TableInsteadOfTheStoredQueryIsReplaced) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(),
         "DROP VIEW ScalesQuery; CREATE TABLE ScalesQuery (ScaleID, ScaleName);"
         "INSERT INTO ScalesQuery VALUES (1, 'wrong')");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(NamesIn(records), kFourNames);
}

TEST(HostileLibrary, MissingStoredQueryIsReplacedIfTheTablesExist) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "DROP VIEW ScalesQuery");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(NamesIn(records), kFourNames);
}

TEST(HostileLibrary, ForeignTriggerNeverRunsOnSaving) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "CREATE TRIGGER Bomb AFTER UPDATE ON Scales BEGIN DELETE FROM Scales; END");
  EXPECT_EQ(folder.Open()->NoticeText().English(),
            "The database '" + folder.Path() + "' has triggers that are not Tonalith's. Tonalith does not run them.");
  RenameFirst(folder, "Ionian");
  EXPECT_EQ(AskRaw(folder.Path(), kAllNames), "Ionian,Minor,Major triad,Minor triad");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM sqlite_schema WHERE name = 'Bomb'"), "1");
}

TEST(HostileLibrary, ForeignTriggerWithTheNameOfAnOwnOneNeverRuns) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(),
         "DROP TRIGGER ScalesQueryUpdate; CREATE TRIGGER ScalesQueryUpdate INSTEAD OF UPDATE ON "
         "ScalesQuery BEGIN DELETE FROM Scales; END");
  RenameFirst(folder, "Ionian");
  EXPECT_EQ(AskRaw(folder.Path(), kAllNames), "Ionian,Minor,Major triad,Minor triad");
  EXPECT_EQ(FailureOf([&] { RenameFirst(folder, "Minor"); }).Description(), "There is a scale of this name already.");
}

TEST(HostileLibrary, ForeignQueryAndForeignTriggersMakeScalesReadOnly) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(),
         "CREATE TRIGGER Bomb AFTER UPDATE ON Scales BEGIN DELETE FROM Scales; END;"
         "DROP VIEW ScalesQuery; CREATE VIEW ScalesQuery AS SELECT * FROM Scales");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(NamesIn(records), kFourNames);
  EXPECT_EQ(
      folder.Open()->NoticeText().English(),
      "The stored query ScalesQuery of '" + folder.Path() +
          "' and its triggers are not Tonalith's. Tonalith reads the tables with its own query, and scales cannot "
          "be changed.");
  EXPECT_EQ(FailureOf([&] { RenameFirst(folder, "Ionian"); }).Description(),
            "These records can only be read, not changed.");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

TEST(HostileLibrary, StoredQueryInsteadOfATableIsRefused) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), std::string("DROP TABLE Scales; CREATE VIEW Scales AS ") + kEndless +
                            "SELECT i AS ScaleID, 'n' AS ScaleName, " + kFields);
  Soon([&] {
    EXPECT_EQ(FailureOf([&] { static_cast<void>(folder.Open()); }).Description(),
              "In the database '" + folder.Path() + "', 'Scales' is a stored query instead of a table.");
  });
}

TEST(HostileLibrary, NestedStoredQueriesTakeNoMemory) {
  const DatabaseFolder folder;
  std::string views = "ALTER TABLE Scales RENAME TO Old; CREATE VIEW v0 AS SELECT * FROM Old;";
  for (int i = 1; i < 28; ++i) {
    const std::string below = "SELECT * FROM v" + std::to_string(i - 1);
    views += "CREATE VIEW v" + std::to_string(i) + " AS " + below + " UNION ALL " + below + ";";
  }
  for (const std::string query : {"", "DROP VIEW ScalesQuery; CREATE VIEW ScalesQuery AS SELECT * FROM Scales;"}) {
    RunRaw(folder.Path(), query + views + "CREATE VIEW Scales AS SELECT * FROM v27");
    views = "";
    Soon([&] {
      EXPECT_EQ(FailureOf([&] { static_cast<void>(folder.Open()); }).Description(),
                "In the database '" + folder.Path() + "', 'Scales' is a stored query instead of a table.");
    });
    RunRaw(folder.Path(), "DROP VIEW Scales");
  }
}

TEST(HostileLibrary, EndlessJoinIsInterruptedInTime) {
  const tests::TempFolder folder;
  const std::string path = folder / "TonalithDB97.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(
          "CREATE TABLE Scales (ScaleID, ScaleName, ScaleTypeID, ScaleDescription, StartNote, ScaleIntervals, Chord, "
          "Sort); CREATE TABLE ScaleTypes (ScaleTypeID, ScaleTypeNo, ScaleTypeName);"
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
          "INSERT INTO Scales SELECT 1, 'n', 1, 'd', 'C', '2', 0, 0 FROM n;"
          "INSERT INTO ScaleTypes SELECT 1, 1, 't' FROM Scales");
  Soon([&] {
    auto connection = std::make_shared<Connection>();
    connection->Open(FullConnectionString(path));
    RecordSet records;
    EXPECT_EQ(FailureOf([&] { records.Open("SELECT * FROM ScalesQuery", connection); }).Description(),
              "The database '" + path + "' takes too long to answer. It may be damaged or made to do harm.");
  });
}

std::string Megabytes(int count) { return "printf('%.*c', " + std::to_string(count) + "000000, 'x')"; }

TEST(HostileLibrary, LongFieldIsCutAndItsRecordIsListed) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleDescription = " + Megabytes(15) + " WHERE ScaleID = 2;" +
                            "UPDATE Scales SET ScaleName = " + Megabytes(3) + " WHERE ScaleID = 4;" +
                            "UPDATE ScaleTypes SET ScaleTypeName = " + Megabytes(9) + " WHERE ScaleTypeID = 2");
  Soon([&] {
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery", folder.Open());
    EXPECT_EQ(records.RecordCount(), 4);
    records.MoveNext();
    EXPECT_EQ(FieldText(records, 3), std::string(core::kLongestDescription + 1, 'x'));
    EXPECT_EQ(FieldText(records, 1), "Minor");
    EXPECT_EQ(FieldText(records, 9), "Common scales");
    records.MoveNext();
    EXPECT_EQ(FieldText(records, 1), std::string(core::kLongestDescription + 1, 'x'));
    EXPECT_EQ(FieldText(records, 9), std::string(core::kLongestDescription + 1, 'x'));
    EXPECT_EQ(FieldText(records, 5), "435");
    records.MoveLast();
    EXPECT_EQ(FieldText(records, 1), "Minor triad");
    records.MovePrevious();
    records.MovePrevious();
    EXPECT_EQ(FieldText(records, 1), "Minor");
    const auto names = records.Clone({"ScaleName"});
    EXPECT_EQ(FieldText(*names, 0), "Major");
  });
}

TEST(HostileLibrary, NameOfSomeMegabytesIsNotCut) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleName = " + Megabytes(3) + " WHERE ScaleID = 1");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(FieldText(records, 1).size(), 3'000'000U);
  tests::RecordingMsgBox msgBox;
  ScaleDatabase database(folder.Folder(), msgBox);
  EXPECT_EQ(database.GetScaleIntervalsFromDB(FieldText(records, 1)).size(), 7U);
}

TEST(HostileLibrary, FieldThatIsTooLongToReadIsReplacedByDots) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleDescription = " + Megabytes(20) + " WHERE ScaleID = 1");
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", folder.Open());
  EXPECT_EQ(FieldText(records, 3), std::string(core::kLongestDescription + 1, '.'));
  records.MoveNext();
  EXPECT_EQ(FieldText(records, 3), "Dark.");
}

TEST(HostileLibrary, SavingAnotherFieldPreservesALongOne) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "UPDATE Scales SET ScaleDescription = " + Megabytes(4) + " WHERE ScaleID = 1");
  RenameFirst(folder, "Ionian");
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT ScaleName || length(ScaleDescription) FROM Scales WHERE ScaleID = 1"),
            "Ionian4000000");
}

TEST(HostileLibrary, LongFieldsInAForeignFileAreCutToo) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "PRAGMA application_id = 0; UPDATE Scales SET ScaleDescription = " + Megabytes(15) +
                            " WHERE ScaleID IN (1, 7)");
  Soon([&] {
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery", folder.Open());
    EXPECT_EQ(FieldText(records, 3), std::string(core::kLongestDescription + 1, 'x'));
    EXPECT_EQ(NamesIn(records), kFourNames);
    records.SetFilter("ScaleName='Minor'");
    EXPECT_EQ(NamesIn(records), "Minor\n");
  });
}

TEST(HostileLibrary, ComputedFieldOfAnyLengthFailsInTime) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "ALTER TABLE Scales ADD COLUMN Huge AS (replace(hex(zeroblob(15000000)), '0', '1'))");
  Soon([&] {
    RecordSet records;
    records.Open("SELECT * FROM ScalesQuery", folder.Open());
    EXPECT_EQ(NamesIn(records), kFourNames);
  });
}

}  // namespace
}  // namespace tonalith::data
