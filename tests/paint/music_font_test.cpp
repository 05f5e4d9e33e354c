// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/music_font.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QTemporaryDir>

#include "paint/font_outlines.h"
#include "paint/music_shapes.h"
#include "support/ink.h"

namespace tonalith::paint {
namespace {

constexpr double kEm = 32;  // 24 points.
constexpr int kX = 20;
constexpr int kY = 10;
constexpr double kStepLine = kY + 50.5;

QImage Print(const MusicFont& font, std::string_view codes, double scale) {
  return tests::Painted(80, 120, scale, [&](QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(kX, kY);
    painter.fillPath(font.Outline(codes, kEm), Qt::black);
  });
}

/// The peak memory of the process, in KiB.
long MemoryAtMost() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

struct Case {
  std::string name;
  MusicFont (*font)();
  double scale;
};

MusicFont Found() { return MusicFont::Shared(); }
MusicFont AnyFamily() { return MusicFont::FromAnyFamily().value(); }

/// Requirements for every substitute of the music font, at every scale factor.
class SubstituteMusicFont : public testing::TestWithParam<Case> {
 protected:
  [[nodiscard]] QImage Printed(std::string_view codes) const {
    return Print(GetParam().font(), codes, GetParam().scale);
  }
  [[nodiscard]] double Scale() const { return GetParam().scale; }
};

TEST_P(SubstituteMusicFont, ReportsTheCellThatTheStaffLayoutAssumes) {
  const MusicFont font = GetParam().font();
  EXPECT_DOUBLE_EQ(font.Cell(kEm).height, 200);
  EXPECT_DOUBLE_EQ(font.Cell(kEm).baseline, 50);
  EXPECT_DOUBLE_EQ(font.Cell(2 * kEm).height, 400);
}

TEST_P(SubstituteMusicFont, CentresTheWholeNoteOnStepAndLedgerLines) {
  const QImage image = Printed("w");
  const QRectF ink = tests::InkBox(image, image.rect());
  ASSERT_FALSE(ink.isEmpty());
  EXPECT_NEAR(ink.center().y(), kStepLine * Scale(), 1);
  EXPECT_NEAR(ink.center().x(), (kX + 6.5) * Scale(), 1);
  EXPECT_GE(ink.left(), (kX - 3) * Scale());
  EXPECT_LE(ink.right(), (kX + 16) * Scale());
  EXPECT_NEAR(ink.height(), 9 * Scale(), 1 + 0.5 * Scale()) << "a head fills its space";
}

TEST_P(SubstituteMusicFont, CurlsTheClefAroundTheGLine) {
  const QImage image = Printed("&");
  const QRectF ink = tests::InkBox(image, image.rect());
  ASSERT_FALSE(ink.isEmpty());
  // The clef crosses the G line as outer curve, inner curl, stem and belly; it extends above and below the staff.
  const int gLine = static_cast<int>(kStepLine * Scale());
  EXPECT_GE(tests::InkRuns(image, gLine, 0, image.width()), 3);
  EXPECT_LT(ink.top(), (kStepLine - 30) * Scale());
  EXPECT_GT(ink.bottom(), (kStepLine + 15) * Scale());
  // The belly is widest near the line, where its outer curve reaches both sides.
  const QRectF belly = tests::InkBox(image, QRect(0, gLine - qRound(3 * Scale()), image.width(), qRound(6 * Scale())));
  EXPECT_GT(belly.width(), 0.85 * ink.width());
}

TEST_P(SubstituteMusicFont, EndsTheClefBeforeTheFirstColumn) {
  const QRectF ink = GetParam().font().Outline("&", kEm).boundingRect();
  EXPECT_GE(ink.left(), 0);
  EXPECT_LT(ink.right(), 796 - 3 - 766) << "the first ledger line starts 27 pixels after the clef's position";
}

TEST_P(SubstituteMusicFont, CentresTheSharpOnTheStepLine) {
  const QRectF sharp = GetParam().font().Outline("I", kEm).boundingRect();
  EXPECT_NEAR(sharp.center().y(), 50.5, 0.1);
  EXPECT_GT(sharp.height(), 14);
}

TEST_P(SubstituteMusicFont, PutsTheSharpBeforeItsHeadWithAPixelOnEachSide) {
  const MusicFont font = GetParam().font();
  const QRectF head = font.Outline("w", kEm).boundingRect();
  const QRectF sharp = font.Outline("I", kEm).boundingRect().translated(font.Width("w", kEm), 0);
  EXPECT_LE(head.width(), 11.01);
  EXPECT_NEAR(sharp.width(), 5, 0.01);
  EXPECT_NEAR(head.left() - sharp.right(), 1, 0.01);
  EXPECT_NEAR(sharp.left() - (head.right() - 18), 1, 0.01) << "the head before is one column, 18 pixels, to the left";
  EXPECT_DOUBLE_EQ(font.Width("wI", kEm), font.Width("w", kEm));
}

TEST_P(SubstituteMusicFont, LeavesEmptyDotsOnEachSideOfTheSharp) {
  const MusicFont font = GetParam().font();
  const QImage image = tests::Painted(60, 120, Scale(), [&](QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(10, 0);
    painter.fillPath(font.Outline("w", kEm), Qt::black);
    painter.fillPath(font.Outline("wI", kEm).translated(18, 0), Qt::black);
  });
  std::string columns;
  for (int x = 0; x < image.width(); ++x) {
    const bool ink = !tests::InkBox(image, QRect(x, 0, 1, image.height())).isNull();
    if (columns.empty() || columns.back() != (ink ? '#' : '.')) columns += ink ? '#' : '.';
  }
  EXPECT_EQ(columns, ".#.#.#.") << "head, sharp, its own head";
}

TEST_P(SubstituteMusicFont, DrawsASharpThatShowsTwoStemsAndTwoBars) {
  const MusicFont font = GetParam().font();
  const QImage image = tests::Painted(30, 120, Scale(), [&](QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(10 + font.Width("w", kEm), 0);
    painter.fillPath(font.Outline("I", kEm), Qt::black);
  });
  const QRect ink = tests::InkBox(image, image.rect());
  const int middle = static_cast<int>(50.5 * Scale());
  EXPECT_EQ(tests::InkRuns(image, middle, 0, image.width()), 2) << "the stems with a hole between them";
  int bars = 0;
  bool inBar = false;
  for (int y = ink.top(); y <= ink.bottom(); ++y) {
    const bool full = tests::InkRuns(image, y, 0, image.width()) == 1 &&
                      tests::InkBox(image, QRect(0, y, image.width(), 1)).width() > 2.5 * Scale();
    bars += full && !inBar ? 1 : 0;
    inBar = full;
  }
  EXPECT_EQ(bars, 2);
}

TEST_P(SubstituteMusicFont, DrawsNothingForOtherCodes) {
  EXPECT_TRUE(GetParam().font().Outline("xyz", kEm).isEmpty());
  EXPECT_DOUBLE_EQ(GetParam().font().Width("xyz", kEm), 0);
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    const std::string suffix = "At" + std::to_string(static_cast<int>(scale * 100));
    cases.push_back({"Found" + suffix, Found, scale});
    cases.push_back({"AnyFamily" + suffix, AnyFamily, scale});
    cases.push_back({"Painted" + suffix, MusicFont::Painted, scale});
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Fonts, SubstituteMusicFont, testing::ValuesIn(Cases()),
                         [](const auto& which) { return which.param.name; });

TEST(MusicShapes, TheClefHasNoHoleWhereItsPartsOverlap) {
  const QPainterPath clef = shapes::TrebleClef();
  QPainterPath withHoles = clef;
  withHoles.setFillRule(Qt::OddEvenFill);
  int holes = 0;
  for (double x = -8; x < 8; x += 0.25) {
    for (double y = 10; y < 22; y += 0.25) {
      holes += clef.contains(QPointF(x, y)) && !withHoles.contains(QPointF(x, y)) ? 1 : 0;
    }
  }
  EXPECT_GT(holes, 0) << "the dot overlaps the end of the curl";
}

TEST(FontOutlines, HasTheOutlinesOfItsCharactersOnly) {
  const QString file = MusicFont::Shared().Origin();
  if (!QFile::exists(file)) GTEST_SKIP() << "the music font is not read from a file";
  const FontOutlines font(file);
  EXPECT_EQ(font.Family(), QStringLiteral("Euterpe"));
  EXPECT_FALSE(font.Of(U'\U0001D11E', kEm).isEmpty());
  EXPECT_NEAR(font.Of(U'\U0001D11E', 2 * kEm).boundingRect().height(),
              2 * font.Of(U'\U0001D11E', kEm).boundingRect().height(), 1e-6);
  EXPECT_TRUE(font.Of(U'\U0010FFFD', kEm).isEmpty());
}

TEST(MusicFont, IsARealFontIfThePackagesAreInstalled) {
  EXPECT_TRUE(MusicFont::Shared().Origin().contains(QLatin1String("Euterpe"), Qt::CaseInsensitive))
      << MusicFont::Shared().Origin().toStdString();
}

TEST(MusicFont, IsNulloptForAFileThatIsMissingOrNoFont) {
  EXPECT_FALSE(MusicFont::FromFile(QString()).has_value());
  EXPECT_FALSE(MusicFont::FromFile(QStringLiteral("/no/such/font.ttf")).has_value());
  EXPECT_FALSE(MusicFont::FromFile(QStringLiteral(TONALITH_SOURCE_DIR "/CMakeLists.txt")).has_value());
}

TEST(MusicFont, IsNulloptForAFolderAPipeOrAnEndlessFile) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("Euterpe.ttf"));
  ASSERT_TRUE(QDir().mkdir(path));
  EXPECT_FALSE(MusicFont::FromFile(path).has_value());
  ASSERT_TRUE(QDir().rmdir(path));
  ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
  EXPECT_FALSE(MusicFont::FromFile(path).has_value());
  ASSERT_TRUE(QFile::remove(path));

  QFile endless(path);
  ASSERT_TRUE(endless.open(QIODevice::WriteOnly) && endless.resize(qint64{8} << 30));
  const long before = MemoryAtMost();
  EXPECT_FALSE(MusicFont::FromFile(path).has_value());
  EXPECT_LT(MemoryAtMost() - before, 64L << 10) << "in KiB";
}

TEST(MusicFont, IsNulloptForAMissingFamily) {
  EXPECT_FALSE(MusicFont::FromFamily(QStringLiteral("No Such Family")).has_value());
}

TEST(MusicFont, IsTheSameFromTheFamilyAsFromTheFile) {
  const MusicFont family = MusicFont::FromFamily(QStringLiteral("Euterpe")).value();
  const QRectF fromFamily = family.Outline("&wI", kEm).boundingRect();
  const QRectF fromFile = MusicFont::Shared().Outline("&wI", kEm).boundingRect();
  EXPECT_NEAR(fromFamily.left(), fromFile.left(), 0.1);
  EXPECT_NEAR(fromFamily.right(), fromFile.right(), 0.1);
  EXPECT_NEAR(fromFamily.top(), fromFile.top(), 0.1);
  EXPECT_NEAR(fromFamily.bottom(), fromFile.bottom(), 0.1);
}

TEST(MusicFont, UsesTheCellAndWidthsOfAFontWithTheCodes) {
  QFont plain;
  plain.setHintingPreference(QFont::PreferNoHinting);
  plain.setPixelSize(static_cast<int>(kEm));
  const QString family = QFontInfo(plain).family();
  plain.setFamilies({family});
  const MusicFont font = MusicFont::FromOwnCodes(family).value();
  const QFontMetricsF metrics(plain);
  EXPECT_NEAR(font.Cell(kEm).height, metrics.height(), 1.5);
  EXPECT_NEAR(font.Cell(kEm).baseline, metrics.ascent(), 1);
  EXPECT_NEAR(font.Width("w", kEm), metrics.horizontalAdvance(QLatin1Char('w')), 0.5);
  const QRectF ink = font.Outline("w", kEm).boundingRect();
  EXPECT_NEAR(ink.bottom(), metrics.ascent(), 1) << "a w is on the baseline";
}

}  // namespace
}  // namespace tonalith::paint
