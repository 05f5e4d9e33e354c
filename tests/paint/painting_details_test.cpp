// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Exact dots: rectangles and lines that snap to the device, positions of texts and pictures, mixtures of colours.

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QPainter>
#include <QPicture>
#include <cmath>
#include <map>

#include "paint/device_scale.h"
#include "paint/music_font.h"
#include "paint/painter_surface.h"
#include "paint/recording_surface.h"
#include "support/ink.h"
#include "support/recorded_painting.h"

namespace tonalith::paint {
namespace {

using tests::Darkness;
using tests::InkBox;

class Square : public SurfacePicture {
 public:
  [[nodiscard]] std::string Name() const override { return "square"; }
  void PaintOn(QPainter& painter) const override { painter.fillRect(0, 0, 4, 4, Qt::black); }
};

QRect Filled(const QRectF& pixels, double scale) {
  const QImage image =
      tests::Painted(40, 40, scale, [&](QPainter& painter) { FillSnapped(painter, pixels, Qt::black); });
  return InkBox(image, image.rect());
}

TEST(FillSnapped, FillsTallRectanglesWithoutGapsOrOverlaps) {
  for (const int height : {1, 63, 64, 65, 128, 129, 200}) {
    const QImage image = tests::Painted(10, 220, 1, [&](QPainter& painter) {
      FillSnapped(painter, {2, 3, 4, static_cast<double>(height)}, QColor(0, 0, 0, 100));
    });
    std::map<int, int> rows;
    for (int y = 0; y < image.height(); ++y) ++rows[Darkness(image, 4, y)];
    ASSERT_EQ(rows.size(), 2U) << height << ": the background and one shade";
    EXPECT_EQ(rows.rbegin()->second, height);
    EXPECT_GT(Darkness(image, 4, 3), 0);
    EXPECT_EQ(Darkness(image, 4, 2), 0);
    EXPECT_EQ(Darkness(image, 1, 3), 0);
    EXPECT_EQ(Darkness(image, 6, 3), 0);
  }
}

TEST(FillSnapped, ThinRectanglesAreEquallyThickEverywhere) {
  for (const double left : {3.0, 3.2, 3.4, 3.6, 3.8}) {
    EXPECT_EQ(Filled({left, 1, 7.4, 7.4}, 1).width(), 7) << left;
    EXPECT_EQ(Filled({1, left, 7.4, 7.4}, 1).height(), 7) << left;
  }
}

TEST(FillSnapped, BothEndsOfLongRectanglesAreRounded) {
  EXPECT_EQ(Filled({3.4, 1, 8.2, 1}, 1).width(), 9) << "from 3 to 12";
  EXPECT_EQ(Filled({3.6, 1, 8.2, 1}, 1).width(), 8) << "from 4 to 12";
  EXPECT_EQ(Filled({3.4, 1, 7.9, 1}, 1).width(), 8) << "below 8 dots, at 3.4";
  EXPECT_EQ(Filled({3.4, 1, 7.2, 1}, 1).width(), 7) << "not from 3 to 11";
}

TEST(FillSnapped, IsAtLeastOneDotThick) {
  EXPECT_EQ(Filled({3, 5, 20, 0.1}, 1), QRect(3, 5, 20, 1));
  EXPECT_EQ(Filled({3, 5, 0.1, 20}, 1), QRect(3, 5, 1, 20));
  EXPECT_EQ(Filled({3, 5, 20, 0.1}, 2), QRect(6, 10, 40, 1));
}

TEST(FillSnapped, KeepsTheSmoothnessOfThePainterButDoesNotUseIt) {
  const QImage image = tests::Painted(20, 20, 1, [](QPainter& painter) {
    FillSnapped(painter, {3.3, 3.3, 10, 10}, Qt::black);
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    painter.setRenderHint(QPainter::Antialiasing);
    FillSnapped(painter, {3.3, 3.3, 10, 10}, Qt::black);
    EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
  });
  EXPECT_EQ(Darkness(image, 3, 3), 255);
  EXPECT_EQ(Darkness(image, 2, 2), 0);
  EXPECT_EQ(Darkness(image, 13, 13), 0);
}

TEST(FillSnapped, FillsARotatedRectangleOnce) {
  const QImage image = tests::Painted(40, 40, 1, [](QPainter& painter) {
    painter.translate(20, 20);
    painter.rotate(45);
    FillSnapped(painter, {-8, -8, 16, 16}, QColor(0, 0, 0, 100));
  });
  EXPECT_EQ(Darkness(image, 20, 20), 100);
  EXPECT_EQ(Darkness(image, 20, 11), 100) << "the corners point up and down";
  EXPECT_EQ(Darkness(image, 12, 12), 0);
}

QImage OnSurface(const std::function<void(DrawingSurface&)>& draw) {
  return tests::Painted(40, 40, 1, [&](QPainter& painter) {
    PainterSurface surface(painter, Qt::white);
    surface.SetScaleMode(ScaleMode::kPixels);
    draw(surface);
  });
}

TEST(PainterSurface, LinesAreOnePixelThickWithoutTheirLastPixel) {
  const auto line = [](double x1, double y1, double x2, double y2) {
    const QImage image = OnSurface([&](DrawingSurface& surface) { surface.Line(x1, y1, x2, y2); });
    return InkBox(image, image.rect());
  };
  EXPECT_EQ(line(5, 7, 15, 7), QRect(5, 7, 10, 1));
  EXPECT_EQ(line(15, 7, 5, 7), QRect(5, 7, 10, 1));
  EXPECT_EQ(line(5, 7, 5, 27), QRect(5, 7, 1, 20));
  EXPECT_EQ(line(5, 27, 5, 7), QRect(5, 7, 1, 20));
  EXPECT_EQ(line(5, 7, 5, 7), QRect(5, 7, 1, 1));
}

TEST(PainterSurface, SlantedLinesAreSmoothAndCentredInTheirPixels) {
  const auto draw = [](QPainter& painter) {
    PainterSurface surface(painter);
    surface.SetScaleMode(ScaleMode::kPixels);
    surface.SetForeColor(Bgr{0x332211});
    surface.Line(5, 7, 15, 27);
  };
  EXPECT_EQ(tests::RecordPainting({40, 40}, draw).AsText(), "line at 5.5,7.5 10x20 line #112233 1 smooth\n");
}

TEST(PainterSurface, ClearsTheWholeDeviceAlsoForAMovedPainter) {
  const QImage image = tests::Painted(10, 10, 1, [](QPainter& painter) {
    painter.fillRect(0, 0, 10, 10, Qt::black);
    painter.translate(5, 5);
    PainterSurface(painter).Cls();
    EXPECT_EQ(Darkness(*static_cast<const QImage*>(painter.device()), 1, 1), 255) << "no background";
    PainterSurface(painter, Qt::white).Cls();
  });
  EXPECT_TRUE(InkBox(image, image.rect()).isNull());
}

TEST(PainterSurface, PaintsAPictureAtItsPlaceAndNoMissingOne) {
  const QImage image = OnSurface([](DrawingSurface& surface) {
    surface.PaintPicture(std::make_shared<Square>(), 6, 9);
    surface.PaintPicture(nullptr, 20, 20);
  });
  EXPECT_EQ(InkBox(image, image.rect()), QRect(6, 9, 4, 4));
}

TEST(PainterSurface, PrintsTextAtItsPositionInItsColourAndFont) {
  const auto draw = [](QPainter& painter) {
    PainterSurface surface(painter);
    surface.SetScaleMode(ScaleMode::kPixels);
    surface.SetFontName("No Such Family");
    surface.SetFontSize(Pixels(20));
    surface.SetFontBold(true);
    surface.SetForeColor(Bgr{0x332211});
    surface.SetCurrentX(10);
    surface.SetCurrentY(5);
    surface.Print("C\u266F");
  };
  const tests::Drawing drawing = tests::RecordPainting({80, 60}, draw);
  const tests::Drawn text = drawing.Text(QString::fromUtf8("C\u266F"));
  EXPECT_EQ(text.box.left(), 10);
  EXPECT_EQ(text.line, QColor(0x11, 0x22, 0x33));
  EXPECT_EQ(text.font.pixelSize(), 20);
  EXPECT_TRUE(text.font.bold());
}

TEST(PainterSurface, PrintsGlyphsOfTheMusicFontAtTheirPlace) {
  const auto draw = [](DrawingSurface& surface) {
    surface.SetFontName("mAESTRO");
    surface.SetFontSize(Points(24));
    surface.SetCurrentX(10);
    surface.SetCurrentY(-40);
    surface.Print("w");
  };
  const QRectF head = MusicFont::Shared().Outline("w", 32).boundingRect().translated(10, -40);
  const QImage image = OnSurface(draw);
  const QRect ink = InkBox(image, image.rect());
  EXPECT_NEAR(ink.left(), head.left(), 1);
  EXPECT_NEAR(ink.right() + 1, head.right(), 1);
  EXPECT_NEAR(ink.top(), head.top(), 1);
  EXPECT_NEAR(ink.bottom() + 1, head.bottom(), 1);
}

TEST(DeviceScale, ShrinksPaintingOnADeviceBelowScaleOneOnly) {
  const auto shrunkTo = [](double ratio) {
    double factor = 0;
    tests::Painted(20, 20, ratio, [&](QPainter& painter) {
      ScaleToDevice(painter);
      factor = painter.worldTransform().m11();
      EXPECT_EQ(painter.worldTransform().m22(), factor);
    });
    return factor;
  };
  EXPECT_DOUBLE_EQ(shrunkTo(0.5), 0.5);
  EXPECT_DOUBLE_EQ(shrunkTo(1), 1);
  EXPECT_DOUBLE_EQ(shrunkTo(2), 1);
}

TEST(DeviceScale, DotsOfARectangleAreRounded) {
  tests::Painted(40, 40, 1.5, [](QPainter& painter) {
    EXPECT_EQ(DotsOf(painter, {0, 0, 4, 6}), QRect(0, 0, 6, 9));
    EXPECT_EQ(DotsOf(painter, {1, 2, 3, 5}), QRect(2, 3, 4, 8)) << "1.5 to 6 and 3 to 10.5";
    painter.rotate(30);
    EXPECT_TRUE(DotsOf(painter, {0, 0, 4, 6}).isEmpty());
  });
}

TEST(DeviceScale, OriginMovesToTheNearestDot) {
  const auto originAfter = [](double x, double y, double scale, double angle) {
    QPointF origin;
    tests::Painted(40, 40, scale, [&](QPainter& painter) {
      painter.rotate(angle);
      painter.translate(x, y);
      SnapOrigin(painter);
      origin = {painter.deviceTransform().dx(), painter.deviceTransform().dy()};
    });
    return origin;
  };
  EXPECT_EQ(originAfter(3.2, 4.6, 1, 0), QPointF(3, 5));
  EXPECT_EQ(originAfter(3.2, 4.6, 2, 0), QPointF(6, 9));
  EXPECT_EQ(originAfter(0.2, 0.4, 2, 0), QPointF(0, 1));
  EXPECT_NE(originAfter(3.2, 4.6, 1, 30).x(), std::round(originAfter(3.2, 4.6, 1, 30).x())) << "rotated: unchanged";
}

TEST(Colours, MixEachChannelByItsShare) {
  const QColor a(10, 200, 30);
  const QColor b(110, 100, 230);
  EXPECT_EQ(Mix(a, b, 0).rgb(), a.rgb());
  EXPECT_EQ(Mix(a, b, 1).rgb(), b.rgb());
  EXPECT_EQ(Mix(a, b, 0.25F).rgb(), qRgb(35, 175, 80));
}

TEST(Colours, ContrastCountsGreenMostAndBlueLeast) {
  EXPECT_NEAR(ContrastRatio(Qt::red, Qt::white), 4.0, 0.005);
  EXPECT_NEAR(ContrastRatio(Qt::green, Qt::white), 1.37, 0.005);
  EXPECT_NEAR(ContrastRatio(Qt::blue, Qt::white), 8.59, 0.005);
  EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
  EXPECT_NEAR(ContrastRatio(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.005) << "in either order";
  EXPECT_NEAR(ContrastRatio(QColor(8, 8, 8), Qt::black), 1.0486, 0.0001) << "linear in the dark";
  EXPECT_NEAR(ContrastRatio(QColor(16, 16, 16), Qt::black), 1.1036, 0.0005) << "a power above";
}

TEST(RecordingSurface, ReplayIsMovedByItsOrigin) {
  RecordingSurface first;
  first.SetScaleMode(ScaleMode::kPixels);
  first.Line(1, 2, 30, 4);
  first.SetFontName("Tahoma");
  first.SetFontSize(Pixels(11));
  first.SetFontBold(true);
  first.SetCurrentX(3);
  first.SetCurrentY(4);
  first.Print("E");
  first.PaintPicture(std::make_shared<Square>(), 9, 8);
  RecordingSurface second;
  first.ReplayOn(second, {100, 200});
  EXPECT_EQ(second.AsText(),
            "line 101,202 130,204\n"
            "font \"Tahoma\" 11px bold\n"
            "print \"E\" at 103,204\n"
            "picture square at 109,208\n");
  EXPECT_EQ(second.GetScaleMode(), ScaleMode::kPixels);
}

TEST(RecordingSurface, RepeatsFontAndColourOnlyWhereTheyChange) {
  RecordingSurface surface;
  surface.SetScaleMode(ScaleMode::kPixels);
  surface.SetFontName("Tahoma");
  surface.Print("A");
  surface.Print("B");
  surface.SetForeColor(Bgr{0x0000FF});
  surface.Line(-1, -0.5, 0, 2.125);
  surface.Line(0, 0, 1, 0);
  surface.SetForeColor(kBlack);
  surface.Line(0, 0, 2, 0);
  const std::string text = surface.AsText();
  EXPECT_EQ(text.substr(text.find("colour")),
            "colour &H0000FF\n"
            "line -1,-0.50 0,2.12\n"
            "line 0,0 1,0\n"
            "colour &H000000\n"
            "line 0,0 2,0\n");
  EXPECT_EQ(text.find("font"), text.rfind("font"));
}

TEST(RecordingSurface, BoundsOmitTextAndPictures) {
  RecordingSurface surface;
  surface.SetScaleMode(ScaleMode::kPixels);
  surface.SetCurrentX(100);
  surface.Print("text");
  surface.PaintPicture(std::make_shared<Square>(), 90, 90);
  EXPECT_TRUE(surface.InkBounds().isNull());
  surface.Line(5, 9, 5, 2);
  EXPECT_EQ(surface.InkBounds(), QRectF(5, 2, 1, 7));
}

TEST(FontChoice, PointsAreAThirdLargerThanPixels) {
  EXPECT_DOUBLE_EQ(EmPixels(Points(9)), 12);
  EXPECT_DOUBLE_EQ(EmPixels(Pixels(9)), 9);
}

TEST(FontChoice, QtFontIsUnhintedWithSizeWeightAndInstalledFamily) {
  const std::string family = QFontDatabase::families().value(0).toStdString();
  const QFont font = ToQFont({family, Points(9), true});
  EXPECT_EQ(font.family().toStdString(), family);
  EXPECT_EQ(font.pixelSize(), 12);
  EXPECT_TRUE(font.bold());
  EXPECT_EQ(font.hintingPreference(), QFont::PreferNoHinting);
  const QFont missing = ToQFont({"No Such Family", Pixels(0.2), false});
  EXPECT_NE(missing.family(), QStringLiteral("No Such Family"));
  EXPECT_EQ(missing.pixelSize(), 1) << "at least";
  EXPECT_FALSE(missing.bold());
}

TEST(FontChoice, BoldFontKeepsTheFamily) {
  QFont plain;
  plain.setFamilies({QStringLiteral("Euterpe")});
  const QFont bold = BoldFont(plain, 17);
  EXPECT_EQ(bold.families(), plain.families());
  EXPECT_EQ(bold.pixelSize(), 17);
  EXPECT_EQ(bold.weight(), QFont::Bold);
  EXPECT_EQ(bold.hintingPreference(), QFont::PreferNoHinting);
}

TEST(FontChoice, CellOfAnInstalledFamilyIsThatOfItsFont) {
  const SurfaceFont font{QFontDatabase::families().value(0).toStdString(), Pixels(20), false};
  const QFontMetricsF metrics(ToQFont(font));
  EXPECT_DOUBLE_EQ(CellOf(font).height, metrics.height());
  EXPECT_DOUBLE_EQ(CellOf(font).baseline, metrics.ascent());
}

TEST(FontChoice, MusicFontHasItsOwnCellAndWidths) {
  const SurfaceFont font{"MAESTRO", Points(12), false};
  EXPECT_TRUE(IsMusicFont(font));
  EXPECT_FALSE(IsMusicFont({"Maestro Wide", Points(12), false}));
  EXPECT_DOUBLE_EQ(CellOf(font).height, MusicFont::Shared().Cell(16).height);
  EXPECT_DOUBLE_EQ(WidthOf(font, "w"), MusicFont::Shared().Width("w", 16));
}

}  // namespace
}  // namespace tonalith::paint
