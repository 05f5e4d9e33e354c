// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/program_icon.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "paint/colours.h"
#include "support/recorded_painting.h"

namespace tonalith::app {
namespace {

using tests::Drawing;
using tests::Drawn;

const QColor kWire(0xcf, 0xc6, 0xb8);
const QColor kString(0xe9, 0xdf, 0xc9);

Drawing IconOf(int size) {
  return tests::RecordPainting(QSize(size, size), [size](QPainter& painter) { PaintProgramIcon(painter, size); });
}

TEST(ProgramIcon, IsAPieceOfANeck) {
  const Drawing icon = IconOf(64);
  const Drawn wood = icon.All().at(0);
  EXPECT_EQ(wood.box, QRectF(0, 0, 64, 64));
  EXPECT_EQ(wood.fills, (std::vector{QColor(0x5a, 0x36, 0x26), QColor(0x34, 0x1d, 0x15)}));
  ASSERT_EQ(icon.FilledWith(kWire).size(), 1U);
  EXPECT_EQ(icon.FilledWith(kWire)[0].box, QRectF(34, 0, 2, 64));
  const std::vector<Drawn> strings = icon.FilledWith(kString);
  ASSERT_EQ(strings.size(), 4U);
  for (const Drawn& string : strings) EXPECT_EQ(string.box.width(), 64);
  EXPECT_LT(strings.front().box.height(), strings.back().box.height()) << "the lowest string is the thickest";
}

TEST(ProgramIcon, HasFewerStringsInASmallSize) {
  EXPECT_EQ(IconOf(32).FilledWith(kString).size(), 4U);
  EXPECT_EQ(IconOf(31).FilledWith(kString).size(), 3U);
}

TEST(ProgramIcon, LinesHaveTheirEdgesOnWholePixels) {
  for (const int size : kIconSizes) {
    const Drawing icon = IconOf(size);
    for (const QColor& colour : {kWire, kString}) {
      for (const Drawn& line : icon.FilledWith(colour)) {
        for (const double edge : {line.box.left(), line.box.right(), line.box.top(), line.box.bottom()}) {
          EXPECT_NEAR(edge, std::round(edge), 1e-9) << size;
        }
        EXPECT_GE(std::min(line.box.width(), line.box.height()), 1) << size;
      }
    }
  }
}

TEST(ProgramIcon, HasTheKeyNoteAtTheBottomLeftAndAnotherNoteAtTheTopRight) {
  for (const int size : kIconSizes) {
    const Drawing icon = IconOf(size);
    const auto only = [&](QRgb colour) {
      const std::vector<Drawn> found = icon.FilledWith(QColor(colour));
      EXPECT_EQ(found.size(), 1U) << size;
      return found.empty() ? QRectF() : found[0].box;
    };
    const QRectF key = only(paint::kAccent);
    const QRectF other = only(paint::kNote);
    EXPECT_TRUE(only(paint::kAccentRim).contains(key));
    EXPECT_TRUE(only(paint::kNoteRim).contains(other));
    EXPECT_LT(key.right(), size * 0.6);
    EXPECT_GT(key.top(), size * 0.4);
    EXPECT_GT(other.left(), size * 0.4);
    EXPECT_LT(other.bottom(), size * 0.6);
    EXPECT_GT(key.width(), other.width());
    EXPECT_NEAR(key.left(), size - key.bottom(), 1e-9);
    EXPECT_NEAR(other.top(), size - other.right(), 1e-9);
  }
}

TEST(ProgramIcon, OfAWindowHasTheSizesUpTo64Pixels) {
  const QList<QSize> sizes = ProgramIcon().availableSizes();
  EXPECT_EQ(sizes, (QList<QSize>{{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}}));
}

TEST(ProgramIcon, KeepsThePainter) {
  QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  const QPen pen = painter.pen();
  const QBrush brush = painter.brush();
  PaintProgramIcon(painter, 16);
  EXPECT_EQ(painter.pen(), pen);
  EXPECT_EQ(painter.brush(), brush);
  EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

}  // namespace
}  // namespace tonalith::app
