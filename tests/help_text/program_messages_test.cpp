// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The catalogues hold every message: the compiler refuses other texts in message boxes and failures, and these tests
// find the places where the compiler cannot.

#include "help_text/program_messages.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "help_text/displayed_text.h"
#include "help_text/help_folder.h"

namespace tonalith::help_text {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

using Faults = std::vector<std::string>;

/// Texts for the user that are written in a statement instead of a catalogue.
Faults LooseTexts(const std::string& path, const std::string& source) {
  static const std::vector<std::pair<std::regex, std::string>> rules{
      {std::regex(R"(\bVerbatim\([^;]*")"), "a literal is no verbatim text"},
      {std::regex(R"(MessageId::\w+\s*,[^;]*")"), "a literal is no argument"},
      {std::regex(R"(\bthrow\s+([\w:]+\s*[({][^;]*)?")"), "a failure has a message of a catalogue"},
      {std::regex(R"(\blbl(Status|Message|Notice)_?\s*->\s*setText\([^;]*(\btr\(|"))"),
       "a status line shows a message"},
      {std::regex(R"(\b(SetMessage|ShowStatus|NoticeText|[mM]sgBox_?(\.|->)Show)\([^;{]*(\btr\(|"))"),
       "a message is in a catalogue"}};
  Faults faults;
  for (const auto& [rule, why] : rules) {
    for (std::sregex_iterator found(source.begin(), source.end(), rule); found != std::sregex_iterator(); ++found) {
      faults.push_back(FaultOf(path, {found->str().substr(0, 80), ": ", why}));
    }
  }
  return faults;
}

std::vector<house::Path> ProgramFiles() {
  std::vector<house::Path> files;
  for (const house::Path& file : house::ProjectFiles(house::ProjectRoot() / "src")) {
    if (file.extension() == ".cpp" || file.extension() == ".h") files.push_back(file);
  }
  return files;
}

TEST(ProgramMessages, OfEveryRoomAreListed) {
  std::set<std::string> folders;
  for (const house::Path& file : ProgramFiles()) {
    if (file.filename() == "messages.h") folders.insert(file.parent_path().generic_string());
  }
  std::set<std::string> listed;
  for (const RoomCatalogue& catalogue : ProgramCatalogues()) listed.insert(catalogue.folder);
  EXPECT_EQ(listed, folders);
}

TEST(ProgramMessages, HaveTheNameSpaceOfTheirRoomAsContext) {
  for (const RoomCatalogue& catalogue : ProgramCatalogues()) {
    const std::string room = catalogue.folder.substr(0, catalogue.folder.find('/'));
    for (const core::MessageText& text : catalogue.texts) EXPECT_EQ(text.context, "tonalith::" + room) << text.english;
  }
}

TEST(ProgramMessages, OfARoomAreDifferentAndNumberTheirPlaceholders) {
  for (const RoomCatalogue& catalogue : ProgramCatalogues()) {
    std::set<std::string> texts;
    for (const core::MessageText& text : catalogue.texts) {
      const std::string english = text.english;
      EXPECT_TRUE(texts.insert(english).second) << english << " has two ids";
      for (char digit = '2'; digit <= '9'; ++digit) {
        const bool isThere = english.find({'%', digit}) != std::string::npos;
        const bool isPrevious = english.find({'%', static_cast<char>(digit - 1)}) != std::string::npos;
        EXPECT_TRUE(!isThere || isPrevious) << english;
      }
    }
  }
}

TEST(ProgramMessages, AreAllInACatalogue) {
  Faults faults;
  for (const house::Path& file : ProgramFiles()) {
    const Faults found = LooseTexts(file.generic_string(), house::ReadFile(house::ProjectRoot() / "src" / file));
    faults.insert(faults.end(), found.begin(), found.end());
  }
  EXPECT_THAT(faults, IsEmpty());
}

TEST(ProgramMessages, OutsideACatalogueAreFound) {
  for (const char* const source :
       {R"(msgBox_.Show(core::Message::Verbatim(std::string("Loose")));)", R"(msgBox.Show("Loose", style);)",
        R"(throw core::Failure::Unspecified({MessageId::kA, std::string("loose")});)",
        R"(throw std::runtime_error("Loose " + name);)", R"(lblStatus_->setText(tr("Loose"));)",
        R"(watcher_.SetMessage(tr("Loose").toStdString());)", R"(c.lblNotice->setText("Loose");)"}) {
    EXPECT_THAT(LooseTexts("a.cpp", source), testing::Not(IsEmpty())) << source;
  }
  EXPECT_THAT(LooseTexts("a.cpp",
                         "throw core::Failure::Unspecified({MessageId::kA, path}); log(\"none\");"
                         "msgBox.Show(MessageId::kB); lblStatus_->setText(windows::Translated(text));"),
              IsEmpty());
}

TEST(MessagePieces, AreTheFixedPartsOfEveryText) {
  constexpr core::MessageText kTexts[] = {{"a", "Apply saves %1: '%2' now\nand again."}, {"a", "%1: %2"}};
  const auto pieces = MessagePieces({{"room", kTexts}});
  std::vector<std::string> texts;
  for (const auto& [piece, folder] : pieces) texts.push_back(piece);
  EXPECT_THAT(texts, UnorderedElementsAre("Apply saves", "' now", "and again."));
}

TEST(DisplayedText, HasNoMnemonicsAndSingleBlanks) {
  EXPECT_EQ(AsDisplayed(" Hide/View &Names  of\n notes "), "Hide/View Names of notes");
  EXPECT_EQ(AsDisplayed("Rock & Roll"), "Rock & Roll");
}

TEST(DisplayedText, SplitsAtPlaceholders) {
  EXPECT_THAT(PiecesOf("Apply saves %1: %2 now\nand again'."),
              UnorderedElementsAre("Apply saves", "now", "and again'."));
}

}  // namespace
}  // namespace tonalith::help_text
