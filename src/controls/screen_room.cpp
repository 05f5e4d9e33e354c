// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "controls/screen_room.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tonalith::controls {
namespace {

/// What the title bar and the frame take on the usual desktops. A window does not know its own before it is shown.
constexpr QSize kFrame(4, 36);
/// What the panels of the usual desktops take where a program is not told.
constexpr int kUnknownPanels = 44;
/// Nothing can be shown in less.
constexpr QSize kLeastRoom(200, 150);

}  // namespace

std::optional<QSize> RoomOn(const QScreen* screen) {
  const QString platform = QGuiApplication::platformName();
  const bool isSeen = platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
  if (screen == nullptr || !isSeen) return std::nullopt;
  QSize room = screen->availableSize() - kFrame;
  if (platform.startsWith(QLatin1String("wayland"))) room.rheight() -= kUnknownPanels;
  return room.expandedTo(kLeastRoom);
}

void ResizeWithinScreen(QWidget& window, QSize wanted) {
  window.resize(wanted.boundedTo(RoomOn(window.screen()).value_or(wanted)));
}

}  // namespace tonalith::controls
