// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "app/main_shortcuts.h"

#include <QAction>
#include <QShortcut>

#include "app/frm_tonalith.h"

namespace tonalith::app {

void AddShortcuts(frmTonalith& window) {
  using controls::DataControl;
  const auto connectKeys = [&window](const QKeySequence& keys, auto act) {
    QObject::connect(new QShortcut(keys, &window), &QShortcut::activated, &window, act);
  };
  const auto walk = [&window](DataControl::Move step) {
    return [&window, step] { window.Controls().Data1->RunMove(step); };
  };
  connectKeys(Qt::Key_PageUp, walk(&DataControl::MovePrevious));
  connectKeys(Qt::Key_PageDown, walk(&DataControl::MoveNext));
  connectKeys(Qt::CTRL | Qt::Key_Home, walk(&DataControl::MoveFirst));
  connectKeys(Qt::CTRL | Qt::Key_End, walk(&DataControl::MoveLast));
  connectKeys(Qt::Key_F3, [&window] {
    // Disabled together with the menu entry.
    if (window.Menu().Entry("mSearch")->isEnabled()) window.FindNext();
  });
  connectKeys(Qt::CTRL | Qt::Key_Q, [&window] { window.close(); });
}

}  // namespace tonalith::app
