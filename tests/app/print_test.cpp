// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Printing from the main window: the state of the window during printing, and messages after a failed step.

#include "app/print_fixture.h"
#include "support/ink.h"

namespace tonalith::app {
namespace {

using print::frmPrint;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Message = tests::RecordingMsgBox::Message;

TEST_F(Printing, HidesUnprintedControlsWhilePrintingAndShowsThemAgain) {
  StartOn({"Major", "2212221"});
  int checks = 0;
  script_.During("paint", [&] {
    ++checks;
    for (const QWidget* const control : NotOnPaper()) EXPECT_TRUE(control->isHidden());
    EXPECT_FALSE(C().printPic->isHidden());
    EXPECT_EQ(C().printPic->Surface().GetScaleMode(), paint::ScaleMode::kPixels);
    EXPECT_FALSE(Window().updatesEnabled()) << "the screen does not change";
    EXPECT_THAT(Window().findChildren<QWidget*>(QStringLiteral("picTemp"), Qt::FindDirectChildrenOnly), SizeIs(1));
    EXPECT_EQ(staffs_, 1);
  });
  Print();
  EXPECT_EQ(checks, 1);
  EXPECT_EQ(script_.pages, 1);
  EXPECT_EQ(staffs_, 2) << "once for the page, once for the window";
  ExpectWindowAsBefore("after printing");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Printing, ShowsTheDataControlAndTheKeyBoxAfterwards) {
  StartOn({"Major", "2212221"});
  C().Data1->hide();
  C().cmbTranspose->hide();
  Print();
  EXPECT_FALSE(C().Data1->isHidden());
  EXPECT_FALSE(C().cmbTranspose->isHidden());
}

TEST_F(Printing, FailureOfAnyStepIsReportedAfterRestoringTheWindow) {
  StartOn({"Major", "2212221"});
  C().cmdPrint->setFocus();
  for (const char* const step : {"width", "height", "paint", "end"}) {
    script_.Repair();
    script_.Break(step);
    box_.Forget();
    Print();
    EXPECT_THAT(box_.Messages(), ElementsAre(Message{std::string(step) + " broke", core::MsgBoxStyle::kOkOnly, ""}));
    ExpectWindowAsBefore(step);
    EXPECT_EQ(Window().focusWidget(), C().cmdPrint) << step;
    EXPECT_EQ(script_.pages, 0) << step;
  }
}

TEST_F(Printing, MessageIsShownAfterTheControlsAreRestored) {
  struct CheckingMsgBox : core::MsgBox {
    using core::MsgBox::Show;
    core::MsgBoxAnswer Show(const core::Message& /*text*/, core::MsgBoxStyle /*style*/,
                            const core::Message& /*title*/) override {
      check();
      return core::MsgBoxAnswer::kOk;
    }
    std::function<void()> check;
  } checking;
  StartOn({"Major", "2212221"});
  int checks = 0;
  checking.check = [&] {
    ++checks;
    ExpectWindowAsBefore("at the message");
  };
  MainWindowPrinting windowPrinting(C(), Window(), {service_, checking, [] {}});
  script_.Break("end");
  tests::ScriptedPrinter printer(script_, 16000, 11000);
  windowPrinting.PrintView(printer);
  EXPECT_EQ(checks, 1);
}

TEST_F(Printing, FailedStaffIsReportedAndTheOtherPartsArePrinted) {
  StartOn({"Major", "2212221"});
  isStaffFailing_ = true;
  Print();
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Overflow", core::MsgBoxStyle::kOkOnly, ""}));
  ExpectWindowAsBefore("after the failure");
}

TEST_F(Printing, PrintButtonShowsThePageAndPrintsItOnTheChosenPrinter) {
  StartOn({"Dorian", "2122212"}, 2);
  ClickPrintAnd([&](frmPrint& helper) {
    ExpectWindowAsBefore("while the helper is open");
    EXPECT_EQ(script_.pages, 0);
    helper.cmdPrint_Click();
  });
  EXPECT_THAT(script_.Record(), HasSubstr("ask printer \"Dorian in D\" A4 landscape\n"));
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(Helpers(), IsEmpty());
  ExpectWindowAsBefore("after printing");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Printing, PreviewAndPageAreTheSame) {
  StartOn({"Dorian", "2122212"}, 2);
  QImage preview;
  const auto paint = [](const platform::PrintablePicture& picture) {
    return tests::Painted(1016, 578, 1, [&](QPainter& painter) { picture.PaintOn(painter); });
  };
  platform::PrintRect place;
  ClickPrintAnd([&](frmPrint& helper) {
    const auto& painted = helper.findChild<print::PageView*>()->Painted();
    ASSERT_THAT(painted, SizeIs(1));
    preview = paint(*painted[0].picture);
    place = painted[0].place;
    helper.cmdPrint_Click();
  });
  ASSERT_THAT(script_.painted, SizeIs(1));
  EXPECT_EQ(paint(*script_.painted[0].picture), preview);
  EXPECT_NEAR(script_.painted[0].place.left, place.left * 20, 1e-6);
  EXPECT_NEAR(script_.painted[0].place.width, place.width * 20, 1e-6);
}

TEST_F(Printing, CancelPrintsNothingAndRestoresTheWindow) {
  StartOn({"Dorian", "2122212"}, 2);
  C().cmdPrint->setFocus();
  const QImage before = Window().grab().toImage();
  ClickPrintAnd([](frmPrint& helper) { helper.cmdCancel_Click(); });
  EXPECT_EQ(script_.pages, 0);
  EXPECT_THAT(Helpers(), IsEmpty());
  ExpectWindowAsBefore("after cancelling");
  EXPECT_EQ(Window().focusWidget(), C().cmdPrint);
  EXPECT_EQ(Window().grab().toImage(), before);
}

TEST_F(Printing, SecondClickBringsTheHelperToTheFront) {
  StartOn({"Dorian", "2122212"});
  ClickPrintAnd([&](frmPrint& helper) {
    windowPrinting_->cmdPrint_Click();
    EXPECT_THAT(Helpers(), ElementsAre(&helper));
    helper.cmdCancel_Click();
  });
  EXPECT_THAT(Helpers(), IsEmpty());
}

TEST_F(Printing, ClosingTheWindowUnloadsTheHelper) {
  StartOn({"Dorian", "2122212"});
  ClickPrintAnd([&](frmPrint& /*helper*/) { windowPrinting_->Unload(); });
  EXPECT_THAT(Helpers(), IsEmpty());
  EXPECT_EQ(script_.pages, 0);
  windowPrinting_->Unload();
}

TEST_F(Printing, WindowMayBeDestroyedWhileThePrinterDialogIsOpen) {
  StartOn({"Dorian", "2122212"});
  script_.During("ask printer", [&] {
    windowPrinting_.reset();
    window_.reset();
  });
  ClickPrintAnd([](frmPrint& helper) { helper.cmdPrint_Click(); });
  EXPECT_THAT(Helpers(), IsEmpty());
  EXPECT_EQ(script_.pages, 0);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Printing, WindowMayBeDestroyedWhileAFailureIsShown) {
  struct DestroyingMsgBox : core::MsgBox {
    using core::MsgBox::Show;
    core::MsgBoxAnswer Show(const core::Message& text, core::MsgBoxStyle /*style*/,
                            const core::Message& /*title*/) override {
      shown += text.English() + "\n";
      destroy();
      return core::MsgBoxAnswer::kOk;
    }
    std::function<void()> destroy;
    std::string shown;
  };
  StartOn({"Dorian", "2122212"});
  DestroyingMsgBox destroying;
  destroying.destroy = [&] {
    windowPrinting_.reset();
    window_.reset();
  };
  const auto staff = [] { throw core::Failure::Overflow(); };
  windowPrinting_ =
      std::make_unique<MainWindowPrinting>(C(), Window(), MainWindowPrinting::Tools{service_, destroying, staff});
  script_.Break("end");
  Print();
  EXPECT_EQ(destroying.shown, "end broke\nOverflow\n");
}

TEST_F(Printing, CaptureViewPrintsTheWindowAsOnTheScreen) {
  StartOn({"Dorian", "2122212"});
  tests::ScriptedPrinter printer(script_, 16000, 11000);
  windowPrinting_->CaptureView({printer, box_});
  ASSERT_THAT(script_.painted, SizeIs(1));
  EXPECT_THAT(script_.Record(), testing::StartsWith("scale mode 3\npaint at 0,0 "));
  const QImage page = tests::Painted(MainControls::kClientWidth, MainControls::ClientHeight(neck_), 1,
                                     [&](QPainter& painter) { script_.painted[0].picture->PaintOn(painter); });
  EXPECT_GT(tests::InkBox(page, page.rect()).width(), 900) << "the neck is printed";
  EXPECT_TRUE(C().printPic->isHidden());
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Printing, InstallResultIsHiddenWhilePrinting) {
  StartOn({"Dorian", "2122212"});
  C().lblInstall->setText(QStringLiteral("3 scales added from 1 pack"));
  std::vector<bool> isHidden;
  const auto staff = [&] { isHidden.push_back(C().lblInstall->isHidden()); };
  windowPrinting_ =
      std::make_unique<MainWindowPrinting>(C(), Window(), MainWindowPrinting::Tools{service_, box_, staff});
  Print();
  ASSERT_FALSE(isHidden.empty());
  EXPECT_TRUE(isHidden.front());
  EXPECT_FALSE(C().lblInstall->isHidden());
  C().lblInstall->hide();
  Print();
  EXPECT_TRUE(C().lblInstall->isHidden());
}

TEST_F(Printing, WithoutAPrinterThePageIsSavedAsPdf) {
  StartOn({"Dorian", "2122212"});
  service_.hasPrinter = false;
  ClickPrintAnd([](frmPrint& helper) {
    helper.cmdPdf_Click();
    helper.cmdCancel_Click();
  });
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Printing, PrintsAgainAfterAFailure) {
  StartOn({"Dorian", "2122212"});
  script_.Break("end");
  Print();
  script_.Repair();
  Print();
  EXPECT_EQ(script_.pages, 1);
}

}  // namespace
}  // namespace tonalith::app
