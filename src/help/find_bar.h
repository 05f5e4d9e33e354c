// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The bar that finds text in the shown page: finds while the user types, moves to the next and previous match with
// wrap-around, and shows the number of matches. The browser must outlive it.

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

  /// Shows the bar with the previous text selected, ready to be overwritten.
  void Open();
  /// Hides the bar and removes the highlights.
  void Close();
  /// Opens the bar if it has no text yet.
  void FindNext();
  void FindPrevious();
  /// Must be called after another page was shown.
  void PageChanged();

 Q_SIGNALS:
  void Closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TextChanged();
  void Go(bool backwards);
  void ShowMatchCount(int matches);

  HelpBrowser* page_;
  QLineEdit* text_;
  HelpButton* previous_;
  HelpButton* next_;
  QLabel* matches_;
};

}  // namespace tonalith::help
