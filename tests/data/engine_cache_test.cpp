// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Queries by name reuse one open database. Each test changes the file between two queries and expects the result of two
// separate connections.

#include "data/engine_cache.h"

#include <gmock/gmock.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include "data/scale_database.h"
#include "data_fixture.h"
#include "support/recording_msg_box.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::RecordingMsgBox;

/// The number of open file descriptors of this process for a path.
int OpenFilesOf(const std::string& path) {
  int count = 0;
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    const fs::path target = fs::read_symlink(entry, error);
    if (!error && target.string().starts_with(path)) ++count;
  }
  return count;
}

/// Detects whether a file is opened from now on.
class OpeningWatch {
 public:
  explicit OpeningWatch(const std::string& path) : notices_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    EXPECT_GE(::inotify_add_watch(notices_, path.c_str(), IN_OPEN), 0);
  }
  ~OpeningWatch() { ::close(notices_); }
  OpeningWatch(const OpeningWatch&) = delete;
  OpeningWatch& operator=(const OpeningWatch&) = delete;

  [[nodiscard]] bool HasBeenOpened() const {
    std::array<char, 4096> buffer{};
    return ::read(notices_, buffer.data(), buffer.size()) > 0;
  }

 private:
  int notices_;
};

class EngineCacheTest : public testing::Test {
 protected:
  EngineCacheTest() { EXPECT_THAT(database_.GetScaleIntervalsFromDB("Minor triad"), ElementsAre(3, 4, 5)); }

  std::string MessageOfNextQuery() {
    FailureOf([&] { database_.GetScaleIntervalsFromDB("Major"); });
    return msgBox_.Texts();
  }

  DatabaseFolder folder_;
  tests::RecordingMsgBox msgBox_;
  ScaleDatabase database_{folder_.Folder(), msgBox_};
};

TEST_F(EngineCacheTest, ServesTheNextConnectionWithoutOpeningTheFileAgain) {
  const OpeningWatch watch(folder_.Path());
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Major"), ElementsAre(2, 2, 1, 2, 2, 2, 1));
  EXPECT_FALSE(watch.HasBeenOpened());
  Connection().Open(FullConnectionString(folder_.Path()));
  EXPECT_TRUE(watch.HasBeenOpened());
}

TEST_F(EngineCacheTest, IsClosedForTheRecordSetsOfAClosedConnection) {
  const auto connection = database_.OpenScaleConnection();
  RecordSet records;
  records.Open("SELECT * FROM ScalesQuery", connection);
  connection->Close();
  EXPECT_FALSE(records.IsOpen());
  EXPECT_EQ(FailureOf([&] { records.MoveNext(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { connection->Close(); }).Number(), 3704);
}

TEST_F(EngineCacheTest, DoesNotPassOnAnOpenTransaction) {
  const auto connection = database_.OpenScaleConnection();
  connection->BeginTrans();
  RecordSet records;
  records.Open("Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.Delete();
  connection->Close();
  EXPECT_EQ(AskRaw(folder_.Path(), "SELECT count(*) FROM Scales"), "4");
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Major"), ElementsAre(2, 2, 1, 2, 2, 2, 1));
}

TEST_F(EngineCacheTest, ReadsTheChangesOfAnotherConnection) {
  RunRaw(folder_.Path(), "UPDATE Scales SET ScaleIntervals = '66' WHERE ScaleName = 'Minor triad'");
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Minor triad"), ElementsAre(6, 6));
}

TEST_F(EngineCacheTest, ReportsADeletedFileAndClosesIt) {
  fs::remove(folder_.Path());
  EXPECT_EQ(MessageOfNextQuery(), "Database connection failed: Could not find file '" + folder_.Path() + "'.\n");
  EXPECT_EQ(OpenFilesOf(folder_.Path()), 0);
}

TEST_F(EngineCacheTest, ReadsAFileThatReplacedTheFirst) {
  const DatabaseFolder other(
      "INSERT INTO ScaleTypes VALUES (1, 10, 'Types');"
      "INSERT INTO Scales (ScaleName, ScaleTypeID, ScaleIntervals) VALUES ('Major', 1, '57')");
  fs::rename(other.Path(), folder_.Path());
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Major"), ElementsAre(5, 7));
}

TEST_F(EngineCacheTest, RefusesAnInvalidFileThatReplacedTheFirst) {
  fs::remove(folder_.Path());
  std::ofstream(folder_.Path()) << std::string(5000, 'x');
  EXPECT_EQ(MessageOfNextQuery(),
            "Database connection failed: Unrecognized database format '" + folder_.Path() + "'.\n");
}

TEST_F(EngineCacheTest, RefusesTheFileAfterATruncation) {
  fs::resize_file(folder_.Path(), fs::file_size(folder_.Path()) - 1);
  EXPECT_EQ(MessageOfNextQuery(),
            "Database connection failed: Unrecognized database format '" + folder_.Path() + "'.\n");
}

TEST_F(EngineCacheTest, RefusesTheFileAfterANewerVersionHasWrittenIt) {
  RunRaw(folder_.Path(), "PRAGMA user_version = 99");
  EXPECT_THAT(MessageOfNextQuery(), testing::HasSubstr("was made by a newer version of Tonalith"));
}

TEST_F(EngineCacheTest, RefusesAJournalThatIsAPipe) {
  ASSERT_EQ(::mkfifo((folder_.Path() + "-journal").c_str(), 0600), 0);
  EXPECT_EQ(MessageOfNextQuery(),
            "Database connection failed: The file '" + folder_.Path() + "-journal' cannot be opened: it is no file.\n");
}

TEST_F(EngineCacheTest, ReportsAFileThatAnotherProgramHasLocked) {
  {
    SQLite::Database other(folder_.Path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    EXPECT_EQ(MessageOfNextQuery(),
              "Database connection failed: Could not use '" + folder_.Path() + "'; file already in use.\n");
  }
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Minor triad"), ElementsAre(3, 4, 5));
}

TEST_F(EngineCacheTest, DoesNotBlockAWriter) {
  SQLite::Database other(folder_.Path(), SQLite::OPEN_READWRITE);
  EXPECT_NO_THROW(other.exec("BEGIN EXCLUSIVE; DELETE FROM Scales; COMMIT"));
  EXPECT_THAT(database_.GetScaleIntervalsFromDB("Major"), IsEmpty());
}

}  // namespace
}  // namespace tonalith::data
