// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/m_main.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "core/failure.h"
#include "support/recording_msg_box.h"
#include "support/text_message.h"

namespace tonalith::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScriptedDrives : public platform::NetworkDrives {
 public:
  [[nodiscard]] std::optional<platform::NetworkConnection> ConnectionOf(const std::string& drive) const override {
    queried_.push_back(drive);
    const auto found = shares_.find(drive);
    if (found == shares_.end()) return std::nullopt;
    // The system returns the whole buffer: the name, its terminator and arbitrary bytes.
    return platform::NetworkConnection{found->second + '\0' + "rest", found->second.size() + 1};
  }
  std::map<std::string, std::string> shares_;
  mutable std::vector<std::string> queried_;
};

class ScriptedDirectory : public platform::WorkingDirectory {
 public:
  void MakeDriveCurrent(const std::string& drive) override {
    if (failing_ == drive) throw core::Failure(68, tests::TextMessage("Device unavailable"));
    log_.push_back("drive " + drive);
  }
  void ChangeTo(const std::string& directory) override {
    if (failing_ == directory) throw core::Failure(76, tests::TextMessage("Path not found"));
    log_.push_back("directory " + directory);
  }
  std::string failing_ = "none";
  std::vector<std::string> log_;
};

class StartUp : public testing::Test {
 protected:
  void Move(const std::string& appFolder) { SetWorkingDirectory(appFolder, drives_, directory_, box_); }
  ScriptedDrives drives_;
  ScriptedDirectory directory_;
  tests::RecordingMsgBox box_;
};

TEST_F(StartUp, DriveOfAShareIsTheFirstMappedLetterIgnoringCase) {
  drives_.shares_ = {{"C:", "\\\\host\\other"}, {"M:", "\\\\Host\\Music"}, {"Z:", "\\\\host\\music"}};
  EXPECT_EQ(FindDriveForShare("\\\\HOST\\music", drives_), "M:");
  EXPECT_EQ(drives_.queried_.front(), "A:");
  EXPECT_EQ(drives_.queried_.back(), "M:");
}

TEST_F(StartUp, FolderInsideAShareFindsNoDrive) {
  drives_.shares_ = {{"M:", "\\\\host\\music"}};
  EXPECT_EQ(FindDriveForShare("\\\\host\\music\\tonalith", drives_), "");
  EXPECT_EQ(drives_.queried_.size(), 26U);
}

TEST_F(StartUp, ShareBecomesTheRootOfItsDrive) {
  drives_.shares_ = {{"M:", "\\\\host\\music"}};
  Move("\\\\host\\music");
  EXPECT_THAT(directory_.log_, ElementsAre("drive M:", "directory M:/"));
}

TEST_F(StartUp, TwoSeparatorsOfEitherKindBeginAShare) {
  drives_.shares_ = {{"M:", "//host/music"}};
  Move("//host/music");
  EXPECT_THAT(directory_.log_, ElementsAre("drive M:", "directory M:/"));
}

TEST_F(StartUp, FolderOnADriveMakesItsDriveCurrentFirst) {
  Move("C:\\Tonalith");
  EXPECT_THAT(directory_.log_, ElementsAre("drive C:", "directory C:\\Tonalith"));
}

TEST_F(StartUp, AbsolutePathOfThisSystemBecomesTheWorkingDirectory) {
  Move("/opt/tonalith");
  EXPECT_THAT(directory_.log_, ElementsAre("directory /opt/tonalith"));
  EXPECT_THAT(drives_.queried_, IsEmpty());
}

TEST_F(StartUp, RelativeAndEmptyFoldersAreIgnored) {
  Move("tonalith");
  Move("");
  EXPECT_THAT(directory_.log_, IsEmpty());
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(StartUp, EveryLetterMayBeTheDriveOfAShare) {
  drives_.shares_ = {{"Z:", "\\\\host\\music"}};
  EXPECT_EQ(FindDriveForShare("\\\\host\\music", drives_), "Z:");
  EXPECT_EQ(drives_.queried_.size(), 26U);
  EXPECT_EQ(drives_.queried_[12], "M:");
}

TEST_F(StartUp, ShareWithoutANameIsNoShare) {
  class Nameless : public platform::NetworkDrives {
   public:
    [[nodiscard]] std::optional<platform::NetworkConnection> ConnectionOf(const std::string& drive) const override {
      if (drive != "B:") return std::nullopt;
      return platform::NetworkConnection{"\\\\host\\music", 0};
    }
  };
  EXPECT_EQ(FindDriveForShare("\\\\host\\music", Nameless()), "");
}

TEST_F(StartUp, DriveAloneIsAFolderOfItsOwn) {
  Move("C:");
  EXPECT_THAT(directory_.log_, ElementsAre("drive C:", "directory C:"));
}

TEST_F(StartUp, OnlyTheFirstFailureIsShown) {
  drives_.shares_ = {{"M:", "\\\\host\\music"}};
  directory_.failing_ = "M:/";
  Move("\\\\host\\music");
  EXPECT_THAT(directory_.log_, ElementsAre("drive M:"));
  EXPECT_EQ(box_.Texts(), "Error: Path not found\n");
}

TEST_F(StartUp, FailureIsShownAndTheNextStepRuns) {
  directory_.failing_ = "C:";
  Move("C:\\Tonalith");
  EXPECT_THAT(directory_.log_, ElementsAre("directory C:\\Tonalith"));
  using Message = tests::RecordingMsgBox::Message;
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Error: Device unavailable", core::MsgBoxStyle::kOkOnly, ""}));
}

}  // namespace
}  // namespace tonalith::app
