// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A disk that fills up during an import, a save or a deletion: nothing is lost, nothing is partly written, and a
// message reports the cause.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "data/pack_disaster_fixture.h"
#include "data/pack_disk.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::StartsWith;

class FullDiskTest : public DataPackImportTest {
 protected:
  [[nodiscard]] std::string IsFull() const {
    return "The disk that holds '" + Main() + "' is full. Nothing was saved.";
  }
  [[nodiscard]] std::string FailedImport(const std::string& pack) const {
    return "Error importing " + pack + "\n" + IsFull() + "\n";
  }
  static std::string LongText() { return std::string(30'000, 'x'); }
};

TEST_F(FullDiskTest, LeavesNothingOfAPackIfItFillsUpAtAnyStep) {
  const std::string pack = MakePack("DataPack_A.mdb", PackOfManyPages());
  const std::string before = ContentOfDatabase(Main());
  PackDisk disk;
  int refusals = 0;
  for (;; ++refusals) {
    disk.FillUpAfter(refusals);
    Install(pack);
    disk.MakeRoom();
    const std::string shown = Shown();
    if (shown == Imported(pack)) break;
    ASSERT_EQ(shown, FailedImport(pack)) << refusals;
    ASSERT_EQ(ContentOfDatabase(Main()), before) << refusals;
    ExpectAtRest(Main());
  }
  EXPECT_GT(refusals, 20);
  EXPECT_EQ(Ask("SELECT count(*) || ' ' || (SELECT count(*) FROM ScaleTypes) FROM Scales"), "64 4");
  ExpectAtRest(Main());
}

TEST_F(FullDiskTest, RollsBackTheWrittenPartOfALargePack) {
  const std::string pack = MakePack("DataPack_A.mdb",
                                    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                                    "INSERT INTO Scales (ScaleName, ScaleDescription) "
                                    "SELECT 'Saga ' || i, hex(zeroblob(4000)) FROM n;");
  const std::string before = ContentOfDatabase(Main());
  const auto size = fs::file_size(Main());
  PackDisk disk;
  disk.FillUpAfter(2000);
  Install(pack);
  disk.MakeRoom();
  EXPECT_EQ(Shown(), FailedImport(pack));
  EXPECT_GT(disk.Growths(), 2000);
  EXPECT_EQ(ContentOfDatabase(Main()), before);
  EXPECT_EQ(fs::file_size(Main()), size);
  ExpectAtRest(Main());
}

TEST_F(FullDiskTest, KeepsAnEditAndTheRecordIfASaveFailsAtAnyStep) {
  const std::string before = ContentOfDatabase(Main());
  PackDisk disk;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", program_.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
  records.SetFieldValue("ScaleName", "Ionian");
  records.SetFieldValue("ScaleDescription", LongText());
  int refusals = 0;
  for (; records.IsEditPending(); ++refusals) {
    disk.FillUpAfter(refusals);
    try {
      records.UpdateBatch();
    } catch (const core::Failure& failure) {
      disk.MakeRoom();
      ASSERT_EQ(failure.Description(), IsFull());
      ASSERT_TRUE(records.IsEditPending());
      ASSERT_EQ(records.FieldValue("ScaleName"), core::Value("Ionian"));
      ASSERT_EQ(ContentOfDatabase(Main()), before);
      ExpectAtRest(Main());
    }
    disk.MakeRoom();
  }
  EXPECT_GT(refusals, 5);
  EXPECT_EQ(Ask("SELECT ScaleName || length(ScaleDescription) FROM Scales WHERE ScaleID = 1"), "Ionian30000");
}

TEST_F(FullDiskTest, KeepsANewRecordPendingIfItsSaveFailsAtAnyStep) {
  const std::string before = ContentOfDatabase(Main());
  PackDisk disk;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", program_.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
  records.AddNew();
  records.SetFieldValue("ScaleName", "New");
  records.SetFieldValue("ScaleTypeID", 2);
  records.SetFieldValue("ScaleDescription", LongText());
  int refusals = 0;
  for (; records.IsEditPending(); ++refusals) {
    disk.FillUpAfter(refusals);
    try {
      records.UpdateBatch();
    } catch (const core::Failure& failure) {
      disk.MakeRoom();
      ASSERT_EQ(failure.Description(), IsFull());
      ASSERT_EQ(records.FieldValue("ScaleName"), core::Value("New"));
      ASSERT_EQ(ContentOfDatabase(Main()), before);
    }
    disk.MakeRoom();
  }
  EXPECT_GT(refusals, 5);
  EXPECT_EQ(records.FieldValue("ScaleID"), core::Value(std::int64_t{8}));
  EXPECT_EQ(Ask("SELECT count(*) || max(ScaleID) FROM Scales"), "58") << "no number was used up by the refusals";
}

TEST_F(FullDiskTest, DeletesCompletelyOrNotAtAll) {
  RunRaw(Main(), "UPDATE Scales SET ScaleDescription = hex(zeroblob(20000)) WHERE ScaleID = 2");
  const std::string before = ContentOfDatabase(Main());
  PackDisk disk;
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", program_.Open(), CursorType::kKeyset, LockType::kBatchOptimistic);
  records.MoveNext();
  int refusals = 0;
  for (bool isDeleted = false; !isDeleted; ++refusals) {
    disk.FillUpAfter(refusals);
    try {
      records.Delete();
      isDeleted = true;
    } catch (const core::Failure& failure) {
      disk.MakeRoom();
      ASSERT_EQ(failure.Description(), IsFull());
      ASSERT_EQ(Here(records), "Minor");
      ASSERT_EQ(ContentOfDatabase(Main()), before);
    }
    disk.MakeRoom();
  }
  EXPECT_GT(refusals, 3);
  EXPECT_EQ(Ask("SELECT group_concat(ScaleID) FROM Scales"), "1,4,7");
  ExpectAtRest(Main());
}

// A real file system that is full, with the errors of the system.
TEST(SmallDisk, ImportAndSaveFailWithAMessageAndWithoutLoss) {
  const tests::TempFolder temp;
  const SmallDisk disk(temp.Path().string(), 512);
  if (!disk.IsThere()) GTEST_SKIP() << "this system lets nobody mount a file system";
  const std::string path = temp / kDatabaseFileName;
  const std::string isFull = "The disk that holds '" + path + "' is full. Nothing was saved.";
  CreateScaleDatabase(path);
  RunRaw(path, kFourScales);
  const tests::TempFolder elsewhere;
  CreateScaleDatabase(elsewhere / "DataPack_A.mdb");
  RunRaw(elsewhere / "DataPack_A.mdb", PackOfManyPages());
  disk.FillUp(24);
  const std::string before = ContentOfDatabase(path);
  const fs::path folder = fs::current_path();
  fs::current_path(temp.Path());
  tests::RecordingMsgBox msgBox;
  CountingObserver observer;
  DataPackImport import(temp.Path().string(), msgBox, observer);

  import.ImportDataPack(elsewhere / "DataPack_A.mdb");
  EXPECT_EQ(msgBox.Texts(), "Error importing " + elsewhere / "DataPack_A.mdb" + "\n" + isFull + "\n");
  EXPECT_EQ(ContentOfDatabase(path), before);
  const auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", connection, CursorType::kKeyset, LockType::kBatchOptimistic);
  records.SetFieldValue("ScaleDescription", std::string(60'000, 'x'));
  EXPECT_EQ(FailureOf([&] { records.UpdateBatch(); }).Description(), isFull);
  EXPECT_EQ(ContentOfDatabase(path), before);
  ExpectAtRest(path);

  disk.MakeRoom();
  records.UpdateBatch();
  import.ImportDataPack(elsewhere / "DataPack_A.mdb");
  EXPECT_THAT(msgBox.Messages().back().text, StartsWith("Imported data pack: "));
  EXPECT_EQ(AskRaw(path, "SELECT count(*) || max(length(ScaleDescription)) FROM Scales"), "6460000");
  fs::current_path(folder);
}

}  // namespace
}  // namespace tonalith::data
