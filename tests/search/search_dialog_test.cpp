// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

/// The script of a scripted dialog and the log of its run.
struct Script {
  std::function<void(SearchDialog&)> whileShown = [](SearchDialog&) {};
  std::string text = "melodic";
  std::string openedWith = "never opened";
  std::string log;
};

class ScriptedDialog : public SearchDialog {
 public:
  explicit ScriptedDialog(Script& script) : script_(script) { script_.log += "made "; }
  ~ScriptedDialog() override { script_.log += "unloaded "; }
  [[nodiscard]] bool SearchCancelled() const override { return cancelled_; }
  void SetSearchCancelled(bool cancelled) override { cancelled_ = cancelled; }
  [[nodiscard]] std::string SearchText() const override { return script_.text; }
  void SetSearchText(const std::string& text) override { script_.openedWith = text; }
  void ShowModal() override {
    script_.log += cancelled_ ? "shown-cancelled " : "shown ";
    isShown_ = true;
    script_.whileShown(*this);
  }
  [[nodiscard]] bool IsShown() const override { return isShown_; }
  void BringToFront() override { script_.log += "raised "; }

 private:
  Script& script_;
  bool cancelled_ = true;
  bool isShown_ = false;
};

class RunSearchTest : public testing::Test {
 protected:
  void Run() {
    RunSearch(
        dialog_, [this] { return std::make_unique<ScriptedDialog>(script_); }, text_, box_);
  }
  Script script_;
  tests::RecordingMsgBox box_;
  std::unique_ptr<SearchDialog> dialog_;
  std::string text_;
};

TEST_F(RunSearchTest, ShowsTheDialogWithTheFlagCleared) {
  Run();
  EXPECT_EQ(script_.log, "made shown unloaded ");
  EXPECT_EQ(dialog_, nullptr);
}

TEST_F(RunSearchTest, ShowsTheSearchTextIfTheDialogIsNotCancelled) {
  Run();
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Searching for: melodic", core::MsgBoxStyle::kOkOnly, ""}));
}

TEST_F(RunSearchTest, ShowsNoMessageIfCancelled) {
  script_.whileShown = [](SearchDialog& dialog) { dialog.SetSearchCancelled(true); };
  Run();
  EXPECT_EQ(script_.log, "made shown unloaded ");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(RunSearchTest, OpensWithItsLastText) {
  Run();
  EXPECT_EQ(script_.openedWith, "");
  script_.text = " ";
  Run();
  EXPECT_EQ(script_.openedWith, "melodic");
  Run();
  EXPECT_EQ(script_.openedWith, "melodic") << "a blank text is not stored";
}

TEST_F(RunSearchTest, UsesAnExistingDialog) {
  dialog_ = std::make_unique<ScriptedDialog>(script_);
  Run();
  EXPECT_EQ(script_.log, "made shown unloaded ");
}

TEST_F(RunSearchTest, SecondCommandBringsAShownDialogToTheFront) {
  script_.whileShown = [this](SearchDialog& dialog) {
    Run();
    dialog.SetSearchCancelled(true);
  };
  Run();
  EXPECT_EQ(script_.log, "made shown raised unloaded ");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(RunSearchTest, DestroysTheDialogIfShowingItFails) {
  script_.whileShown = [](SearchDialog&) { throw std::runtime_error("no screen"); };
  EXPECT_THROW(Run(), std::runtime_error);
  EXPECT_EQ(script_.log, "made shown unloaded ");
  EXPECT_EQ(dialog_, nullptr);
}

TEST_F(RunSearchTest, OwnerMayDestroyAShownDialog) {
  script_.whileShown = [this](SearchDialog&) { dialog_.reset(); };
  Run();
  EXPECT_EQ(script_.log, "made shown unloaded ");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

}  // namespace
}  // namespace tonalith::search
