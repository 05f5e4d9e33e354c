// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/search_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

#include "search/fake_scales.h"
#include "search/frm_search.h"
#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

class RunSearchTest : public testing::Test {
 protected:
  /// Runs the dialog; `act` is called when it is visible.
  template <class Act>
  void Run(Act act) {
    const auto make = [&] {
      auto* const form = new frmSearch(std::make_unique<FakeScales>("Major,Dorian"), box_, nullptr);
      // RunSearch clears the flag.
      form->SetSearchCancelled(true);
      form_ = form;
      QTimer::singleShot(0, form, [this, act] {
        openedWith_ = form_->SearchText();
        wasCancelled_ = form_->SearchCancelled();
        act();
      });
      return form;
    };
    RunSearch(*dialog_, make, text_, box_);
  }
  /// Runs the dialog, which ends without a cancellation, with this text.
  void EnterText(const char* text) {
    Run([this, text] {
      form_->SetSearchText(text);
      form_->hide();
    });
  }

  tests::RecordingMsgBox box_;
  std::unique_ptr<windows::OpenOnce<frmSearch>> dialog_ = std::make_unique<windows::OpenOnce<frmSearch>>();
  QPointer<frmSearch> form_;
  std::string text_;
  std::string openedWith_ = "never opened";
  bool wasCancelled_ = true;
};

TEST_F(RunSearchTest, ShowsTheDialogWithTheFlagCleared) {
  bool wasVisible = false;
  Run([&] {
    wasVisible = form_->isVisible();
    form_->close();
  });
  EXPECT_TRUE(wasVisible);
  EXPECT_FALSE(wasCancelled_);
  EXPECT_TRUE(form_.isNull()) << "destroyed at the end";
  EXPECT_EQ(dialog_->Window(), nullptr);
}

TEST_F(RunSearchTest, ShowsTheSearchTextIfTheDialogIsNotCancelled) {
  EnterText("melodic");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Searching for: melodic", core::MsgBoxStyle::kOkOnly, ""}));
}

TEST_F(RunSearchTest, ShowsNoMessageIfCancelled) {
  Run([this] { form_->SetSearchText("melodic"), form_->cmdCancel_Click(); });
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(text_, "melodic");
}

TEST_F(RunSearchTest, OpensWithItsLastText) {
  EnterText("melodic");
  EXPECT_EQ(openedWith_, "");
  EnterText(" ");
  EXPECT_EQ(openedWith_, "melodic");
  EnterText(" ");
  EXPECT_EQ(openedWith_, "melodic") << "a blank text is not stored";
}

TEST_F(RunSearchTest, SecondCommandBringsAShownDialogToTheFront) {
  QWidget other;
  Run([&] {
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    frmSearch* const first = form_;
    Run([] { ADD_FAILURE() << "a second dialog is shown"; });
    EXPECT_EQ(form_, first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(first));
    first->close();
  });
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(RunSearchTest, OwnerMayDestroyAShownDialog) {
  Run([this] { dialog_.reset(); });
  EXPECT_TRUE(form_.isNull());
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(text_, "");
}

}  // namespace
}  // namespace tonalith::search
