// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The index of a help file: keywords, and a box that leaves those of them that hold what is typed. A keyword with
// several places has them as entries below it. Enter in the box opens the first. Owned by its parent widget;
// user-interface thread.

#pragma once

#include <QWidget>

#include "help/help_book.h"

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace tonalith::help {

class IndexPanel : public QWidget {
  Q_OBJECT

 public:
  explicit IndexPanel(QWidget* parent);

  void SetBook(const HelpBook& book);

 Q_SIGNALS:
  void TargetChosen(const tonalith::help::HelpTarget& place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddEntry(const IndexEntry& entry, std::vector<QTreeWidgetItem*>& parents);
  void Filter();
  /// Whether the entry, or one below it, stays.
  bool FilterEntry(QTreeWidgetItem* item, const QString& typed);
  void ChooseFirst();
  void Choose(QTreeWidgetItem* item);

  QLineEdit* text_;
  QTreeWidget* keywords_;
  QLabel* none_;
};

}  // namespace tonalith::help
