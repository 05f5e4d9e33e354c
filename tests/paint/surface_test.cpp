// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <QPainter>

#include "paint/painter_surface.h"
#include "paint/recording_surface.h"
#include "support/ink.h"

namespace tonalith::paint {
namespace {

class NamedPicture : public SurfacePicture {
 public:
  [[nodiscard]] std::string Name() const override { return "square"; }
  void PaintOn(QPainter& painter) const override { painter.fillRect(0, 0, 4, 4, Qt::black); }
};

RecordingSurface InPixels() {
  RecordingSurface surface;
  surface.SetScaleMode(ScaleMode::kPixels);
  return surface;
}

TEST(RecordingSurface, WritesOneCommandPerLine) {
  RecordingSurface surface = InPixels();
  surface.Line(743, 123, 1033, 123);
  surface.SetFontName("Maestro");
  surface.SetFontSize(Points(24));
  surface.SetCurrentX(815);
  surface.SetCurrentY(113);
  surface.Print("wI");
  surface.SetFontName("Tahoma");
  surface.SetFontSize(Pixels(14));
  surface.SetFontBold(true);
  surface.SetForeColor(kWhite);
  surface.SetCurrentX(4.25);
  surface.SetCurrentY(5);
  surface.Print("F#");
  surface.PaintPicture(std::make_shared<NamedPicture>(), 0, 0);
  EXPECT_EQ(surface.AsText(),
            "line 743,123 1033,123\n"
            "font \"Maestro\" 24pt\n"
            "print 119 73 at 815,113\n"
            "colour &HFFFFFF\n"
            "font \"Tahoma\" 14px bold\n"
            "print \"F#\" at 4.25,5\n"
            "picture square at 0,0\n");
}

TEST(RecordingSurface, TurnsTwipsIntoPixelsInTwipsMode) {
  RecordingSurface surface;
  EXPECT_EQ(surface.GetScaleMode(), ScaleMode::kTwips);
  surface.Line(150, 300, 450, 300);
  EXPECT_EQ(surface.AsText(), "line 10,20 30,20\n");
  EXPECT_DOUBLE_EQ(surface.CurrentX(), 450);
  surface.SetScaleMode(ScaleMode::kPixels);
  EXPECT_DOUBLE_EQ(surface.CurrentX(), 30);
}

TEST(RecordingSurface, MeasuresTextInTheUnitOfItsScaleMode) {
  RecordingSurface surface;
  surface.SetFontName("No Such Family");
  surface.SetFontSize(Pixels(20));
  const double twips = surface.TextHeight("A");
  surface.SetScaleMode(ScaleMode::kPixels);
  EXPECT_DOUBLE_EQ(surface.TextHeight("A"), 24);
  EXPECT_DOUBLE_EQ(twips, 24 * 15);
  EXPECT_GT(surface.TextWidth("AA"), surface.TextWidth("A"));
}

TEST(RecordingSurface, MovesToTheNextLineAfterAPrint) {
  RecordingSurface surface = InPixels();
  surface.SetFontName("No Such Family");
  surface.SetFontSize(Pixels(20));
  surface.SetCurrentX(7);
  surface.SetCurrentY(3);
  surface.Print("A");
  EXPECT_DOUBLE_EQ(surface.CurrentX(), 0);
  EXPECT_DOUBLE_EQ(surface.CurrentY(), 27);
}

TEST(RecordingSurface, RemovesItsCommandsWhenCleared) {
  RecordingSurface surface = InPixels();
  surface.Line(1, 1, 5, 1);
  surface.Cls();
  EXPECT_EQ(surface.AsText(), "");
  EXPECT_DOUBLE_EQ(surface.CurrentX(), 0);
  EXPECT_TRUE(surface.InkBounds().isNull());
}

TEST(RecordingSurface, BoundsHoldLinesAndGlyphsOfTheMusicFont) {
  RecordingSurface surface = InPixels();
  surface.Line(60, 50, 20, 50);
  EXPECT_EQ(surface.InkBounds(), QRectF(20, 50, 40, 1)) << "a line is a pixel thick";
  surface.Line(30, 70, 30, 40);
  EXPECT_EQ(surface.InkBounds(), QRectF(QPointF(20, 40), QPointF(60, 70)));
  surface.SetFontName("Maestro");
  surface.SetFontSize(Pixels(36));
  surface.SetCurrentX(200);
  surface.SetCurrentY(100);
  surface.Print("w");
  const QRectF bounds = surface.InkBounds();
  EXPECT_EQ(bounds.topLeft(), QPointF(20, 40));
  EXPECT_GT(bounds.right(), 205) << "the notehead is to the right of the lines";
  EXPECT_LT(bounds.right(), 230);
  EXPECT_GT(bounds.bottom(), 100);
}

TEST(RecordingSurface, ReplaysOnAnotherSurface) {
  RecordingSurface first = InPixels();
  first.SetForeColor(Bgr{0xFF0000});
  first.Line(1, 2, 30, 2);
  first.SetFontName("Maestro");
  first.SetFontSize(Points(24));
  first.SetCurrentX(3);
  first.SetCurrentY(4);
  first.Print("&");
  first.PaintPicture(std::make_shared<NamedPicture>(), 9, 9);
  RecordingSurface second;
  first.ReplayOn(second);
  EXPECT_EQ(second.AsText(), first.AsText());
}

class PainterSurfaceAtScale : public testing::TestWithParam<double> {};

TEST_P(PainterSurfaceAtScale, DrawsALineOnWholeDotsWithoutGrey) {
  const double scale = GetParam();
  const QImage image = tests::Painted(40, 20, scale, [](QPainter& painter) {
    PainterSurface surface(painter);
    surface.SetScaleMode(ScaleMode::kPixels);
    surface.Line(3, 7, 33, 7);
  });
  int dark = 0;
  const int column = image.width() / 2;
  for (int y = 0; y < image.height(); ++y) {
    const int darkness = tests::Darkness(image, column, y);
    EXPECT_TRUE(darkness == 0 || darkness == 255) << "grey in row " << y;
    if (darkness == 255) ++dark;
  }
  EXPECT_EQ(dark, qRound(scale));
  const QRect ink = tests::InkBox(image, image.rect());
  EXPECT_EQ(ink.left(), qRound(3 * scale));
  EXPECT_EQ(ink.right() + 1, qRound(33 * scale)) << "the pixel at the end is not part of the line";
  EXPECT_EQ(ink.top(), qRound(7 * scale));
}

TEST_P(PainterSurfaceAtScale, PrintsTextOnTheBaselineOfItsCell) {
  const double scale = GetParam();
  const QImage image = tests::Painted(60, 60, scale, [](QPainter& painter) {
    PainterSurface surface(painter);
    surface.SetScaleMode(ScaleMode::kPixels);
    surface.SetFontName("No Such Family");
    surface.SetFontSize(Pixels(28));
    surface.SetFontBold(true);
    surface.SetCurrentX(10);
    surface.SetCurrentY(5);
    surface.Print("E");
  });
  const QRect ink = tests::InkBox(image, image.rect());
  EXPECT_NEAR(ink.bottom() + 1, (5 + 28) * scale, 1);
}

TEST_P(PainterSurfaceAtScale, RestoresTheStateOfThePainter) {
  tests::Painted(40, 20, GetParam(), [](QPainter& painter) {
    painter.translate(3, 4);
    const QTransform before = painter.transform();
    PainterSurface surface(painter, Qt::white);
    surface.SetScaleMode(ScaleMode::kPixels);
    surface.Cls();
    surface.SetFontName("Maestro");
    surface.Print("w");
    surface.Line(1, 1, 5, 5);
    surface.PaintPicture(std::make_shared<NamedPicture>(), 2, 2);
    EXPECT_EQ(painter.transform(), before);
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
  });
}

INSTANTIATE_TEST_SUITE_P(Scales, PainterSurfaceAtScale, testing::Values(1.0, 1.25, 1.5, 2.0, 6.25));

TEST(PainterSurface, ClearsItsDeviceWithItsBackground) {
  const QImage image = tests::Painted(10, 10, 1, [](QPainter& painter) {
    painter.fillRect(0, 0, 10, 10, Qt::black);
    PainterSurface surface(painter, Qt::white);
    surface.Cls();
  });
  EXPECT_TRUE(tests::InkBox(image, image.rect()).isNull());
}

TEST(FontChoice, FindsAnInstalledFamilyInAnyCase) {
  const std::string family = QFont().family().toStdString();
  const bool installed = FontIsInstalled(family);
  EXPECT_EQ(FontIsInstalled(QString::fromStdString(family).toUpper().toStdString()), installed);
  EXPECT_TRUE(FontIsInstalled("eUTERPE"));
  EXPECT_FALSE(FontIsInstalled("No Such Family"));
  EXPECT_FALSE(FontIsInstalled(""));
}

TEST(FontChoice, UsesTheDefaultFamilyForAMissingOne) {
  RecordingSurface surface;
  SetFontNameOrDefault(surface, "No Such Family");
  EXPECT_EQ(surface.Font().name, "MS Sans Serif");
  SetFontNameOrDefault(surface, "Euterpe");
  EXPECT_EQ(surface.Font().name, "Euterpe");
}

TEST(FontChoice, GivesAMissingFamilyACellWhoseBaselineIsOneEmBelowItsTop) {
  SurfaceFont font;
  font.name = "No Such Family";
  font.size = Pixels(14);
  EXPECT_DOUBLE_EQ(CellOf(font).baseline, 14);
  EXPECT_DOUBLE_EQ(CellOf(font).height, 16.8);
  font.size = Points(24);
  EXPECT_DOUBLE_EQ(CellOf(font).baseline, 32);
}

TEST(Colours, ReadBlueFromTheHighByte) {
  EXPECT_EQ(ToRgb(Bgr{0xFF0000}), qRgb(0, 0, 255));
  EXPECT_EQ(ToRgb(Bgr{0x0000FF}), qRgb(255, 0, 0));
  EXPECT_EQ(ToRgb(Bgr{0x7F7F7F}), qRgb(127, 127, 127));
}

TEST(Colours, ComputeTheContrastOfBlackOnWhite) {
  EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(ContrastRatio(Qt::white, Qt::white), 1, 0.01);
}

}  // namespace
}  // namespace tonalith::paint
