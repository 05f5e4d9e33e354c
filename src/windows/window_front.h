// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What a window is to the window system, and bringing it to its user, whatever state it is in. User-interface thread;
// never fails.

#pragma once

#include <Qt>

class QWidget;

namespace tonalith::windows {

/// The flags of a window whose size is fixed: everything but a button to maximise it.
inline constexpr Qt::WindowFlags kFixedSizeWindow = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                                    Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                                    Qt::WindowCloseButtonHint;

/// Shows the window, out of its icon if need be, over all others, and gives it the focus.
void BringToFront(QWidget& window);

}  // namespace tonalith::windows
