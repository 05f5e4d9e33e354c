// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "data/data_failure.h"
#include "data/record_set.h"
#include "data_fixture.h"

namespace tonalith::data {
namespace {

constexpr const char* kAllNames =
    "SELECT group_concat(ScaleName, ', ') FROM (SELECT ScaleName FROM Scales ORDER BY ScaleID)";

// A record set over the stored query in a temporary file.
class EditedScales : public DatabaseFolder {
 public:
  explicit EditedScales(LockType lock) : connection_(Open()) {
    records_.Open("SELECT * FROM ScalesQuery", connection_, CursorType::kKeyset, lock);
  }
  RecordSet* operator->() { return &records_; }
  RecordSet& operator*() { return records_; }
  [[nodiscard]] std::shared_ptr<Connection> SharedConnection() const { return connection_; }
  [[nodiscard]] std::string InFile(const std::string& sql) const { return AskRaw(Path(), sql); }
  [[nodiscard]] std::string Names() const { return InFile(kAllNames); }

 private:
  std::shared_ptr<Connection> connection_;
  RecordSet records_;
};

void SetNewScale(RecordSet& records, const std::string& name) {
  records.AddNew();
  records.SetFieldValue("ScaleName", name);
  records.SetFieldValue("ScaleTypeID", 1);
  records.SetFieldValue("ScaleIntervals", "66");
}

TEST(RecordSetEdit, RefusesEveryWriteUnderAReadOnlyLock) {
  EditedScales scales(LockType::kReadOnly);
  EXPECT_EQ(FailureOf([&] { scales->SetFieldValue("ScaleName", "x"); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { scales->AddNew(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { scales->Delete(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { scales->Update(); }).Number(), 3251);
  EXPECT_EQ(FailureOf([&] { scales->UpdateBatch(); }).Number(), 3251);
  EXPECT_FALSE(scales->IsEditPending());
}

TEST(RecordSetEdit, RefusesToWriteRowsWithoutAKey) {
  const DatabaseFolder folder;
  RecordSet records;
  records.Open("SELECT * FROM Scales ORDER BY Sort", folder.Open(), CursorType::kKeyset, LockType::kOptimistic);
  EXPECT_EQ(FailureOf([&] { records.Delete(); }).Number(), 3251);
}

TEST(RecordSetEdit, WritesAnEditWhenUpdated) {
  EditedScales scales(LockType::kOptimistic);
  scales->MoveNext();
  scales->SetFieldValue("ScaleDescription", "Darker.");
  EXPECT_TRUE(scales->IsEditPending());
  EXPECT_EQ(scales->FieldValue("ScaleDescription"), core::Value("Darker."));
  EXPECT_EQ(scales.InFile("SELECT ScaleDescription FROM Scales WHERE ScaleID = 2"), "Dark.");
  scales->Update();
  EXPECT_FALSE(scales->IsEditPending());
  EXPECT_EQ(scales.InFile("SELECT ScaleDescription FROM Scales WHERE ScaleID = 2"), "Darker.");
  EXPECT_EQ(Here(*scales), "Minor");
  EXPECT_EQ(scales->AbsolutePosition(), 2);
}

TEST(RecordSetEdit, ChangesOnlyTheFieldsThatWereSet) {
  EditedScales scales(LockType::kOptimistic);
  // The triggers detect every written field, even if its content does not change.
  std::string triggers = "CREATE TABLE Written (Field TEXT);";
  for (const std::string field : {"ScaleName", "ScaleTypeID", "ScaleDescription", "StartNote", "ScaleIntervals"}) {
    triggers += "CREATE TRIGGER Notice" + field + " INSTEAD OF UPDATE OF " + field +
                " ON ScalesQuery BEGIN INSERT INTO Written VALUES ('" + field + "'); END;";
  }
  RunRaw(scales.Path(), triggers);
  scales->SetFieldValue("ScaleDescription", "Brighter.");
  scales->Update();
  EXPECT_EQ(scales.InFile("SELECT group_concat(Field) FROM Written"), "ScaleDescription");
}

TEST(RecordSetEdit, HasNothingPendingAfterAFieldIsSetToItsOwnContent) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFieldValue("ScaleName", "Major");
  EXPECT_FALSE(scales->IsEditPending());
  scales->SetFieldValue("ScaleName", "Other");
  scales->SetFieldValue("ScaleName", "Major");
  EXPECT_FALSE(scales->IsEditPending());
}

TEST(RecordSetEdit, SavesThePendingEditOnEveryMove) {
  for (int move = 0; move < 7; ++move) {
    EditedScales scales(LockType::kBatchOptimistic);
    scales->MoveNext();
    const Bookmark here = scales->GetBookmark();
    scales->SetFieldValue("ScaleName", "Saved");
    if (move == 0) scales->MoveFirst();
    if (move == 1) scales->MoveLast();
    if (move == 2) scales->MoveNext();
    if (move == 3) scales->MovePrevious();
    if (move == 4) scales->SetBookmark(here);
    if (move == 5) scales->SetFilter("Chord=True");
    if (move == 6) scales->AddNew();
    EXPECT_EQ(scales.Names(), "Major, Saved, Major triad, Minor triad") << move;
  }
}

TEST(RecordSetEdit, StaysOnTheRowWithItsEditWhenAMoveCannotSaveIt) {
  EditedScales scales(LockType::kBatchOptimistic);
  scales->MoveNext();
  scales->SetFieldValue("ScaleName", "major");
  EXPECT_EQ(FailureOf([&] { scales->MoveNext(); }).Description(), "There is a scale of this name already.");
  EXPECT_EQ(FailureOf([&] { scales->MoveFirst(); }).Description(), "There is a scale of this name already.");
  EXPECT_EQ(FailureOf([&] { scales->SetFilter("Chord=True"); }).Number(), core::failure_number::kUnspecified);
  EXPECT_EQ(FailureOf([&] { scales->SetBookmark({1}); }).Number(), core::failure_number::kUnspecified);
  EXPECT_EQ(Here(*scales), "major");
  EXPECT_EQ(scales->FieldValue("ScaleID"), core::Value(2));
  EXPECT_TRUE(scales->IsEditPending());
  scales->SetFieldValue("ScaleName", "Major two");
  scales->MoveNext();
  EXPECT_EQ(Here(*scales), "Major triad");
  EXPECT_EQ(scales.Names(), "Major, Major two, Major triad, Minor triad");
}

TEST(RecordSetEdit, KeepsABatchPendingUntilUpdateBatch) {
  EditedScales scales(LockType::kBatchOptimistic);
  scales->SetFieldValue("ScaleName", "Later");
  scales->Update();
  EXPECT_TRUE(scales->IsEditPending());
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad");
  scales->UpdateBatch();
  EXPECT_FALSE(scales->IsEditPending());
  EXPECT_EQ(scales.Names(), "Later, Minor, Major triad, Minor triad");
  scales->UpdateBatch();
}

TEST(RecordSetEdit, DropsAnEditWhenCancelled) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFieldValue("ScaleName", "Other");
  scales->CancelUpdate();
  EXPECT_EQ(Here(*scales), "Major");
  scales->MoveNext();
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad");
}

TEST(RecordSetEdit, AddsARowAndMovesToIt) {
  EditedScales scales(LockType::kOptimistic);
  SetNewScale(*scales, "Tritone");
  EXPECT_EQ(scales->AbsolutePosition(), -1);
  EXPECT_FALSE(scales->IsBof());
  EXPECT_FALSE(scales->IsEof());
  EXPECT_TRUE(scales->FieldValue("ScaleID").IsNull());
  scales->Update();
  EXPECT_EQ(scales->FieldValue("ScaleID"), core::Value(8));
  EXPECT_EQ(scales->FieldValue("ScaleTypeName"), core::Value("Common scales"));
  EXPECT_EQ(scales->AbsolutePosition(), 5);
  EXPECT_EQ(scales->RecordCount(), 5);
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad, Tritone");
}

TEST(RecordSetEdit, AddsARowWithAGivenNumber) {
  EditedScales scales(LockType::kOptimistic);
  SetNewScale(*scales, "Tritone");
  scales->SetFieldValue("ScaleID", 5);
  scales->Update();
  EXPECT_EQ(scales->FieldValue("ScaleID"), core::Value(5));
  EXPECT_EQ(scales->AbsolutePosition(), 4);
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Tritone, Minor triad");
}

TEST(RecordSetEdit, KeepsANewRowPendingWhenItIsRefused) {
  EditedScales scales(LockType::kBatchOptimistic);
  SetNewScale(*scales, "minor");
  EXPECT_EQ(FailureOf([&] { scales->UpdateBatch(); }).Description(), "There is a scale of this name already.");
  EXPECT_EQ(FailureOf([&] { scales->MoveFirst(); }).Description(), "There is a scale of this name already.");
  EXPECT_TRUE(scales->IsEditPending());
  EXPECT_EQ(scales->FieldValue("ScaleIntervals"), core::Value("66"));
  scales->SetFieldValue("ScaleName", "Tritone");
  scales->UpdateBatch();
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad, Tritone");
}

TEST(RecordSetEdit, ReturnsToTheRowBeforeWhenANewOneIsCancelled) {
  EditedScales scales(LockType::kOptimistic);
  scales->MoveNext();
  SetNewScale(*scales, "Tritone");
  scales->CancelUpdate();
  EXPECT_EQ(Here(*scales), "Minor");
  EXPECT_EQ(scales->AbsolutePosition(), 2);
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad");
}

TEST(RecordSetEdit, AddsTheFirstRowOfAnEmptyDatabase) {
  const DatabaseFolder folder("INSERT INTO ScaleTypes VALUES (1, 1, 'A')");
  RecordSet records;
  records.Open("ScalesQuery", folder.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
  SetNewScale(records, "Only");
  records.UpdateBatch();
  EXPECT_EQ(Lines(records, {"ScaleID", "ScaleName"}), "1 | Only\n");
}

TEST(RecordSetEdit, StaysOnANewRowThatItsFilterHides) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFilter("Chord=True");
  SetNewScale(*scales, "Tritone");
  scales->Update();
  EXPECT_EQ(Here(*scales), "Tritone");
  scales->MovePrevious();
  EXPECT_EQ(Here(*scales), "Minor triad");
  EXPECT_EQ(scales->RecordCount(), 2);
}

TEST(RecordSetEdit, DeletesAtOnceWithAnyLock) {
  EditedScales scales(LockType::kBatchOptimistic);
  scales->MoveNext();
  scales->Delete();
  EXPECT_EQ(scales.Names(), "Major, Major triad, Minor triad");
  EXPECT_EQ(FailureOf([&] { (void)scales->FieldValue("ScaleName"); }).Number(), 3021);
  EXPECT_EQ(FailureOf([&] { (void)scales->GetBookmark(); }).Number(), 3021);
  EXPECT_EQ(FailureOf([&] { scales->Delete(); }).Number(), 3021);
  EXPECT_EQ(scales->AbsolutePosition(), -1);
  scales->MoveNext();
  EXPECT_EQ(Here(*scales), "Major triad");
  EXPECT_EQ(scales->AbsolutePosition(), 2);
  scales->MovePrevious();
  EXPECT_EQ(Here(*scales), "Major");
}

TEST(RecordSetEdit, ShowsTheNewLastRowAfterTheLastOneWasDeleted) {
  EditedScales scales(LockType::kOptimistic);
  scales->MoveLast();
  scales->Delete();
  scales->MoveNext();
  EXPECT_TRUE(scales->IsEof());
  scales->MoveLast();
  EXPECT_EQ(Here(*scales), "Major triad");
}

TEST(RecordSetEdit, IsEmptyAfterItsOnlyRowWasDeleted) {
  for (const bool isForward : {true, false}) {
    const DatabaseFolder folder(
        "INSERT INTO ScaleTypes VALUES (1, 1, 'A'); INSERT INTO Scales (ScaleName, ScaleTypeID) VALUES ('Only', 1)");
    RecordSet records;
    records.Open("ScalesQuery", folder.Open(), CursorType::kKeyset, LockType::kOptimistic);
    records.Delete();
    EXPECT_FALSE(records.IsEof());
    isForward ? records.MoveNext() : records.MovePrevious();
    EXPECT_EQ(Here(records), "(no rows)");
    EXPECT_EQ(FailureOf([&] { records.MoveLast(); }).Number(), 3021);
  }
}

TEST(RecordSetEdit, DropsAPendingEditWithItsDeletedRow) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFieldValue("ScaleName", "Other");
  scales->Delete();
  EXPECT_FALSE(scales->IsEditPending());
  scales->MoveNext();
  EXPECT_EQ(scales.Names(), "Minor, Major triad, Minor triad");
}

TEST(RecordSetEdit, DeletesNoRowThatWasNotSavedYet) {
  EditedScales scales(LockType::kOptimistic);
  scales->AddNew();
  EXPECT_EQ(FailureOf([&] { scales->Delete(); }).Number(), 3219);
  EXPECT_EQ(scales.Names(), "Major, Minor, Major triad, Minor triad");
}

TEST(RecordSetEdit, NeverReusesTheNumberOfADeletedScale) {
  EditedScales scales(LockType::kOptimistic);
  scales->MoveLast();
  const Bookmark last = scales->GetBookmark();
  scales->Delete();
  SetNewScale(*scales, "Tritone");
  scales->Update();
  EXPECT_EQ(scales->FieldValue("ScaleID"), core::Value(8));
  EXPECT_EQ(FailureOf([&] { scales->SetBookmark(last); }).Number(), failure_number::kInvalidBookmark);
}

TEST(RecordSetEdit, ReportsADeletedRowAndKeepsTheEdit) {
  EditedScales scales(LockType::kOptimistic);
  RunRaw(scales.Path(), "DELETE FROM Scales WHERE ScaleID = 1");
  scales->SetFieldValue("ScaleName", "Other");
  EXPECT_EQ(FailureOf([&] { scales->Update(); }).Number(), failure_number::kRowVanished);
  EXPECT_TRUE(scales->IsEditPending());
  EXPECT_EQ(FailureOf([&] { scales->Delete(); }).Number(), failure_number::kRowVanished);
  scales->CancelUpdate();
  scales->MoveNext();
  EXPECT_EQ(Here(*scales), "Minor");
}

TEST(RecordSetEdit, RefusesToCloseOrRequeryOverAPendingEdit) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFieldValue("ScaleName", "Other");
  EXPECT_EQ(FailureOf([&] { scales->Close(); }).Number(), 3219);
  EXPECT_EQ(FailureOf([&] { scales->Requery(); }).Number(), 3219);
  scales->Update();
  scales->Close();
}

TEST(RecordSetEdit, KeepsThePendingEditIfAnotherProgramHasTheFileLocked) {
  EditedScales scales(LockType::kOptimistic);
  scales->SetFieldValue("ScaleName", "Other");
  {
    SQLite::Database other(scales.Path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(FailureOf([&] { scales->Update(); }).Description(),
              "Could not use '" + scales.Path() + "'; file already in use.");
  }
  EXPECT_EQ(Here(*scales), "Other");
  scales->Update();
  EXPECT_EQ(scales.Names(), "Other, Minor, Major triad, Minor triad");
}

TEST(RecordSetEdit, WritesTextOfEveryKindUnchanged) {
  EditedScales scales(LockType::kOptimistic);
  const std::string text = "'); DROP TABLE Scales; -- \" % _ \t Ünïcödé 音";
  scales->SetFieldValue("ScaleName", text);
  scales->SetFieldValue("ScaleDescription", core::Value());
  scales->Update();
  EXPECT_EQ(scales->FieldValue("ScaleName"), core::Value(text));
  EXPECT_EQ(scales.InFile("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), text);
  EXPECT_EQ(scales.InFile("SELECT ScaleDescription IS NULL FROM Scales WHERE ScaleID = 1"), "1");
}

TEST(RecordSetEdit, WritesTheTablesThemselvesWithoutChecks) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  RecordSet types;
  types.Open("SELECT * FROM ScaleTypes", connection, CursorType::kKeyset, LockType::kOptimistic);
  types.SetFilter("ScaleTypeID=5");
  ASSERT_TRUE(types.IsEof());
  types.AddNew();
  types.SetFieldValue("ScaleTypeID", 5);
  types.SetFieldValue("ScaleTypeName", "Fifth");
  types.Update();
  types.SetFilter("");
  EXPECT_EQ(types.RecordCount(), 3);
  RecordSet scales;
  scales.Open("SELECT * FROM Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  scales.AddNew();
  scales.SetFieldValue("ScaleName", "Major");
  scales.SetFieldValue("ScaleIntervals", "no digits");
  scales.Update();
  EXPECT_EQ(scales.FieldValue("ScaleID"), core::Value(8));
  EXPECT_EQ(scales.FieldValue("StartNote"), core::Value("C"));
  EXPECT_EQ(scales.FieldValue("Chord"), core::Value(0));
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales WHERE ScaleName = 'Major'"), "2");
}

TEST(RecordSetEdit, ReportsADuplicateKey) {
  const DatabaseFolder folder;
  RecordSet types;
  types.Open("ScaleTypes", folder.Open(), CursorType::kKeyset, LockType::kOptimistic);
  types.AddNew();
  types.SetFieldValue("ScaleTypeID", 1);
  EXPECT_EQ(FailureOf([&] { types.Update(); }).Description(),
            "The record was not saved, because another record has the same key.");
}

TEST(RecordSetEdit, LeavesTheStateBeforeOrAfterAWriteWhenTheProgramIsKilled) {
  const DatabaseFolder folder;
  for (int round = 0; round < 5; ++round) {
    const pid_t child = ::fork();
    if (child == 0) {
      RecordSet records;
      records.Open("ScalesQuery", folder.Open(), CursorType::kKeyset, LockType::kOptimistic);
      for (int i = 0;; ++i) {
        records.SetFieldValue("ScaleDescription", "state " + std::to_string(i));
        records.SetFieldValue("StartNote", std::to_string(i));
        records.Update();
      }
    }
    // The kill comes at another moment in each round.
    ::usleep(20000 + round * 7000);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    RecordSet records;
    records.Open("ScalesQuery", folder.Open());
    const std::string note = records.FieldValue("StartNote").AsText();
    const std::string expected = note == "C" ? "Bright." : "state " + note;
    EXPECT_EQ(records.FieldValue("ScaleDescription"), core::Value(expected));
    EXPECT_EQ(records.RecordCount(), 4);
    EXPECT_EQ(AskRaw(folder.Path(), "PRAGMA integrity_check"), "ok");
  }
}

}  // namespace
}  // namespace tonalith::data
