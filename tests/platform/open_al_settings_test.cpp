// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The settings are made once per process, so each case runs in a child process that reports the result by its exit
// code.

#include "platform/sound/open_al_settings.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tonalith::platform {
namespace {

namespace fs = std::filesystem;

constexpr int kAsExpected = 0;
constexpr int kOtherSettings = 1;
constexpr int kTooMuchMemory = 2;
constexpr unsigned kTimeoutSeconds = 60;
constexpr long kMostKilobytes = 256L << 10;

class OpenAlSettings : public ::testing::Test {
 protected:
  OpenAlSettings() {
    fs::remove_all(path_);
    ::testing::FLAGS_gtest_death_test_style = "fast";
  }
  ~OpenAlSettings() override { fs::remove_all(path_); }

  /// Exits the process. SIGALRM ends a process that blocks.
  [[noreturn]] void Prepare(const std::string& expectedUsersPart) const {
    ::alarm(kTimeoutSeconds);
    ::setenv("ALSOFT_CONF", path_.c_str(), 1);
    PrepareOpenAl();
    std::ifstream file(std::getenv("ALSOFT_CONF"));
    const std::string settings{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    if (usage.ru_maxrss > kMostKilobytes) ::_exit(kTooMuchMemory);
    const bool isAsExpected = settings == "[general]\nperiod_size = 256\nperiods = 4\n" + expectedUsersPart;
    ::_exit(isAsExpected ? kAsExpected : kOtherSettings);
  }

  const std::string path_ = ::testing::TempDir() + "alsoft_" + std::to_string(::getpid()) + ".conf";
};

TEST_F(OpenAlSettings, EndWithTheContentOfTheUsersFile) {
  std::ofstream(path_) << "[wave]\nfile = out.wav\n";
  EXPECT_EXIT(Prepare("[wave]\nfile = out.wav\n"), ::testing::ExitedWithCode(kAsExpected), "");
}

TEST_F(OpenAlSettings, AreTheDefaultsIfTheUsersFileIsMissing) {
  EXPECT_EXIT(Prepare(""), ::testing::ExitedWithCode(kAsExpected), "");
}

TEST_F(OpenAlSettings, AreTheDefaultsIfTheUsersFileIsAFolder) {
  fs::create_directory(path_);
  EXPECT_EXIT(Prepare(""), ::testing::ExitedWithCode(kAsExpected), "");
}

TEST_F(OpenAlSettings, AreTheDefaultsIfTheUsersFileIsAPipeWithoutWriter) {
  ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
  EXPECT_EXIT(Prepare(""), ::testing::ExitedWithCode(kAsExpected), "");
}

TEST_F(OpenAlSettings, AreTheDefaultsIfTheUsersFileIsTooLarge) {
  std::ofstream(path_).close();
  fs::resize_file(path_, std::uintmax_t{8} << 30U);
  EXPECT_EXIT(Prepare(""), ::testing::ExitedWithCode(kAsExpected), "");
}

}  // namespace
}  // namespace tonalith::platform
