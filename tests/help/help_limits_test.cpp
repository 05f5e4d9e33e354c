// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Limits of pages, exactly at their boundary: just allowed, just too much.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

#include "help/help_page.h"
#include "help/picture_reader.h"

namespace tonalith::help {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string Repeated(const std::string& piece, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

std::string Html(std::string_view topic) { return ReadHelpPage(topic).html; }

std::size_t CountOf(const std::string& text, const std::string& what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

/// A topic in `depth` nested tables.
std::string Nested(int depth, const std::string& topic) {
  const auto times = static_cast<std::size_t>(depth);
  return Repeated("<table><tr><td>", times) + topic + Repeated("</td></tr></table>", times);
}

TEST(HelpLimits, TextIsCutAboveItsLimit) {
  EXPECT_FALSE(ReadHelpPage(std::string(kLongestHelpText, 'x')).isCut);
  const HelpPage page = ReadHelpPage(std::string(kLongestHelpText + 1, 'x') + "<b>y</b>");
  EXPECT_TRUE(page.isCut);
  EXPECT_EQ(page.text, std::string(kLongestHelpText, 'x'));
}

TEST(HelpLimits, TextInNestedTablesCountsEightTimesForEachTable) {
  for (const auto& [depth, cost] : {std::pair<int, std::size_t>{1, 1}, {2, 8}, {3, 64}}) {
    const std::size_t longest = kLongestHelpText / cost;
    EXPECT_FALSE(ReadHelpPage(Nested(depth, std::string(longest, 'x'))).isCut) << depth;
    const HelpPage page = ReadHelpPage(Nested(depth, std::string(longest + 1, 'x')));
    EXPECT_TRUE(page.isCut) << depth;
    EXPECT_EQ(CountOf(page.text, "x"), longest) << depth;
  }
}

TEST(HelpLimits, TopicIsCutAboveItsLimit) {
  EXPECT_FALSE(ReadHelpPage("a<!--" + std::string(kLongestTopic - 9, ' ') + "-->b").isCut);
  EXPECT_TRUE(ReadHelpPage("a<!--" + std::string(kLongestTopic - 8, ' ') + "-->b").isCut);
}

TEST(HelpLimits, BlocksTagsAndLinesAreCounted) {
  EXPECT_FALSE(ReadHelpPage(Repeated("<p>x", kMostHelpBlocks)).isCut);
  EXPECT_TRUE(ReadHelpPage(Repeated("<p>x", kMostHelpBlocks + 1)).isCut);
  EXPECT_FALSE(ReadHelpPage(Repeated("<b>x</b>", kMostHelpTags)).isCut);
  EXPECT_TRUE(ReadHelpPage(Repeated("<b>x</b>", kMostHelpTags + 1)).isCut);
  EXPECT_FALSE(ReadHelpPage("<pre>" + Repeated("x\n", kMostHelpBlocks - 1) + "y").isCut);
  const HelpPage page = ReadHelpPage("<pre>" + Repeated("x\n", kMostHelpBlocks) + "y");
  EXPECT_TRUE(page.isCut);
  EXPECT_EQ(page.text.back(), 'x') << "ends with its last permitted line";
}

TEST(HelpLimits, EveryTagThatEndsALineIsABlock) {
  for (const char* const tag : {"p", "h3", "li", "dd", "div", "section", "br", "hr"}) {
    const std::string piece = "<" + std::string(tag) + ">x</" + tag + ">";
    EXPECT_TRUE(ReadHelpPage(Repeated(piece, kMostHelpBlocks + 1)).isCut) << tag;
  }
  EXPECT_FALSE(ReadHelpPage(Repeated("<i>x</i>", kMostHelpBlocks + 1)).isCut);
}

TEST(HelpLimits, LinksAndPicturesAreCounted) {
  const HelpPage links = ReadHelpPage(Repeated("<a href=x>y</a> ", 5001));
  EXPECT_EQ(links.links.size(), 5000U);
  EXPECT_THAT(links.html, HasSubstr("<a href=\"link:4999\">y</a> y"));
  const HelpPage pictures = ReadHelpPage(Repeated("<img src=x>", 501));
  EXPECT_EQ(pictures.pictures.size(), 500U);
  EXPECT_THAT(pictures.html, testing::EndsWith("<img src=\"picture:499\">"));
  EXPECT_TRUE(ReadHelpPage("<img>").pictures.empty());
  EXPECT_TRUE(ReadHelpPage("<a>x</a>").links.empty());
}

TEST(HelpLimits, TagsAreNestedFortyDeep) {
  EXPECT_EQ(CountOf(Html(Repeated("<b>", 40) + "x"), "<b>"), 40U);
  EXPECT_EQ(Html(Repeated("<b>", 41) + "x"), Html(Repeated("<b>", 40) + "x"));
  EXPECT_THAT(Html(Repeated("<b>", 37) + "<table><tr><td>x"), HasSubstr("<td>x"));
  EXPECT_THAT(Html(Repeated("<b>", 38) + "<table><tr><td>x"), Not(HasSubstr("<table")));
}

TEST(HelpLimits, TablesAreNestedThreeDeep) {
  EXPECT_EQ(CountOf(Html(Nested(3, "x")), "<table"), 3U);
  EXPECT_EQ(CountOf(Html(Nested(4, "x")), "<table"), 3U);
  EXPECT_THAT(Html(Nested(2, "<p class=note>x")), HasSubstr("<td class=\"note\">x"));
  EXPECT_THAT(Html(Nested(3, "<p class=note>x")), HasSubstr("<p class=\"note\">x</p>"));
}

TEST(HelpLimits, CellsAreCountedInTheRowAndInTheTable) {
  const std::string row = "<tr>" + Repeated("<td>x", 25);
  EXPECT_EQ(CountOf(Html("<table>" + row), "<td>"), 24U);
  EXPECT_EQ(CountOf(Html("<table>" + row + row), "<td>"), 48U) << "each row";
  const std::string rows = Repeated("<tr>" + Repeated("<td>x", 20), 80);
  EXPECT_EQ(CountOf(Html("<table>" + rows), "<td>"), 1500U);
  EXPECT_EQ(CountOf(Html("<table><tr><td><table>" + rows), "<td>"), 1U + 188U) << "a nested cell counts 8 times";
}

TEST(HelpLimits, SpansAreFromTwoToTwentyFour) {
  EXPECT_THAT(Html("<table><tr><td colspan=1 rowspan=0>x"), HasSubstr("<td>x"));
  EXPECT_THAT(Html("<table><tr><td colspan=2 rowspan=24>x"), HasSubstr("<td colspan=\"2\" rowspan=\"24\">x"));
  EXPECT_THAT(Html("<table><tr><td colspan=25>x"), HasSubstr("<td>x"));
}

TEST(HelpLimits, ClassNamesAreCutAtFortyLetters) {
  const std::string longest(40, 'c');
  EXPECT_EQ(Html("<b class=" + longest + ">x</b>"), "<b class=\"" + longest + "\">x</b>");
  EXPECT_EQ(Html("<b class=" + longest + "c>x</b>"), "<b class=\"" + longest + "\">x</b>");
  EXPECT_EQ(Html("<b class='azAZ09-_ '>x</b>"), "<b class=\"azaz09-_ \">x</b>");
  for (const char* const other : {"a`", "a{", "a/", "a:", "a@", "a[", "a.b"}) {
    EXPECT_EQ(Html("<b class='" + std::string(other) + "'>x</b>"), "<b>x</b>") << other;
  }
}

TEST(HelpLimits, WordsAreBrokenAboveTheirLimitBetweenCharacters) {
  const std::string longest(kLongestHelpWord, 'x');
  EXPECT_EQ(Html(longest), longest);
  EXPECT_EQ(Html(longest + "y"), longest + "\xE2\x80\x8By");
  EXPECT_EQ(Html(longest + longest + "y"), longest + "\xE2\x80\x8B" + longest + "\xE2\x80\x8By");
  for (const char* const blank : {" ", "\n", "\t", "\r"})
    EXPECT_EQ(Html(longest + blank + longest).find('\xE2'), std::string::npos);
  const std::string odd = std::string(kLongestHelpWord - 1, 'x') + "\xC3\xA4";
  EXPECT_EQ(Html(odd + "y"), odd + "\xE2\x80\x8By") << "not within the last character";
  EXPECT_EQ(Html(longest + "<br>" + longest), longest + "<br>" + longest);
}

TEST(HelpLimits, SelectorsAndStyleSheetsAreLimited) {
  const std::string longest(200, 'p');
  EXPECT_EQ(ShapesOf(longest + "{font-weight:bold}"), longest + "{font-weight:bold;}\n");
  EXPECT_EQ(ShapesOf(longest + "p{font-weight:bold}"), "");
  const std::string rule = "p{font-weight:bold}";
  const std::size_t most = std::size_t{256} << 10;
  EXPECT_EQ(ShapesOf(std::string(most - rule.size(), ' ') + rule + rule), "p{font-weight:bold;}\n");
  EXPECT_EQ(ShapesOf(std::string(most, ' ') + rule), "");
}

TEST(HelpLimits, StyleSheetsKeepPlainSelectorsAndEveryShape) {
  EXPECT_EQ(ShapesOf("a.Z9-_ , z{font-style:italic;white-space:pre;vertical-align:top;font-variant:small-caps;"
                     "list-style-type:square;text-decoration:none;text-align:left}"),
            "a.Z9-_ , z{font-style:italic;white-space:pre;vertical-align:top;font-variant:small-caps;"
            "list-style-type:square;text-decoration:none;text-align:left;}\n");
  for (const char* const selector : {"a:b", "a@", "a[", "a`", "a{", "a/", "a>b", "a#b"}) {
    EXPECT_EQ(ShapesOf(std::string(selector) + "{font-weight:bold}").find("a"), std::string::npos) << selector;
  }
  EXPECT_EQ(ShapesOf("p{font-weight}q{font-weight: }/**/r{/* ; */font-weight:bold}"), "r{font-weight:bold;}\n");
}

TEST(HelpPageDetails, ATitleEndsWithTheNextTag) {
  const HelpPage page = ReadHelpPage("<title>One<b>two</b></title><h6>Six</h6>");
  EXPECT_EQ(page.title, "One");
  EXPECT_THAT(page.text, HasSubstr("two"));
  EXPECT_EQ(ReadHelpPage("<h7>Seven</h7><h0>None</h0><h1>First <b>one</b></h1><h1>Second").title, "First one");
  EXPECT_EQ(ReadHelpPage("<h6>Six</h6>").title, "Six");
}

TEST(HelpPageDetails, ItemsAndParagraphsCloseTheOnesBefore) {
  EXPECT_EQ(Html("<ul><li>a<ol><li>b<li>c</ol><li>d</ul>"),
            "<ul><li>a<ol><li>b</li><li>c</li></ol></li><li>d</li></ul>");
  EXPECT_EQ(Html("<dl><dt>a<dd>b<dd>c<dt>d</dl>"), "<div class=\"dl\"><dt>a</dt><dd>b</dd><dd>c</dd><dt>d</dt></div>");
  EXPECT_EQ(Html("<p>a<h2>b</h2>c"), "<p>a</p><h2>b</h2>c");
  EXPECT_EQ(Html("<p>a<table><tr><td>b</table>"), "<p>a</p><table class=\"grid\"><tr><td>b</td></tr></table>");
  EXPECT_EQ(Html("<a href=x>a<a href=y>b"), "<a href=\"link:0\">a</a><a href=\"link:1\">b</a>");
}

TEST(HelpPageDetails, ItemInACellIsNotClosedByAnInnerList) {
  EXPECT_EQ(Html("<ul><li><table><tr><td><ul><li>a</ul></table><li>b</ul>"),
            "<ul><li><table class=\"grid\"><tr><td><ul><li>a</li></ul></td></tr></table></li><li>b</li></ul>");
}

TEST(HelpPageDetails, DivisionsAndCaptionsGetTheirNameAsClass) {
  EXPECT_EQ(Html("<footer>a</footer><div class=small>b</div>"),
            "<div class=\"footer\">a</div><div class=\"small\">b</div>");
  EXPECT_EQ(Html("<caption>a</caption>"), "<div class=\"tablecaption\">a</div>");
  EXPECT_EQ(Html("<table class=wide><tr><th class=x>a</table>"),
            "<table class=\"wide\"><tr><th class=\"x\">a</th></tr></table>");
}

TEST(HelpPageDetails, BoxIsAWholeClassName) {
  EXPECT_THAT(Html("<p class='small tip'>a"), HasSubstr("<td class=\"tip\">a</td>"));
  EXPECT_EQ(Html("<p class='tips'>a</p>"), "<p class=\"tips\">a</p>");
  for (const char* const box : {"note", "tip", "warning", "message", "example"}) {
    EXPECT_THAT(Html("<div class=" + std::string(box) + ">a"), HasSubstr("<td class=\"" + std::string(box) + "\">"));
  }
}

TEST(HelpPageDetails, AnchorIsTheIdOrTheNameOfALink) {
  EXPECT_EQ(Html("<a id=one name=two>x</a>"), "<a name=\"one\"></a>x");
  EXPECT_EQ(Html("<b name=two>x</b><i id='a\"b'>y</i>"), "<b>x</b><i><a name=\"a&quot;b\"></a>y</i>");
}

TEST(HelpPageDetails, TextBetweenRowsAndCellsIsDropped) {
  const HelpPage page = ReadHelpPage("<table>a<tr>b<td>c</td>d</tr>e</table>f");
  EXPECT_EQ(page.html, "<table class=\"grid\"><tr><td>c</td></tr></table>f");
  EXPECT_EQ(page.text, "c\nf");
}

TEST(HelpPageDetails, LinesOfTextEndAtBlocksBreaksAndRules) {
  EXPECT_EQ(ReadHelpPage("a<br>b<hr>c<div>d</div>e<p></p><p></p>f").text, "a\nb\nc\nd\ne\nf");
  EXPECT_EQ(ReadHelpPage("<table><tr><td>a<td>b<tr><td>c</table>").text, "a b\nc\n");
}

TEST(PictureReader, SidesAreLimited) {
  const auto isRead = [](int width, int height) {
    QImage image(width, height, QImage::Format_Mono);
    image.fill(1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return ReadPicture(bytes.toStdString()).size() == QSize(width, height);
  };
  EXPECT_TRUE(isRead(1, 1));
  EXPECT_TRUE(isRead(4096, 1));
  EXPECT_FALSE(isRead(4097, 1));
  EXPECT_TRUE(isRead(1, 4096));
  EXPECT_FALSE(isRead(1, 4097));
}

TEST(PictureReader, ReadsTheFormatsOfHelpFilesOnly) {
  QImage image(3, 2, QImage::Format_RGB32);
  image.fill(Qt::red);
  for (const char* const format : {"png", "jpg", "bmp", "ppm", "xpm"}) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    const bool isOther = format[1] == 'p';
    EXPECT_EQ(ReadPicture(bytes.toStdString()).isNull(), isOther && format[0] != 'j') << format;
  }
}

TEST(PictureReader, ShownPictureHasAtLeastOnePixel) {
  EXPECT_EQ(ShownSize({"p", 10, 0, ""}, {1000, 1}, 1, 700), QSize(10, 1));
  EXPECT_EQ(ShownSize({"p", 0, 10, ""}, {1, 1000}, 1, 700), QSize(1, 10));
  EXPECT_EQ(ShownSize({"p", 40, 20, ""}, {80, 60}, 1, 40), QSize(40, 20)) << "as wide as the column";
  EXPECT_EQ(ShownSize({"p", 40, 20, ""}, {80, 60}, 1, 39), QSize(39, 20));
  EXPECT_EQ(SharpAt(QImage(4, 4, QImage::Format_RGB32), {1, 1}, 0.2).size(), QSize(1, 1));
  EXPECT_EQ(SharpAt(QImage(4, 4, QImage::Format_RGB32), {3, 2}, 1.5).devicePixelRatio(), 1.5);
  EXPECT_EQ(SharpAt(QImage(4, 4, QImage::Format_RGB32), {9000, 1}, 1).width(), 8192);
}

}  // namespace
}  // namespace tonalith::help
