// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/screen_fit.h"

#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>

#include "app/main_window_fixture.h"
#include "support/recording_msg_box.h"

namespace tonalith::app {
namespace {

constexpr QSize kWindow(1080, 640);

TEST(ScaleThatFits, IsOneIfTheWindowFits) {
  EXPECT_EQ(ScaleThatFits(kWindow, kWindow), 1);
  EXPECT_EQ(ScaleThatFits(kWindow, {1920, 1080}), 1);
}

TEST(ScaleThatFits, IsLimitedByTheSmallerRatio) {
  EXPECT_NEAR(ScaleThatFits(kWindow, {960, 504}), 504.0 / 640, 0.001);
  EXPECT_NEAR(ScaleThatFits(kWindow, {900, 630}), 900.0 / 1080, 0.001);
  EXPECT_LE(ScaleThatFits(kWindow, {907, 476}) * kWindow.height(), 476);
}

TEST(ScaleThatFits, IsNeverBelowTheSmallestScale) {
  EXPECT_EQ(ScaleThatFits(kWindow, {320, 200}), kSmallestScale);
  EXPECT_EQ(ScaleThatFits(kWindow, {636, 444}), kSmallestScale);
}

TEST(ScaleSetting, IsUsableFromAQuarterToEight) {
  for (const char* const value : {"", "1", "0.25", "1.5", "8", " 2 "}) {
    EXPECT_TRUE(IsUsableScaleSetting("QT_SCALE_FACTOR", value)) << value;
  }
  for (const char* const value : {"-1", "0", "0.2", "9", "1e9", "nan", "inf", "-inf", "two", "1,5"}) {
    EXPECT_FALSE(IsUsableScaleSetting("QT_SCALE_FACTOR", value)) << value;
  }
}

TEST(ScaleThatFits, IsRoundedDownToThousandths) {
  EXPECT_DOUBLE_EQ(ScaleThatFits({1000, 10}, {789, 10}), 0.789);
  EXPECT_DOUBLE_EQ(ScaleThatFits({10'000, 10}, {7'899, 10}), 0.789);
  EXPECT_DOUBLE_EQ(ScaleThatFits({10, 1000}, {10, 999}), 0.999);
  EXPECT_EQ(ScaleThatFits({}, {10, 10}), 1) << "an empty window";
}

TEST(ScaleSetting, LimitsAreUsable) {
  EXPECT_FALSE(IsUsableScaleSetting("QT_SCALE_FACTOR", "0.249"));
  EXPECT_FALSE(IsUsableScaleSetting("QT_SCALE_FACTOR", "8.001"));
  EXPECT_TRUE(IsUsableScaleSetting("QT_FONT_DPI", "24"));
  EXPECT_FALSE(IsUsableScaleSetting("QT_FONT_DPI", "23"));
  EXPECT_TRUE(IsUsableScaleSetting("QT_FONT_DPI", "768"));
  EXPECT_FALSE(IsUsableScaleSetting("QT_FONT_DPI", "769"));
  EXPECT_FALSE(IsUsableScaleSetting("QT_SCALE_FACTOR", "96"));
  EXPECT_TRUE(IsUsableScaleSetting("QT_SCREEN_SCALE_FACTORS", "a=b=8;0.25"));
  EXPECT_TRUE(IsUsableScaleSetting("QT_ENABLE_HIGHDPI_SCALING", "-1")) << "another variable";
}

TEST(ScaleSetting, OfEveryScreenHasTheSameLimits) {
  for (const char* const value : {"1.5", "1;2", "HDMI-1=1.5;eDP-1=2", "HDMI-1=1.5;"}) {
    EXPECT_TRUE(IsUsableScaleSetting("QT_SCREEN_SCALE_FACTORS", value)) << value;
  }
  for (const char* const value : {"-1", "1;-2", "HDMI-1=0.0001", "HDMI-1="}) {
    EXPECT_FALSE(IsUsableScaleSetting("QT_SCREEN_SCALE_FACTORS", value)) << value;
  }
}

TEST(ScaleSetting, OfFontsIsAResolution) {
  for (const char* const value : {"0", "72", "96", "192"}) {
    EXPECT_TRUE(IsUsableScaleSetting("QT_FONT_DPI", value)) << value;
  }
  for (const char* const value : {"-5", "1", "100000"}) {
    EXPECT_FALSE(IsUsableScaleSetting("QT_FONT_DPI", value)) << value;
  }
}

TEST(ScreenFit, RemovesAndReportsAnUnusableScale) {
  qputenv("QT_SCALE_FACTOR", "-1");
  std::string program = "tonalith";
  char* arguments[] = {program.data(), nullptr};
  const ScreenFit fit(1, arguments);
  EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
  tests::RecordingMsgBox box;
  fit.Report(box);
  ASSERT_EQ(box.Messages().size(), 1U);
  EXPECT_EQ(
      box.Messages().front().text,
      "QT_SCALE_FACTOR is set to '-1', which is no scale that windows can be shown at. Tonalith has started as if "
      "it were not set.");
}

TEST(ScreenFit, KeepsAUsableScale) {
  qputenv("QT_SCALE_FACTOR", "1.5");
  std::string program = "tonalith";
  char* arguments[] = {program.data(), nullptr};
  const ScreenFit fit(1, arguments);
  EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "1.5");
  qunsetenv("QT_SCALE_FACTOR");
  tests::RecordingMsgBox box;
  fit.Report(box);
  EXPECT_TRUE(box.Messages().empty());
}

using SmallScreen = MainWindowTest;

TEST_F(SmallScreen, WindowThatFitsHasNoScrollArea) {
  CopyShippedDatabase();
  frmTonalith& window = Start();
  AddScrollBars(window, {1080, 700});
  EXPECT_EQ(window.findChild<QScrollArea*>(), nullptr);
}

TEST_F(SmallScreen, OnePixelTooFewAddsScrollBars) {
  CopyShippedDatabase();
  frmTonalith& window = Start();
  const QSize client = window.centralWidget()->minimumSize();
  const QSize exact(client.width(), client.height() + window.menuBar()->sizeHint().height());
  AddScrollBars(window, exact);
  EXPECT_EQ(window.findChild<QScrollArea*>(), nullptr);
  AddScrollBars(window, exact - QSize(0, 1));
  auto* const area = window.findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_EQ(area->widget()->minimumSize(), client);
  EXPECT_EQ(area->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(area->frameShape(), QFrame::NoFrame);
}

TEST_F(SmallScreen, NarrowScreenAddsScrollBars) {
  CopyShippedDatabase();
  frmTonalith& window = Start();
  AddScrollBars(window, {window.centralWidget()->minimumWidth() - 1, 2000});
  EXPECT_NE(window.findChild<QScrollArea*>(), nullptr);
}

TEST_F(SmallScreen, LargeWindowGetsScrollBarsAndFits) {
  CopyShippedDatabase();
  frmTonalith& window = Start();
  QWidget* const focus = window.focusWidget();
  constexpr QSize kAvailable(796, 564);
  AddScrollBars(window, kAvailable);
  QCoreApplication::processEvents();
  EXPECT_LE(window.sizeHint().width(), kAvailable.width());
  EXPECT_LE(window.sizeHint().height(), kAvailable.height());
  auto* const area = window.findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_EQ(window.focusWidget(), focus);
  area->ensureWidgetVisible(C().cmdInstall);
  QWidget* const view = area->viewport();
  EXPECT_TRUE(view->rect().contains(QRect(C().cmdInstall->mapTo(view, QPoint(0, 0)), C().cmdInstall->size())));
}

TEST_F(SmallScreen, WindowOfFixedSizeOffersNoMaximiseButton) {
  CopyShippedDatabase();
  frmTonalith& window = Start();
  EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

}  // namespace
}  // namespace tonalith::app
