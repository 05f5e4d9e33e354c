// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Shared by the tests of full disks and killed processes: the content of a scale database as text, and a child process
// that is killed.

#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <string>

#include "data/data_pack_fixture.h"

namespace tonalith::data {

/// Every field of every row, by number. Opens the file with a Connection, as the program does at its next start, so
/// that an interrupted write is rolled back first.
inline std::string ContentOfDatabase(const std::string& path) {
  const auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  std::string text;
  for (const char* table : {"ScaleTypes", "Scales"}) {
    RecordSet records;
    records.Open(std::string("SELECT * FROM ") + table, connection);
    for (; !records.IsEof(); records.MoveNext()) {
      for (int i = 0; i < records.FieldCount(); ++i) text += FieldText(records, i) + "|";
      text += "\n";
    }
  }
  return text;
}

inline void ExpectSound(const std::string& path) { EXPECT_EQ(AskRaw(path, "PRAGMA integrity_check"), "ok"); }

/// The database is intact and has no journal.
inline void ExpectAtRest(const std::string& path) {
  ExpectSound(path);
  EXPECT_FALSE(std::filesystem::exists(path + "-journal"));
}

/// Runs `work` in a child process. Returns whether it was killed; the test fails if it ended with an error.
inline bool IsKilledIn(const std::function<void()>& work) {
  const pid_t process = ::fork();
  if (process == 0) {
    try {
      work();
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(process, &status, 0);
  const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  EXPECT_TRUE(isKilled || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
  return isKilled;
}

/// The number of kills at random moments: TONALITH_KILLS in the environment, or `usual`.
inline int NumberOfKills(int usual) {
  const char* const given = std::getenv("TONALITH_KILLS");
  return given == nullptr ? usual : std::atoi(given);
}

/// Types 300 and 301, and scales of about a kibibyte each.
inline std::string PackOfManyPages(int scales = 60) {
  return std::string(kAddType) +
         "INSERT INTO ScaleTypes VALUES (301, 31, 'Sea songs');"
         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
         std::to_string(scales) +
         ") "
         "INSERT INTO Scales SELECT i, 'Shanty ' || i, 300 + i % 2, hex(zeroblob(500)), 'D', '2131221', 0, i FROM n;";
}

}  // namespace tonalith::data
