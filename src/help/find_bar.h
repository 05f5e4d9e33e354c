// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The bar for finding text in the page that is shown: finds while it is typed, goes on and back from the end to the
// beginning, and says how many places there are. Owned by its parent widget, with a browser that lives as long as it;
// user-interface thread.

#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tonalith::help {

class HelpBrowser;
class HelpButton;

class FindBar : public QWidget {
  Q_OBJECT

 public:
  FindBar(HelpBrowser* page, QWidget* parent);

  /// Shows the bar with what was found last, ready to be typed over.
  void Open();
  /// Hides the bar and takes the marks away.
  void Close();
  /// Opens the bar where there is nothing to find yet.
  void FindNext();
  void FindPrevious();
  /// Another page is shown now.
  void PageChanged();

 Q_SIGNALS:
  void Closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TextChanged();
  void Go(bool backwards);
  void ShowMatchCount(int places);

  HelpBrowser* page_;
  QLineEdit* text_;
  HelpButton* previous_;
  HelpButton* next_;
  QLabel* places_;
};

}  // namespace tonalith::help
