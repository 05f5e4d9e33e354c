// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/screen_size.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tonalith::windows {
namespace {

/// What the title bar and the frame take on the usual desktops. A window does not know its own before it is shown.
/// They keep their size where the program is drawn at a scale below 1.
constexpr QSize kFrame(4, 36);
/// What the panels of the usual desktops take where a program is not told.
constexpr int kUnknownPanels = 44;
/// Nothing can be shown in less.
constexpr QSize kLeastRoom(200, 150);

}  // namespace

std::optional<QSize> AvailableSize(const QScreen* screen) {
  const QString platform = QGuiApplication::platformName();
  const bool isSeen = platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
  if (screen == nullptr || !isSeen) return std::nullopt;
  const double scale = std::min(1.0, screen->devicePixelRatio());
  QSize taken = kFrame;
  if (platform.startsWith(QLatin1String("wayland"))) taken.rheight() += kUnknownPanels;
  // Rounded down, as the scale that the program has chosen for itself was.
  const QSize room = screen->availableSize() -
                     QSize(static_cast<int>(taken.width() / scale), static_cast<int>(taken.height() / scale));
  return room.expandedTo(kLeastRoom);
}

void ResizeWithinScreen(QWidget& window, QSize wanted) {
  window.resize(wanted.boundedTo(AvailableSize(window.screen()).value_or(wanted)));
}

}  // namespace tonalith::windows
