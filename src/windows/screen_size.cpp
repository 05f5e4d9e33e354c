// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "windows/screen_size.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace tonalith::windows {
namespace {

/// Title bar and frame on the usual desktops. A window does not know its own before it is shown.
/// They keep their size where the program is drawn at a scale below 1.
constexpr QSize kFrame(4, 36);
/// Panels on the usual desktops, for platforms that do not report them.
constexpr int kUnknownPanels = 44;
/// A window is not usable below this size.
constexpr QSize kSmallestSize(200, 150);

}  // namespace

std::optional<QSize> AvailableSize(const QScreen* screen) {
  const QString platform = QGuiApplication::platformName();
  const bool isVisible = platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
  if (screen == nullptr || !isVisible) return std::nullopt;
  return ContentSize(screen->availableSize(), screen->devicePixelRatio(), platform);
}

QSize ContentSize(QSize available, double ratio, const QString& platform) {
  const double scale = std::min(1.0, ratio);
  QSize taken = kFrame;
  if (platform.startsWith(QLatin1String("wayland"))) taken.rheight() += kUnknownPanels;
  // Rounded down, like the scale that the program has chosen for itself.
  const QSize left =
      available - QSize(static_cast<int>(taken.width() / scale), static_cast<int>(taken.height() / scale));
  return left.expandedTo(kSmallestSize);
}

void ResizeWithinScreen(QWidget& window, QSize wanted) {
  window.resize(wanted.boundedTo(AvailableSize(window.screen()).value_or(wanted)));
}

}  // namespace tonalith::windows
