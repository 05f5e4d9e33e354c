// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The shortcuts of the main window without a menu entry. They work while the window is active.

#pragma once

namespace tonalith::app {

class frmTonalith;

/// Page Up, Page Down, Ctrl+Home and Ctrl+End move through the records, F3 finds the next match, Ctrl+Q closes.
void AddShortcuts(frmTonalith& window);

}  // namespace tonalith::app
