// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Installs the built data packs into a copy of the built main database, as the program does. Every row of the text
// tables must be imported in any order of packs, because the import skips existing names and type numbers.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "content/scale_library.h"
#include "data/data_pack_import.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::content_tests {
namespace {

namespace fs = std::filesystem;

const fs::path kBuilt = fs::path(TONALITH_BINARY_DIR) / "content";

class SilentObserver : public data::DataPackObserver {
 public:
  void DataPackDone() override {}
  void ImportProgress(const std::string&, std::int64_t) override {}
};

/// The fields of every row as one line, by name, without the number, which the import assigns.
using RowsByName = std::map<std::string, std::string>;

std::string InOneLine(const ScaleRow& row) {
  return std::to_string(row.scaleTypeId) + "|" + row.startNote + "|" + row.scaleIntervals + "|" +
         (row.isChord ? "chord" : "scale") + "|" + std::to_string(row.sort) + "|" + row.scaleDescription;
}

RowsByName RowsOfTables() {
  RowsByName rows;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) rows[row.scaleName] = InOneLine(row);
  return rows;
}

RowsByName FormulasOfTables() {
  RowsByName rows;
  for (const ScaleRow& row : ScaleLibrary::WithPacks().Rows()) {
    std::string& line = rows[row.scaleName] = row.formula;
    for (const std::string& alias : row.aliases) line += "; " + alias;
  }
  return rows;
}

// A program folder with copies of the main database and all packs, which is the current directory.
class ShippedPacks : public ::testing::Test {
 protected:
  ShippedPacks() : before_(fs::current_path()) {
    fs::create_directory(folder_.Path() / "DataPacks");
    for (const auto& entry : fs::directory_iterator(kBuilt / "packs")) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with("DataPack_") || !name.ends_with(".mdb")) continue;
      fs::copy_file(entry.path(), folder_.Path() / "DataPacks" / name);
      packs_.push_back((folder_.Path() / "DataPacks" / name).string());
    }
    std::ranges::sort(packs_);
    CopyMain();
    fs::current_path(folder_.Path());
  }
  ~ShippedPacks() override { fs::current_path(before_); }

  void CopyMain() const {
    fs::copy_file(kBuilt / "TonalithDB97.mdb", folder_.Path() / "TonalithDB97.mdb",
                  fs::copy_options::overwrite_existing);
  }

  [[nodiscard]] RowsByName Installed() const {
    SQLite::Database database(folder_ / "TonalithDB97.mdb", SQLite::OPEN_READONLY);
    SQLite::Statement query(database,
                            "SELECT ScaleName, ScaleTypeID || '|' || StartNote || '|' || ScaleIntervals || '|' || "
                            "iif(Chord, 'chord', 'scale') || '|' || Sort || '|' || ScaleDescription FROM Scales");
    RowsByName rows;
    while (query.executeStep()) {
      EXPECT_TRUE(rows.emplace(query.getColumn(0).getString(), query.getColumn(1).getString()).second);
    }
    return rows;
  }

  [[nodiscard]] std::string InstalledTypes() const {
    SQLite::Database database(folder_ / "TonalithDB97.mdb", SQLite::OPEN_READONLY);
    SQLite::Statement query(database,
                            "SELECT ScaleTypeID, ScaleTypeNo, ScaleTypeName FROM ScaleTypes ORDER BY ScaleTypeID");
    std::string types;
    while (query.executeStep()) {
      types += query.getColumn(0).getString() + " " + query.getColumn(1).getString() + " " +
               query.getColumn(2).getString() + "\n";
    }
    return types;
  }

  /// The formula and the aliases of every scale as one line, by name.
  [[nodiscard]] RowsByName InstalledFormulas() const {
    SQLite::Database database(folder_ / "TonalithDB97.mdb", SQLite::OPEN_READONLY);
    SQLite::Statement query(
        database,
        "SELECT ScaleName, Formula || ifnull((SELECT group_concat('; ' || Alias, '') FROM (SELECT Alias FROM "
        "ScaleAliases WHERE ScaleID = Scales.ScaleID AND ScaleName = Scales.ScaleName AND ScaleIntervals = "
        "Scales.ScaleIntervals ORDER BY Place)), '') FROM Scales JOIN ScaleFormulas USING (ScaleID, ScaleName, "
        "ScaleIntervals)");
    RowsByName rows;
    while (query.executeStep()) rows.emplace(query.getColumn(0).getString(), query.getColumn(1).getString());
    return rows;
  }

  void Install(const std::vector<std::string>& packs) {
    for (const std::string& pack : packs) import_.ImportDataPack(pack);
  }

  void ExpectEveryRow() const {
    EXPECT_EQ(Installed(), RowsOfTables());
    EXPECT_EQ(InstalledFormulas(), FormulasOfTables());
    std::vector<ScaleTypeRow> types = ScaleLibrary::WithPacks().Types();
    std::ranges::sort(types, {}, &ScaleTypeRow::scaleTypeId);
    std::string expected;
    for (const ScaleTypeRow& type : types) {
      expected +=
          std::to_string(type.scaleTypeId) + " " + std::to_string(type.scaleTypeNo) + " " + type.scaleTypeName + "\n";
    }
    EXPECT_EQ(InstalledTypes(), expected);
  }

  tests::TempFolder folder_;
  fs::path before_;
  std::vector<std::string> packs_;
  tests::RecordingMsgBox msgBox_;
  SilentObserver observer_;
  data::DataPackImport import_{folder_.Path().string(), msgBox_, observer_};
};

TEST_F(ShippedPacks, AreBuiltFromEveryFolderOfTables) { EXPECT_EQ(packs_.size(), PackFolders().size()); }

TEST_F(ShippedPacks, AddEveryRowOfTheTables) {
  std::vector<std::string> installed = import_.GetAvailableDataPacks();
  std::ranges::sort(installed);
  EXPECT_EQ(installed, packs_);
  EXPECT_EQ(msgBox_.Messages().size(), packs_.size());
  for (const auto& message : msgBox_.Messages()) EXPECT_TRUE(message.text.starts_with("Imported ")) << message.text;
  ExpectEveryRow();
}

// The order of two packs decides which rows are skipped: this tests both orders.
TEST_F(ShippedPacks, AddEveryRowInBothOrders) {
  Install(packs_);
  ExpectEveryRow();
  CopyMain();
  std::ranges::reverse(packs_);
  Install(packs_);
  ExpectEveryRow();
}

TEST_F(ShippedPacks, AddNothingTheSecondTime) {
  Install(packs_);
  Install(packs_);
  EXPECT_EQ(msgBox_.Messages().size(), 2 * packs_.size());
  ExpectEveryRow();
}

TEST_F(ShippedPacks, DoNotChangeTheNumbersOfTheMainDatabase) {
  Install(packs_);
  SQLite::Database database(folder_ / "TonalithDB97.mdb", SQLite::OPEN_READONLY);
  for (const ScaleRow& row : ScaleLibrary::Shipped().Rows()) {
    SQLite::Statement query(database, "SELECT ScaleName FROM Scales WHERE ScaleID = ?");
    query.bind(1, row.scaleId);
    ASSERT_TRUE(query.executeStep()) << row.scaleName;
    EXPECT_EQ(query.getColumn(0).getString(), row.scaleName);
  }
}

TEST_F(ShippedPacks, AreOnTheStage) {
  for (const std::string& pack : packs_) {
    const fs::path staged = fs::path(TONALITH_BINARY_DIR) / "stage" / "DataPacks" / fs::path(pack).filename();
    EXPECT_TRUE(fs::is_regular_file(staged)) << staged;
  }
}

}  // namespace
}  // namespace tonalith::content_tests
