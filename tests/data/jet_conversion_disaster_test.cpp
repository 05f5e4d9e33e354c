// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The conversion of a Jet library on a disk that fills up, killed at every write, and without permission: the Jet file
// always exists under one of its two names.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>

#include "data/jet_conversion.h"
#include "data/pack_disaster_fixture.h"
#include "data/pack_disk.h"
#include "jet/jet_file.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;
using ::testing::StartsWith;

class JetConversionDisaster : public ::testing::Test {
 protected:
  JetConversionDisaster() { PutJetFile(); }

  void PutJetFile() const {
    for (const auto& entry : fs::directory_iterator(folder_.Path())) fs::remove(entry.path());
    std::ofstream(path_, std::ios::binary) << content_;
  }
  [[nodiscard]] std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) names.insert(entry.path().filename().string());
    return names;
  }
  void ExpectUnchanged() const {
    EXPECT_EQ(jet::ContentOfFile(path_), content_);
    EXPECT_EQ(Names(), std::set<std::string>{std::string(kDatabaseFileName)});
  }
  void ExpectConverted() const {
    EXPECT_EQ(AskRaw(path_, "SELECT count(*) || ' ' || sum(ScaleID) FROM Scales"), "5 15");
    ExpectAtRest(path_);
    EXPECT_EQ(jet::ContentOfFile(folder_ / "TonalithDB97 (Jet file before conversion).mdb"), content_);
    EXPECT_EQ(Names().size(), 2U);
  }
  [[nodiscard]] std::string Refusal() const {
    return FailureOf([&] { ConvertMainDatabaseIfJet(path_); }).Description();
  }
  [[nodiscard]] std::string CannotBeConverted() const {
    return "The Jet database '" + path_ + "' cannot be converted, and nothing was changed. ";
  }

  tests::TempFolder folder_;
  std::string path_ = folder_ / kDatabaseFileName;
  std::string content_ = jet::ContentOfFile(jet::kJet2000);
};

TEST_F(JetConversionDisaster, ChangesNothingIfTheDiskFillsUpAtAnyStep) {
  PackDisk disk;
  ConvertMainDatabaseIfJet(path_);
  const int needed = disk.Growths();
  ASSERT_GT(needed, 20);
  for (int room = 0; room < needed; room += 2) {
    PutJetFile();
    disk.FillUpAfter(room);
    const std::string result = Refusal();
    disk.MakeRoom();
    ASSERT_THAT(result, StartsWith(CannotBeConverted())) << room;
    ASSERT_THAT(result,
                ::testing::EndsWith("The disk that holds '" + path_ + ".converting' is full. Nothing was saved."))
        << room;
    ExpectUnchanged();
  }
  ConvertMainDatabaseIfJet(path_);
  ExpectConverted();
}

TEST_F(JetConversionDisaster, IsCompletedAtTheNextStartAfterAKillAtAnyStep) {
  // Each conversion reads the whole file, so this does not kill at every step.
  constexpr int kStride = 3;
  int kills = 0;
  for (int step = 1;; step += kStride, ++kills) {
    PutJetFile();
    const bool isKilled = IsKilledIn([&] {
      PackDisk disk;
      disk.EndProcessAt(step);
      ConvertMainDatabaseIfJet(path_);
    });
    if (!isKilled) break;
    ASSERT_EQ(jet::ContentOfFile(path_), content_) << step;
    ASSERT_TRUE(ConvertMainDatabaseIfJet(path_).has_value());
    ExpectConverted();
  }
  ExpectConverted();
  EXPECT_GT(kills, 10);
}

TEST_F(JetConversionDisaster, ReportsThatARealDiskIsFull) {
  const tests::TempFolder temp;
  const SmallDisk disk(temp.Path().string(), 1024);
  if (!disk.IsThere()) GTEST_SKIP() << "this system lets nobody mount a file system";
  const std::string path = temp / kDatabaseFileName;
  fs::copy_file(jet::kJet2000, path);
  disk.FillUp(24);
  EXPECT_THAT(FailureOf([&] { ConvertMainDatabaseIfJet(path); }).Description(),
              ::testing::EndsWith("The disk that holds '" + path + ".converting' is full. Nothing was saved."));
  EXPECT_EQ(jet::ContentOfFile(path), content_);
  EXPECT_FALSE(fs::exists(path + ".converting"));
  disk.MakeRoom();
  EXPECT_TRUE(ConvertMainDatabaseIfJet(path).has_value());
  EXPECT_EQ(AskRaw(path, "SELECT count(*) FROM Scales"), "5");
}

TEST_F(JetConversionDisaster, DoesNotReplaceAFileThatAnotherProgramHasChanged) {
  for (const auto by : {std::chrono::hours(1), std::chrono::hours(-1)}) {
    PutJetFile();
    const auto change = [&](ConversionStep step) {
      if (step == ConversionStep::kFilled) fs::last_write_time(path_, fs::last_write_time(path_) + by);
    };
    EXPECT_EQ(FailureOf([&] { ConvertMainDatabaseIfJet(path_, change); }).Description(),
              CannotBeConverted() + "It was changed by another program meanwhile.");
    ExpectUnchanged();
  }
}

TEST_F(JetConversionDisaster, RefusesAnEncryptedFileAndChangesNothing) {
  content_ = jet::ContentWith(jet::kJet2000, {{0x3E, 0x01}});
  PutJetFile();
  EXPECT_EQ(Refusal(), CannotBeConverted() + "The file '" + path_ +
                           "' cannot be read: it is encrypted. Save it without encryption and try again.");
  ExpectUnchanged();
}

// The result of a conversion by a user without root permissions.
std::string RefusalToNobody(const std::string& path) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return "no pipe";
  const bool isKilled = IsKilledIn([&] {
    constexpr uid_t kNobody = 65534;
    std::string result = "cannot become nobody";
    if (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0) {
      try {
        result = ConvertMainDatabaseIfJet(path).value_or("left alone");
      } catch (const core::Failure& failure) {
        result = failure.Description();
      }
    }
    if (::write(ends[1], result.data(), result.size()) < 0) ::_exit(2);
  });
  EXPECT_FALSE(isKilled);
  ::close(ends[1]);
  std::array<char, 4096> text{};
  const ssize_t size = ::read(ends[0], text.data(), text.size());
  ::close(ends[0]);
  return {text.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

TEST_F(JetConversionDisaster, DoesNotChangeAFileThatCannotBeRead) {
  fs::permissions(folder_.Path(), fs::perms::all);
  fs::permissions(path_, fs::perms::none);
  EXPECT_EQ(RefusalToNobody(path_), "left alone");
  ExpectUnchanged();
}

TEST_F(JetConversionDisaster, ReportsThatTheFolderCannotBeWritten) {
  fs::permissions(folder_.Path(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  fs::permissions(path_, fs::perms::all);
  EXPECT_EQ(RefusalToNobody(path_),
            CannotBeConverted() + "The file '" + path_ + ".converting' cannot be made: Permission denied.");
  ExpectUnchanged();
}

}  // namespace
}  // namespace tonalith::data
