// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/text_finder.h"

#include <QScrollBar>
#include <QTextBrowser>
#include <QTextDocument>

#include "help/help_search.h"
#include "help/help_style.h"

namespace tonalith::help {
namespace {

constexpr std::size_t kMaxHighlights = 1000;

}  // namespace

void TextFinder::Highlight(const std::vector<QTextCursor>& matches) {
  std::vector<QTextCursor> all = matches;
  if (!words_.isEmpty()) {
    const QRegularExpression pattern = AnyOf(words_);
    for (QTextCursor at = browser_.document()->find(pattern, 0); !at.isNull() && all.size() < kMaxHighlights;
         at = browser_.document()->find(pattern, at)) {
      if (!at.hasSelection()) break;
      all.push_back(at);
    }
  }
  QList<QTextEdit::ExtraSelection> highlights;
  for (const QTextCursor& match : all) {
    QTextCharFormat format;
    format.setBackground(HitBackground(browser_.palette()));
    highlights.append({match, format});
  }
  browser_.setExtraSelections(highlights);
}

void TextFinder::HighlightWords(const QStringList& words) {
  words_ = words;
  Highlight({});
  const auto highlights = browser_.extraSelections();
  if (highlights.isEmpty()) return;
  QTextCursor first = highlights.first().cursor;
  first.setPosition(first.selectionStart());
  BringIntoView(first);
}

int TextFinder::HighlightText(const QString& text) {
  text_ = text;
  words_.clear();
  std::vector<QTextCursor> matches;
  if (!text.isEmpty()) {
    for (QTextCursor at = browser_.document()->find(text); !at.isNull() && matches.size() < kMaxHighlights;
         at = browser_.document()->find(text, at)) {
      matches.push_back(at);
    }
  }
  Highlight(matches);
  return static_cast<int>(matches.size());
}

void TextFinder::BringIntoView(const QTextCursor& match) {
  browser_.setTextCursor(match);
  const QRect line = browser_.cursorRect(match);
  const int edge = line.height();
  if (line.top() >= edge && line.bottom() <= browser_.viewport()->height() - 2 * edge) return;
  QScrollBar& scroll = *browser_.verticalScrollBar();
  scroll.setValue(scroll.value() + line.top() - browser_.viewport()->height() / 3);
}

bool TextFinder::FindAgain(const QString& text, bool backwards) {
  if (text.isEmpty()) return false;
  const QTextDocument::FindFlags flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  QTextCursor found = browser_.document()->find(text, browser_.textCursor(), flags);
  if (found.isNull()) {
    QTextCursor edge(browser_.document());
    if (backwards) edge.movePosition(QTextCursor::End);
    found = browser_.document()->find(text, edge, flags);
  }
  if (found.isNull()) return false;
  BringIntoView(found);
  return true;
}

bool TextFinder::FindFromHere(const QString& text) {
  QTextCursor here = browser_.textCursor();
  here.setPosition(here.selectionStart());
  browser_.setTextCursor(here);
  return FindAgain(text, false);
}

void TextFinder::Clear() {
  words_.clear();
  text_.clear();
  Highlight({});
}

void TextFinder::Refresh() {
  if (!text_.isEmpty()) HighlightText(text_);
  if (!words_.isEmpty()) Highlight({});
}

}  // namespace tonalith::help
