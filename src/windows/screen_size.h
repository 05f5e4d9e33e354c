// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// How much room a window has on its screen. Sizes are logical pixels, as widgets have them. User-interface thread;
// never fails.

#pragma once

#include <QSize>
#include <optional>

class QScreen;
class QWidget;

namespace tonalith::windows {

/// The room for the content of a window on `screen`: what panels leave free, without a title bar and a frame. Nothing
/// where no screen shows the windows, as on the platforms "offscreen" and "minimal".
[[nodiscard]] std::optional<QSize> AvailableSize(const QScreen* screen);

/// Gives `window` the size `wanted`, or as much of it as its screen has room for.
void ResizeWithinScreen(QWidget& window, QSize wanted);

}  // namespace tonalith::windows
