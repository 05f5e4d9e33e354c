// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/fitting_label.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>
#include <QImage>

#include "paint/colours.h"
#include "paint/theme.h"
#include "support/paint_counter.h"
#include "support/recorded_painting.h"
#include "windows/plain_label.h"

namespace tonalith::windows {
namespace {

/// The rightmost painted column of a rendered label.
int RightmostInk(FittingLabel& label) {
  QImage image(label.size(), QImage::Format_RGB32);
  image.fill(Qt::white);
  label.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  for (int x = image.width() - 1; x >= 0; --x) {
    for (int y = 0; y < image.height(); ++y) {
      if (qGray(image.pixel(x, y)) < 128) return x;
    }
  }
  return -1;
}

class FittingLabelTest : public testing::Test {
 protected:
  FittingLabelTest() : label_(QStringLiteral("Label1"), {30, 15}, QFont::Bold, nullptr) {
    label_.resize(300, 40);
    label_.SetTextColour(Qt::black);
    QPalette palette = label_.palette();
    palette.setColor(QPalette::Window, Qt::white);
    label_.setPalette(palette);
  }
  FittingLabel label_;
};

TEST_F(FittingLabelTest, ShortTextIsSetInTheLargestSize) {
  label_.setText(QStringLiteral("Dorian"));
  EXPECT_EQ(label_.FittedPixelSize(), 30);
  EXPECT_FALSE(label_.IsElided());
}

TEST_F(FittingLabelTest, LongerTextIsSmallerAndComplete) {
  label_.setText(QStringLiteral("Phrygian dominant flat four"));
  EXPECT_LT(label_.FittedPixelSize(), 30);
  EXPECT_FALSE(label_.IsElided());
  const int right = RightmostInk(label_);
  EXPECT_GT(right, 100);
  EXPECT_LT(right, 300);
}

TEST_F(FittingLabelTest, TextTooLongForAnySizeEndsInAnEllipsisInsideTheBox) {
  label_.setText(QString(200, QLatin1Char('W')));
  EXPECT_EQ(label_.FittedPixelSize(), 15);
  EXPECT_TRUE(label_.IsElided());
  EXPECT_LT(RightmostInk(label_), 300);
  EXPECT_EQ(label_.text().size(), 200);
}

TEST_F(FittingLabelTest, FittedFontHasTheFittedSizeAndTheGivenWeight) {
  QFont spaced = label_.font();
  spaced.setLetterSpacing(QFont::AbsoluteSpacing, 2);
  spaced.setPixelSize(11);
  label_.setFont(spaced);
  label_.resize(300, 30);
  const QString text = QStringLiteral("Phrygian dominant");
  label_.setText(text);
  const QFont fitted = label_.FittedFont();
  EXPECT_LT(fitted.pixelSize(), 30);
  EXPECT_GT(fitted.pixelSize(), 15);
  EXPECT_EQ(fitted.pixelSize(), label_.FittedPixelSize());
  EXPECT_EQ(fitted.weight(), QFont::Bold);
  EXPECT_EQ(fitted.family(), spaced.family());
  EXPECT_EQ(fitted.letterSpacing(), 2);
  const QFontMetricsF metrics(fitted);
  EXPECT_LE(metrics.horizontalAdvance(text), 300);
  EXPECT_LE(metrics.height(), 30);
  QFont larger = fitted;
  larger.setPixelSize(fitted.pixelSize() + 1);
  const QFontMetricsF largerMetrics(larger);
  EXPECT_TRUE(largerMetrics.horizontalAdvance(text) > 300 || largerMetrics.height() > 30);
}

TEST_F(FittingLabelTest, TextIsAsWideAsInAFontOfItsSize) {
  label_.setText(QStringLiteral("HIHI"));
  ASSERT_EQ(label_.FittedPixelSize(), 30);
  // The last stem ends before the advance does.
  const double width = QFontMetricsF(label_.FittedFont()).tightBoundingRect(label_.text()).right();
  EXPECT_NEAR(RightmostInk(label_) + 1, width, 1.5);
}

TEST_F(FittingLabelTest, LineBreaksBreakLines) {
  label_.setText(QStringLiteral("a\r\nb"));
  const int two = label_.FittedPixelSize();
  label_.setText(QStringLiteral("a b"));
  EXPECT_LT(two, label_.FittedPixelSize());
}

TEST_F(FittingLabelTest, AnotherFontIsFittedAgain) {
  label_.setText(QStringLiteral("Phrygian"));
  ASSERT_EQ(label_.FittedPixelSize(), 30);
  QFont wide = label_.font();
  wide.setLetterSpacing(QFont::AbsoluteSpacing, 20);
  label_.setFont(wide);
  EXPECT_LT(label_.FittedPixelSize(), 30);
}

TEST_F(FittingLabelTest, TextTooDarkForTheWindowGetsARoundedWarmChip) {
  QPalette system(QColor(0x30, 0x30, 0x34));
  system.setColor(QPalette::WindowText, Qt::white);
  const QPalette dark = paint::WarmPalette(system);
  label_.setPalette(dark);
  label_.SetTextColour(Qt::blue);
  label_.setText(QStringLiteral("Stopped"));
  QImage image(label_.size(), QImage::Format_RGB32);
  image.fill(dark.color(QPalette::Window));
  label_.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
  const QColor chip = image.pixelColor(image.height() / 2, 1);
  EXPECT_GE(paint::ContrastRatio(chip, Qt::blue), 4.5);
  EXPECT_LT(chip.blue(), chip.red() - 20) << "the chip is not warm";
  EXPECT_EQ(image.pixelColor(0, 0), dark.color(QPalette::Window)) << "the corner is not round";
  EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() / 2), dark.color(QPalette::Window));
}

TEST_F(FittingLabelTest, IsNamedAndShowsMarkupLiterally) {
  EXPECT_EQ(label_.objectName(), QStringLiteral("Label1"));
  label_.setText(QStringLiteral("<b>A</b>"));
  EXPECT_EQ(tests::RecordPainting(label_).Texts(), QStringList{QStringLiteral("<b>A</b>")});
}

TEST_F(FittingLabelTest, PaintsItsTextInItsColourOrThatOfThePalette) {
  label_.setText(QStringLiteral("Dorian"));
  label_.SetTextColour(Qt::darkRed);
  EXPECT_EQ(tests::RecordPainting(label_).Text(QStringLiteral("Dorian")).line, QColor(Qt::darkRed));
  label_.SetTextColour(QColor());
  EXPECT_EQ(tests::RecordPainting(label_).Text(QStringLiteral("Dorian")).line,
            label_.palette().color(QPalette::WindowText));
}

TEST_F(FittingLabelTest, PaintsAnElidedTextInTheSmallestSize) {
  label_.setText(QString(200, QLatin1Char('W')));
  const std::vector<tests::Drawn> drawn = tests::RecordPainting(label_).All();
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_TRUE(drawn[0].text.endsWith(QChar(0x2026)));
  EXPECT_EQ(drawn[0].font.weight(), QFont::Bold);
  const double cell = QFontMetricsF(label_.FittedFont()).height();
  EXPECT_NEAR(drawn[0].box.height(), cell, 0.1 * cell);
  EXPECT_NEAR(drawn[0].box.top(), 0, 1.5);
}

TEST_F(FittingLabelTest, PaintsAsManyLinesOfAnElidedTextAsFit) {
  QStringList lines;
  for (int i = 0; i < 9; ++i) lines.append(QStringLiteral("line %1").arg(i));
  label_.setText(lines.join(QLatin1Char('\n')));
  ASSERT_TRUE(label_.IsElided());
  const QStringList painted = tests::RecordPainting(label_).Texts();
  ASSERT_EQ(painted.size(), 2) << "40 pixels are two lines of the smallest size";
  EXPECT_EQ(painted[0].trimmed(), QStringLiteral("line 0"));
  EXPECT_TRUE(painted[1].startsWith(QStringLiteral("line 1"))) << painted[1].toStdString();
}

TEST_F(FittingLabelTest, AnotherFontChangesTheSizeHint) {
  label_.setText(QStringLiteral("Phrygian"));
  const QSize before = label_.sizeHint();
  QFont large = label_.font();
  large.setPixelSize(60);
  label_.setFont(large);
  EXPECT_GT(label_.sizeHint().height(), before.height());
}

TEST(PlainLabel, IsNamedAndShowsMarkupLiterally) {
  QWidget parent;
  QLabel* const label = MakePlainLabel(QStringLiteral("lblType"), QStringLiteral("<b>A</b>"), &parent);
  EXPECT_EQ(label->objectName(), QStringLiteral("lblType"));
  EXPECT_EQ(label->parentWidget(), &parent);
  label->resize(label->sizeHint());
  EXPECT_EQ(tests::RecordPainting(*label).Texts(), QStringList{QStringLiteral("<b>A</b>")});
}

TEST_F(FittingLabelTest, EmptyTextPaintsNothing) {
  label_.setText(QString());
  EXPECT_EQ(RightmostInk(label_), -1);
}

TEST_F(FittingLabelTest, AnotherColourIsPaintedAtOnce) {
  label_.setText(QStringLiteral("Dorian"));
  label_.show();
  QApplication::processEvents();
  const tests::PaintCounter paints(label_);
  label_.SetTextColour(Qt::darkRed);
  QApplication::processEvents();
  EXPECT_EQ(paints.Count(), 1);
}

}  // namespace
}  // namespace tonalith::windows
