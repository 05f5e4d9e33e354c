// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The menu of the main window, in its order and with its names. Entries are enabled by whoever gives them something to
// do. Owned by the window; user-interface thread.

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

/// Fills the menu bar; every entry that acts is disabled.
MainMenu MakeMainMenu(QMenuBar* bar);

}  // namespace tonalith::app
