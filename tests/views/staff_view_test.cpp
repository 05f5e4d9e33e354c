// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPainter>
#include <cmath>

#include "core/failure.h"
#include "core/scale_construction.h"
#include "paint/colours.h"
#include "paint/painter_surface.h"
#include "support/ink.h"
#include "support/recorded_painting.h"
#include "views/staff_layout.h"

namespace tonalith::views {
namespace {

/// The card as the widget paints it, at a scale factor.
QImage Card(StaffView& view, double scale) {
  return tests::Painted(view.width(), view.height(), scale,
                        [&](QPainter& painter) { view.render(&painter, QPoint()); });
}

void Write(StaffView& view, std::int16_t key, std::string_view pattern) {
  std::string names;
  view.Draw(core::BuildScale(key, core::IntervalsOf(pattern)), names);
}

class StaffAtScale : public testing::TestWithParam<double> {};

TEST_P(StaffAtScale, CentresEveryNoteheadOnItsStep) {
  const double scale = GetParam();
  // One note per column, its key decides the step. Only the noteheads are drawn, without staff lines.
  for (std::int16_t key = 0; key < 12; ++key) {
    paint::RecordingSurface heads;
    StaffView view;
    Write(view, key, "75");
    for (const paint::DrawCommand& command : view.Drawing().Commands()) {
      const auto* print = std::get_if<paint::PrintCommand>(&command);
      if (print == nullptr || print->text.front() != 'w') continue;
      const QImage image = tests::Painted(1080, 250, scale, [&](QPainter& painter) {
        paint::RecordingSurface one;
        one.SetScaleMode(paint::ScaleMode::kPixels);
        one.SetFontName(print->font.name);
        one.SetFontSize(print->font.size);
        one.SetCurrentX(print->at.x);
        one.SetCurrentY(print->at.y);
        one.Print("w");
        paint::PainterSurface surface(painter);
        one.ReplayOn(surface);
      });
      const int column = print->at.x < 800 ? 0 : 1;
      const core::Scale scaleNotes = core::BuildScale(key, core::IntervalsOf("75"));
      const int step = StepOf(kTreble, scaleNotes[static_cast<std::size_t>(column)]);
      const QRect ink = tests::InkBox(image, image.rect());
      EXPECT_NEAR(ink.top() + ink.height() / 2.0, (kTrebleStaff.StepY(step) + 0.5) * scale, 1) << "key " << key;
      EXPECT_GE(ink.left(), (ColumnX(column) - 3) * scale);
      EXPECT_LE(ink.right(), (ColumnX(column) + 16) * scale);
    }
  }
}

TEST_P(StaffAtScale, LedgerLinesRunThroughTheCentresOfTheirNoteheads) {
  const double scale = GetParam();
  StaffView view;
  Write(view, 0, "75");
  const QImage card = Card(view, scale);
  const QPoint origin = StaffView::DesignRect().topLeft();
  const double line = (kTrebleStaff.StepY(-2) - origin.y() + 0.5) * scale;
  const int y = static_cast<int>(line);
  const double left = (ColumnX(0) - 3 - origin.x()) * scale;
  const double right = (ColumnX(0) + 16 - origin.x()) * scale;
  // Next to the notehead only the ledger line is dark, over its whole length.
  EXPECT_GT(tests::Darkness(card, static_cast<int>(left + 1), y), 180);
  EXPECT_GT(tests::Darkness(card, static_cast<int>(right - 1), y), 180);
  EXPECT_LT(tests::Darkness(card, static_cast<int>(left - 2), y), 40);
  EXPECT_LT(tests::Darkness(card, static_cast<int>(right + 2), y), 40);
  const QRect column(static_cast<int>((ColumnX(0) + 1 - origin.x()) * scale), static_cast<int>(line - 8 * scale),
                     static_cast<int>(12 * scale), static_cast<int>(16 * scale));
  const QRect head = tests::InkBox(card, column);
  EXPECT_NEAR(head.top() + head.height() / 2.0, line, 1);
}

TEST_P(StaffAtScale, PaintsItsLinesWithoutGrey) {
  const double scale = GetParam();
  StaffView view;
  Write(view, 0, "75");
  const QImage card = Card(view, scale);
  const int x = static_cast<int>(280 * scale);  // After the last note.
  std::string rows;
  for (int y = static_cast<int>(50 * scale); y < static_cast<int>(110 * scale); ++y) {
    const int darkness = tests::Darkness(card, x, y);
    EXPECT_TRUE(darkness < 10 || darkness > 210) << "grey in row " << y;
    if (darkness > 210 && (rows.empty() || rows.back() != '#')) rows += '#';
    if (darkness < 10 && (rows.empty() || rows.back() != '.')) rows += '.';
  }
  EXPECT_EQ(rows, ".#.#.#.#.#.");
}

/// The glyphs of a drawing without lines, at a scale factor.
QImage GlyphsOf(const paint::RecordingSurface& drawing, double scale) {
  return tests::Painted(1080, 250, scale, [&](QPainter& painter) {
    paint::PainterSurface surface(painter);
    surface.SetScaleMode(paint::ScaleMode::kPixels);
    for (const paint::DrawCommand& command : drawing.Commands()) {
      const auto* print = std::get_if<paint::PrintCommand>(&command);
      if (print == nullptr) continue;
      surface.SetFontName(print->font.name);
      surface.SetFontSize(print->font.size);
      surface.SetCurrentX(print->at.x);
      surface.SetCurrentY(print->at.y);
      surface.Print(print->text);
    }
  });
}

TEST_P(StaffAtScale, SharpsAreBeforeTheirNoteheadsAndTouchNone) {
  const double scale = GetParam();
  for (const char* pattern : {"2122131", "111111111111"}) {
    for (std::int16_t key = 0; key < 12; ++key) {
      StaffView view;
      Write(view, key, pattern);
      const QImage glyphs = GlyphsOf(view.Drawing(), scale);
      for (const paint::DrawCommand& command : view.Drawing().Commands()) {
        const auto* print = std::get_if<paint::PrintCommand>(&command);
        if (print == nullptr || print->text.back() != paint::kSharp) continue;
        // From the end of the previous notehead to the start of the sharp's notehead.
        std::string columns;
        for (int x = qRound((print->at.x - 7) * scale); x < qRound((print->at.x + 6) * scale); ++x) {
          const bool ink = !tests::InkBox(glyphs, QRect(x, 0, 1, glyphs.height())).isEmpty();
          if (columns.empty() || columns.back() != (ink ? '#' : '.')) columns += ink ? '#' : '.';
        }
        EXPECT_TRUE(columns == ".#.#" || columns == "#.#.#") << columns << ' ' << pattern << " in key " << key;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scales, StaffAtScale, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST(StaffView, HasItsPositionInTheForm) {
  StaffView view;
  EXPECT_EQ(view.geometry(), QRect(722, 62, 334, 150));
}

TEST(StaffView, NamesClefAndNotesForAssistiveTechnology) {
  StaffView view;
  EXPECT_EQ(view.accessibleName().toStdString(), "Treble clef: no notes");
  Write(view, 2, "2122212");
  EXPECT_EQ(view.accessibleName().toStdString(), "Treble clef: D E F G A B C");
  QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->role(), QAccessible::Graphic);
  EXPECT_EQ(picture->text(QAccessible::Name).toStdString(), "Treble clef: D E F G A B C");
  view.Clear();
  EXPECT_EQ(view.accessibleName().toStdString(), "Treble clef: no notes");
  EXPECT_TRUE(view.Drawing().Commands().empty());
}

TEST(StaffView, WritesANoticeInPlaceOfTheStaff) {
  StaffView view;
  Write(view, 0, "2212221");
  view.ShowNotice(QStringLiteral("This scale is damaged."));
  EXPECT_EQ(view.accessibleName().toStdString(), "This scale is damaged.");
  EXPECT_EQ(view.Drawing().Commands().size(), 1U) << "no staff";
  const QImage image = tests::Painted(1200, 400, 1, [&](QPainter& painter) { view.Picture()->PaintOn(painter); });
  const QRect ink = tests::InkBox(image, image.rect());
  EXPECT_TRUE(StaffView::DesignRect().adjusted(8, 8, -8, -8).contains(ink));
  EXPECT_GT(ink.width(), 100);
  EXPECT_NEAR(ink.center().x(), StaffView::DesignRect().center().x(), 2);
  EXPECT_NEAR(ink.center().y(), StaffView::DesignRect().center().y(), 4);
  Write(view, 0, "2212221");
  EXPECT_EQ(view.accessibleName().toStdString(), "Treble clef: C D E F G A B");
}

TEST(StaffView, ThrowsAFailureAndReportsNoNotes) {
  StaffView view;
  Write(view, 0, "2212221");
  std::string names = " C";
  EXPECT_THROW(view.Draw(core::BuildScale(0, {}), names), core::Failure);
  EXPECT_EQ(names, " C");
  EXPECT_EQ(view.accessibleName().toStdString(), "Treble clef: no notes");
  EXPECT_TRUE(view.Drawing().Commands().empty());
}

/// Expects all ink at least four pixels inside the card.
void ExpectInside(StaffView& view, const std::string& what) {
  // Painted with margins and without the clip of the card, so that ink outside would be visible.
  const QImage image = tests::Painted(1200, 400, 1, [&](QPainter& painter) { view.Picture()->PaintOn(painter); });
  const QRect ink = tests::InkBox(image, image.rect());
  EXPECT_TRUE(StaffView::DesignRect().adjusted(4, 4, -4, -4).contains(ink)) << what;
}

TEST(StaffView, KeepsEveryScaleInsideItsCard) {
  for (std::int16_t key = 0; key < 12; ++key) {
    for (const char* pattern :
         {"2212221", "111111111111", "777", "999999", "1111111111111111", "2222222222222222222222222",
          "1111111111111111111111111111111111111111", "9999999999999999999999999999999999999999"}) {
      StaffView view;
      Write(view, key, pattern);
      ExpectInside(view, std::string(pattern) + " in key " + std::to_string(key));
    }
  }
}

TEST(StaffView, PaintsAnOrdinaryScaleAtFullSize) {
  for (std::int16_t key = 0; key < 12; ++key) {
    StaffView view;
    Write(view, key, "111111111111");
    const QImage image = tests::Painted(1200, 400, 1, [&](QPainter& painter) { view.Picture()->PaintOn(painter); });
    EXPECT_EQ(tests::InkBox(image, QRect(730, kTrebleStaff.LineY(0), 400, 1)),
              QRect(743, kTrebleStaff.LineY(0), 290, 1))
        << key;
  }
}

TEST(StaffView, ExtendsTheStaffLinesBelowAWideScale) {
  StaffView view;
  Write(view, 0, "1111111111111111111111111111111111111111");
  const QImage image = tests::Painted(1200, 400, 4, [&](QPainter& painter) { view.Picture()->PaintOn(painter); });
  const QRect ink = tests::InkBox(image, image.rect());
  int linesAtTheEnd = 0;
  bool dark = false;
  for (int y = ink.top(); y <= ink.bottom(); ++y) {
    const bool now = tests::Darkness(image, ink.right() - 4, y) >= 128;
    linesAtTheEnd += now && !dark ? 1 : 0;
    dark = now;
  }
  EXPECT_EQ(linesAtTheEnd, 5);
}

TEST(StaffView, IsACardOfPaperWithARim) {
  StaffView view;
  EXPECT_EQ(tests::RecordPainting(view).AsText(),
            "round 6 at 0,0 334x150 fill #e4ddd1 smooth\n"
            "round 5 at 1,1 332x148 fill #fffdf9 smooth\n");
}

TEST(StaffView, LooksTheSameInLightAndDark) {
  StaffView view;
  Write(view, 9, "2212221");
  view.setPalette(QPalette(QColor(0xee, 0xee, 0xee)));
  const QImage light = view.grab(view.rect().adjusted(8, 8, -8, -8)).toImage();
  view.setPalette(QPalette(QColor(0x22, 0x22, 0x22)));
  EXPECT_EQ(view.grab(view.rect().adjusted(8, 8, -8, -8)).toImage(), light);
  EXPECT_GE(paint::ContrastRatio(QColor(paint::ToRgb(paint::kInk)), QColor(paint::kStaffPaper)), 12);
}

}  // namespace
}  // namespace tonalith::views
