// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Connections and record sets over genuine Jet files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "data/data_failure.h"
#include "data/data_fixture.h"
#include "jet/jet_fixture.h"

namespace tonalith::data {
namespace {

std::shared_ptr<Connection> OpenJet(const std::string& path) {
  auto connection = std::make_shared<Connection>();
  connection->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path);
  return connection;
}

TEST(JetConnection, OpensRecordSetsOverItsTables) {
  const auto connection = OpenJet(jet::kJet2000);
  RecordSet types;
  types.Open("SELECT * FROM ScaleTypes", connection, CursorType::kStatic, LockType::kReadOnly);
  EXPECT_EQ(Lines(types, {"ScaleTypeID", "ScaleTypeNo", "ScaleTypeName"}),
            "401 | 401 | Fixture modes\n1 | 1 | A name the main database has under another word\n");
  RecordSet scales;
  scales.Open("SELECT * FROM Scales", OpenJet(jet::kJet2003), CursorType::kStatic, LockType::kReadOnly);
  EXPECT_EQ(scales.RecordCount(), 270);
  EXPECT_EQ(scales.FieldCount(), 13);
}

TEST(JetConnection, ComparesTextWithoutRegardToCase) {
  RecordSet scales;
  scales.Open("SELECT ScaleIntervals FROM Scales WHERE ScaleName = 'FERRYMAN''S LAMENT'", OpenJet(jet::kJet2000));
  EXPECT_EQ(FieldText(scales, 0), "2131221");
}

TEST(JetConnection, IsReadOnly) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("a.mdb", jet::ContentOfFile(jet::kJet2000));
  const auto connection = OpenJet(path);
  EXPECT_TRUE(connection->IsReadOnly());
  RecordSet scales;
  scales.Open("SELECT * FROM Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  scales.SetFieldValue("ScaleName", "x");
  EXPECT_EQ(FailureOf([&] { scales.Update(); }).Description(),
            "Cannot update. The database '" + path + "' or its folder is read-only.");
  EXPECT_EQ(jet::ContentOfFile(path), jet::ContentOfFile(jet::kJet2000));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(JetConnection, HasNoStoredQueryIfTheFileHasNone) {
  RecordSet scales;
  EXPECT_EQ(FailureOf([&] { scales.Open("SELECT * FROM ScalesQuery", OpenJet(jet::kJet2000)); }).Number(),
            failure_number::kUnknownTable);
}

TEST(JetConnection, NamesADamagedFileInItsFailure) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("a.mdb", jet::ContentOfFile(jet::kJet2000).substr(0, 20 * jet::kJetPage));
  EXPECT_THAT(FailureOf([&] { OpenJet(path); }).Description(),
              ::testing::StartsWith("The file '" + path + "' cannot be read: it is damaged"));
}

}  // namespace
}  // namespace tonalith::data
