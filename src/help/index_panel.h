// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The index of a help file: keywords, and a box that filters them by the typed text. A keyword with several targets has
// child entries. Enter in the box opens the first target.

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
  void TargetChosen(const tonalith::help::HelpTarget& target);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddEntry(const IndexEntry& entry, std::vector<QTreeWidgetItem*>& parents);
  void Filter();
  /// Hides entries that do not match. Returns whether the entry or one below it is visible.
  bool FilterEntry(QTreeWidgetItem* item, const QString& typed);
  void ChooseFirst();
  void Choose(QTreeWidgetItem* item);

  QLineEdit* text_;
  QTreeWidget* keywords_;
  QLabel* none_;
};

}  // namespace tonalith::help
