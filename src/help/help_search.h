// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Full-text search over a help file. A page matches when it holds every word that was typed, each at the beginning of a
// word of the page, without regard to case; "F#" is a word like any other. Pure functions over the book; the caller's
// thread.

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
  /// A piece of the page around the first word, on one line.
  QString extract;
};

/// The words of what was typed, each once, in small letters; ten of them at most.
[[nodiscard]] QStringList SearchWords(const QString& typed);

/// Matches any of the words where it begins a word. Valid and matching nothing for no words.
[[nodiscard]] QRegularExpression AnyOf(const QStringList& words);

/// The pages that hold all words: those that have them in the title first, then the richest in them.
[[nodiscard]] std::vector<SearchHit> SearchPages(const HelpBook& book, const QStringList& words);

}  // namespace tonalith::help
