// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/print_picture_to_size.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPainter>
#include <memory>

#include "support/ink.h"
#include "support/recording_msg_box.h"
#include "support/scripted_printer.h"

namespace tonalith::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Message = tests::RecordingMsgBox::Message;

PictureBox* PicTemp(const QWidget& form) { return form.findChild<PictureBox*>(QStringLiteral("picTemp")); }

/// A form of 300 x 200 at (40, 50) with a picture of 100 x 50, and a page of 10,000 x 8,000 twips.
class PrintPictureToSizeTest : public testing::Test {
 protected:
  PrintPictureToSizeTest() {
    form_.setGeometry(40, 50, 300, 200);
    source_->resize(100, 50);
    source_->Surface().SetScaleMode(paint::ScaleMode::kPixels);
    source_->Surface().Line(0, 0, 100, 0);
  }
  void Print() { PrintPictureToSize({printer_, box_}, form_, *source_, 90, 15, 15); }

  QWidget form_;
  PictureBox* source_ = new PictureBox(QStringLiteral("source"), &form_);
  tests::RecordingMsgBox box_;
  tests::PrintScript script_;
  tests::ScriptedPrinter printer_{script_, 10000, 8000};
};

TEST_F(PrintPictureToSizeTest, PaintsOncePerPageAndEndsTheDocument) {
  Print();
  // 9000 x 4500 at 15 % of 1000 and of 3500.
  EXPECT_EQ(script_.Record(),
            "paint at 150,525 9000x4500\n"
            "end\n");
  EXPECT_EQ(script_.pages, 1);
  EXPECT_TRUE(printer_.IsEnded());
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(PrintPictureToSizeTest, UsesTheUnitsOfThePrinter) {
  printer_.SetScaleMode(platform::PrinterScaleMode::kPixels);
  script_.Forget();
  Print();
  EXPECT_EQ(script_.Record(),
            "paint at 62.5,218.75 3750x1875\n"
            "end\n");
}

TEST_F(PrintPictureToSizeTest, PicTempIsNextToTheFormWhilePrinting) {
  int seen = 0;
  for (const char* const step : {"width", "paint", "end"}) {
    script_.During(step, [&] {
      const PictureBox* const picTemp = PicTemp(form_);
      ASSERT_NE(picTemp, nullptr);
      EXPECT_EQ(picTemp->parentWidget(), &form_);
      EXPECT_TRUE(picTemp->AutoRedraw);
      EXPECT_FALSE(picTemp->BorderStyle);
      EXPECT_EQ(picTemp->size(), QSize(100, 50));
      EXPECT_EQ(picTemp->x(), 340);
      EXPECT_NE(picTemp->Picture(), nullptr);
      ++seen;
    });
  }
  Print();
  EXPECT_EQ(seen, 3);
  EXPECT_EQ(PicTemp(form_), nullptr);
}

TEST_F(PrintPictureToSizeTest, UsesTheInnerSizeOfTheSource) {
  source_->BorderStyle = true;
  script_.During("width", [&] { EXPECT_EQ(PicTemp(form_)->size(), QSize(98, 48)); });
  Print();
}

TEST_F(PrintPictureToSizeTest, PrintsTheContentOfTheSource) {
  Print();
  ASSERT_THAT(script_.painted, SizeIs(1));
  const QImage dots =
      tests::Painted(100, 50, 2, [&](QPainter& painter) { script_.painted.front().picture->PaintOn(painter); });
  EXPECT_EQ(tests::InkBox(dots, dots.rect()), QRect(0, 0, 200, 2));
}

TEST_F(PrintPictureToSizeTest, FailureOfAnyStepIsReportedAndPicTempDeleted) {
  for (const char* const step : {"width", "height", "paint", "end"}) {
    script_.Repair();
    script_.Break(step);
    box_.Forget();
    Print();
    EXPECT_THAT(box_.Messages(), ElementsAre(Message{std::string(step) + " broke", core::MsgBoxStyle::kOkOnly, ""}));
    EXPECT_EQ(PicTemp(form_), nullptr) << step;
    EXPECT_EQ(script_.pages, 0) << step;
    EXPECT_FALSE(printer_.IsEnded()) << step;
  }
}

TEST_F(PrintPictureToSizeTest, EndsTheDocumentAfterAFailure) {
  script_.Break("paint");
  Print();
  EXPECT_EQ(script_.Record(),
            "paint at 150,525 9000x4500\n"
            "end\n");
}

TEST_F(PrintPictureToSizeTest, EmptySourcePrintsNothingWithAMessage) {
  source_->Surface().Cls();
  Print();
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Invalid picture", core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_EQ(script_.pages, 0);
  EXPECT_EQ(PicTemp(form_), nullptr);
}

TEST_F(PrintPictureToSizeTest, SourceWithoutSizePrintsNothingWithAMessage) {
  source_->resize(0, 0);
  Print();
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Division by zero", core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_EQ(script_.pages, 0);
}

TEST_F(PrintPictureToSizeTest, FormDestroyedWhilePrintingDestroysPicTemp) {
  auto form = std::make_unique<QWidget>();
  script_.During("end", [&] { form.reset(); });
  PrintPictureToSize({printer_, box_}, *form, *source_, 90, 15, 15);
  EXPECT_EQ(form, nullptr);
  EXPECT_EQ(script_.pages, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

}  // namespace
}  // namespace tonalith::print
