// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_search.h"

#include <algorithm>

namespace tonalith::help {
namespace {

constexpr qsizetype kMostWords = 10;
constexpr qsizetype kLongestWord = 60;
constexpr qsizetype kBeforeWord = 25;
constexpr qsizetype kExtractLength = 95;

struct RankedHit {
  SearchHit hit;
  bool isInTitle = false;
  int count = 0;
};

QRegularExpression Pattern(const QString& expression) {
  return QRegularExpression(expression,
                            QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
}

int CountOf(const QString& text, const QRegularExpression& pattern) {
  int count = 0;
  for (auto match = pattern.globalMatch(text); match.hasNext(); match.next()) ++count;
  return count;
}

/// Cut at blanks, with an ellipsis for omitted text.
QString ExtractAround(const QString& text, qsizetype at) {
  qsizetype begin = qMax(qsizetype{0}, at - kBeforeWord);
  if (begin > 0) {
    const qsizetype blank = text.indexOf(QLatin1Char(' '), begin);
    if (blank >= 0 && blank < at) begin = blank + 1;
  }
  QString extract = text.mid(begin, kExtractLength);
  const bool isCut = begin + extract.size() < text.size();
  if (isCut) extract.truncate(qMax(extract.lastIndexOf(QLatin1Char(' ')), kExtractLength / 2));
  const QString dots(QChar(0x2026));
  return (begin > 0 ? dots : QString()) + extract.trimmed() + (isCut ? dots : QString());
}

/// The page's text on one line, without a heading that repeats the title.
QString TextBelowTitle(const HelpPage& page, const QString& title) {
  QString text = QString::fromStdString(page.text).simplified();
  if (text.startsWith(title)) text = text.mid(title.size()).trimmed();
  return text;
}

}  // namespace

QStringList SearchWords(const QString& typed) {
  QStringList words;
  for (const QString& word : typed.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    const QString small = word.left(kLongestWord).toLower();
    if (!words.contains(small) && words.size() < kMostWords) words.append(small);
  }
  return words;
}

QRegularExpression AnyOf(const QStringList& words) {
  if (words.isEmpty()) return Pattern(QStringLiteral("(?!)"));
  QStringList escaped;
  for (const QString& word : words) escaped.append(QRegularExpression::escape(word));
  return Pattern(QStringLiteral("(?<![\\p{L}\\p{N}])(?:%1)").arg(escaped.join(QLatin1Char('|'))));
}

std::vector<SearchHit> SearchPages(const HelpBook& book, const QStringList& words) {
  if (words.isEmpty()) return {};
  std::vector<QRegularExpression> patterns;
  for (const QString& word : words) patterns.push_back(AnyOf({word}));
  std::vector<RankedHit> ranked;
  for (const std::string& path : book.Pages()) {
    const HelpPage* const page = book.Page(path);
    if (page == nullptr) continue;
    const QString title = QString::fromStdString(book.TitleOf(path));
    const QString text = TextBelowTitle(*page, title);
    const auto isIn = [](const QString& where) {
      return [&where](const QRegularExpression& pattern) { return pattern.match(where).hasMatch(); };
    };
    const bool isInTitle = std::all_of(patterns.begin(), patterns.end(), isIn(title));
    if (!isInTitle && !std::all_of(patterns.begin(), patterns.end(), isIn(title + QLatin1Char('\n') + text))) continue;
    const QRegularExpression any = AnyOf(words);
    const QRegularExpressionMatch first = any.match(text);
    ranked.push_back({{path, title, ExtractAround(text, first.hasMatch() ? first.capturedStart() : 0)},
                      isInTitle,
                      CountOf(text, any)});
  }
  std::stable_sort(ranked.begin(), ranked.end(), [](const RankedHit& a, const RankedHit& b) {
    return a.isInTitle != b.isInTitle ? a.isInTitle : a.count > b.count;
  });
  std::vector<SearchHit> hits;
  hits.reserve(ranked.size());
  for (RankedHit& hit : ranked) hits.push_back(std::move(hit.hit));
  return hits;
}

}  // namespace tonalith::help
