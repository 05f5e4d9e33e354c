// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/durable_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/data_fixture.h"
#include "jet/jet_fixture.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

TEST(DurableFile, GetsASecondNameInItsFolder) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("tune.mdb", "la");
  EXPECT_EQ(LinkOrCopyWithLabel(path, " (old)"), folder / "tune (old).mdb");
  EXPECT_EQ(jet::ContentOfFile(folder / "tune (old).mdb"), "la");
  EXPECT_EQ(jet::ContentOfFile(path), "la");
}

TEST(DurableFile, ReusesAnExistingSecondName) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("tune.mdb", "la");
  EXPECT_EQ(LinkOrCopyWithLabel(path, " (old)"), folder / "tune (old).mdb");
  EXPECT_EQ(LinkOrCopyWithLabel(path, " (old)"), folder / "tune (old).mdb");
}

TEST(DurableFile, NeverUsesTheNameOfAnotherFile) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("tune.mdb", "la");
  const std::string other = folder.Write("tune (old).mdb", "do");
  fs::create_directory(folder / "tune (old) 2.mdb");
  EXPECT_EQ(LinkOrCopyWithLabel(path, " (old)"), folder / "tune (old) 3.mdb");
  EXPECT_EQ(jet::ContentOfFile(other), "do");
}

TEST(DurableFile, IsCopiedCompletely) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("tune.mdb", std::string(100'000, 'x'));
  const std::string copy = folder / "copy.mdb";
  CopyDurably(path, copy);
  EXPECT_EQ(jet::ContentOfFile(copy), jet::ContentOfFile(path));
  EXPECT_FALSE(fs::exists(copy + ".unfinished"));
  EXPECT_EQ(FailureOf([&] { CopyDurably(path, copy); }).Description(),
            "The file '" + copy + "' cannot be made: File exists.");
}

TEST(DurableFile, IsReplacedByAnotherFile) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("tune.mdb", "la");
  ReplaceDurably(folder.Write("new.mdb", "do"), path);
  EXPECT_EQ(jet::ContentOfFile(path), "do");
  EXPECT_FALSE(fs::exists(folder / "new.mdb"));
}

TEST(DurableFile, LockTimesOutWithAMessage) {
  const tests::TempFolder folder;
  const std::string path = folder.Write("library.mdb", "Jet");
  {
    const FileLock other(path);
    const core::Failure failure = FailureOf([&] { const FileLock lock(path, std::chrono::milliseconds(120)); });
    EXPECT_EQ(failure.Description(), "Could not use '" + path + "'; file already in use.");
  }
  EXPECT_NO_THROW(FileLock(path, std::chrono::milliseconds(0)));
  EXPECT_LE(kLockTimeout, std::chrono::seconds(10));
}

}  // namespace
}  // namespace tonalith::data
