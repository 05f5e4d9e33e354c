// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QPainter>

#include "print/print_picture_to_size.h"
#include "support/ink.h"
#include "support/recording_msg_box.h"
#include "support/scripted_printer.h"

namespace tonalith::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Message = tests::RecordingMsgBox::Message;

constexpr const char* kNothing = "Bitmap creation failed \xE2\x80\x94 nothing to print.";

/// A white window of 96 x 48 pixels (one inch by half an inch) with a black patch of 24 x 12 at (12, 6).
class CapturePrintTest : public testing::Test {
 protected:
  CapturePrintTest() {
    QPalette white;
    white.setColor(QPalette::Window, Qt::white);
    view_.setPalette(white);
    view_.resize(96, 48);
    auto* const patch = new QWidget(&view_);
    patch->setGeometry(12, 6, 24, 12);
    QPalette black;
    black.setColor(QPalette::Window, Qt::black);
    patch->setPalette(black);
    patch->setAutoFillBackground(true);
    printPic_->hide();
  }
  void Print() { CapturePrint({printer_, box_}, view_, *printPic_); }

  QWidget view_;
  QWidget form_;
  PictureBox* printPic_ = new PictureBox(QStringLiteral("printPic"), &form_);
  tests::RecordingMsgBox box_;
  tests::PrintScript script_;
  tests::ScriptedPrinter printer_{script_, 10000, 8000};
};

TEST_F(CapturePrintTest, PrintsTheViewInItsOwnSizeAtTheTopLeft) {
  Print();
  EXPECT_EQ(script_.Record(),
            "scale mode 3\n"
            "paint at 0,0 600x300\n"
            "end\n");
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(CapturePrintTest, PrintsWhatTheViewShows) {
  Print();
  ASSERT_THAT(script_.painted, SizeIs(1));
  const QImage dots =
      tests::Painted(96, 48, 4, [&](QPainter& painter) { script_.painted.front().picture->PaintOn(painter); });
  EXPECT_EQ(tests::InkBox(dots, dots.rect()), QRect(48, 24, 96, 48));
}

TEST_F(CapturePrintTest, ViewThatCannotBeCapturedPrintsNothingWithAMessage) {
  view_.resize(0, 0);
  Print();
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{kNothing, core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_EQ(script_.Record(), "scale mode 3\n");
  EXPECT_EQ(script_.pages, 0);
}

TEST_F(CapturePrintTest, EarlierPictureIsNotPrintedInstead) {
  Print();
  view_.resize(0, 0);
  Print();
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), SizeIs(1));
}

TEST_F(CapturePrintTest, FailureOfAnyStepIsReported) {
  for (const char* const step : {"scale mode", "resolution", "paint", "end"}) {
    script_.Repair();
    script_.Break(step);
    box_.Forget();
    Print();
    EXPECT_THAT(box_.Messages(), ElementsAre(Message{std::string(step) + " broke", core::MsgBoxStyle::kOkOnly, ""}));
  }
  EXPECT_EQ(script_.pages, 1) << "the page of the first round, in twips";
}

}  // namespace
}  // namespace tonalith::print
