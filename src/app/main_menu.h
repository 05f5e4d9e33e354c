// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The menu of the main window, with the fixed order and names of its entries. The window connects, enables and disables
// them.

#pragma once

class QAction;
class QMenuBar;

namespace tonalith::app {

struct MainMenu {
  QAction* mEditor = nullptr;
  QAction* mUpdate = nullptr;
  QAction* mSearch = nullptr;
  QAction* mListen = nullptr;
  QAction* mPrint = nullptr;
  QAction* mInstall = nullptr;
  QAction* mViewNotes = nullptr;
  QAction* mHelpFile = nullptr;
  QAction* mAbout = nullptr;
};

/// Fills the menu bar, which owns the entries. All of them are enabled.
MainMenu MakeMainMenu(QMenuBar* bar);

}  // namespace tonalith::app
