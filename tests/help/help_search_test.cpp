// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_search.h"

#include <gtest/gtest.h>

namespace tonalith::help {
namespace {

const HelpBook& Book() {
  static const HelpBook book(
      {{"/1.html", "<title>Strings</title><p>A guitar has six strings. F# is a note. String by string.</p>"},
       {"/2.html", "<title>Frets</title><p>Fret wire stops a string at \u00C9tude speed.</p>"},
       {"/3.html", "<title>Notes</title><p>Bowstrings make no notes here; six notes do.</p>"}});
  return book;
}

/// Titles of the hits, in order.
std::string Find(const char* typed) {
  QStringList titles;
  for (const SearchHit& hit : SearchPages(Book(), SearchWords(QString::fromUtf8(typed)))) titles.append(hit.title);
  return titles.join(QLatin1String(", ")).toStdString();
}

TEST(HelpSearch, FindsPagesWithAllWords) {
  EXPECT_EQ(Find("six"), "Strings, Notes");
  EXPECT_EQ(Find("six guitar"), "Strings");
  EXPECT_EQ(Find("six wire"), "");
}

TEST(HelpSearch, WordsMatchAtTheStartOfWords) {
  EXPECT_EQ(Find("string"), "Strings, Frets");
  EXPECT_EQ(Find("ring"), "");
}

TEST(HelpSearch, CaseDoesNotMatterInAnyAlphabet) {
  EXPECT_EQ(Find("GUITAR"), "Strings");
  EXPECT_EQ(Find("\u00E9tude"), "Frets");
}

TEST(HelpSearch, SharpSignsAreSearchedLiterally) {
  EXPECT_EQ(Find("f#"), "Strings");
  EXPECT_EQ(Find("g#"), "");
}

TEST(HelpSearch, TitleMatchesComeFirstThenTheNumberOfMatches) { EXPECT_EQ(Find("note"), "Notes, Strings"); }

TEST(HelpSearch, EmptyInputFindsNothing) {
  EXPECT_EQ(Find(""), "");
  EXPECT_EQ(Find("   "), "");
  EXPECT_FALSE(AnyOf({}).match(QStringLiteral("anything")).hasMatch());
}

TEST(HelpSearch, RegularExpressionCharactersAreLiteral) {
  EXPECT_EQ(Find(".*"), "");
  EXPECT_EQ(Find("("), "");
  EXPECT_TRUE(AnyOf({QStringLiteral("[a")}).isValid());
}

TEST(HelpSearch, WordsAreLimitedAndUnique) {
  EXPECT_EQ(SearchWords(QStringLiteral("a A a b c d e f g h i j k")).size(), 10);
  EXPECT_EQ(SearchWords(QString(1000, QLatin1Char('x'))).first().size(), 60);
}

TEST(HelpSearch, ExtractShowsTheWordInContext) {
  const auto hits = SearchPages(Book(), {QStringLiteral("wire")});
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0].page, "/2.html");
  EXPECT_EQ(hits[0].extract, QString::fromUtf8("Fret wire stops a string at \u00C9tude speed."));
}

TEST(HelpSearch, LongExtractsAreCutAtBlanks) {
  std::string text;
  for (int i = 0; i < 50; ++i) text += "word" + std::to_string(i) + " ";
  const HelpBook book(ChmObjects{{"/a.html", "<title>A</title><p>" + text + "</p>"}});
  const QString extract = SearchPages(book, {QStringLiteral("word25")})[0].extract;
  EXPECT_TRUE(extract.contains(QStringLiteral("word25"))) << extract.toStdString();
  EXPECT_TRUE(extract.startsWith(QString::fromUtf8("\u2026word")) && extract.endsWith(QChar(0x2026)))
      << extract.toStdString();
  EXPECT_LT(extract.size(), 110);
}

}  // namespace
}  // namespace tonalith::help
