// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// What is read of lists, markup, characters, addresses and streams at the boundaries of their rules.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTextDocument>
#include <sstream>

#include "core/failure.h"
#include "help/book_fixture.h"
#include "help/characters.h"
#include "help/chm_stream.h"
#include "help/help_address.h"
#include "help/help_search.h"
#include "help/markup.h"
#include "help/site_map.h"

namespace tonalith::help {
namespace {

using testing::ElementsAre;

TEST(Characters, NamesAreThoseOfHtml) {
  std::istringstream names(
      "amp lt gt quot nbsp iexcl cent pound yen sect copy laquo shy reg deg plusmn sup2 sup3 acute micro para middot "
      "raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml "
      "Ntilde Ouml times Oslash Uuml szlig agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ecirc euml "
      "igrave iacute icirc iuml ntilde ograve oacute ocirc otilde ouml divide oslash ugrave uacute ucirc uuml yuml "
      "OElig oelig ndash mdash lsquo rsquo sbquo ldquo rdquo bdquo dagger bull hellip prime euro "
      "trade "
      "larr uarr rarr darr harr minus ne le ge apos");
  for (std::string name; names >> name;) {
    // Qt has a table of its own.
    QTextDocument document;
    document.setHtml(QString::fromStdString("<p>x&" + name + ";x</p>"));
    EXPECT_EQ(EntityCharacter(name), document.toRawText().at(1).unicode()) << name;
  }
}

TEST(Characters, NamesOfAccidentalsAndBlanksAreKnown) {
  EXPECT_EQ(ResolveEntities("&ensp;&emsp;&thinsp;"), "\u2002\u2003\u2009");
  EXPECT_EQ(ResolveEntities("&flat;&natural;&natur;&sharp;"), "\u266D\u266E\u266E\u266F");
  EXPECT_EQ(EntityCharacter("Sharp"), 0U);
  EXPECT_EQ(EntityCharacter(""), 0U);
}

TEST(Characters, NumbersAreDecimalOrHexadecimal) {
  EXPECT_EQ(ResolveEntities("&#9834;&#x266A;&#X266a;"), "\u266A\u266A\u266A");
  EXPECT_EQ(ResolveEntities("&#x;&#;&#12a;&#xG;&#-1;"), "&#x;&#;&#12a;&#xG;&#-1;");
  EXPECT_EQ(ResolveEntities("&#32;&#31;&#10;&#9;&#13;"), " \uFFFD\n\t\uFFFD");
  EXPECT_EQ(ResolveEntities("&#xD7FF;&#xD800;&#xDFFF;&#xE000;"), "\uD7FF\uFFFD\uFFFD\uE000");
  EXPECT_EQ(ResolveEntities("&#x10FFFF;&#x110000;"), "\U0010FFFF\uFFFD");
  EXPECT_EQ(ResolveEntities("&#127;&#128;&#159;&#160;"), "\x7F\u20AC\u0178\u00A0");
}

TEST(Characters, ReferencesHaveAtMostTenBytes) {
  EXPECT_EQ(ResolveEntities("&#0009834;"), "\u266A");
  EXPECT_EQ(ResolveEntities("&#00009834;"), "&#00009834;");
  EXPECT_EQ(ResolveEntities("a&;b&&amp;c&amp"), "a&;b&&c&amp");
}

TEST(Characters, BytesFrom80To9FAreOfTheWesternCodePage) {
  std::string bytes;
  for (int byte = 0x80; byte < 0xA0; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(ToUtf8(bytes),
            "\u20AC \u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152 \u017D "
            " \u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153 \u017E\u0178");
  EXPECT_EQ(WesternCharacter(0x7F), 0x7FU);
  EXPECT_EQ(WesternCharacter(0xA0), 0xA0U);
  EXPECT_EQ(WesternCharacter(0xFF), 0xFFU);
}

TEST(Characters, LineEndsAndTabsAreNoControlCharacters) {
  EXPECT_EQ(ToUtf8("\x1F \x20\t\r\n\x01"), "   \t\r\n ");
  EXPECT_EQ(ToUtf8("\x7F\xFC"), "\x7F\u00FC");
}

/// The names of the first tag's attributes.
std::string AttributesOf(const std::string& markup) {
  MarkupReader reader(markup);
  const MarkupToken tag = reader.Next().value();
  std::string names;
  for (const auto& [name, value] : tag.attributes) names += name + "=" + value + " ";
  return names;
}

std::string TextOf(const std::string& markup) {
  MarkupReader reader(markup);
  std::string text;
  while (const auto token = reader.Next()) {
    text += token->kind == MarkupToken::Kind::kText ? token->text : "[" + token->text + "]";
  }
  return text;
}

TEST(Markup, TagHasAtMost32Attributes) {
  std::string tag = "<a";
  for (int i = 1; i <= 33; ++i) tag += " n" + std::to_string(i);
  EXPECT_THAT(AttributesOf(tag + ">"), testing::EndsWith("n31= n32= "));
}

TEST(Markup, EveryKindOfBlankSeparatesAttributes) {
  EXPECT_EQ(AttributesOf("<a\tb\nc\rd\fe  f = \n'g'>"), "b= c= d= e= f=g ");
  EXPECT_EQ(AttributesOf("<a b=>"), "b= ");
  EXPECT_EQ(AttributesOf("<a b=c>d"), "b=c ");
}

TEST(Markup, CommentsEndAtTheirFirstEnd) {
  EXPECT_EQ(TextOf("<!---->a"), "a");
  EXPECT_EQ(TextOf("<!-->a-->b"), "b");
  EXPECT_EQ(TextOf("<!--a-->b<!--c-->d"), "bd");
  EXPECT_EQ(TextOf("<!>a<?>b"), "ab");
}

TEST(Markup, TagsBeginWithALetterOfAnyCase) {
  EXPECT_EQ(TextOf("<A><Z></a></z>"), "[a][z][a][z]");
  EXPECT_EQ(TextOf("<@><[><`><{></1></ a>"), "<@><[><`><{></1></ a>");
}

TEST(Markup, ScriptEndsAtItsOwnClosingTag) {
  EXPECT_EQ(TextOf("<script>a</b>c</SCRIPT>d"), "[script][script]d");
  EXPECT_EQ(TextOf("<style>a</script>c</style>d"), "[style][style]d");
  EXPECT_EQ(TextOf("<script>a</scrip"), "[script]");
}

TEST(Markup, LowerCaseIsOfLettersOnly) {
  EXPECT_EQ(ToLowerCase("@AMZ[`amz{\xC4"), "@amz[`amz{\xC4");
  EXPECT_EQ(Collapsed(" \ta \r\n b\f"), "a b");
  EXPECT_EQ(Collapsed(" "), "");
}

TEST(SiteMap, DepthIsCountedUpToItsLimit) {
  const auto depths = [](int opened, int closed) {
    std::string map;
    for (int i = 0; i < opened; ++i) map += "<ul>";
    map += MapEntry("inner", "");
    for (int i = 0; i < closed; ++i) map += i % 2 == 0 ? "</ul>" : "</ol>";
    const auto entries = ReadSiteMap(map + MapEntry("outer", ""));
    return std::pair(entries.at(0).depth, entries.at(1).depth);
  };
  EXPECT_EQ(depths(0, 0), std::pair(0, 0));
  EXPECT_EQ(depths(1, 0), std::pair(0, 0));
  EXPECT_EQ(depths(2, 1), std::pair(1, 0));
  EXPECT_EQ(depths(15, 2), std::pair(14, 12));
  EXPECT_EQ(depths(16, 1), std::pair(15, 14));
  EXPECT_EQ(depths(17, 1), std::pair(15, 14));
  EXPECT_EQ(depths(2, 5), std::pair(1, 0));
}

TEST(SiteMap, KeywordHasAtMost64Targets) {
  std::string object = "<object type=text/sitemap><param name=name value=k>";
  for (int i = 0; i < 65; ++i) object += "<param name=local value=" + std::to_string(i) + ">";
  const auto entries = ReadSiteMap(object + "</object>");
  EXPECT_EQ(entries.at(0).targets.size(), 64U);
  EXPECT_EQ(entries.at(0).targets.back().local, "63");
}

TEST(SiteMap, ParametersCountWithinAnObjectOnly) {
  EXPECT_TRUE(ReadSiteMap("<param name=name value=k></object>").empty());
  const auto entries = ReadSiteMap(
      "<object type=text/sitemap><param name=keyword value='a  b'></object><param name=name value=k>"
      "<param name=local value=x></object>");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].name, "a b");
  EXPECT_TRUE(entries[0].targets.empty());
}

/// A record of the settings.
std::string Setting(int code, const std::string& text) {
  const auto bytes = [](std::size_t number) {
    return std::string{static_cast<char>(number & 0xFFU), static_cast<char>(number >> 8U)};
  };
  return bytes(static_cast<std::size_t>(code)) + bytes(text.size()) + text;
}

TEST(ChmSettings, NumbersHaveTwoBytes) {
  const std::string longTitle(700, 'x');
  EXPECT_EQ(ReadChmSettings("vers" + Setting(3, longTitle) + Setting(2, "a")).title, longTitle);
  EXPECT_EQ(ReadChmSettings("vers" + Setting(3, longTitle) + Setting(2, "a")).defaultTopic, "a");
  EXPECT_EQ(ReadChmSettings("vers" + Setting(3, "a") + Setting(0x103, "b")).title, "a");
  EXPECT_EQ(ReadChmSettings("vers" + Setting(3, "a") + Setting(3, "")).title, "") << "a record of four bytes is one";
}

TEST(HelpAddress, SchemeHasTwoPlainCharactersOrMore) {
  EXPECT_EQ(SchemeOf("c:x"), "");
  EXPECT_EQ(SchemeOf("AZ:x"), "az");
  EXPECT_EQ(SchemeOf("a0+-.9z:x"), "a0+-.9z");
  for (const char* const address : {"a/b:c", "a`:c", "a{:c", "a_:c", "a b:c", "abc", ":c"}) {
    EXPECT_EQ(SchemeOf(address), "") << address;
  }
}

TEST(HelpAddress, PercentNeedsTwoDigits) {
  EXPECT_EQ(PercentDecoded("%2f%2F%7e"), "//~");
  EXPECT_EQ(PercentDecoded("%4g%41"), "%4gA");
  EXPECT_EQ(PercentDecoded("%%41%4"), "%A%4");
  EXPECT_EQ(PercentDecoded("%E2%99%AFb"),
            "\u266F"
            "b");
}

TEST(HelpAddress, EmptyPartsAndDotsOfAPathAreDropped) {
  EXPECT_EQ(ResolvedPath("/a/b.html", ".//c/../d/"), "/a/d");
  EXPECT_EQ(ResolvedPath("/A/b.html", "..."), "/a/...");
  EXPECT_EQ(ResolvedPath("/a/b.html", ".."), "/");
}

TEST(HelpAddress, FormsWithAFileNameAreKnownByTheirScheme) {
  EXPECT_EQ(WithoutStore("its:a.chm::/b.html"), "/b.html");
  EXPECT_EQ(WithoutStore("a::/b.html"), "a::/b.html");
  EXPECT_EQ(WithoutStore("its:a.chm::"), "");
}

/// The extract for the word `searched` in a text of words with four letters.
std::string ExtractFor(int searched, int words, const std::string& end = {}) {
  std::string text;
  for (int i = 0; i < words; ++i) text += (i > 0 ? " w" : "w") + std::to_string(100 + i);
  const HelpBook book(ChmObjects{{"/a.html", "<title>T</title><p>" + text + end}});
  return SearchPages(book, {QStringLiteral("w%1").arg(100 + searched)}).at(0).extract.toStdString();
}

TEST(HelpSearch, ExtractBeginsAtMost25CharactersBeforeTheWord) {
  EXPECT_THAT(ExtractFor(0, 30), testing::StartsWith("w100 "));
  EXPECT_THAT(ExtractFor(5, 30), testing::StartsWith("w100 "));
  EXPECT_THAT(ExtractFor(6, 30), testing::StartsWith("\u2026w102 "));
  EXPECT_THAT(ExtractFor(10, 30), testing::StartsWith("\u2026w106 "));
}

TEST(HelpSearch, ExtractHasAtMost95Characters) {
  EXPECT_THAT(ExtractFor(0, 19), testing::EndsWith(" w118")) << "94 characters";
  EXPECT_THAT(ExtractFor(0, 19, "x"), testing::EndsWith(" w118x"));
  EXPECT_THAT(ExtractFor(0, 19, "xy"), testing::EndsWith(" w117\u2026"));
  EXPECT_THAT(ExtractFor(0, 20), testing::EndsWith(" w118\u2026"));
}

TEST(HelpSearch, PagesWithAllWordsInTheirTitleComeFirst) {
  const HelpBook book(ChmObjects{{"/a.html", "<title>One</title><p>two two two"},
                                 {"/b.html", "<title>One two</title><p>x"},
                                 {"/c.html", "<title>Three</title><p>one two two two two"},
                                 {"/d.html", "<title>Four</title><p>one two"}});
  std::string pages;
  for (const SearchHit& hit : SearchPages(book, SearchWords(QStringLiteral("one TWO")))) pages += hit.page;
  EXPECT_EQ(pages, "/b.html/c.html/a.html/d.html");
}

TEST(HelpBook, ListsTitlesOfAShortBookAndPathsOfALongOne) {
  const auto lastTitle = [](int pages) {
    ChmObjects objects;
    for (int i = 0; i < pages; ++i) objects["/" + std::to_string(1000 + i) + ".htm"] = "<title>T</title>";
    return HelpBook(objects).Contents().back().title;
  };
  EXPECT_EQ(lastTitle(200), "T");
  EXPECT_EQ(lastTitle(201), "/1200.htm");
}

TEST(HelpBook, ListsAreThoseOfTheSettingsOrTheFirstOnes) {
  const auto titles = [](const std::string& contents, const std::string& index) {
    const HelpBook book(ChmObjects{{"/#SYSTEM", "vers" + Setting(0, contents) + Setting(1, index)},
                                   {"/a.hhc", MapEntry("First", "p.html")},
                                   {"/b.hhc", MapEntry("Second", "p.html")},
                                   {"/a.hhk", MapEntry("First", "p.html")},
                                   {"/b.hhk", MapEntry("Second", "p.html")},
                                   {"/p.html", "x"}});
    return book.Contents().at(0).title + " " + book.Index().at(0).keyword;
  };
  EXPECT_EQ(titles("B.hhc", "b.hhk"), "Second Second");
  EXPECT_EQ(titles("gone.hhc", ""), "First First");
}

TEST(HelpBook, TitleIsThatOfTheSettingsOrOfTheDefaultPage) {
  const ChmObjects objects{{"/p.html", "<title>Page</title>"}};
  EXPECT_EQ(HelpBook(objects).Title(), "Page");
  ChmObjects named = objects;
  named["/#SYSTEM"] = "vers" + Setting(3, " The \n book ");
  EXPECT_EQ(HelpBook(named).Title(), "The book");
}

TEST(HelpBook, ReadsAPageOnceAndNoPictureAsAPage) {
  const HelpBook book(ChmObjects{{"/p.html", "x"}, {"/p.png", "y"}});
  EXPECT_EQ(book.Page("/p.html"), book.Page("/p.html"));
  EXPECT_EQ(book.Page("/p.png"), nullptr);
  EXPECT_THAT(book.Pages(), ElementsAre("/p.html"));
}

ChmObjects ReadAtOnce(const std::string& bytes) {
  std::size_t at = 0;
  return ReadChmStream([&](std::span<std::uint8_t> buffer) {
    const std::size_t size = std::min(buffer.size(), bytes.size() - at);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), size, buffer.begin());
    at += size;
    return size;
  });
}

/// An object of a stream.
std::string Object(const std::string& path, const std::string& content) {
  std::string bytes(1, static_cast<char>(kChmObjectMarker));
  for (const std::size_t length : {path.size(), content.size()}) {
    for (std::size_t i = 0; i < kChmLengthSize; ++i) bytes += static_cast<char>(length >> (8 * i) & 0xFFU);
  }
  return bytes + path + content;
}

TEST(ChmStream, LimitsAreReachedButNotExceeded) {
  const std::string longest = "/" + std::string(kLongestChmPath - 1, 'p');
  EXPECT_EQ(ReadAtOnce(Object(longest, "x") + "E").at(longest), "x");
  std::string most;
  for (std::size_t i = 0; i < kMostChmObjects; ++i) most += Object("/" + std::to_string(i), "");
  EXPECT_EQ(ReadAtOnce(most + "E").size(), kMostChmObjects);
}

TEST(ChmStream, LengthsHaveTheirLowByteFirst) {
  const std::string content(0x10203, 'x');
  EXPECT_EQ(ReadAtOnce(Object("/a", content) + "E").at("/a"), content);
}

TEST(ChmStream, SourceThatClaimsMoreThanItsBufferIsDamaged) {
  EXPECT_THROW(ReadChmStream([](std::span<std::uint8_t> buffer) { return buffer.size() + 1; }), core::Failure);
}

}  // namespace
}  // namespace tonalith::help
