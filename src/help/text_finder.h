// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Finds and highlights text in the document of a text browser. Owned by the browser; user-interface thread.

#pragma once

#include <QString>
#include <QStringList>
#include <vector>

class QTextBrowser;
class QTextCursor;

namespace tonalith::help {

class TextFinder {
 public:
  explicit TextFinder(QTextBrowser& browser) : browser_(browser) {}

  /// Highlights every word that begins with one of `words` and scrolls to the first; without words, removes the
  /// highlights.
  void HighlightWords(const QStringList& words);
  /// Highlights all matches of `text` and returns their number.
  int HighlightText(const QString& text);
  /// Selects the next or previous match of `text` with wrap-around. Returns false if there is none.
  bool FindAgain(const QString& text, bool backwards);
  /// Selects the first match at or after the start of the selection.
  bool FindFromHere(const QString& text);

  /// Removes the highlights.
  void Clear();
  /// Highlights the same words or text again, after the document has changed. Does not scroll.
  void Refresh();

 private:
  /// Selects the match and scrolls so that text above and below it is visible.
  void BringIntoView(const QTextCursor& match);
  /// Highlights these matches and those of the words.
  void Highlight(const std::vector<QTextCursor>& matches);

  QTextBrowser& browser_;
  QStringList words_;
  QString text_;
};

}  // namespace tonalith::help
