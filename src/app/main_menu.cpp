// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_menu.h"

#include <QMenu>
#include <QMenuBar>

#include "app/frm_tonalith.h"

namespace tonalith::app {
namespace {

/// An entry; a separator if it has no handler.
struct MenuEntry {
  const char* name = nullptr;
  QString caption = {};
  void (frmTonalith::*handler)() = nullptr;
  QKeySequence shortcut = {};
};

struct Menu {
  const char* name = nullptr;
  QString caption;
  bool usesLibrary = false;
  std::vector<MenuEntry> entries;
};

// Kept: see docs/behaviour.md, seperator1 and seperator2.
std::vector<Menu> Menus() {
  return {{"mFile",
           frmTonalith::tr("&Tools"),
           true,
           {{"mEditor", frmTonalith::tr("&Editor"), &frmTonalith::mEditor_Click, Qt::CTRL | Qt::Key_E},
            {"mUpdate", frmTonalith::tr("&Update"), &frmTonalith::mUpdate_Click, Qt::Key_F5},
            {"mSearch", frmTonalith::tr("&Search"), &frmTonalith::mSearch_Click, QKeySequence::Find},
            {"seperator1"},
            {"mListen", frmTonalith::tr("&Listen"), &frmTonalith::mListen_Click, Qt::CTRL | Qt::Key_L},
            {"mPrint", frmTonalith::tr("&Print"), &frmTonalith::mPrint_Click, QKeySequence::Print},
            {"seperator2"},
            {"mInstall", frmTonalith::tr("&Install"), &frmTonalith::mInstall_Click, Qt::CTRL | Qt::Key_I},
            {"separator3"},
            {"mViewNotes", frmTonalith::tr("Hide/View &Names"), &frmTonalith::mViewNotes_Click, Qt::CTRL | Qt::Key_N}}},
          {"mHelp",
           frmTonalith::tr("&Help"),
           false,
           {{"mHelpFile", frmTonalith::tr("&Help"), &frmTonalith::mHelpFile_Click},
            {"mAbout", frmTonalith::tr("&About Tonalith"), &frmTonalith::mAbout_Click}}}};
}

}  // namespace

MainMenu::MainMenu(frmTonalith& window) {
  for (const Menu& menu : Menus()) {
    QMenu* const shown = window.menuBar()->addMenu(menu.caption);
    shown->setObjectName(QLatin1String(menu.name));
    shown->menuAction()->setObjectName(QLatin1String(menu.name));
    for (const MenuEntry& entry : menu.entries) {
      QAction* const action = entry.handler == nullptr ? shown->addSeparator() : shown->addAction(entry.caption);
      action->setObjectName(QLatin1String(entry.name));
      if (entry.handler == nullptr) continue;
      action->setShortcut(entry.shortcut);
      QObject::connect(action, &QAction::triggered, &window, entry.handler);
      entries_.emplace(entry.name, action);
      if (menu.usesLibrary) libraryEntries_.push_back(action);
    }
  }
}

}  // namespace tonalith::app
