// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// A program folder with packs for the tests of the import, and the messages and reports of the import.

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "data/data_fixture.h"
#include "data/data_pack_import.h"
#include "jet/jet_fixture.h"
#include "support/recording_msg_box.h"

namespace tonalith::data {

class CountingObserver : public DataPackObserver {
 public:
  void DataPackDone() override { ++packsDone; }
  void ReadingProgress(const std::string& path, std::int64_t rows) override {
    if (onReading) onReading(path, rows);
  }
  void ImportProgress(const std::string&, std::int64_t rows) override {
    ++calls;
    latest = rows;
    if (onProgress) onProgress();
  }
  int packsDone = 0;
  int calls = 0;
  std::int64_t latest = 0;
  std::function<void()> onProgress;
  std::function<void(const std::string& path, std::int64_t rows)> onReading;
};

// A program folder that is the current directory, with a main database of four scales and a folder for packs.
class DataPackImportTest : public ::testing::Test {
 protected:
  DataPackImportTest() : before_(std::filesystem::current_path()) {
    std::filesystem::create_directory(Packs());
    std::filesystem::current_path(program_.Folder());
  }
  ~DataPackImportTest() override { std::filesystem::current_path(before_); }

  [[nodiscard]] std::string Packs() const { return program_.Folder() + "/DataPacks/"; }
  [[nodiscard]] const std::string& Main() const { return main_; }
  [[nodiscard]] std::string Ask(const std::string& sql) const { return AskRaw(Main(), sql); }

  /// Creates a pack with the current schema and returns its path.
  std::string MakePack(const std::string& name, const std::string& rows) const {
    CreateScaleDatabase(Packs() + name);
    RunRaw(Packs() + name, rows);
    return Packs() + name;
  }
  /// Creates a pack from statements only.
  std::string MakeForeignPack(const std::string& name, const std::string& sql) const {
    SQLite::Database(Packs() + name, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec(sql);
    return Packs() + name;
  }
  std::string CopyPack(const std::string& fixture, const std::string& name) const {
    std::filesystem::copy_file(fixture, Packs() + name);
    return Packs() + name;
  }

  std::vector<std::string> InstallAll() { return import_.GetAvailableDataPacks(); }
  void Install(const std::string& path) { import_.ImportDataPack(path); }

  /// Returns and clears the messages of the import.
  std::string Shown() {
    std::string texts = msgBox_.Texts();
    msgBox_.Forget();
    return texts;
  }
  static std::string Imported(const std::string& path) { return "Imported data pack: \n" + path + "\n"; }

  void ExpectRefused(const std::string& path, const std::string& why) {
    const std::string before = jet::ContentOfFile(Main());
    Install(path);
    EXPECT_EQ(Shown(), "Error importing " + path + "\n" + why + "\n");
    EXPECT_EQ(jet::ContentOfFile(Main()), before);
  }

  DatabaseFolder program_;
  std::string main_ = program_.Path();
  std::filesystem::path before_;
  tests::RecordingMsgBox msgBox_;
  CountingObserver observer_;
  DataPackImport import_{program_.Folder(), msgBox_, observer_};
};

inline constexpr const char* kAddType =
    "INSERT INTO ScaleTypes (ScaleTypeID, ScaleTypeNo, ScaleTypeName) VALUES (300, 30, 'Folk');";
inline constexpr const char* kAddScale =
    "INSERT INTO Scales VALUES (1, 'Hora', 300, 'A dance.', 'D', '2131221', 0, 5);";

}  // namespace tonalith::data
