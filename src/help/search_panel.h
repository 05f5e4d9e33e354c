// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The full-text search of a help file: a box, the number of pages found, and the pages with an extract. Searches
// shortly after the last key press, and immediately on Enter, which also opens the first page.

#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "help/help_book.h"
#include "help/help_search.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace tonalith::help {

class SearchPanel : public QWidget {
  Q_OBJECT

 public:
  explicit SearchPanel(QWidget* parent);

  /// The book is shared while it is searched.
  void SetBook(std::shared_ptr<const HelpBook> book);

 Q_SIGNALS:
  /// `words` are to be highlighted on the page.
  void PageChosen(const tonalith::help::HelpTarget& target, const QStringList& words);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Search();
  void SearchAndOpen();
  void Choose(QListWidgetItem* item);

  std::shared_ptr<const HelpBook> book_;
  QStringList words_;
  std::vector<SearchHit> hits_;
  QTimer pause_;
  QLineEdit* text_;
  QLabel* found_;
  QListWidget* results_;
};

}  // namespace tonalith::help
