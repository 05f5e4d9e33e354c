// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Full-text search in a help file. A page matches if it contains every typed word, each at the start of a word, without
// regard to case; "F#" counts as a word.

#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "help/help_book.h"

namespace tonalith::help {

struct SearchHit {
  std::string page;
  QString title;
  /// Text of the page around the first match, on one line.
  QString extract;
};

/// The different words of the typed text in lower case; at most ten.
[[nodiscard]] QStringList SearchWords(const QString& typed);

/// Matches words that begin with any of `words`. Without words, valid and matches nothing.
[[nodiscard]] QRegularExpression AnyOf(const QStringList& words);

/// The pages that contain all words: first those with the words in the title, then by the number of matches.
[[nodiscard]] std::vector<SearchHit> SearchPages(const HelpBook& book, const QStringList& words);

}  // namespace tonalith::help
