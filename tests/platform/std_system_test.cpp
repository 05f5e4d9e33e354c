// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/system/std_system.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/failure.h"
#include "support/temp_folder.h"

namespace tonalith::platform {
namespace {

namespace fs = std::filesystem;

/// Restores the working directory.
class StdWorkingDirectoryTest : public testing::Test {
 protected:
  ~StdWorkingDirectoryTest() override { fs::current_path(before_); }

  fs::path before_ = fs::current_path();
  tests::TempFolder folder_;
  StdWorkingDirectory directory_;
};

TEST_F(StdWorkingDirectoryTest, ChangesToTheFolderOnAnyDrive) {
  directory_.ChangeTo(folder_.Path().string());
  EXPECT_EQ(fs::current_path(), fs::canonical(folder_.Path()));
  directory_.MakeDriveCurrent("C:");
  EXPECT_EQ(fs::current_path(), fs::canonical(folder_.Path()));
}

TEST_F(StdWorkingDirectoryTest, IsUnchangedIfTheFolderDoesNotExist) {
  const std::string absent = folder_ / "absent";
  try {
    directory_.ChangeTo(absent);
    ADD_FAILURE() << "no failure was thrown";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.NumberAndDescription(), "76: Path not found: " + absent + " (No such file or directory)");
  }
  EXPECT_EQ(fs::current_path(), before_);
}

TEST(NoNetworkDrives, MapNoLetterToAShare) {
  for (const char* const drive : {"A:", "X:", "Z:", ""}) {
    EXPECT_FALSE(NoNetworkDrives().ConnectionOf(drive).has_value()) << drive;
  }
}

}  // namespace
}  // namespace tonalith::platform
