// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Bringing a window to its user, whatever state it is in. User-interface thread; never fails.

#pragma once

class QWidget;

namespace tonalith::controls {

/// Shows the window, out of its icon if need be, over all others, and gives it the focus.
void BringToFront(QWidget& window);

}  // namespace tonalith::controls
