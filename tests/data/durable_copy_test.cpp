// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// LinkOrCopyWithLabel on a file system without hard links, as on memory sticks: the calls run in a child process in
// which the system refuses hard links.

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>

#include "data/data_fixture.h"
#include "data/durable_file.h"
#include "jet/jet_fixture.h"
#include "support/refused_calls.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

std::string WithoutLinks(int error, const std::function<std::string()>& step) {
#ifdef __NR_link
  return tests::WithoutCalls({__NR_link, __NR_linkat}, error, step);
#else
  return tests::WithoutCalls({__NR_linkat}, error, step);
#endif
}

class DurableCopy : public testing::Test {
 protected:
  void SetUp() override {
    if (!tests::CanRefuseCalls()) GTEST_SKIP() << "this system does not let a process refuse its own calls";
  }
  [[nodiscard]] std::string Keep(int error = EPERM) const {
    return WithoutLinks(error, [this] { return LinkOrCopyWithLabel(path_, " (old)"); });
  }

  tests::TempFolder folder_;
  std::string path_ = folder_.Write("tune.mdb", "la");
};

TEST_F(DurableCopy, IsInTheSameFolderWithTheSameContent) {
  for (const int error : {EPERM, EOPNOTSUPP, EMLINK}) {
    fs::remove(folder_ / "tune (old).mdb");
    EXPECT_EQ(Keep(error), folder_ / "tune (old).mdb");
    EXPECT_EQ(jet::ContentOfFile(folder_ / "tune (old).mdb"), "la");
    EXPECT_EQ(fs::hard_link_count(path_), 1U) << "a second name, not a copy";
    EXPECT_FALSE(fs::exists(folder_ / "tune (old).mdb.unfinished"));
  }
}

TEST_F(DurableCopy, IsCreatedOnce) {
  EXPECT_EQ(Keep(), folder_ / "tune (old).mdb");
  EXPECT_EQ(Keep(), folder_ / "tune (old).mdb");
  EXPECT_FALSE(fs::exists(folder_ / "tune (old) 2.mdb"));
}

TEST_F(DurableCopy, DoesNotChangeAnotherFileOfThatName) {
  const std::string other = folder_.Write("tune (old).mdb", "do");
  EXPECT_EQ(Keep(), folder_ / "tune (old) 2.mdb");
  EXPECT_EQ(jet::ContentOfFile(other), "do");
  EXPECT_EQ(jet::ContentOfFile(folder_ / "tune (old) 2.mdb"), "la");
}

TEST_F(DurableCopy, IsNotTriedIfTheDiskIsFull) {
  EXPECT_EQ(Keep(ENOSPC), "The file '" + (folder_ / "tune (old).mdb") + "' cannot be made: No space left on device.");
  EXPECT_FALSE(fs::exists(folder_ / "tune (old).mdb"));
}

TEST_F(DurableCopy, LeavesNoUnfinishedFileIfTheSourceIsMissing) {
  const std::string copy = folder_ / "copy.mdb";
  EXPECT_EQ(FailureOf([&] { CopyDurably(folder_ / "absent.mdb", copy); }).Description(),
            "The file '" + copy + "' cannot be made: No such file or directory.");
  EXPECT_EQ(FailureOf([&] { ReplaceDurably(folder_ / "absent.mdb", copy); }).Description(),
            "The file '" + copy + "' cannot be replaced: No such file or directory.");
  EXPECT_FALSE(fs::exists(copy));
  EXPECT_FALSE(fs::exists(copy + ".unfinished"));
}

}  // namespace
}  // namespace tonalith::data
