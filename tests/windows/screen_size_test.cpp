// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/screen_size.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QWidget>

#include "windows/window_front.h"

namespace tonalith::windows {
namespace {

const QString kXcb = QStringLiteral("xcb");

TEST(ScreenSize, ContentIsTheScreenWithoutTitleBarAndFrame) {
  EXPECT_EQ(ContentSize({1366, 740}, 1, kXcb), QSize(1366 - 4, 740 - 36));
  EXPECT_EQ(ContentSize({683, 370}, 2, kXcb), QSize(683 - 4, 370 - 36)) << "they grow with the scale";
}

TEST(ScreenSize, TitleBarAndFrameKeepTheirSizeAtAScaleBelowOne) {
  EXPECT_EQ(ContentSize({1600, 1200}, 0.5, kXcb), QSize(1600 - 8, 1200 - 72));
}

TEST(ScreenSize, WaylandDoesNotReportPanelsSoTheirUsualHeightIsLeftFree) {
  EXPECT_EQ(ContentSize({1366, 768}, 1, QStringLiteral("wayland")), QSize(1366 - 4, 768 - 36 - 44));
  EXPECT_EQ(ContentSize({1366, 768}, 1, QStringLiteral("wayland-egl")), QSize(1366 - 4, 768 - 36 - 44));
}

TEST(ScreenSize, ContentIsNotSmallerThanUsable) { EXPECT_EQ(ContentSize({100, 100}, 1, kXcb), QSize(200, 150)); }

TEST(ScreenSize, IsUnknownWithoutAScreenAndOnAPlatformWithoutWindows) {
  EXPECT_EQ(AvailableSize(nullptr), std::nullopt);
  ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
  EXPECT_EQ(AvailableSize(QGuiApplication::primaryScreen()), std::nullopt);
}

TEST(ScreenSize, WindowGetsTheWantedSizeWhereTheScreenIsUnknown) {
  QWidget window;
  ResizeWithinScreen(window, {3000, 2000});
  EXPECT_EQ(window.size(), QSize(3000, 2000));
}

TEST(WindowFront, ShowsAHiddenWindowAndRestoresAMinimisedOne) {
  QWidget window;
  BringToFront(window);
  EXPECT_TRUE(window.isVisible());
  window.setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
  BringToFront(window);
  EXPECT_EQ(window.windowState() & ~Qt::WindowActive, Qt::WindowStates(Qt::WindowMaximized));
}

TEST(WindowFront, ActivatesTheWindow) {
  QWidget other;
  QWidget window;
  BringToFront(window);
  BringToFront(other);
  QCoreApplication::processEvents();
  ASSERT_FALSE(window.isActiveWindow());
  BringToFront(window);
  QCoreApplication::processEvents();
  EXPECT_TRUE(window.isActiveWindow());
}

}  // namespace
}  // namespace tonalith::windows
