// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The menu of the main window. Its table in main_menu.cpp states the order, name, caption, handler and shortcut of each
// entry.

#pragma once

#include <map>
#include <string>
#include <vector>

class QAction;

namespace tonalith::app {

class frmTonalith;

class MainMenu {
 public:
  MainMenu() = default;
  /// Fills the menu bar of the window, which owns the entries, and connects each entry to its handler. All entries are
  /// enabled.
  explicit MainMenu(frmTonalith& window);

  /// Throws std::out_of_range for an unknown name.
  [[nodiscard]] QAction* Entry(const std::string& name) const { return entries_.at(name); }
  /// The entries that are disabled during an install.
  [[nodiscard]] const std::vector<QAction*>& LibraryEntries() const { return libraryEntries_; }

 private:
  std::map<std::string, QAction*> entries_;
  std::vector<QAction*> libraryEntries_;
};

}  // namespace tonalith::app
