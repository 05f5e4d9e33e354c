// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/help_address.h"

#include <gtest/gtest.h>

namespace tonalith::help {
namespace {

TEST(HelpAddress, SchemeIsTheTextBeforeTheColon) {
  EXPECT_EQ(SchemeOf("HTTPS://tonalith.example"), "https");
  EXPECT_EQ(SchemeOf("mailto:x@y"), "mailto");
  EXPECT_EQ(SchemeOf("page.html#a:b"), "");
  EXPECT_EQ(SchemeOf("C:\\page.html"), "");
  EXPECT_EQ(SchemeOf("page.html"), "");
}

TEST(HelpAddress, PathsAreRelativeToTheirPage) {
  EXPECT_EQ(ResolvedPath("/a/b.html", "c.html"), "/a/c.html");
  EXPECT_EQ(ResolvedPath("/a/b.html", "../c.html"), "/c.html");
  EXPECT_EQ(ResolvedPath("/a/b.html", "/c/./d.html"), "/c/d.html");
  EXPECT_EQ(ResolvedPath("/a/b.html", "Sub\\C.HTML"), "/a/sub/c.html");
  EXPECT_EQ(ResolvedPath("/b.html", "../../../etc/passwd"), "/etc/passwd");
  EXPECT_EQ(ResolvedPath("", ""), "/");
}

TEST(HelpAddress, PercentEncodingIsResolved) {
  EXPECT_EQ(PercentDecoded("a%20b%2Fc"), "a b/c");
  EXPECT_EQ(PercentDecoded("50%"), "50%");
  EXPECT_EQ(PercentDecoded("%4"), "%4");
  EXPECT_EQ(PercentDecoded("%zz"), "%zz");
}

TEST(HelpAddress, FormsWithAFileNameAreReducedToThePath) {
  EXPECT_EQ(WithoutStore("ms-its:TLHELP.chm::/a.html"), "/a.html");
  EXPECT_EQ(WithoutStore("mk:@MSITStore:TLHELP.chm::/a.html#b"), "/a.html#b");
  EXPECT_EQ(WithoutStore("https://x::/a"), "https://x::/a");
  EXPECT_EQ(WithoutStore("ms-its:nothing"), "ms-its:nothing");
}

}  // namespace
}  // namespace tonalith::help
