// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/connection_string.h"

#include <gtest/gtest.h>

#include "data_fixture.h"

namespace tonalith::data {
namespace {

TEST(ConnectionString, ReadsTheKeywordForm) {
  const ConnectionSettings settings = ParseConnectionString(FullConnectionString("/music/TonalithDB97.mdb"));
  EXPECT_EQ(settings.provider, "Microsoft.Jet.OLEDB.4.0");
  EXPECT_EQ(settings.dataSource, "/music/TonalithDB97.mdb");
  EXPECT_FALSE(settings.isReadOnly);
}

TEST(ConnectionString, IsBuiltFromTheFixedPartsInTheirOrder) {
  EXPECT_EQ(FullConnectionString("/music/TonalithDB97.mdb"),
            "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/music/TonalithDB97.mdb;"
            "Mode=ReadWrite|Share Deny None;Persist Security Info=False");
}

TEST(ConnectionString, ReadsTextWithoutAKeywordAsAPath) {
  EXPECT_EQ(ParseConnectionString("/music/TonalithDB97.mdb").dataSource, "/music/TonalithDB97.mdb");
  EXPECT_EQ(ParseConnectionString("/a=b;c/x.mdb").dataSource, "/a=b;c/x.mdb");
  EXPECT_EQ(ParseConnectionString("").dataSource, "");
}

TEST(ConnectionString, ReadsKeywordsInAnyCaseAndOrderWithBlanks) {
  const ConnectionSettings settings = ParseConnectionString(" data SOURCE = x.mdb ;; PROVIDER=P; mode=read;");
  EXPECT_EQ(settings.dataSource, "x.mdb");
  EXPECT_EQ(settings.provider, "P");
  EXPECT_TRUE(settings.isReadOnly);
}

TEST(ConnectionString, ReadsQuotedValues) {
  EXPECT_EQ(ParseConnectionString("Data Source=\"a;b \"\"c\"\" 'd'\";Provider='P''Q'").dataSource, "a;b \"c\" 'd'");
  EXPECT_EQ(ParseConnectionString("Data Source=\"a\";Provider='P''Q'").provider, "P'Q");
}

TEST(ConnectionString, KeepsASemicolonAndAnEqualsSignInAFolderName) {
  EXPECT_EQ(ParseConnectionString(FullConnectionString("/a;b=c/d;e/x.mdb")).dataSource, "/a;b=c/d;e/x.mdb");
}

TEST(ConnectionString, ReadsAFolderNameThatLooksLikeASettingAsPartOfThePath) {
  for (const char* folder : {"x;Mode=Read", "x;Mode=Read;y", ";Mode=Read;", "x;Provider=None;Data Source=\"/etc/y",
                             "x;Password=secret", "x;;User ID='me'", "x;Colour=red;Mode=Read"}) {
    const std::string path = "/music/" + std::string(folder) + "/TonalithDB97.mdb";
    const ConnectionSettings settings = ParseConnectionString(FullConnectionString(path));
    EXPECT_EQ(settings.dataSource, path);
    EXPECT_EQ(settings.provider, kProvider);
    EXPECT_EQ(settings.user + settings.password, "");
    EXPECT_FALSE(settings.isReadOnly) << folder;
    EXPECT_EQ(ParseConnectionString(ExpandedConnectionString(settings)).dataSource, path);
    EXPECT_EQ(ParseConnectionString(path).dataSource, path) << "the path alone";
  }
}

TEST(ConnectionString, ExpandsToATextWithTheSameSettings) {
  for (const char* path : {"/plain/x.mdb", "/a;b/x.mdb", "/a\"b/x.mdb", "/a'b=c/x.mdb", " x "}) {
    ConnectionSettings settings;
    settings.provider = "Microsoft.Jet.OLEDB.4.0";
    settings.dataSource = path;
    settings.isReadOnly = true;
    const ConnectionSettings again = ParseConnectionString(ExpandedConnectionString(settings));
    EXPECT_EQ(again.dataSource, path);
    EXPECT_EQ(again.provider, settings.provider);
    EXPECT_TRUE(again.isReadOnly);
  }
}

TEST(ConnectionString, NeverExpandsThePassword) {
  ConnectionSettings settings = ParseConnectionString("Provider=P;Password=secret;User ID=me;Data Source=x");
  EXPECT_EQ(settings.password, "secret");
  EXPECT_EQ(ExpandedConnectionString(settings).find("secret"), std::string::npos);
}

TEST(ConnectionString, RefusesInvalidTextWithAMessage) {
  EXPECT_EQ(FailureOf([] { ParseConnectionString("Provider=P;Mode=Share Exclusive"); }).Description(),
            "The mode 'Share Exclusive' of the connection string is not supported.");
  EXPECT_EQ(FailureOf([] { ParseConnectionString("Provider='P"); }).Description(),
            "A value of the connection string has no closing quote.");
  EXPECT_EQ(FailureOf([] { ParseConnectionString("Provider='P'x;Data Source=y"); }).Description(),
            "A value of the connection string goes on after its closing quote.");
  EXPECT_EQ(FailureOf([] { ParseConnectionString("Provider='P';Colour=red"); }).Description(),
            "The connection string has an unknown setting 'Colour'.");
}

}  // namespace
}  // namespace tonalith::data
