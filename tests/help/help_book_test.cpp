// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/failure.h"
#include "help/book_fixture.h"

namespace tonalith::help {
namespace {

using testing::ElementsAre;
using Kind = HelpLink::Kind;

/// Settings with this default topic.
std::string SystemWith(const std::string& topic) {
  return std::string(4, '\3') + std::string{'\2', '\0', static_cast<char>(topic.size()), '\0'} + topic;
}

TEST(HelpBook, HasTitleContentsAndIndexOfItsFile) {
  const auto book = ReadBook();
  EXPECT_EQ(book->Title(), "A small book");
  ASSERT_EQ(book->Contents().size(), 5U);
  EXPECT_EQ(book->Contents()[2].title, "Chords");
  EXPECT_FALSE(book->Contents()[2].target.has_value());
  EXPECT_EQ(book->Contents()[4].depth, 1);
  EXPECT_EQ(book->Contents()[4].target, (HelpTarget{"/chords/open.html", "minor"}));
  ASSERT_EQ(book->Index().size(), 3U);
  EXPECT_EQ(book->Index()[2].keyword, "string");
  EXPECT_EQ(book->Index()[2].targets[1].title, "Open chords");
  EXPECT_THAT(book->Pages(), ElementsAre("/welcome.html", "/strings.html", "/chords/open.html"));
}

TEST(HelpBook, OpensAtTheDefaultTopicOfItsSettings) {
  const HelpBook book(
      {{"/#SYSTEM", SystemWith("B.html")}, {"/a.html", "a"}, {"/b.html", "b"}, {"/x.hhc", MapEntry("A", "a.html")}});
  EXPECT_EQ(book.DefaultTarget().page, "/b.html");
}

TEST(HelpBook, OpensAtTheFirstContentsPageWithoutAUsableDefault) {
  const std::string contents = MapEntry("Part", "") + MapEntry("Lost", "lost.html") + MapEntry("A", "a.html#top");
  const HelpBook without(ChmObjects{{"/index.html", "i"}, {"/a.html", "a"}, {"/x.hhc", contents}});
  EXPECT_EQ(without.DefaultTarget(), (HelpTarget{"/a.html", "top"}));
  const HelpBook lost(ChmObjects{{"/#SYSTEM", SystemWith("gone.html")}, {"/a.html", "a"}, {"/x.hhc", contents}});
  EXPECT_EQ(lost.DefaultTarget(), (HelpTarget{"/a.html", "top"}));
}

TEST(HelpBook, OpensAtTheIndexPageWithoutUsableContents) {
  const std::string contents = MapEntry("Lost", "lost.html");
  EXPECT_EQ(HelpBook(ChmObjects{{"/a.html", "a"}, {"/Index.HTM", "i"}, {"/index.html", "j"}, {"/x.hhc", contents}})
                .DefaultTarget()
                .page,
            "/index.htm");
  EXPECT_EQ(HelpBook(ChmObjects{{"/a.html", "a"}, {"/index.html", "j"}, {"/x.hhc", contents}}).DefaultTarget().page,
            "/index.html");
}

TEST(HelpBook, ThrowsWithoutAPageToOpen) {
  EXPECT_THROW(HelpBook(ChmObjects{}), core::Failure);
  EXPECT_THROW(HelpBook(ChmObjects{{"/x.hhc", MapEntry("Lost", "lost.html")}, {"/p.png", "p"}}), core::Failure);
}

TEST(HelpBook, ListsItsPagesWithoutContents) {
  const HelpBook book(ChmObjects{{"/b.html", "<title>Second</title>"}, {"/a.html", "<h1>First</h1>"}});
  ASSERT_EQ(book.Contents().size(), 2U);
  EXPECT_EQ(book.Contents()[0].title, "First");
  EXPECT_EQ(book.Contents()[1].title, "Second");
  EXPECT_EQ(book.DefaultTarget().page, "/a.html");
}

TEST(HelpBook, PathsAreNotCaseSensitive) {
  const HelpBook book(ChmObjects{{"/Dir/Page.HTML", "<title>T</title>"}});
  ASSERT_NE(book.Page("/dir/page.html"), nullptr);
  EXPECT_EQ(book.Page("/dir/page.html")->title, "T");
  EXPECT_EQ(book.Page("/other.html"), nullptr);
}

TEST(HelpBook, TitleIsFromThePageTheContentsOrThePath) {
  const HelpBook book(ChmObjects{{"/a.html", "<title>Own</title>"},
                                 {"/b.html", "x"},
                                 {"/c.html", "x"},
                                 {"/x.hhc", MapEntry("Contents' A", "a.html") + MapEntry("Contents' B", "b.html")}});
  EXPECT_EQ(book.TitleOf("/a.html"), "Own");
  EXPECT_EQ(book.TitleOf("/b.html"), "Contents' B");
  EXPECT_EQ(book.TitleOf("/c.html"), "/c.html");
}

/// The target of a link on the page /dir/a.html, as kind, path and anchor or address.
std::string Follow(const std::string& link) {
  static const HelpBook book(
      ChmObjects{{"/dir/a.html", "a"}, {"/dir/b.html", "b"}, {"/top.html", "t"}, {"/p.png", "p"}});
  const HelpLink followed = book.Follow("/dir/a.html", link);
  switch (followed.kind) {
    case Kind::kInside:
      return "inside " + followed.target.page + " " + followed.target.anchor;
    case Kind::kMissing:
      return "missing " + followed.target.page;
    case Kind::kOutside:
      return "outside " + followed.address;
    case Kind::kRefused:
      break;
  }
  return "refused " + followed.address;
}

TEST(HelpBook, InternalLinksHavePageAndAnchor) {
  EXPECT_EQ(Follow("b.html"), "inside /dir/b.html ");
  EXPECT_EQ(Follow("B.html#x%20y"), "inside /dir/b.html x y");
  EXPECT_EQ(Follow("#here"), "inside /dir/a.html here");
  EXPECT_EQ(Follow("../top.html?q=1#z"), "inside /top.html z");
  EXPECT_EQ(Follow("/top.html"), "inside /top.html ");
  EXPECT_EQ(Follow("ms-its:any.chm::/top.html"), "inside /top.html ");
}

TEST(HelpBook, LinksToMissingPagesAreMissing) {
  EXPECT_EQ(Follow("c.html"), "missing /dir/c.html");
  EXPECT_EQ(Follow("/p.png"), "missing /p.png");
}

TEST(HelpBook, ExternalLinksAreWebAndMailAddresses) {
  EXPECT_EQ(Follow("https://tonalith.example/a?b#c"), "outside https://tonalith.example/a?b#c");
  EXPECT_EQ(Follow("HTTP://x"), "outside HTTP://x");
  EXPECT_EQ(Follow("mailto:a@b"), "outside mailto:a@b");
}

TEST(HelpBook, OtherLinksAreRefused) {
  EXPECT_EQ(Follow("file:///etc/passwd"), "refused file:///etc/passwd");
  EXPECT_EQ(Follow("javascript:alert(1)"), "refused javascript:alert(1)");
  EXPECT_EQ(Follow("//server/share"), "refused //server/share");
  EXPECT_EQ(Follow("ms-its:nothing"), "refused ms-its:nothing");
}

TEST(HelpBook, PicturesAndStyleSheetsAreOnlyReadFromTheFile) {
  const auto book = ReadBook();
  ASSERT_NE(book->Attached("/chords/open.html", "../picture.png"), nullptr);
  EXPECT_EQ(*book->Attached("/chords/open.html", "../picture.png"), SourceOf("picture.png"));
  EXPECT_EQ(book->Attached("/welcome.html", "https://tonalith.example/picture.png"), nullptr);
  EXPECT_EQ(book->Attached("/welcome.html", "file:///picture.png"), nullptr);
  EXPECT_EQ(book->Attached("/welcome.html", "//picture.png"), nullptr);
}

}  // namespace
}  // namespace tonalith::help
