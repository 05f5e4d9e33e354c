// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The browser of the help window by itself: highlights, line heights, zoom and mouse buttons.

#include "help/help_browser.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include "help/book_fixture.h"
#include "help/text_finder.h"

namespace tonalith::help {
namespace {

class HelpBrowserTest : public testing::Test {
 protected:
  HelpBrowserTest() {
    page_.resize(600, 300);
    page_.show();
  }
  void ShowText(const std::string& html) {
    const ChmObjects objects{{"/a.html", html}, {"/picture.png", SourceOf("picture.png")}};
    page_.ShowPage(std::make_shared<const HelpBook>(objects), {"/a.html", {}});
  }
  [[nodiscard]] qsizetype Highlights() const { return page_.extraSelections().size(); }

  HelpBrowser page_{nullptr};
};

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST_F(HelpBrowserTest, HighlightsAtMostAThousandMatches) {
  ShowText("<p>" + Repeated("dorian ", 1200));
  EXPECT_EQ(page_.Finder().HighlightText(QStringLiteral("dorian")), 1000);
  EXPECT_EQ(Highlights(), 1000);
  page_.Finder().HighlightWords({QStringLiteral("dor")});
  EXPECT_EQ(Highlights(), 1000);
}

TEST_F(HelpBrowserTest, WordsAndTextStayHighlightedAfterZooming) {
  ShowText("<p>Major, minor, major.");
  page_.Finder().HighlightText(QStringLiteral("major"));
  page_.ZoomBy(1);
  EXPECT_EQ(Highlights(), 2);
  page_.Finder().HighlightText({});
  page_.Finder().HighlightWords({QStringLiteral("min")});
  page_.ZoomBy(1);
  EXPECT_EQ(Highlights(), 1);
  ShowText("<p>Major, minor, major.");
  EXPECT_EQ(Highlights(), 0) << "another page";
}

TEST_F(HelpBrowserTest, OnlyLinesWithAPictureHaveNoExtraSpacing) {
  ShowText("<p>Text</p><p><img src=picture.png></p><p>More</p>");
  std::string heights;
  for (QTextBlock block = page_.document()->begin(); block.isValid(); block = block.next()) {
    heights += block.blockFormat().lineHeight() == 100 ? "tight " : "spaced ";
  }
  EXPECT_EQ(heights, "spaced tight spaced ");
}

TEST_F(HelpBrowserTest, FindsTheNextMatchAndTheOneAtTheSelection) {
  ShowText("<p>one two one three one");
  const auto place = [this] { return page_.textCursor().selectionStart(); };
  EXPECT_TRUE(page_.Finder().FindAgain(QStringLiteral("one"), false));
  EXPECT_EQ(place(), 0);
  EXPECT_TRUE(page_.Finder().FindAgain(QStringLiteral("one"), false));
  EXPECT_EQ(place(), 8);
  EXPECT_TRUE(page_.Finder().FindFromHere(QStringLiteral("one t"))) << "the selected match grows";
  EXPECT_EQ(place(), 8);
  EXPECT_TRUE(page_.Finder().FindAgain(QStringLiteral("one"), true));
  EXPECT_EQ(place(), 0);
  EXPECT_TRUE(page_.Finder().FindAgain(QStringLiteral("one"), true));
  EXPECT_EQ(place(), 18) << "the last one";
  EXPECT_FALSE(page_.Finder().FindAgain(QStringLiteral("four"), false));
  EXPECT_FALSE(page_.Finder().FindAgain({}, false));
}

TEST_F(HelpBrowserTest, ScrollsToAMatchOutOfSightAndStaysWhereItIsVisible) {
  ShowText("<p>needle</p>" + Repeated("<p>hay</p>", 80) + "<p>pin</p>" + Repeated("<p>hay</p>", 80));
  ASSERT_TRUE(page_.Finder().FindAgain(QStringLiteral("pin"), false));
  const int scroll = page_.Scroll();
  EXPECT_GT(scroll, 0);
  const QRect line = page_.cursorRect();
  EXPECT_GT(line.top(), 0);
  EXPECT_LT(line.bottom(), page_.viewport()->height()) << "with the lines below it";
  ASSERT_TRUE(page_.Finder().FindFromHere(QStringLiteral("pin")));
  EXPECT_EQ(page_.Scroll(), scroll);
}

TEST_F(HelpBrowserTest, ZoomReturnsExactlyToOneAndReportsChangesOnly) {
  ShowText("<p>Text");
  const QSignalSpy changed(&page_, &HelpBrowser::ZoomChanged);
  page_.ZoomBy(3);
  page_.ZoomBy(-3);
  EXPECT_EQ(page_.Zoom(), 1.0);
  EXPECT_EQ(changed.count(), 2);
  page_.ResetZoom();
  EXPECT_EQ(changed.count(), 2) << "it is 1 already";
  page_.ZoomBy(100);
  const double largest = page_.Zoom();
  page_.ZoomBy(1);
  EXPECT_EQ(page_.Zoom(), largest);
  page_.ResetZoom();
  EXPECT_EQ(page_.Zoom(), 1.0);
}

TEST_F(HelpBrowserTest, WheelZoomsWithControlAndScrollsWithoutIt) {
  ShowText(Repeated("<p>Text</p>", 100));
  const auto turn = [this](QPoint angle, Qt::KeyboardModifiers modifiers) {
    const QPointF middle(100, 100);
    QWheelEvent wheel(middle, page_.mapToGlobal(middle), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page_.viewport(), &wheel);
  };
  turn({0, 120}, Qt::ControlModifier);
  EXPECT_GT(page_.Zoom(), 1);
  turn({0, -120}, Qt::ControlModifier);
  EXPECT_EQ(page_.Zoom(), 1);
  turn({120, 0}, Qt::ControlModifier);
  EXPECT_EQ(page_.Zoom(), 1) << "sideways";
  EXPECT_EQ(page_.Scroll(), 0);
  turn({0, -120}, Qt::NoModifier);
  EXPECT_EQ(page_.Zoom(), 1);
  EXPECT_GT(page_.Scroll(), 0);
}

TEST_F(HelpBrowserTest, MouseButtonsForBackAndForwardAreRequests) {
  ShowText("<p>Text");
  const QSignalSpy back(&page_, &HelpBrowser::BackRequested);
  const QSignalSpy forward(&page_, &HelpBrowser::ForwardRequested);
  QTest::mouseClick(page_.viewport(), Qt::BackButton);
  EXPECT_EQ(back.count(), 1);
  EXPECT_EQ(forward.count(), 0);
  QTest::mouseClick(page_.viewport(), Qt::ForwardButton);
  QTest::mouseClick(page_.viewport(), Qt::LeftButton);
  EXPECT_EQ(back.count(), 1);
  EXPECT_EQ(forward.count(), 1);
}

TEST_F(HelpBrowserTest, ShowsASmallerPictureInANarrowWindow) {
  ShowText("<p><img src=picture.png width=400 height=400></p>");
  const auto width = [this] {
    const QTextBlock block = page_.document()->begin();
    return block.begin().fragment().charFormat().toImageFormat().width();
  };
  const double wide = width();
  EXPECT_EQ(wide, 400);
  page_.resize(300, 300);
  EXPECT_LT(width(), 300);
  page_.resize(600, 300);
  EXPECT_EQ(width(), wide);
}

TEST_F(HelpBrowserTest, ShowsTheSamePageAgainWithoutLosingItsLayout) {
  ShowText(Repeated("<p>Text</p>", 100));
  page_.SetScroll(200);
  const int height = page_.verticalScrollBar()->maximum();
  page_.ZoomBy(2);
  EXPECT_GT(page_.verticalScrollBar()->maximum(), height);
  EXPECT_GT(page_.Scroll(), 200) << "the same share of the page";
}

}  // namespace
}  // namespace tonalith::help
