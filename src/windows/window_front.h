// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Window flags, and activation of a window.

#pragma once

#include <Qt>

class QWidget;

namespace tonalith::windows {

/// The flags of a window of fixed size: no maximise button.
inline constexpr Qt::WindowFlags kFixedSizeWindow = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                                    Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                                    Qt::WindowCloseButtonHint;

/// Shows the window, restores it if it is minimised, raises it and gives it the focus.
void BringToFront(QWidget& window);

}  // namespace tonalith::windows
