// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The space for a window on its screen, in logical pixels.

#pragma once

#include <QSize>
#include <optional>

class QScreen;
class QString;
class QWidget;

namespace tonalith::windows {

/// The space for the content of a window on `screen`, without panels, title bar and frame. nullopt on platforms that
/// show no windows ("offscreen", "minimal").
[[nodiscard]] std::optional<QSize> AvailableSize(const QScreen* screen);

/// The part of the `available` pixels of a screen that is left for the content of a window with title bar and frame, at
/// a device pixel ratio. `platform` is the name that Qt uses.
[[nodiscard]] QSize ContentSize(QSize available, double ratio, const QString& platform);

/// Resizes `window` to `wanted`, limited to the available size of its screen.
void ResizeWithinScreen(QWidget& window, QSize wanted);

}  // namespace tonalith::windows
