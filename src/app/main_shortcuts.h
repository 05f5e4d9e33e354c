// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The keys of the main window that no menu entry shows. The shortcuts are the window's children and work while it is
// the active window. User-interface thread; never fails.

#pragma once

namespace tonalith::app {

class frmTonalith;

/// Page Up, Page Down, Ctrl+Home and Ctrl+End walk through the records, F3 finds the next match, Ctrl+Q closes.
void AddShortcuts(frmTonalith& window);

}  // namespace tonalith::app
