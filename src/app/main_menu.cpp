// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_menu.h"

#include <QMenu>
#include <QMenuBar>

#include "app/frm_tonalith.h"

namespace tonalith::app {
namespace {

QMenu* AddMenu(QMenuBar* bar, const char* name, const QString& caption) {
  QMenu* const menu = bar->addMenu(caption);
  menu->setObjectName(QLatin1String(name));
  menu->menuAction()->setObjectName(QLatin1String(name));
  return menu;
}

QAction* AddEntry(QMenu* menu, const char* name, const QString& caption, const QKeySequence& shortcut = {}) {
  QAction* const entry = menu->addAction(caption);
  entry->setObjectName(QLatin1String(name));
  entry->setShortcut(shortcut);
  return entry;
}

void AddSeparator(QMenu* menu, const char* name) { menu->addSeparator()->setObjectName(QLatin1String(name)); }

}  // namespace

// Kept: see docs/behaviour.md, seperator1 and seperator2.
MainMenu MakeMainMenu(QMenuBar* bar) {
  MainMenu m;
  QMenu* const tools = AddMenu(bar, "mFile", frmTonalith::tr("&Tools"));
  m.mEditor = AddEntry(tools, "mEditor", frmTonalith::tr("&Editor"), Qt::CTRL | Qt::Key_E);
  m.mUpdate = AddEntry(tools, "mUpdate", frmTonalith::tr("&Update"), Qt::Key_F5);
  m.mSearch = AddEntry(tools, "mSearch", frmTonalith::tr("&Search"), QKeySequence::Find);
  AddSeparator(tools, "seperator1");
  m.mListen = AddEntry(tools, "mListen", frmTonalith::tr("&Listen"), Qt::CTRL | Qt::Key_L);
  m.mPrint = AddEntry(tools, "mPrint", frmTonalith::tr("&Print"), QKeySequence::Print);
  AddSeparator(tools, "seperator2");
  m.mInstall = AddEntry(tools, "mInstall", frmTonalith::tr("&Install"), Qt::CTRL | Qt::Key_I);
  AddSeparator(tools, "separator3");
  m.mViewNotes = AddEntry(tools, "mViewNotes", frmTonalith::tr("Hide/View &Names"), Qt::CTRL | Qt::Key_N);
  QMenu* const help = AddMenu(bar, "mHelp", frmTonalith::tr("&Help"));
  m.mHelpFile = AddEntry(help, "mHelpFile", frmTonalith::tr("&Help"));
  m.mAbout = AddEntry(help, "mAbout", frmTonalith::tr("&About Tonalith"));
  return m;
}

}  // namespace tonalith::app
