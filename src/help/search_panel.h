// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Search in the whole text of a help file: a box, the number of pages found, and the pages with a piece of their text.
// Searches a moment after the last letter, and at once on Enter, which also opens the first page. Owned by its parent
// widget; user-interface thread.

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

  /// The book is kept as long as it is searched.
  void SetBook(std::shared_ptr<const HelpBook> book);

 Q_SIGNALS:
  /// The words are to be marked on the page.
  void PageChosen(const tonalith::help::HelpTarget& place, const QStringList& words);

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
