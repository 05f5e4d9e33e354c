// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/site_map.h"

#include <gtest/gtest.h>

#include "help/book_fixture.h"

namespace tonalith::help {
namespace {

/// One line per entry, indented by its depth: name, then its targets.
std::string Lines(std::string_view bytes) {
  std::string lines;
  for (const SiteMapEntry& entry : ReadSiteMap(bytes)) {
    lines += std::string(static_cast<std::size_t>(entry.depth) * 2, ' ') + entry.name;
    for (const SiteMapTarget& target : entry.targets) lines += " (" + target.title + ": " + target.local + ")";
    lines += "\n";
  }
  return lines;
}

TEST(SiteMap, ReadsTheContentsOfAFile) {
  EXPECT_EQ(Lines(SourceOf("contents.hhc")),
            "Welcome (Welcome: welcome.html)\n"
            "Strings (Strings: strings.html)\n"
            "Chords\n"
            "  Open chords (Open chords: chords/open.html)\n"
            "  Minor chords (Minor chords: chords/open.html#minor)\n");
}

TEST(SiteMap, ReadsAllTargetsOfAKeyword) {
  EXPECT_EQ(Lines(SourceOf("keywords.hhk")),
            "chord, minor (Minor: chords/open.html#minor)\n"
            "fret (Strings: strings.html)\n"
            "string (Strings: strings.html) (Open chords: chords/open.html)\n");
}

TEST(SiteMap, TargetWithoutATitleGetsTheKeywordsName) {
  EXPECT_EQ(Lines("<ul><li><object type='text/sitemap'><param name='Name' value='string'>"
                  "<param name='Name' value='Strings'><param name='Local' value='a.html'>"
                  "<param name='Local' value='b.html'></object></ul>"),
            "string (Strings: a.html) (string: b.html)\n");
}

TEST(SiteMap, SkipsOtherObjectsAndObjectsWithoutAName) {
  EXPECT_EQ(Lines("<object type='text/site properties'><param name='Name' value='x'></object><ul>"
                  "<li><object type='text/sitemap'><param name='Local' value='a.html'></object>"
                  "<li><object type='TEXT/SiteMap'><PARAM NAME=name VALUE=Kept></object></ul>"),
            "Kept\n");
}

TEST(SiteMap, IsEmptyForInvalidInput) {
  EXPECT_EQ(Lines(""), "");
  EXPECT_EQ(Lines("\xFF\xFE\x01"), "");
  EXPECT_EQ(Lines("<object type='text/sitemap'><param name='Name' value='never closed'>"), "");
}

TEST(SiteMap, DepthAndNumberOfEntriesAreLimited) {
  std::string deep;
  for (int i = 0; i < 100; ++i) deep += "<ul>" + MapEntry("entry", "a.html");
  for (const SiteMapEntry& entry : ReadSiteMap(deep)) EXPECT_LE(entry.depth, 15);
  std::string many = "<ul>";
  for (int i = 0; i < 11'000; ++i) many += MapEntry("e", "");
  EXPECT_EQ(ReadSiteMap(many).size(), 10'000U);
  EXPECT_EQ(Lines("</ul></ul>" + MapEntry("top", "")), "top\n");
}

/// A record of the settings: code, length, text.
std::string Setting(char code, const std::string& text) {
  return std::string{code, '\0', static_cast<char>(text.size()), '\0'} + text;
}

TEST(ChmSettings, ReadsPathsAndTitle) {
  const std::string version(4, '\3');
  const ChmSettings settings =
      ReadChmSettings(version + Setting(9, "compiler") + Setting(0, "a.hhc") + Setting(1, "b.hhk") +
                      Setting(2, std::string("c.html\0rest", 11)) + Setting(3, "Title") + Setting(4, "ignored"));
  EXPECT_EQ(settings.contents, "a.hhc");
  EXPECT_EQ(settings.index, "b.hhk");
  EXPECT_EQ(settings.defaultTopic, "c.html");
  EXPECT_EQ(settings.title, "Title");
}

TEST(ChmSettings, AcceptsTruncatedInput) {
  const std::string whole = std::string(4, '\3') + Setting(3, "Title");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_LE(ReadChmSettings(whole.substr(0, size)).title.size(), 5U);
  }
}

}  // namespace
}  // namespace tonalith::help
