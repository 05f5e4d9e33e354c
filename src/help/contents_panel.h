// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The contents of a help file as a tree. Choosing an entry, by click or by Enter, emits its target; the entry of the
// shown page is the current one.

#pragma once

#include <QTreeWidget>

#include "help/help_book.h"

namespace tonalith::help {

class ContentsPanel : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ContentsPanel(QWidget* parent);

  void SetBook(const HelpBook& book);
  /// Makes the entry of that target current: the one with its anchor, else that of the page. Emits no signal.
  void ShowTarget(const HelpTarget& target);

 Q_SIGNALS:
  void TargetChosen(const tonalith::help::HelpTarget& target);

 private:
  void Choose(QTreeWidgetItem* item);
  [[nodiscard]] HelpTarget TargetOf(const QTreeWidgetItem* item) const;
};

}  // namespace tonalith::help
