// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/read_only_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "data/data_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

// Characters with a special meaning in a file URI of the engine.
TEST(ReadOnlyFile, IsFoundWithSpecialCharactersInItsName) {
  const tests::TempFolder folder;
  for (const char* const name : {"100%25.db", "what?mode=rw.db", "C#.db", "ré la.db"}) {
    const std::string path = folder / name;
    SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("PRAGMA journal_mode = WAL; CREATE TABLE T AS SELECT 'here' AS Word");
    ASSERT_FALSE(fs::exists(path + "-wal")) << "the log is not at rest";
    EXPECT_EQ(OpenForReading(path)->execAndGet("SELECT Word FROM T").getString(), "here") << name;
    EXPECT_FALSE(fs::exists(path + "-wal")) << name;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 4);
}

}  // namespace
}  // namespace tonalith::data
