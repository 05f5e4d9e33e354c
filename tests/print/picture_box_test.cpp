// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/picture_box.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "support/ink.h"

namespace tonalith::print {
namespace {

/// A box of 100 x 60 with a line from (10, 20) to (90, 20).
class PictureBoxTest : public testing::Test {
 protected:
  PictureBoxTest() {
    box_.resize(100, 60);
    box_.Surface().SetScaleMode(paint::ScaleMode::kPixels);
    box_.Surface().Line(10, 20, 90, 20);
  }
  PictureBox box_{QStringLiteral("box"), nullptr};
};

TEST_F(PictureBoxTest, ImageHasTheInnerSizeAndIsPaintedAtAnyResolution) {
  const auto image = box_.Image();
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->Width(), 100);
  EXPECT_EQ(image->Height(), 60);
  // Six dots per pixel: the line is six dots thick and sharp.
  const QImage dots = tests::Painted(100, 60, 6, [&](QPainter& painter) { image->PaintOn(painter); });
  EXPECT_EQ(tests::InkBox(dots, dots.rect()), QRect(60, 120, 480, 6));
  EXPECT_EQ(tests::Darkness(dots, 100, 119), 0);
}

TEST_F(PictureBoxTest, ImageDoesNotChangeWithLaterDrawing) {
  const auto image = box_.Image();
  box_.Surface().Cls();
  box_.Surface().Line(0, 50, 5, 50);
  const QImage dots = tests::Painted(100, 60, 1, [&](QPainter& painter) { image->PaintOn(painter); });
  EXPECT_EQ(tests::InkBox(dots, dots.rect()), QRect(10, 20, 80, 1));
}

TEST_F(PictureBoxTest, BorderReducesEachSideByAPixel) {
  box_.BorderStyle = true;
  EXPECT_EQ(box_.ScaleWidth(), 98);
  EXPECT_EQ(box_.ScaleHeight(), 58);
  EXPECT_EQ(box_.Image()->Width(), 98);
}

TEST_F(PictureBoxTest, EmptyBoxAndBoxWithoutAutoRedrawHaveNoImage) {
  box_.AutoRedraw = false;
  EXPECT_EQ(box_.Image(), nullptr);
  box_.AutoRedraw = true;
  box_.Surface().Cls();
  EXPECT_EQ(box_.Image(), nullptr);
}

TEST_F(PictureBoxTest, CopyGoesToItsPositionAndKeepsExistingContent) {
  box_.Surface().SetFontSize(paint::Pixels(14));
  box_.Surface().SetFontBold(true);
  box_.Surface().SetForeColor(paint::Bgr{0xFF0000});
  box_.Surface().SetCurrentX(4);
  box_.Surface().SetCurrentY(5);
  box_.Surface().Print("F#");
  paint::RecordingSurface target;
  target.SetScaleMode(paint::ScaleMode::kPixels);
  target.Line(1, 1, 2, 1);
  BitBlt(target, 100, 200.5, box_.Surface());
  EXPECT_EQ(target.AsText(),
            "line 1,1 2,1\n"
            "line 110,220.50 190,220.50\n"
            "colour &HFF0000\n"
            "font \"MS Sans Serif\" 14px bold\n"
            "print \"F#\" at 104,205.50\n");
}

TEST_F(PictureBoxTest, IsWhiteInADarkTheme) {
  QPalette dark;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  box_.setPalette(dark);
  const QImage dots = box_.grab().toImage();
  EXPECT_EQ(dots.pixelColor(50, 40), QColor(Qt::white));
  EXPECT_EQ(dots.pixelColor(50, 20), QColor(Qt::black));
}

}  // namespace
}  // namespace tonalith::print
