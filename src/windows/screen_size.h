// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The space for a window on its screen, in logical pixels.

#pragma once

#include <QSize>
#include <optional>

class QScreen;
class QWidget;

namespace tonalith::windows {

/// The space for the content of a window on `screen`, without panels, title bar and frame. nullopt on platforms that
/// show no windows ("offscreen", "minimal").
[[nodiscard]] std::optional<QSize> AvailableSize(const QScreen* screen);

/// Resizes `window` to `wanted`, limited to the available size of its screen.
void ResizeWithinScreen(QWidget& window, QSize wanted);

}  // namespace tonalith::windows
