// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/mod_html_help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/recording_msg_box.h"
#include "support/scripted_help_engine.h"
#include "support/temp_folder.h"
#include "support/text_message.h"

namespace tonalith::help {
namespace {

using core::MsgBoxStyle;
using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

constexpr platform::HelpWindowHandle kCaller = 77;

const Message kShareMessage{"Help files cannot be opened from a network share. Please move the app to a local drive.",
                            MsgBoxStyle::kExclamation, ""};
const Message kApiErrorMessage{"The Help engine (hhctrl.ocx) failed to start. Ensure the file is unblocked and local.",
                               MsgBoxStyle::kCritical, "API Error"};

Message MissingMessage(const std::string& path) {
  return {"Cannot find help file:\n" + path, MsgBoxStyle::kCritical, "File Missing"};
}

class HelpCommand : public testing::Test {
 protected:
  void Open(const std::string& appFolder) { OpenHelpFile(appFolder, box_, engine_, kCaller); }
  [[nodiscard]] std::string PutHelpFile() const { return folder_.Write("TLHELP.chm", "help"); }
  [[nodiscard]] std::string AppFolder() const { return folder_.Path().string(); }
  [[nodiscard]] static std::string Calls(const std::string& path) {
    return "HtmlHelpA 77 " + path + " 0 0\nLastError\n";
  }

  tests::TempFolder folder_;
  tests::RecordingMsgBox box_;
  tests::ScriptedHelpEngine engine_;
};

TEST_F(HelpCommand, PassesTheFullPathAndThenReadsTheLastError) {
  const std::string path = PutHelpFile();
  Open(AppFolder());
  EXPECT_EQ(engine_.Record(), Calls(path));
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(HelpCommand, FolderThatEndsWithASeparatorGetsNoSecondOne) {
  EXPECT_EQ(HelpFilePath("/"), "/TLHELP.chm");
  EXPECT_EQ(HelpFilePath("/opt/tonalith/"), "/opt/tonalith/TLHELP.chm");
  EXPECT_EQ(HelpFilePath("/opt/tonalith"), "/opt/tonalith/TLHELP.chm");
  const std::string path = PutHelpFile();
  Open(AppFolder() + "/");
  EXPECT_EQ(engine_.Record(), Calls(path));
}

TEST_F(HelpCommand, EmptyFolderIsTheRoot) { EXPECT_EQ(HelpFilePath(""), "/TLHELP.chm"); }

TEST_F(HelpCommand, MissingFileIsReportedWithItsFullPath) {
  Open(AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(MissingMessage(folder_ / "TLHELP.chm")));
  EXPECT_EQ(engine_.Record(), "");
}

TEST_F(HelpCommand, MissingFileIsReportedBeforeTheShare) {
  Open("/" + AppFolder());
  Open("\\\\server\\share");
  EXPECT_THAT(box_.Messages(), ElementsAre(MissingMessage("/" + (folder_ / "TLHELP.chm")),
                                           MissingMessage("\\\\server\\share/TLHELP.chm")));
}

TEST_F(HelpCommand, PathWithTwoLeadingSeparatorsIsRefused) {
  static_cast<void>(PutHelpFile());
  Open("/" + AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(kShareMessage));
  EXPECT_EQ(engine_.Record(), "");
}

/// A folder with that name in the working directory simulates the share.
TEST_F(HelpCommand, PathWithTwoLeadingBackslashesIsRefused) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path());
  std::filesystem::create_directory("\\\\server\\share");
  std::ofstream("\\\\server\\share/TLHELP.chm") << "help";
  Open("\\\\server\\share");
  std::filesystem::current_path(before);
  EXPECT_THAT(box_.Messages(), ElementsAre(kShareMessage));
  EXPECT_EQ(engine_.Record(), "");
}

TEST_F(HelpCommand, NoWindowIsAnApiError) {
  engine_.Answer(platform::kNoHelpWindow, 0);
  static_cast<void>(PutHelpFile());
  Open(AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(kApiErrorMessage));
}

TEST_F(HelpCommand, LastErrorIsAnApiErrorEvenWithAWindow) {
  engine_.Answer(5, 2);
  static_cast<void>(PutHelpFile());
  Open(AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(kApiErrorMessage));
}

TEST_F(HelpCommand, ExceptionOfTheEngineIsAnApiErrorOnly) {
  engine_.Break({453, tests::TextMessage("no entry point")});
  static_cast<void>(PutHelpFile());
  EXPECT_NO_THROW(Open(AppFolder()));
  EXPECT_THAT(box_.Messages(), ElementsAre(kApiErrorMessage));
}

TEST_F(HelpCommand, DoesNotRetry) {
  engine_.Answer(platform::kNoHelpWindow, 5);
  const std::string path = PutHelpFile();
  Open(AppFolder());
  EXPECT_EQ(engine_.Record(), Calls(path));
}

TEST_F(HelpCommand, FolderWithTheNameOfTheFileIsNotAFile) {
  std::filesystem::create_directory(folder_.Path() / "TLHELP.chm");
  Open(AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(MissingMessage(folder_ / "TLHELP.chm")));
}

TEST_F(HelpCommand, LinkToTheFileIsAccepted) {
  std::filesystem::create_symlink(folder_.Write("other", "help"), folder_.Path() / "TLHELP.chm");
  Open(AppFolder());
  EXPECT_EQ(engine_.Record(), Calls(folder_ / "TLHELP.chm"));
}

TEST_F(HelpCommand, BrokenLinkIsMissing) {
  std::filesystem::create_symlink(folder_.Path() / "gone", folder_.Path() / "TLHELP.chm");
  Open(AppFolder());
  EXPECT_THAT(box_.Messages(), ElementsAre(MissingMessage(folder_ / "TLHELP.chm")));
}

}  // namespace
}  // namespace tonalith::help
