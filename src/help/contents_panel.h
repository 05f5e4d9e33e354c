// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The contents of a help file as a tree. Choosing an entry, by click or by Enter, tells its place; the entry of the
// page that is shown is the current one. Owned by its parent widget; user-interface thread.

#pragma once

#include <QTreeWidget>

#include "help/help_book.h"

namespace tonalith::help {

class ContentsPanel : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ContentsPanel(QWidget* parent);

  void SetBook(const HelpBook& book);
  /// Makes the entry of that place current: the one with its anchor, else the page's own. Tells nobody.
  void ShowTarget(const HelpTarget& place);

 Q_SIGNALS:
  void TargetChosen(const tonalith::help::HelpTarget& place);

 private:
  void Choose(QTreeWidgetItem* item);
  [[nodiscard]] HelpTarget TargetOf(const QTreeWidgetItem* item) const;
};

}  // namespace tonalith::help
