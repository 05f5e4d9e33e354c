// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/markup.h"

#include <gtest/gtest.h>

#include "help/characters.h"

namespace tonalith::help {
namespace {

/// Tokens as a line: text in quotes, +tag with its attributes, -tag.
std::string Tokens(std::string_view markup) {
  std::string line;
  MarkupReader reader(markup);
  while (const auto token = reader.Next()) {
    if (!line.empty()) line += " ";
    if (token->kind == MarkupToken::Kind::kText) line += "'" + token->text + "'";
    if (token->kind == MarkupToken::Kind::kClose) line += "-" + token->text;
    if (token->kind == MarkupToken::Kind::kOpen) line += "+" + token->text;
    for (const auto& [name, value] : token->attributes) line += "[" + name + "=" + value + "]";
  }
  return line;
}

TEST(Markup, ReturnsTextAndTagsInOrder) {
  EXPECT_EQ(Tokens("<P>Six <b>strings</B></p>"), "+p 'Six ' +b 'strings' -b -p");
}

TEST(Markup, AcceptsAttributesInEveryQuoting) {
  EXPECT_EQ(Tokens("<a HREF=\"x y\" title='it\"s' width = 40 checked>"),
            "+a[href=x y][title=it\"s][width=40][checked=]");
  EXPECT_EQ(Tokens("<br/><img src=a/b.png />"), "+br +img[src=a/b.png]");
}

TEST(Markup, ResolvesEntitiesInTextAndAttributes) {
  EXPECT_EQ(Tokens("<a title='C &amp; G'>F&#35; &lt; &#x266F; &eacute;</a>"),
            "+a[title=C & G] 'F# < \u266F \u00E9' -a");
}

TEST(Markup, LeavesUnknownEntitiesUnchanged) {
  EXPECT_EQ(Tokens("R&B & soul &unknown; &#xZZ; &"), "'R&B & soul &unknown; &#xZZ; &'");
}

TEST(Markup, TreatsAStrayLessThanAsText) { EXPECT_EQ(Tokens("1 < 2 <3>"), "'1 ' '< 2 ' '<3>'"); }

TEST(Markup, SkipsCommentsDeclarationsScriptsAndStyles) {
  EXPECT_EQ(Tokens("<!DOCTYPE html><!-- <p> --><?xml?>a<script>if (a<b) '</p>'</script><style>p{}</style>b"),
            "'a' +script -script +style -style 'b'");
}

TEST(Markup, AcceptsTruncatedInput) {
  for (const char* const broken : {"<", "<a", "<a href", "<a href=", "<a href='x", "<!--", "<!", "</", "</a", "&#",
                                   "<script>alert(", "<p><", "<a =", "<a / / ="}) {
    EXPECT_NO_THROW(Tokens(broken)) << broken;
  }
}

TEST(Markup, PagesThatAreNotUtf8AreWestern) {
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

TEST(Characters, DistinguishUtf8FromInvalidBytes) {
  EXPECT_TRUE(IsUtf8("plain"));
  EXPECT_TRUE(IsUtf8("\u266F \U0001D11E"));
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(IsUtf8("\xE2\x99"));
}

TEST(Characters, InvalidNumbersBecomeTheReplacementCharacter) {
  EXPECT_EQ(ResolveEntities("&#0;&#xD800;&#1114112;"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ResolveEntities("&#99999999999;"), "&#99999999999;");
}

}  // namespace
}  // namespace tonalith::help
