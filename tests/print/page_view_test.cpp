// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "print/page_view.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "support/ink.h"
#include "support/recorded_painting.h"

namespace tonalith::print {
namespace {

using tests::Drawing;
using tests::Drawn;

/// A red rectangle over the whole picture.
class RedPicture : public platform::PrintablePicture {
 public:
  [[nodiscard]] double Width() const override { return 50; }
  [[nodiscard]] double Height() const override { return 20; }
  void PaintOn(QPainter& painter) const override { painter.fillRect(QRectF(0, 0, 50, 20), Qt::red); }
};

class PageViewTest : public testing::Test {
 protected:
  PageViewTest() {
    view_.resize(420, 320);
    sheet_.width = 200;
    sheet_.height = 100;
    sheet_.printable = {10, 20, 180, 60};
  }
  void ShowPage() { view_.Show(sheet_, {{std::make_shared<RedPicture>(), {30, 10, 100, 40}}}); }

  PageView view_{QStringLiteral("Picture1"), QStringLiteral("Shape2"), nullptr};
  platform::Sheet sheet_;
};

TEST_F(PageViewTest, SheetIsAsLargeAsFitsAndInTheMiddle) {
  ShowPage();
  EXPECT_EQ(view_.SheetRect(), QRectF(10, 60, 400, 200));
  view_.resize(420, 120);
  EXPECT_EQ(view_.SheetRect(), QRectF(110, 10, 200, 100));
}

TEST_F(PageViewTest, PaintsTheSheetWithRimShadowAndPictures) {
  ShowPage();
  EXPECT_EQ(tests::RecordPainting(view_).AsText(),
            "round 6 at 4,56 412x212 fill #0a000000 smooth\n"
            "round 5 at 5,57 410x210 fill #0a000000 smooth\n"
            "round 4 at 6,58 408x208 fill #0a000000 smooth\n"
            "round 3 at 7,59 406x206 fill #0a000000 smooth\n"
            "round 2 at 8,60 404x204 fill #0a000000 smooth\n"
            "round 1 at 9,61 402x202 fill #0a000000 smooth\n"
            "rect at 10,60 400x200 fill #ffffff smooth\n"
            "rect at 9.5,59.5 401x201 line #c8c2b8 1 smooth\n"
            "rect at 90,120 200x80 fill #ff0000 smooth\n");
}

TEST_F(PageViewTest, CutsPicturesAtTheEdgeOfTheSheet) {
  view_.Show(sheet_, {{std::make_shared<RedPicture>(), {-500, -500, 2000, 2000}}});
  const QImage image = tests::Painted(420, 320, 1, [&](QPainter& painter) { view_.render(&painter); });
  EXPECT_EQ(image.pixelColor(11, 61), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(408, 258), QColor(Qt::red));
  EXPECT_NE(image.pixelColor(8, 160), QColor(Qt::red));
  EXPECT_NE(image.pixelColor(200, 262), QColor(Qt::red));
}

TEST_F(PageViewTest, FrameIsDashedAroundThePrintableArea) {
  ShowPage();
  auto* const frame = view_.findChild<FrameShape*>(QStringLiteral("Shape2"));
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->geometry(), QRect(10 + 20, 60 + 40, 360, 120));
  EXPECT_EQ(tests::RecordPainting(*frame).AsText(), "rect at 0.5,0.5 359x119 line #b4ada3 1\n");
  const QImage image = tests::Painted(
      360, 120, 1, [&](QPainter& painter) { frame->render(&painter, QPoint(), QRegion(), QWidget::RenderFlags()); });
  int dashes = 0;
  for (int x = 1; x < 360; ++x) {
    const bool starts = image.pixelColor(x, 0) != QColor(Qt::white) && image.pixelColor(x - 1, 0) == QColor(Qt::white);
    dashes += starts ? 1 : 0;
  }
  EXPECT_NEAR(dashes, 60, 2) << "three pixels of line, three of paper";
  EXPECT_TRUE(frame->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(PageViewTest, FrameFollowsTheSizeOfTheWindow) {
  ShowPage();
  view_.show();
  view_.resize(220, 320);
  EXPECT_EQ(view_.findChild<FrameShape*>()->geometry(), QRect(10 + 10, 110 + 20, 180, 60));
}

TEST_F(PageViewTest, PaintsNothingWithoutASheet) {
  EXPECT_TRUE(tests::RecordPainting(view_).All().empty());
  EXPECT_TRUE(view_.findChild<FrameShape*>()->isHidden());
  sheet_.height = 0;
  ShowPage();
  EXPECT_TRUE(view_.SheetRect().isEmpty());
  EXPECT_TRUE(view_.findChild<FrameShape*>()->isHidden());
  sheet_.height = 100;
  ShowPage();
  EXPECT_FALSE(view_.findChild<FrameShape*>()->isHidden());
  view_.resize(20, 20);
  EXPECT_TRUE(view_.SheetRect().isEmpty()) << "there is space for the margin only";
}

}  // namespace
}  // namespace tonalith::print
