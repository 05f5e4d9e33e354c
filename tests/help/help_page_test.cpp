// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "help/markup.h"

namespace tonalith::help {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::string Repeated(const std::string& piece, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

std::string Html(std::string_view topic) { return ReadHelpPage(topic).html; }

/// The deepest nesting of the HTML, and whether every tag is closed in order.
struct Nesting {
  std::size_t deepest = 0;
  std::size_t tables = 0;
  bool isSound = true;
};

Nesting NestingOf(const std::string& html) {
  Nesting nesting;
  std::vector<std::string> open;
  std::size_t tables = 0;
  MarkupReader reader(html);
  while (const auto token = reader.Next()) {
    if (token->kind == MarkupToken::Kind::kText) continue;
    const std::string& tag = token->text;
    if (tag == "br" || tag == "hr" || tag == "img") continue;
    if (token->kind == MarkupToken::Kind::kOpen) {
      open.push_back(tag);
      if (tag == "table") nesting.tables = std::max(nesting.tables, ++tables);
      nesting.deepest = std::max(nesting.deepest, open.size());
    } else if (open.empty() || open.back() != tag) {
      nesting.isSound = false;
    } else {
      open.pop_back();
      if (tag == "table") --tables;
    }
  }
  nesting.isSound = nesting.isSound && open.empty();
  return nesting;
}

TEST(HelpPage, KeepsTheTextAndItsStructure) {
  EXPECT_EQ(Html("<html><body><h1>Neck</h1><p>Six <b>strings</b>.</p><ul><li>E<li>A</ul></body></html>"),
            "<h1>Neck</h1><p>Six <b>strings</b>.</p><ul><li>E</li><li>A</li></ul>");
}

TEST(HelpPage, TitleIsTheTitleElementOrTheFirstHeading) {
  EXPECT_EQ(ReadHelpPage("<title> The\n neck </title><h1>Other</h1>").title, "The neck");
  EXPECT_EQ(ReadHelpPage("<p>x</p><h2>First &amp; foremost</h2><h2>Second</h2>").title, "First & foremost");
  EXPECT_EQ(ReadHelpPage("text").title, "");
}

TEST(HelpPage, TextHasALinePerParagraphWithoutTheHead) {
  EXPECT_EQ(ReadHelpPage("<title>T</title><style>p{}</style><p>One <i>two</i></p><p>three<br>four</p>").text,
            "One two\nthree\nfour\n");
}

TEST(HelpPage, WordsOfAdjacentCellsAreSeparated) {
  EXPECT_EQ(ReadHelpPage("<table><tr><td>fret</td><td>note</td></tr></table>").text, "fret note\n");
}

TEST(HelpPage, LinksAndPicturesBecomeIndexes) {
  const HelpPage page =
      ReadHelpPage("<a href='a.html#b'>A</a> <a href='http://x'>B</a><img src=p.png width=640 alt='The neck'>");
  EXPECT_EQ(page.html, "<a href=\"link:0\">A</a> <a href=\"link:1\">B</a><img src=\"picture:0\">");
  EXPECT_THAT(page.links, ElementsAre("a.html#b", "http://x"));
  ASSERT_EQ(page.pictures.size(), 1U);
  EXPECT_EQ(page.pictures[0].source, "p.png");
  EXPECT_EQ(page.pictures[0].width, 640);
  EXPECT_EQ(page.pictures[0].height, 0);
  EXPECT_EQ(page.pictures[0].description, "The neck");
}

TEST(HelpPage, TheSizeOfAPictureIsLimited) {
  const auto sizeOf = [](const std::string& attributes) {
    const HelpPage page = ReadHelpPage("<img src=p.png " + attributes + ">");
    return std::pair(page.pictures.at(0).width, page.pictures.at(0).height);
  };
  EXPECT_EQ(sizeOf("width=4000 height=4000"), std::pair(4000, 4000));
  EXPECT_EQ(sizeOf("width=4001 height=99999999999"), std::pair(0, 0)) << "out of range";
  EXPECT_EQ(sizeOf("width=wide height=-1"), std::pair(0, 0));
  EXPECT_EQ(sizeOf("width=50% height=12px"), std::pair(0, 12));
}

TEST(HelpPage, LinkedStyleSheetsAreListedUpToEight) {
  EXPECT_THAT(ReadHelpPage("<link rel=StyleSheet href=a.css><link rel=icon href=b.ico><link rel=stylesheet href=c.css>")
                  .styleSheets,
              ElementsAre("a.css", "c.css"));
  std::string many;
  for (int i = 0; i < 10; ++i) many += "<link rel=stylesheet href=" + std::to_string(i) + ">";
  EXPECT_THAT(ReadHelpPage(many).styleSheets, ElementsAre("0", "1", "2", "3", "4", "5", "6", "7"));
}

TEST(HelpPage, EscapedTextIsNotALinkOrPicture) {
  EXPECT_THAT(Html("&lt;img src=\"picture:0\"&gt;"), Not(HasSubstr("\"")));
}

TEST(HelpPage, AnchorsOfBothKindsAreKept) {
  EXPECT_EQ(Html("<h2 id=one>A</h2><a name='two'></a>B"), "<h2><a name=\"one\"></a>A</h2><a name=\"two\"></a>B");
}

TEST(HelpPage, ScriptsFramesFormsAndEventsAreRemoved) {
  const std::string html = Html(
      "<script>x</script><iframe src=y></iframe><p onclick='z' style='color:red'>a</p><form><input value=q></form>"
      "<font color=red>b</font><object data=c></object>");
  EXPECT_EQ(html, "<p>a</p>b");
}

TEST(HelpPage, BoxesBecomeTables) {
  EXPECT_EQ(Html("<p class=\"note\">Mind this.</p>"),
            "<table class=\"box\" width=\"100%\"><tr><td class=\"note\">Mind this.</td></tr></table>");
  EXPECT_EQ(Html("<pre>a\n b</pre>"),
            "<table class=\"box\" width=\"100%\"><tr><td class=\"code\"><pre>a\n b</pre></td></tr></table>");
}

TEST(HelpPage, InvalidClassNamesAreDropped) {
  EXPECT_EQ(Html("<p class='a\"><b'>x</p><span class='wildcard'>y</span>"),
            "<p>x</p><span class=\"wildcard\">y</span>");
}

TEST(HelpPage, OpenTagsAreClosedInOrder) {
  for (const char* const topic :
       {"<p><b><i>x", "<b><p>x</b>y</p>", "<ul><li><ul><li>x</ul><li>y", "<table><tr><td><table><tr><td>x</table>y",
        "<table><td>x</table>", "</p></b></table>", "<dl><dt>a<dd>b<dt>c</dl>", "<a href=x><a href=y>z",
        "<tr><td>x</td></tr>", "<table><tr><td><p>x</td><td>y</tr></table>", "<h1>x<h2>y", "<p class=note>x<p>y</p>",
        "<pre>x<table><tr><td>y</pre>z"}) {
    EXPECT_TRUE(NestingOf(Html(topic)).isSound) << topic << " became " << Html(topic);
  }
}

TEST(HelpPage, NestingAndTablesAreLimited) {
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "<div><ul><li><blockquote><b>";
  std::string tables;
  for (int i = 0; i < 5000; ++i) tables += "<table><tr><td><p class=note>";
  for (const std::string& topic : {deep, tables, deep + tables, tables + deep}) {
    const Nesting nesting = NestingOf(Html(topic));
    EXPECT_TRUE(nesting.isSound);
    EXPECT_LE(nesting.deepest, 100U);
    EXPECT_LE(nesting.tables, 3U);
  }
}

TEST(HelpPage, ConsecutiveTablesAreNotNested) {
  std::string topic;
  for (int i = 0; i < 20; ++i) topic += "<table><tr><td>x</td></tr></table>";
  EXPECT_EQ(Html(topic).size(), Html("<table><tr><td>x</td></tr></table>").size() * 20);
}

TEST(HelpPage, SpansAndSizesOutOfRangeAreDropped) {
  EXPECT_EQ(Html("<table><tr><td colspan=3 rowspan=1000000000>x</td></tr></table>"),
            "<table class=\"grid\"><tr><td colspan=\"3\">x</td></tr></table>");
  EXPECT_EQ(ReadHelpPage("<img src=p width=999999999999>").pictures[0].width, 0);
  EXPECT_EQ(ReadHelpPage("<img src=p width=-5 height='50%'>").pictures[0].height, 0);
}

TEST(HelpPage, LongTopicsAreTruncated) {
  std::string topic = "<p>a</p>" + std::string(kLongestTopic, ' ');
  EXPECT_TRUE(ReadHelpPage(topic).isCut);
  topic.resize(kLongestHelpText / 2);
  EXPECT_FALSE(ReadHelpPage(topic).isCut);
}

TEST(HelpPage, LongTextIsTruncatedBetweenCharacters) {
  const HelpPage page = ReadHelpPage("x" + Repeated("\xC3\xA4", kLongestHelpText));
  EXPECT_TRUE(page.isCut);
  EXPECT_EQ(page.text.size(), kLongestHelpText - 1);
  EXPECT_EQ(page.text.substr(page.text.size() - 2), "\xC3\xA4");
}

TEST(HelpPage, ManyParagraphsAreTruncatedAndNothingFollows) {
  const HelpPage page = ReadHelpPage(Repeated("<p>x</p>", 100'000) + "<b>end</b>");
  EXPECT_TRUE(page.isCut);
  EXPECT_EQ(page.text.size(), 2 * kMostHelpBlocks);
  EXPECT_TRUE(NestingOf(page.html).isSound);
  EXPECT_FALSE(ReadHelpPage(Repeated("<p>x</p>", kMostHelpBlocks)).isCut);
}

TEST(HelpPage, ManyPreformattedLinesAreTruncated) {
  const HelpPage page = ReadHelpPage("<pre>" + Repeated("x\n", 100'000) + "</pre><p>end</p>");
  EXPECT_TRUE(page.isCut);
  EXPECT_LE(page.text.size(), 2 * kMostHelpBlocks + 1);
  EXPECT_FALSE(ReadHelpPage(Repeated("x\n", kMostHelpBlocks + 1)).isCut);
}

TEST(HelpPage, NestedTablesAreLimitedToFewerCells) {
  const auto cells = [](const std::string& html) {
    std::size_t count = 0;
    for (std::size_t at = html.find("<td"); at != std::string::npos; at = html.find("<td", at + 1)) ++count;
    return count;
  };
  const std::string row = "<tr>" + Repeated("<td>x</td>", 10) + "</tr>";
  const std::size_t outer = cells(Html("<table>" + Repeated(row, 1000) + "</table>"));
  const std::size_t nested = cells(Html("<table><tr><td><table>" + Repeated(row, 1000) + "</table></td></tr></table>"));
  EXPECT_GE(outer, 1000U);
  EXPECT_LE(nested, outer / 4);
}

TEST(HelpPage, ManyTagsWithoutTextAreTruncated) {
  const HelpPage page = ReadHelpPage(Repeated("<b></b>", 100'000) + "end");
  EXPECT_TRUE(page.isCut);
  EXPECT_EQ(page.text, "");
  EXPECT_LT(page.html.size(), std::size_t{10} * kMostHelpTags);
}

TEST(HelpPage, LongWordsGetBreakOpportunitiesAcrossTags) {
  const std::string kBreak = "\xE2\x80\x8B";
  const std::string half(kLongestHelpWord / 2, 'x');
  EXPECT_EQ(Html(half + "<b>" + half + "yy</b>z"), half + "<b>" + half + kBreak + "yy</b>z");
  EXPECT_EQ(Html(half + " " + half + "yy"), half + " " + half + "yy");
  EXPECT_EQ(Html("<p>" + half + "</p><p>" + half + "yy</p>"), "<p>" + half + "</p><p>" + half + "yy</p>");
  EXPECT_EQ(ReadHelpPage(half + half + half).text, half + half + half);
}

TEST(ShapesOf, KeepsStyleAndDropsColoursFontsAndSizes) {
  EXPECT_EQ(
      ShapesOf("/* a { } */ .caption { color: #000; font-weight: bold } body { background: white; font: 12px x }\n"
               "th , td.x { TEXT-ALIGN : left; width: 3px; }"),
      ".caption{font-weight:bold;}\nth , td.x{text-align:left;}\n");
}

TEST(ShapesOf, DropsUnknownRules) {
  EXPECT_EQ(ShapesOf("@import url(http://x); p[a=b] { font-weight: bold }"), "");
  EXPECT_EQ(ShapesOf("p { font-weight: url(http://x) }"), "");
  EXPECT_EQ(ShapesOf("p { font-weight: bold"), "p{font-weight:bold;}\n");
  EXPECT_EQ(ShapesOf("/*"), "");
  EXPECT_EQ(ShapesOf("{{{}}}"), "");
}

}  // namespace
}  // namespace tonalith::help
