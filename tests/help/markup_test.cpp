// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/markup.h"

#include <gtest/gtest.h>

#include "help/characters.h"

namespace tonalith::help {
namespace {

/// Pieces as a line: text in quotes, +tag with its attributes, -tag.
std::string Pieces(std::string_view markup) {
  std::string line;
  MarkupReader reader(markup);
  while (const auto piece = reader.Next()) {
    if (!line.empty()) line += " ";
    if (piece->kind == MarkupToken::Kind::kText) line += "'" + piece->text + "'";
    if (piece->kind == MarkupToken::Kind::kClose) line += "-" + piece->text;
    if (piece->kind == MarkupToken::Kind::kOpen) line += "+" + piece->text;
    for (const auto& [name, value] : piece->attributes) line += "[" + name + "=" + value + "]";
  }
  return line;
}

TEST(Markup, GivesTextAndTagsInTheirOrder) {
  EXPECT_EQ(Pieces("<P>Six <b>strings</B></p>"), "+p 'Six ' +b 'strings' -b -p");
}

TEST(Markup, TakesAttributesInEveryQuoting) {
  EXPECT_EQ(Pieces("<a HREF=\"x y\" title='it\"s' width = 40 checked>"),
            "+a[href=x y][title=it\"s][width=40][checked=]");
  EXPECT_EQ(Pieces("<br/><img src=a/b.png />"), "+br +img[src=a/b.png]");
}

TEST(Markup, ResolvesEntitiesInTextAndAttributes) {
  EXPECT_EQ(Pieces("<a title='C &amp; G'>F&#35; &lt; &#x266F; &eacute;</a>"),
            "+a[title=C & G] 'F# < \u266F \u00E9' -a");
}

TEST(Markup, LeavesWhatIsNoEntityAsItIs) {
  EXPECT_EQ(Pieces("R&B & soul &unknown; &#xZZ; &"), "'R&B & soul &unknown; &#xZZ; &'");
}

TEST(Markup, TakesASignThatBeginsNoTagForText) { EXPECT_EQ(Pieces("1 < 2 <3>"), "'1 ' '< 2 ' '<3>'"); }

TEST(Markup, LeavesOutCommentsDeclarationsScriptsAndStyles) {
  EXPECT_EQ(Pieces("<!DOCTYPE html><!-- <p> --><?xml?>a<script>if (a<b) '</p>'</script><style>p{}</style>b"),
            "'a' +script -script +style -style 'b'");
}

TEST(Markup, EndsWithWhateverBreaksOff) {
  for (const char* const broken : {"<", "<a", "<a href", "<a href=", "<a href='x", "<!--", "<!", "</", "</a", "&#",
                                   "<script>alert(", "<p><", "<a =", "<a / / ="}) {
    EXPECT_NO_THROW(Pieces(broken)) << broken;
  }
}

TEST(Markup, PagesWithoutAnEncodingAreWestern) {
  EXPECT_EQ(ToUtf8("caf\xE9 \x93quoted\x94"), "caf\u00E9 \u201Cquoted\u201D");
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBF"
                   "caf\u00E9"),
            "caf\u00E9");
}

TEST(Markup, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(ToUtf8(std::string("a\0b\x07"
                               "c\n",
                               6)),
            "a b c\n");
}

TEST(Characters, TellUtf8FromWhatOnlyLooksLikeIt) {
  EXPECT_TRUE(IsUtf8("plain"));
  EXPECT_TRUE(IsUtf8("\u266F \U0001D11E"));
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(IsUtf8("\xE2\x99"));
}

TEST(Characters, NumbersThatAreNoCharacterBecomeAReplacement) {
  EXPECT_EQ(ResolveEntities("&#0;&#xD800;&#1114112;"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ResolveEntities("&#99999999999;"), "&#99999999999;");
}

}  // namespace
}  // namespace tonalith::help
