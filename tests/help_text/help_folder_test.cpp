// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/help_folder.h"

#include <gmock/gmock.h>

namespace tonalith::help_text {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Faults = std::vector<std::string>;

TEST(Help, TopicsAreWellFormed) { EXPECT_THAT(TopicFaults(HelpFolder::Shipped()), IsEmpty()); }
TEST(Help, EveryLinkHasATopicAndAnAnchor) { EXPECT_THAT(LinkFaults(HelpFolder::Shipped()), IsEmpty()); }
TEST(Help, EveryPictureIsInTheTableAndShown) { EXPECT_THAT(PictureFaults(HelpFolder::Shipped()), IsEmpty()); }
TEST(Help, ProjectListsAllFiles) { EXPECT_THAT(ProjectFaults(HelpFolder::Shipped()), IsEmpty()); }
TEST(Help, ContentsListEveryTopicWithItsTitle) { EXPECT_THAT(ContentsFaults(HelpFolder::Shipped()), IsEmpty()); }
TEST(Help, IndexIsSortedAndHasTargets) { EXPECT_THAT(IndexFaults(HelpFolder::Shipped()), IsEmpty()); }

TEST(Help, IsRead) {
  const HelpFolder& help = HelpFolder::Shipped();
  EXPECT_THAT(help.topics, SizeIs(::testing::Ge(18U)));
  EXPECT_THAT(help.index, SizeIs(::testing::Ge(100U)));
  EXPECT_EQ(help.contents.size(), help.topics.size());
  EXPECT_FALSE(help.topics.at("window.html").Named("img").empty());
  EXPECT_FALSE(help.topics.at("window.html").Named("a").empty());
}

/// A valid help of two topics, with one part of the text replaced.
class SmallHelp {
 public:
  SmallHelp(std::string_view piece, std::string_view other) : tree_(Text(piece, other)) {}
  [[nodiscard]] HelpFolder Read() const { return HelpFolder::Read(tree_.Root()); }

 private:
  static std::string Head(const std::string& title) {
    return "<!--\nSPDX-License-Identifier: CC0-1.0\nSPDX-FileCopyrightText: 2026 The Tonalith authors\n-->\n"
           "<html><head><meta content=\"text/html; charset=utf-8\"><title>" +
           title + "</title><link rel=\"stylesheet\" href=\"tonalith.css\"></head><body><h1>" + title + "</h1>\n";
  }
  static std::string Entry(const std::string& name, const std::string& target) {
    return "<object><param name=\"Name\" value=\"" + name + "\"><param name=\"Local\" value=\"" + target +
           "\"></object>\n";
  }
  static std::string Text(std::string_view piece, std::string_view other) {
    std::string text = "== a.html\n" + Head("Frets") +
                       "<p>See <a href=\"b.html#low\">low</a> <img src=\"pictures/neck.png\"" +
                       " width=\"640\" alt=\"Neck\"></p></body></html>\n== b.html\n" + Head("Strings") +
                       "<h2><a name=\"low\"></a>Low</h2><p>E</p></body></html>\n" + "== contents.hhc\n<body>" +
                       Entry("Frets", "a.html") + Entry("Strings", "b.html") + "</body>\n== index.hhk\n<body>" +
                       Entry("Fret", "a.html") + Entry("low string", "b.html#low") + "</body>\n" +
                       "== pictures.tsv\nneck\t640\n== tonalith.hhp\n[OPTIONS]\nCompiled file=TLHELP.chm\n"
                       "Contents file=contents.hhc\nIndex file=index.hhk\nDefault topic=a.html\nTitle=Tonalith Help\n"
                       "Full-text search=Yes\n[FILES]\na.html\nb.html\ntonalith.css\npictures/neck.png\n";
    if (!piece.empty()) text.replace(text.find(piece), piece.size(), other);
    return text;
  }

  house::TemporaryTree tree_;
};

Faults AllFaults(std::string_view piece, std::string_view other) {
  const HelpFolder help = SmallHelp(piece, other).Read();
  Faults all;
  for (const auto& check : {TopicFaults, LinkFaults, PictureFaults, ProjectFaults, ContentsFaults, IndexFaults}) {
    const Faults faults = check(help);
    all.insert(all.end(), faults.begin(), faults.end());
  }
  return all;
}

TEST(HelpChecks, FindNothingInAValidHelp) { EXPECT_THAT(AllFaults("", ""), IsEmpty()); }

TEST(HelpChecks, FindUnbalancedTags) {
  EXPECT_THAT(AllFaults("E</p>", "E"),
              ElementsAre("b.html: </body> where <p> is open", "b.html: </html> where <p> is open",
                          "b.html: <html> is not closed", "b.html: <body> is not closed", "b.html: <p> is not closed"));
  EXPECT_THAT(AllFaults("</object>", ""), Contains("contents.hhc: <object> is not closed"));
}

TEST(HelpChecks, FindInvalidAttributesAndEntities) {
  EXPECT_THAT(AllFaults("<p>E", "<p class=x>E"),
              ElementsAre("b.html: <p class=x> has an attribute that is not well formed"));
  EXPECT_THAT(AllFaults("<p>E", "<p>E & A"), ElementsAre("b.html: unknown entity & A"));
  EXPECT_THAT(AllFaults("<p>E", "<p>E > A"), ElementsAre("b.html: a bare > in the text"));
}

TEST(HelpChecks, FindMissingPartsOfATopicsHead) {
  EXPECT_THAT(AllFaults("SPDX-License-Identifier: CC0-1.0\n", ""), ElementsAre("a.html: no licence at the top"));
  EXPECT_THAT(AllFaults("charset=utf-8", "charset=latin1"), ElementsAre("a.html: no encoding"));
  EXPECT_THAT(AllFaults("<link rel=\"stylesheet\" href=\"tonalith.css\">", ""), ElementsAre("a.html: no style sheet"));
  EXPECT_THAT(AllFaults("<h1>Frets", "<h1>Fret"), ElementsAre("a.html: title and heading differ"));
}

TEST(HelpChecks, FindBrokenAndExternalLinks) {
  EXPECT_THAT(AllFaults("b.html#low", "b.html#high"), ElementsAre("a.html: b.html#high: there is no such place"));
  EXPECT_THAT(AllFaults("b.html#low", "c.html"), ElementsAre("a.html: c.html: there is no such topic"));
  EXPECT_THAT(AllFaults("b.html#low", "#low"), ElementsAre("a.html: #low: there is no such place"));
  EXPECT_THAT(AllFaults("b.html#low", "mailto:a"), ElementsAre("a.html: mailto:a: leads outside"));
}

TEST(HelpChecks, FindPicturesMissingInTheTable) {
  EXPECT_THAT(
      AllFaults("src=\"pictures/neck.png\"", "src=\"pictures/deck.png\""),
      ElementsAre("a.html: pictures/deck.png: there is no such picture", "pictures.tsv: neck is shown nowhere"));
  EXPECT_THAT(AllFaults("width=\"640\"", "width=\"600\""), ElementsAre("a.html: pictures/neck.png: another width"));
  EXPECT_THAT(AllFaults("alt=\"Neck\"", "alt=\"\""), ElementsAre("a.html: pictures/neck.png: no alt"));
  EXPECT_THAT(AllFaults("neck\t640\n", "neck\t640\nnut\t20\n"), Contains("pictures.tsv: nut is shown nowhere"));
}

TEST(HelpChecks, FindMissingAndSuperfluousProjectEntries) {
  EXPECT_THAT(AllFaults("[FILES]\na.html\n", "[FILES]\n"), ElementsAre("tonalith.hhp: a.html is not listed"));
  EXPECT_THAT(AllFaults("[FILES]\n", "[FILES]\nb.html\n"), ElementsAre("tonalith.hhp: b.html is listed twice"));
  EXPECT_THAT(AllFaults("[FILES]\n", "[FILES]\nc.html\n"), ElementsAre("tonalith.hhp: c.html is not part of the help"));
  EXPECT_THAT(AllFaults("pictures/neck.png\n", ""), ElementsAre("tonalith.hhp: pictures/neck.png is not listed"));
  EXPECT_THAT(AllFaults("TLHELP.chm", "help.chm"), ElementsAre("tonalith.hhp: Compiled file is not TLHELP.chm"));
  EXPECT_THAT(AllFaults("Full-text search=Yes\n", ""), ElementsAre("tonalith.hhp: Full-text search is not Yes"));
  EXPECT_THAT(AllFaults("topic=a.html", "topic=c.html"), ElementsAre("tonalith.hhp: no default topic"));
}

TEST(HelpChecks, FindMissingAndRenamedContentsEntries) {
  const std::string entry =
      "<object><param name=\"Name\" value=\"Strings\"><param name=\"Local\" value=\"b.html\"></object>\n";
  EXPECT_THAT(AllFaults(entry, ""), ElementsAre("contents.hhc: b.html stands 0 times"));
  EXPECT_THAT(AllFaults(entry, entry + entry), ElementsAre("contents.hhc: b.html stands 2 times"));
  EXPECT_THAT(AllFaults("value=\"Strings\"", "value=\"Cords\""),
              ElementsAre("contents.hhc: b.html has another title than Cords"));
  EXPECT_THAT(AllFaults("value=\"b.html\"", "value=\"c.html\""),
              ElementsAre("contents.hhc: c.html: there is no such topic", "contents.hhc: b.html stands 0 times"));
}

TEST(HelpChecks, FindIndexEntriesWithoutTargetOrOutOfOrder) {
  EXPECT_THAT(AllFaults("value=\"b.html#low\"", "value=\"b.html#lower\""),
              ElementsAre("index.hhk: low string: there is no such place"));
  EXPECT_THAT(AllFaults("value=\"low string\"", "value=\"fret\""),
              ElementsAre("index.hhk: fret does not stand in order"));
}

}  // namespace
}  // namespace tonalith::help_text
