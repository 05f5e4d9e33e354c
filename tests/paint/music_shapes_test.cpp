// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The built-in glyphs as pictures of characters, and where a substitute font places them.

#include "paint/music_shapes.h"

#include <gtest/gtest.h>

#include "paint/music_font.h"

namespace tonalith::paint {
namespace {

constexpr double kEm = 32;  // 24 points.

/// '#' for each point in the shape, from the middle of the top left cell; cells are 1 wide and `step` high.
std::string PictureOf(const QPainterPath& shape, QPointF from, QPointF to, double step) {
  std::string picture;
  for (double y = from.y() + 0.5; y < to.y(); y += step) {
    for (double x = from.x() + 0.5; x < to.x(); x += 1) picture += shape.contains(QPointF(x, y)) ? '#' : '.';
    picture += '\n';
  }
  return picture;
}

void ExpectBox(const QRectF& box, const QRectF& expected) {
  EXPECT_NEAR(box.left(), expected.left(), 0.01);
  EXPECT_NEAR(box.top(), expected.top(), 0.01);
  EXPECT_NEAR(box.right(), expected.right(), 0.01);
  EXPECT_NEAR(box.bottom(), expected.bottom(), 0.01);
}

TEST(MusicShapes, TrebleClefCurlsAroundItsLine) {
  EXPECT_EQ(PictureOf(shapes::TrebleClef(), {-11, -40}, {11 - 1, 22}, 2),
            "............####.....\n"
            "..........##...##....\n"
            ".........##....##....\n"
            "........##.....##....\n"
            "........##.....##....\n"
            ".......##......##....\n"
            "........##.....##....\n"
            "........##....##.....\n"
            "........##...##......\n"
            "........##.###.......\n"
            ".........###.........\n"
            ".......####..........\n"
            ".....###.##..........\n"
            "...###....##.........\n"
            "..##......##.........\n"
            ".##.......##.........\n"
            ".##.......######.....\n"
            "##......#####..####..\n"
            "##.....##..##.....##.\n"
            "##.....##..##......##\n"
            "##.....##..##......##\n"
            ".#......##..##.....##\n"
            ".##.......####....##.\n"
            "...##.......##...###.\n"
            ".....#############...\n"
            ".............##......\n"
            ".............##......\n"
            ".............##......\n"
            ".....####.....##.....\n"
            ".....####....##......\n"
            "......########.......\n");
  ExpectBox(shapes::TrebleClef().boundingRect(), {-11.083, -40.141, 21.083, 62.07});
}

TEST(MusicShapes, WholeNoteIsAnEllipseWithASlantedHole) {
  EXPECT_EQ(PictureOf(shapes::WholeNote(), {-7, -5}, {7, 5}, 1),
            "....######....\n"
            "..###..#####..\n"
            ".###....#####.\n"
            "####.....#####\n"
            "####......####\n"
            "####......####\n"
            "#####.....####\n"
            ".#####....###.\n"
            "..#####..###..\n"
            "....######....\n");
  ExpectBox(shapes::WholeNote().boundingRect(), {-7.2, -4.8, 14.4, 9.6});
}

TEST(MusicShapes, SharpHasTwoStemsAndTwoSlantedBars) {
  EXPECT_EQ(PictureOf(shapes::Sharp(), {-2.5, -8}, {2.5, 8}, 1),
            "...#.\n"
            "...#.\n"
            ".#.#.\n"
            ".#.#.\n"
            "#####\n"
            "#####\n"
            ".#.#.\n"
            ".#.#.\n"
            ".#.#.\n"
            ".#.#.\n"
            "#####\n"
            "#####\n"
            ".#.#.\n"
            ".#.#.\n"
            ".#...\n"
            ".#...\n");
  ExpectBox(shapes::Sharp().boundingRect(), {-2.5, -8, 5, 16});
}

TEST(MusicFont, GlyphsOfASubstituteHaveTheirSizesAndPlaces) {
  const MusicFont painted = MusicFont::Painted();
  ExpectBox(painted.Outline("&", kEm).boundingRect(), {1, 7.66, 22.5, 66.242});
  ExpectBox(painted.Outline("w", kEm).boundingRect(), {1, 46.165, 11, 8.67});
  ExpectBox(painted.Outline("I", kEm).boundingRect(), {-17, 42.5, 5, 16});
  EXPECT_DOUBLE_EQ(painted.Width("w", kEm), 12);
  EXPECT_NEAR(painted.Width("&", kEm), 24.5, 0.01) << "a pixel after the clef";
  EXPECT_EQ(painted.Origin(), QStringLiteral("painted"));
}

TEST(MusicFont, FillsTheHeightOrTheWidthOfTheClef) {
  for (const MusicFont& font : {MusicFont::Shared(), MusicFont::Painted()}) {
    const QRectF clef = font.Outline("&", kEm).boundingRect();
    EXPECT_LE(clef.height(), 67.01);
    EXPECT_LE(clef.width(), 22.51);
    EXPECT_TRUE(clef.height() > 66.99 || clef.width() > 22.49);
    EXPECT_NEAR(clef.left(), 1, 0.01);
  }
}

TEST(MusicFont, PrintsEachGlyphAfterTheOneBefore) {
  const MusicFont font = MusicFont::Painted();
  const QRectF two = font.Outline("ww", kEm).boundingRect();
  ExpectBox(two, {1, 46.165, 23, 8.67});
  ExpectBox(font.Outline("wxw", kEm).boundingRect(), two);
  EXPECT_DOUBLE_EQ(font.Width("ww", kEm), 24);
  ExpectBox(font.Outline("ww", 2 * kEm).boundingRect(), {2, 92.33, 46, 17.34});
  EXPECT_DOUBLE_EQ(font.Width("ww", 2 * kEm), 48);
}

}  // namespace
}  // namespace tonalith::paint
