// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The three panels of the help window and the style of its pages.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSplitter>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTreeWidget>

#include "help/contents_panel.h"
#include "help/frm_help_fixture.h"
#include "help/help_style.h"
#include "help/index_panel.h"
#include "help/search_panel.h"
#include "paint/theme.h"

namespace tonalith::help {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

HelpBook BookOf(const std::string& contents, const std::string& index) {
  return HelpBook(
      ChmObjects{{"/a.html", "<title>A</title>x"}, {"/b.html", "y"}, {"/c.hhc", contents}, {"/i.hhk", index}});
}

/// A panel's chosen targets.
template <class Panel>
std::shared_ptr<std::vector<std::string>> ChosenIn(Panel& panel) {
  auto chosen = std::make_shared<std::vector<std::string>>();
  QObject::connect(&panel, &Panel::TargetChosen,
                   [chosen](const HelpTarget& target) { chosen->push_back(target.page + "#" + target.anchor); });
  return chosen;
}

/// The visible entries, each indented by its depth.
std::string Shown(const QTreeWidget& tree) {
  std::string text;
  for (QTreeWidgetItemIterator at(const_cast<QTreeWidget*>(&tree)); *at != nullptr; ++at) {
    bool isShown = !(*at)->isHidden();
    std::string indent;
    for (const QTreeWidgetItem* above = (*at)->parent(); above != nullptr; above = above->parent()) {
      isShown = isShown && !above->isHidden() && above->isExpanded();
      indent += "  ";
    }
    if (isShown) text += indent + (*at)->text(0).toStdString() + "\n";
  }
  return text;
}

TEST(ContentsPanel, ShowsTheDepthOfItsEntries) {
  ContentsPanel panel(nullptr);
  panel.SetBook(BookOf("<ul>" + MapEntry("One", "a.html") + "<ul>" + MapEntry("Two", "") + "<ul>" +
                           MapEntry("Three", "a.html#x") + "</ul></ul>" + MapEntry("Four", "b.html") + "</ul>",
                       ""));
  EXPECT_EQ(Shown(panel), "One\n  Two\n    Three\nFour\n");
  EXPECT_EQ(panel.topLevelItem(0)->toolTip(0), QStringLiteral("One"));
  panel.SetBook(BookOf(MapEntry("Other", "a.html"), ""));
  EXPECT_EQ(Shown(panel), "Other\n") << "the entries of the new book only";
}

TEST(ContentsPanel, ExpandsAShortListCompletelyAndALongOneOnce) {
  const auto shown = [](int entries) {
    std::string list = "<ul>" + MapEntry("Top", "a.html") + "<ul>" + MapEntry("Inner", "") + "<ul>" +
                       MapEntry("Deep", "") + "</ul></ul>";
    for (int i = 3; i < entries; ++i) list += MapEntry("e", "a.html");
    ContentsPanel panel(nullptr);
    panel.SetBook(BookOf(list, ""));
    return Shown(panel).substr(0, 20);
  };
  EXPECT_EQ(shown(60), "Top\n  Inner\n    Deep");
  EXPECT_EQ(shown(61), "Top\n  Inner\ne\ne\ne\ne\n");
}

TEST(ContentsPanel, SelectsTheEntryOfTheTargetOrTheFirstOfItsPage) {
  ContentsPanel panel(nullptr);
  panel.SetBook(BookOf(MapEntry("A", "a.html") + MapEntry("A again", "a.html") + MapEntry("A x", "a.html#x"), ""));
  const auto chosen = ChosenIn(panel);
  const auto selected = [&panel](const HelpTarget& target) {
    panel.ShowTarget(target);
    return panel.currentItem() == nullptr ? "none" : panel.currentItem()->text(0).toStdString();
  };
  EXPECT_EQ(selected({"/a.html", "x"}), "A x");
  EXPECT_EQ(selected({"/a.html", "y"}), "A");
  EXPECT_EQ(selected({"/b.html", ""}), "none");
  EXPECT_THAT(*chosen, IsEmpty()) << "shown, not chosen";
}

TEST(ContentsPanel, EntryWithoutAPageExpands) {
  ContentsPanel panel(nullptr);
  panel.SetBook(BookOf("<ul>" + MapEntry("Part", "") + "<ul>" + MapEntry("A", "a.html#x") + "</ul></ul>", ""));
  panel.collapseAll();
  const auto chosen = ChosenIn(panel);
  QTreeWidgetItem* const part = panel.topLevelItem(0);
  Q_EMIT panel.itemActivated(part, 0);
  EXPECT_TRUE(part->isExpanded());
  EXPECT_THAT(*chosen, IsEmpty());
  Q_EMIT panel.itemActivated(part->child(0), 0);
  EXPECT_THAT(*chosen, ElementsAre("/a.html#x"));
}

TEST(IndexPanel, FilterShowsParentsOfMatchesAndChildrenOfMatches) {
  IndexPanel panel(nullptr);
  auto* const text = panel.findChild<QLineEdit*>();
  const QTreeWidget& tree = *panel.findChild<QTreeWidget*>();
  panel.SetBook(BookOf("", "<ul>" + MapEntry("chord", "") + "<ul>" + MapEntry("major", "a.html") +
                               MapEntry("minor", "b.html") + "</ul>" + MapEntry("scale", "a.html") + "</ul>"));
  EXPECT_EQ(Shown(tree), "chord\n  major\n  minor\nscale\n");
  text->setText(QStringLiteral(" MINOR "));
  EXPECT_EQ(Shown(tree), "chord\n  minor\n");
  text->setText(QStringLiteral("chord"));
  EXPECT_EQ(Shown(tree), "chord\n  major\n  minor\n");
  const auto chosen = ChosenIn(panel);
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_THAT(*chosen, ElementsAre("/a.html#")) << "the first entry that has a page";
  EXPECT_EQ(tree.currentItem()->text(0), QStringLiteral("major"));
  text->setText(QStringLiteral("nothing"));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(chosen->size(), 1U);
}

TEST(IndexPanel, ReportsAnEmptyIndexAndANewBookClearsTheText) {
  IndexPanel panel(nullptr);
  auto* const label = panel.findChild<QLabel*>(QStringLiteral("lblIndex"));
  panel.SetBook(BookOf("", ""));
  EXPECT_EQ(label->text(), QStringLiteral("This help file has no index."));
  EXPECT_FALSE(label->isHidden());
  panel.findChild<QLineEdit*>()->setText(QStringLiteral("a"));
  panel.SetBook(BookOf("", MapEntry("key", "a.html")));
  EXPECT_EQ(panel.findChild<QLineEdit*>()->text(), QString());
  EXPECT_TRUE(label->isHidden());
  EXPECT_EQ(Shown(*panel.findChild<QTreeWidget*>()), "key\n");
}

TEST(SearchPanel, CountsAndDescribesThePagesFound) {
  SearchPanel panel(nullptr);
  panel.SetBook(std::make_shared<const HelpBook>(
      ChmObjects{{"/a.html", "<title>A</title>one two"}, {"/b.html", "<title>B</title>two"}}));
  auto* const text = panel.findChild<QLineEdit*>();
  auto* const found = panel.findChild<QLabel*>(QStringLiteral("lblFound"));
  auto* const results = panel.findChild<QListWidget*>();
  std::vector<std::string> chosen;
  QObject::connect(&panel, &SearchPanel::PageChosen, [&](const HelpTarget& target, const QStringList& words) {
    chosen.push_back(target.page + " " + words.join(QLatin1Char('+')).toStdString());
  });
  EXPECT_EQ(found->text(), QStringLiteral("Finds the pages that have all the words."));
  EXPECT_EQ(text->accessibleDescription(), found->text());
  text->setText(QStringLiteral("Two"));
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(found->text(), QStringLiteral("2 pages"));
  EXPECT_EQ(text->accessibleDescription(), found->text());
  EXPECT_EQ(results->currentRow(), 0);
  EXPECT_EQ(results->item(0)->toolTip(), QStringLiteral("A"));
  EXPECT_EQ(results->item(0)->data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("one two"));
  Q_EMIT results->itemClicked(results->item(1));
  EXPECT_THAT(chosen, ElementsAre("/a.html two", "/b.html two"));
  for (int i = 0; i < 3; ++i) QTest::keyClick(text, Qt::Key_Down);
  EXPECT_EQ(results->currentRow(), 1) << "stays at the last one";
}

TEST_F(FrmHelpTest, WindowFitsTheScreenWithPanelsOfTheirWidth) {
  const QSize screen = form_->screen()->availableGeometry().size();
  frmHelp fresh(
      box_, [](const QUrl&) { return true; }, nullptr);
  EXPECT_EQ(fresh.size(), QSize(1060, 760).boundedTo(screen * 0.92).expandedTo(fresh.minimumSizeHint()));
  EXPECT_FALSE(fresh.findChild<QSplitter*>()->childrenCollapsible());
}

TEST_F(FrmHelpTest, AnotherBookStartsAnew) {
  Follow("strings.html");
  ShowTab(2);
  Find<QLineEdit>("txtHelpSearch")->setText(Wide("minor"));
  Press(Qt::Key_F, Qt::ControlModifier);
  form_->ShowBook(std::make_shared<const HelpBook>(ChmObjects{{"/z.html", "<title>Z</title>text"}}));
  EXPECT_EQ(Place(), "/z.html");
  EXPECT_EQ(form_->windowTitle(), Wide("Z"));
  EXPECT_FALSE(Find<QWidget>("cmdBack")->isEnabled());
  EXPECT_FALSE(Find<QWidget>("FindBar")->isVisible());
  EXPECT_EQ(Find<QTabWidget>("HelpTabs")->currentIndex(), 0);
  EXPECT_EQ(Find<QLineEdit>("txtHelpSearch")->text(), QString());
  EXPECT_EQ(form_->focusWidget(), Page());
}

TEST_F(FrmHelpTest, EachTabHasTheFocusWhenItIsShown) {
  ShowTab(1);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("txtIndex"));
  ShowTab(2);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("txtHelpSearch"));
  ShowTab(0);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("HelpContents"));
}

TEST_F(FrmHelpTest, ClosingTheFindBarFocusesThePage) {
  Click("cmdFind");
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("txtFind"));
  Press(Qt::Key_Escape);
  EXPECT_EQ(form_->focusWidget(), Page());
}

TEST_F(FrmHelpTest, LineBelowTheBarHasTheColourOfOutlines) {
  for (const auto* const line : form_->findChildren<QFrame*>(Wide("HelpLine"))) {
    EXPECT_EQ(line->palette().color(QPalette::WindowText), paint::OutlineColour(form_->palette()));
    EXPECT_EQ(line->height(), 1);
  }
}

TEST_F(FrmHelpTest, SmallerTextHasAButtonAndEqualIsPlus) {
  Click("cmdSmaller");
  EXPECT_EQ(Find<QLabel>("lblZoom")->text(), Wide("91 %"));
  Press(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(Find<QLabel>("lblZoom")->text(), Wide("100 %"));
}

/// The first block of an element in a page of letters 20 pixels high: letters, margins, line height, colours.
std::string StyleOf(const std::string& html, const QPalette& palette) {
  QTextDocument document;
  document.setDefaultStyleSheet(PageStyle(palette, 20));
  document.setHtml(QStringLiteral("<html><body><p>above</p>%1</body></html>").arg(QString::fromStdString(html)));
  const QTextBlock block = document.begin().next();
  const QTextBlockFormat lines = block.blockFormat();
  const QTextCharFormat letters = block.begin().fragment().charFormat();
  std::string text = QString(QStringLiteral("%1px %2 margins %3 %4 %5 lines %6"))
                         .arg(letters.property(QTextFormat::FontPixelSize).toInt())
                         .arg(letters.foreground().color().name())
                         .arg(lines.topMargin())
                         .arg(lines.bottomMargin())
                         .arg(lines.leftMargin())
                         .arg(lines.lineHeight())
                         .toStdString();
  if (letters.fontWeight() == QFont::DemiBold) text += " bold";
  if (letters.fontUnderline()) text += " underlined";
  if (letters.background().style() != Qt::NoBrush) text += " on " + letters.background().color().name().toStdString();
  return text;
}

TEST(PageStyle, ElementsHaveTheirSizesMarginsAndColours) {
  QPalette system(QColor(0xef, 0xef, 0xef));
  system.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
  const QPalette palette = paint::WarmPalette(system);
  std::string styles;
  for (const char* const html :
       {"<p>x</p>", "<h1>x</h1>", "<h2>x</h2>", "<h3>x</h3>", "<h4>x</h4>", "<h6>x</h6>", "<ul><li>x</li></ul>",
        "<dl><dt>x</dt></dl>", "<dl><dd>x</dd></dl>", "<p><a href='y'>x</a></p>", "<p><code>x</code></p>",
        "<pre>x</pre>", "<div class='footer'>x</div>"}) {
    styles += std::string(html) + " " + StyleOf(html, palette) + "\n";
  }
  EXPECT_EQ(styles,
            "<p>x</p> 20px #1f1b17 margins 0 15 0 lines 140\n"
            "<h1>x</h1> 37px #1f1b17 margins 4 14 0 lines 120 bold\n"
            "<h2>x</h2> 27px #1f1b17 margins 30 10 0 lines 120 bold\n"
            "<h3>x</h3> 22px #1f1b17 margins 24 7 0 lines 120 bold\n"
            "<h4>x</h4> 20px #1f1b17 margins 20 6 0 lines 120 bold\n"
            "<h6>x</h6> 20px #1f1b17 margins 20 6 0 lines 120 bold\n"
            "<ul><li>x</li></ul> 20px #1f1b17 margins 0 15 0 lines 135\n"
            "<dl><dt>x</dt></dl> 20px #1f1b17 margins 12 8 0 lines 140 bold\n"
            "<dl><dd>x</dd></dl> 20px #1f1b17 margins 8 8 28 lines 135\n"
            "<p><a href='y'>x</a></p> 20px #a0522d margins 0 15 0 lines 140 underlined\n"
            "<p><code>x</code></p> 18px #1f1b17 margins 0 15 0 lines 140 on #ededec\n"
            "<pre>x</pre> 18px #1f1b17 margins 0 0 0 lines 130\n"
            "<div class='footer'>x</div> 18px #5a534b margins 0 0 0 lines 0\n");
}

TEST(PageStyle, BoxesHaveATintOfTheirColourAndTheColumnFits) {
  EXPECT_EQ(ColumnWidth(20), 920);
  QPalette palette(Qt::white);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  EXPECT_EQ(Tint(palette, 0.2F).name(), QStringLiteral("#cccccc"));
  const QString light = PageStyle(palette, 20);
  for (const char* const box : {"td.note{", "td.tip{", "td.warning{", "td.message{", "td.example{"}) {
    const QString rule = light.section(QLatin1String(box), 1).section(QLatin1Char('}'), 0, 0);
    EXPECT_TRUE(rule.startsWith(QLatin1String("padding:15px;"))) << box;
    EXPECT_TRUE(rule.contains(QLatin1String("border-left-style:solid;border-left-width:4px;"))) << box;
    EXPECT_TRUE(rule.contains(QLatin1String("border-top-style:none;border-top-width:0px;"))) << box;
    const QColor edge(rule.section(QLatin1String("border-left-color:"), 1).left(7));
    const QColor background(rule.section(QLatin1String("background-color:"), 1).left(7));
    EXPECT_NEAR(255 - background.blue(), (255 - edge.blue()) * 0.1, 1) << box;
    EXPECT_NEAR(255 - background.green(), (255 - edge.green()) * 0.1, 1) << box;
  }
}

/// A PNG file of a white square.
std::string SquareFile(int side) {
  QImage image(side, side, QImage::Format_Mono);
  image.fill(1);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes.toStdString();
}

TEST(HelpBrowserPicture, PicturesOfAPageHaveAtMost64MillionPixels) {
  HelpBrowser page(nullptr);
  std::string html;
  for (int i = 0; i < 5; ++i) html += "<p><img src=p.png width=10 alt='too much'></p>";
  page.ShowPage(std::make_shared<const HelpBook>(ChmObjects{{"/a.html", html}, {"/p.png", SquareFile(4000)}}),
                {"/a.html", {}});
  EXPECT_EQ(page.toPlainText().count(QStringLiteral("[too much]")), 2) << "three squares of 16 million, and two more";
}

}  // namespace
}  // namespace tonalith::help
