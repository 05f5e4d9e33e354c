// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/neck_painter.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>

#include "support/ink.h"
#include "support/recorded_painting.h"

namespace tonalith::views {
namespace {

using tests::Drawing;
using tests::Drawn;

/// Two plain strings and two wound ones, a fret, an inlay; the second string is open.
NeckGeometry SmallNeck() {
  NeckGeometry neck;
  neck.wood = QRectF(100, 20, 400, 100);
  neck.nut = QRectF(94, 18, 8, 104);
  neck.frets = {300};
  neck.inlays = {{200, 70}};
  neck.strings = {30, 60, 80, 110};
  neck.openLeft = 40;
  neck.open = {false, true, false, false};
  neck.stringsRight = 500;
  return neck;
}

Drawing PaintedOnWood(const NeckGeometry& neck) {
  return tests::RecordPainting({600, 140}, [&](QPainter& painter) { PaintNeck(painter, neck); });
}

QImage ImageOnWood(const NeckGeometry& neck, double scale = 1) {
  return tests::Painted(600, 140, scale, [&](QPainter& painter) { PaintNeck(painter, neck); });
}

/// The mean brightness of a part of an image.
double Brightness(const QImage& image, const QRect& part) {
  double sum = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) sum += qGray(image.pixel(x, y));
  }
  return sum / (part.width() * part.height());
}

/// The stripes of the wood's blend: a dot high, as wide as the wood.
std::vector<Drawn> StripesOf(const Drawing& drawing) {
  std::vector<Drawn> stripes;
  for (const Drawn& drawn : drawing.All()) {
    const bool isWide = drawn.box.width() > 390 && drawn.box.height() == 1;
    if (drawn.form == "rect" && isWide && drawn.fill.alpha() == 255) stripes.push_back(drawn);
  }
  return stripes;
}

TEST(NeckOnPaper, IsAnOutlineWithDarkStrings) {
  const Drawing drawing =
      tests::RecordPainting({600, 140}, [](QPainter& painter) { NeckOnPaper(SmallNeck())->PaintOn(painter); });
  EXPECT_EQ(drawing.AsText(),
            "ellipse at 192.5,62.5 15x15 fill #e9e5dc line #cbc4b7 0.75 smooth\n"
            "rect at 299,20 2x64 fill #9c958b\n"
            "rect at 299,84 2x36 fill #9c958b\n"
            "round 3 at 100,20 400x100 line #6e6458 1 smooth\n"
            "round 1.5 at 95,18 6x104 fill #5c5247 smooth\n"
            "rect at 94,30 406x1 fill #5f5a54\n"
            "rect at 40,60 460x1 fill #5f5a54\n"
            "rect at 94,79 406x1 fill #5f5a54\n"
            "rect at 94,109 406x2 fill #5f5a54\n");
}

TEST(NeckOnPaper, StringsBeyondTheKnownGaugesHaveTheLastOne) {
  NeckGeometry neck = SmallNeck();
  neck.strings = {10, 20, 30, 40, 50, 60, 70, 80};
  neck.frets.clear();
  neck.inlays.clear();
  std::vector<double> gauges;
  const Drawing drawing = tests::RecordPainting({6000, 1400}, [&](QPainter& painter) {
    painter.scale(10, 10);
    NeckOnPaper(neck)->PaintOn(painter);
  });
  for (const Drawn& string : drawing.FilledWith(QColor(0x5f, 0x5a, 0x54))) gauges.push_back(string.box.height());
  ASSERT_EQ(gauges.size(), 8U);
  EXPECT_TRUE(std::is_sorted(gauges.begin(), gauges.end())) << "from the thinnest to the thickest";
  EXPECT_LT(gauges[0], gauges[5] / 2);
  EXPECT_EQ(gauges[6], gauges[5]);
  EXPECT_EQ(gauges[7], gauges[5]);
}

TEST(NeckOnWood, WoodIsDarkerAtTheBottom) {
  NeckGeometry neck = SmallNeck();
  neck.strings.clear();
  neck.frets.clear();
  neck.inlays.clear();
  const QImage image = ImageOnWood(neck);
  const double top = Brightness(image, QRect(120, 22, 360, 15));
  const double middle = Brightness(image, QRect(120, 62, 360, 15));
  const double bottom = Brightness(image, QRect(120, 103, 360, 15));
  EXPECT_GT(top, middle + 5);
  EXPECT_GT(middle, bottom + 5);
  EXPECT_LT(top, 80) << "rosewood is dark";
}

TEST(NeckOnWood, BlendHasItsStopsAndNoJumps) {
  std::vector<QColor> stripes;
  for (const Drawn& stripe : StripesOf(PaintedOnWood(SmallNeck()))) stripes.push_back(stripe.fill);
  ASSERT_EQ(stripes.size(), 100U) << "one for each dot of the height";
  const auto near = [](const QColor& a, const QColor& b) {
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()), std::abs(a.blue() - b.blue())});
  };
  EXPECT_LE(near(stripes[0], QColor(0x53, 0x35, 0x27)), 1);
  EXPECT_LE(near(stripes[12], QColor(0x4a, 0x2f, 0x22)), 1);
  EXPECT_LE(near(stripes[55], QColor(0x3b, 0x24, 0x1a)), 1);
  EXPECT_LE(near(stripes[99], QColor(0x2c, 0x1a, 0x12)), 1);
  for (std::size_t i = 1; i < stripes.size(); ++i) EXPECT_LE(near(stripes[i], stripes[i - 1]), 2) << i;
}

TEST(NeckOnWood, CornersAreRoundAtTheEdgesOnly) {
  std::vector<double> lefts;
  std::vector<double> rights;
  for (const Drawn& stripe : StripesOf(PaintedOnWood(SmallNeck()))) {
    lefts.push_back(stripe.box.left());
    rights.push_back(stripe.box.right());
  }
  ASSERT_EQ(lefts.size(), 100U);
  EXPECT_EQ(lefts.front(), lefts.back()) << "the same at the top and at the bottom";
  EXPECT_NEAR(lefts.front(), 101.5, 0.51);
  EXPECT_EQ(lefts[3], 100);
  EXPECT_EQ(rights[3], 500);
  EXPECT_EQ(lefts[96], 100);
  for (std::size_t i = 0; i < lefts.size(); ++i) EXPECT_EQ(lefts[i] - 100, 500 - rights[i]) << i;
}

TEST(NeckOnWood, HasAGrainOfThinLightAndDarkFibres) {
  int light = 0;
  int dark = 0;
  double longest = 0;
  double shortest = 1e9;
  for (const Drawn& fibre : PaintedOnWood(SmallNeck()).All()) {
    if (fibre.form != "rect" || fibre.fill.alpha() == 255 || fibre.box.height() > 2) continue;
    const bool isLight = fibre.fill.rgb() == qRgb(0x9a, 0x68, 0x4a);
    if (!isLight && fibre.fill.rgb() != qRgb(0x10, 0x08, 0x04)) continue;
    EXPECT_TRUE(QRectF(100, 20, 400, 100).contains(fibre.box));
    EXPECT_GE(fibre.fill.alpha(), isLight ? 8 : 16);
    EXPECT_LT(fibre.fill.alpha(), isLight ? 34 : 68);
    (isLight ? light : dark) += 1;
    longest = std::max(longest, fibre.box.width());
    shortest = std::min(shortest, fibre.box.width());
  }
  EXPECT_EQ(light + dark, 420);
  EXPECT_NEAR(light, 210, 30);
  EXPECT_GT(longest, 200);
  EXPECT_LE(longest, 350);
  EXPECT_LT(shortest, 40);
}

TEST(NeckOnWood, IsTheSameEveryTime) { EXPECT_EQ(ImageOnWood(SmallNeck()), ImageOnWood(SmallNeck())); }

/// What is drawn over the wood.
std::string OverTheWood(const Drawing& drawing) {
  std::string text;
  for (const Drawn& drawn : drawing.All()) {
    const bool isStripe = drawn.box.width() > 390 && drawn.box.height() == 1 && drawn.fill.alpha() == 255;
    const bool isFibre = drawn.form == "rect" &&
                         (drawn.fill.rgb() == qRgb(0x9a, 0x68, 0x4a) || drawn.fill.rgb() == qRgb(0x10, 0x08, 0x04));
    if (!isStripe && !isFibre) text += drawn.AsText() + "\n";
  }
  return text;
}

TEST(NeckOnWood, PaintsInlayFretNutAndStringsOverTheWood) {
  EXPECT_EQ(OverTheWood(PaintedOnWood(SmallNeck())),
            "ellipse at 192,62.8 16x16 fill #5a000000 smooth\n"
            "ellipse at 192.5,62.5 15x15 fill #fbf8f1 #e2dbcd #b9b0a0 smooth\n"
            "rect at 302,20 2x64 fill #46000000\n"
            "rect at 302,84 2x36 fill #46000000\n"
            "rect at 299,20 1x64 fill #c0c2c6\n"
            "rect at 299,84 1x36 fill #c0c2c6\n"
            "rect at 300,20 1x64 fill #e1e3e5\n"
            "rect at 300,84 1x36 fill #e1e3e5\n"
            "rect at 301,20 1x64 fill #a2a5aa\n"
            "rect at 301,84 1x36 fill #a2a5aa\n"
            "round 2 at 94,18 8x104 fill #f8f2e3 line #b0a180 1 smooth\n"
            "rect at 95,20 1x64 fill #f6efdf\n"
            "rect at 95,84 1x36 fill #f6efdf\n"
            "rect at 96,20 1x64 fill #f2ead8\n"
            "rect at 96,84 1x36 fill #f2ead8\n"
            "rect at 97,20 1x64 fill #eee5d1\n"
            "rect at 97,84 1x36 fill #eee5d1\n"
            "rect at 98,20 1x64 fill #e9e0ca\n"
            "rect at 98,84 1x36 fill #e9e0ca\n"
            "rect at 99,20 1x64 fill #e5dbc3\n"
            "rect at 99,84 1x36 fill #e5dbc3\n"
            "rect at 100,20 1x64 fill #e1d6bc\n"
            "rect at 100,84 1x36 fill #e1d6bc\n"
            "rect at 102,31 398x1.2 fill #46000000 smooth\n"
            "rect at 94,29.4 406x1.2 fill #f6f6f4 #979795 smooth\n"
            "rect at 102,61 398x1.6 fill #46000000 smooth\n"
            "rect at 94,59.2 406x1.6 fill #f6f6f4 #979795 smooth\n"
            "rect at 102,81 398x2 fill #46000000 smooth\n"
            "rect at 94,79 406x2 fill #f6f6f4 #979795 smooth\n"
            "rect at 102,111 398x2.6 fill #46000000 smooth\n"
            "rect at 94,108.7 406x2.6 fill #eed9ab #866733 smooth\n"
            "rect at 94,108.7 406x2.6 fill texture smooth\n");
}

TEST(NeckOnWood, PaintsAnOpenStringFromItsDiscToTheNut) {
  const Drawing drawing =
      tests::RecordPainting({600, 140}, [](QPainter& painter) { PaintOpenStrings(painter, SmallNeck()); });
  EXPECT_EQ(drawing.AsText(), "rect at 40,59.2 54x1.6 fill #f6f6f4 #979795 smooth\n");
}

TEST(NeckOnWood, WoundStringsShowTheirTurnsAndPlainOnesDoNot) {
  NeckGeometry neck = SmallNeck();
  neck.strings = {30, 45, 60, 80, 95, 110};
  const QImage image = ImageOnWood(neck, 4);
  const auto turns = [&](double string) {
    int changes = 0;
    bool isLight = false;
    const int y = qRound(string * 4);
    for (int x = 320 * 4; x < 360 * 4; ++x) {
      const bool now = qGray(image.pixel(x, y)) > qGray(image.pixel(x - 4, y));
      changes += now != isLight ? 1 : 0;
      isLight = now;
    }
    return changes;
  };
  EXPECT_EQ(turns(neck.strings[2]), 0);
  EXPECT_GE(turns(neck.strings[3]), 38) << "a turn every two pixels";
  EXPECT_LE(turns(neck.strings[3]), 42);
}

TEST(NeckOnWood, WindingIsEvenAtEveryScale) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    NeckGeometry neck = SmallNeck();
    const QImage image = ImageOnWood(neck, scale);
    const int y = qRound(neck.strings[3] * scale);
    const auto mean = [&](int from) {
      return Brightness(image, QRect(qRound(from * scale), y, qRound(40 * scale), 1));
    };
    EXPECT_NEAR(mean(320), mean(440), 4) << scale;
  }
}

TEST(NeckOnWood, LeavesThePainterAsItWas) {
  tests::RecordPainting({600, 140}, [](QPainter& painter) {
    painter.setPen(Qt::red);
    const QTransform before = painter.transform();
    for (const NeckLook look : {NeckLook::kWood, NeckLook::kPaper}) {
      PaintNeck(painter, SmallNeck(), look);
      EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
      EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    }
    PaintOpenStrings(painter, SmallNeck());
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    EXPECT_EQ(painter.transform(), before);
  });
}

}  // namespace
}  // namespace tonalith::views
