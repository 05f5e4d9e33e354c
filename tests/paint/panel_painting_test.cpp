// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "paint/panel_painting.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "paint/theme.h"
#include "support/recorded_painting.h"

namespace tonalith::paint {
namespace {

std::string PanelWithRing(bool focusRing) {
  const auto paint = [&](QPainter& painter) {
    PaintPanel(painter, QRectF(0, 0, 100, 40), QColor(0x11, 0x22, 0x33), QColor(0x44, 0x55, 0x66), focusRing);
  };
  return tests::RecordPainting({100, 40}, paint).AsText();
}

TEST(PanelPainting, PanelHasALineAroundItsFill) {
  EXPECT_EQ(PanelWithRing(false),
            "round 6 at 0,0 100x40 fill #445566 smooth\n"
            "round 5 at 1,1 98x38 fill #112233 smooth\n");
}

TEST(PanelPainting, FocusRingIsTwoPixelsOfTheAccent) {
  EXPECT_EQ(PanelWithRing(true),
            "round 6 at 0,0 100x40 fill #d0440e smooth\n"
            "round 4 at 2,2 96x36 fill #112233 smooth\n");
}

TEST(PanelPainting, DropArrowPointsDownAtTheRightEnd) {
  const QPalette palette = WarmPalette(QPalette(QColor(0xee, 0xee, 0xee)));
  const auto paint = [&](QPainter& painter) { PaintDropArrow(painter, QRectF(0, 0, 100, 40), palette); };
  EXPECT_EQ(tests::RecordPainting({100, 40}, paint).AsText(),
            "path 80,17 85,23 90,17 at 80,17 10x6 line #5a534b 1.6\n");
}

}  // namespace
}  // namespace tonalith::paint
