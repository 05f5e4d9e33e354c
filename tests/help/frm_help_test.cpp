// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/frm_help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <vector>

#include "help/frm_help_fixture.h"

namespace tonalith::help {
namespace {

using core::MsgBoxAnswer;
using core::MsgBoxStyle;
using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

TEST_F(FrmHelpTest, OpensAtTheDefaultPageWithAnEmptyHistory) {
  EXPECT_EQ(Place(), "/welcome.html");
  EXPECT_TRUE(Text().startsWith(Wide("Welcome")));
  EXPECT_FALSE(Find<QWidget>("cmdBack")->isEnabled());
  EXPECT_FALSE(Find<QWidget>("cmdForward")->isEnabled());
  EXPECT_EQ(form_->windowTitle(), Wide("A small book"));
}

TEST_F(FrmHelpTest, PageIsDescribedByItsTitle) {
  EXPECT_EQ(Page()->accessibleDescription(), Wide("Welcome"));
  Follow("strings.html");
  EXPECT_EQ(Page()->accessibleDescription(), Wide("Strings"));
}

TEST_F(FrmHelpTest, ContentsOpenTheirPages) {
  ClickEntry("HelpContents", "Strings");
  EXPECT_EQ(Place(), "/strings.html");
  ClickEntry("HelpContents", "Minor chords");
  EXPECT_EQ(Place(), "/chords/open.html#minor");
  EXPECT_GT(Page()->Scroll(), 0);
}

TEST_F(FrmHelpTest, ContentsEntryWithoutAPageDoesNothing) {
  ClickEntry("HelpContents", "Chords");
  EXPECT_EQ(Place(), "/welcome.html");
}

TEST_F(FrmHelpTest, ContentsWorkByKeyboard) {
  auto* const tree = Find<QTreeWidget>("HelpContents");
  tree->setFocus();
  QTest::keyClick(tree, Qt::Key_Down);
  QTest::keyClick(tree, Qt::Key_Return);
  EXPECT_EQ(Place(), "/strings.html");
}

TEST_F(FrmHelpTest, ContentsSelectTheShownPage) {
  Follow("strings.html");
  EXPECT_EQ(Find<QTreeWidget>("HelpContents")->currentItem()->text(0), Wide("Strings"));
  Follow("chords/open.html#minor");
  EXPECT_EQ(Find<QTreeWidget>("HelpContents")->currentItem()->text(0), Wide("Minor chords"));
  Follow("open.html");
  EXPECT_EQ(Find<QTreeWidget>("HelpContents")->currentItem()->text(0), Wide("Open chords"));
}

TEST_F(FrmHelpTest, LinksWorkByClickAndByKeyboard) {
  // Tab moves through the links of the page.
  Page()->setFocus();
  QTest::keyClick(Page(), Qt::Key_Tab);
  EXPECT_EQ(Page()->textCursor().selectedText(), Wide("strings"));
  const QPoint link = Page()->cursorRect(Page()->textCursor()).center() - QPoint(8, 0);
  QTest::mouseClick(Page()->viewport(), Qt::LeftButton, {}, link);
  EXPECT_EQ(Place(), "/strings.html");
  Press(Qt::Key_Left, Qt::AltModifier);
  Page()->setFocus();
  QTest::keyClick(Page(), Qt::Key_Tab);
  QTest::keyClick(Page(), Qt::Key_Return);
  EXPECT_EQ(Place(), "/strings.html");
}

TEST_F(FrmHelpTest, BackAndForwardMoveThroughTheHistory) {
  Follow("strings.html");
  Follow("chords/open.html");
  Click("cmdBack");
  EXPECT_EQ(Place(), "/strings.html");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Place(), "/welcome.html");
  EXPECT_FALSE(Find<QWidget>("cmdBack")->isEnabled());
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Place(), "/strings.html");
  Click("cmdForward");
  EXPECT_EQ(Place(), "/chords/open.html");
  EXPECT_FALSE(Find<QWidget>("cmdForward")->isEnabled());
}

TEST_F(FrmHelpTest, BackRestoresTheScrollPosition) {
  Follow("chords/open.html");
  Page()->SetScroll(333);
  Follow("../strings.html");
  EXPECT_EQ(Page()->Scroll(), 0);
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page()->Scroll(), 333);
}

TEST_F(FrmHelpTest, MouseButtonsForBackAndForwardWork) {
  Follow("strings.html");
  QTest::mouseClick(Page()->viewport(), Qt::BackButton);
  EXPECT_EQ(Place(), "/welcome.html");
  QTest::mouseClick(Page()->viewport(), Qt::ForwardButton);
  EXPECT_EQ(Place(), "/strings.html");
}

TEST_F(FrmHelpTest, HomeOpensTheDefaultPage) {
  Follow("strings.html");
  Click("cmdHome");
  EXPECT_EQ(Place(), "/welcome.html");
  Follow("strings.html");
  Press(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(Place(), "/welcome.html");
}

TEST_F(FrmHelpTest, MissingPageIsReportedOnAPageAndBackWorks) {
  Follow("gone.html");
  EXPECT_TRUE(Text().contains(Wide("/gone.html"))) << Text().toStdString();
  EXPECT_TRUE(Text().startsWith(Wide("Page not found")));
  EXPECT_THAT(box_.Messages(), IsEmpty());
  Click("cmdBack");
  EXPECT_EQ(Place(), "/welcome.html");
  EXPECT_TRUE(Text().startsWith(Wide("Welcome")));
}

TEST_F(FrmHelpTest, ExternalLinkIsOpenedOnlyAfterConfirmation) {
  box_.AnswerNext(MsgBoxAnswer::kNo);
  box_.AnswerNext(MsgBoxAnswer::kYes);
  Follow("https://tonalith.example/more");
  EXPECT_THAT(opened_, IsEmpty());
  Follow("https://tonalith.example/more");
  EXPECT_THAT(opened_, ElementsAre("https://tonalith.example/more"));
  const Message question{"This link leads out of the help. Do you want to open it?\nhttps://tonalith.example/more",
                         MsgBoxStyle::kYesNo | MsgBoxStyle::kQuestion | MsgBoxStyle::kDefaultButton2, ""};
  EXPECT_THAT(box_.Messages(), ElementsAre(question, question));
  EXPECT_EQ(Place(), "/welcome.html");
}

TEST_F(FrmHelpTest, AddressThatCannotBeOpenedIsReported) {
  box_.AnswerNext(MsgBoxAnswer::kYes);
  opens_ = false;
  Follow("mailto:somebody@tonalith.example");
  const Message sorry{"The address could not be opened:\nmailto:somebody@tonalith.example", MsgBoxStyle::kExclamation,
                      ""};
  ASSERT_EQ(box_.Messages().size(), 2U);
  EXPECT_EQ(box_.Messages()[1], sorry);
}

TEST_F(FrmHelpTest, LinkToALocalFileIsRefused) {
  Follow("file:///etc/passwd");
  const Message refusal{"This link leads to something that the help does not open:\nfile:///etc/passwd",
                        MsgBoxStyle::kExclamation, ""};
  EXPECT_THAT(box_.Messages(), ElementsAre(refusal));
  EXPECT_THAT(opened_, IsEmpty());
}

TEST_F(FrmHelpTest, WindowMayBeDestroyedDuringTheMessageBox) {
  class ClosingMsgBox : public core::MsgBox {
   public:
    using core::MsgBox::Show;
    MsgBoxAnswer Show(const core::Message& /*text*/, MsgBoxStyle /*style*/, const core::Message& /*title*/) override {
      delete window_;
      return MsgBoxAnswer::kYes;
    }
    frmHelp* window_ = nullptr;
  };
  ClosingMsgBox box;
  int opened = 0;
  box.window_ = new frmHelp(
      box, [&opened](const QUrl&) { return ++opened > 0; }, nullptr);
  box.window_->ShowBook(ReadBook());
  Q_EMIT box.window_->Page()->LinkChosen("https://tonalith.example");
  EXPECT_EQ(opened, 1);
}

TEST_F(FrmHelpTest, IndexIsFilteredWhileTyping) {
  ShowTab(1);
  QTest::keyClicks(Find<QLineEdit>("txtIndex"), Wide("RE"));
  EXPECT_TRUE(Entry("HelpIndex", "string")->isHidden());
  EXPECT_FALSE(Entry("HelpIndex", "fret")->isHidden());
  QTest::keyClick(Find<QLineEdit>("txtIndex"), Qt::Key_Return);
  EXPECT_EQ(Place(), "/strings.html");
  EXPECT_FALSE(Find<QLabel>("lblIndex")->isVisible());
  QTest::keyClicks(Find<QLineEdit>("txtIndex"), Wide("xyz"));
  EXPECT_EQ(Find<QLabel>("lblIndex")->text(), Wide("No keyword contains \"RExyz\"."));
  EXPECT_TRUE(Find<QLabel>("lblIndex")->isVisible());
}

TEST_F(FrmHelpTest, KeywordWithSeveralPagesListsThem) {
  ShowTab(1);
  QTest::keyClicks(Find<QLineEdit>("txtIndex"), Wide("string"));
  ClickEntry("HelpIndex", "string");
  EXPECT_EQ(Place(), "/welcome.html");
  ClickEntry("HelpIndex", "Open chords");
  EXPECT_EQ(Place(), "/chords/open.html");
}

TEST_F(FrmHelpTest, DownKeyMovesFromTheBoxIntoTheIndex) {
  ShowTab(1);
  QTest::keyClick(Find<QLineEdit>("txtIndex"), Qt::Key_Down);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("HelpIndex"));
}

TEST_F(FrmHelpTest, SearchListsPagesAndHighlightsTheWords) {
  ShowTab(2);
  auto* const text = Find<QLineEdit>("txtHelpSearch");
  QTest::keyClicks(text, Wide("minor sad"));
  QTRY_COMPARE_WITH_TIMEOUT(Find<QListWidget>("HelpResults")->count(), 1, 3000);
  EXPECT_EQ(Find<QLabel>("lblFound")->text(), Wide("1 page"));
  EXPECT_EQ(Place(), "/welcome.html");
  QTest::keyClick(text, Qt::Key_Return);
  EXPECT_EQ(Place(), "/chords/open.html");
  EXPECT_THAT(Highlighted(), ElementsAre("Minor", "minor", "sad"));
  // The first match is visible.
  EXPECT_TRUE(Page()->viewport()->rect().contains(Page()->cursorRect(Page()->extraSelections().first().cursor)));
  Follow("../strings.html");
  EXPECT_THAT(Highlighted(), IsEmpty());
}

TEST_F(FrmHelpTest, DownKeyMovesFromTheSearchToTheFirstPageNotOpen) {
  ShowTab(2);
  auto* const text = Find<QLineEdit>("txtHelpSearch");
  auto* const results = Find<QListWidget>("HelpResults");
  QTest::keyClicks(text, Wide("string"));
  QTRY_VERIFY_WITH_TIMEOUT(results->count() > 1, 3000);
  QTest::keyClick(text, Qt::Key_Down);
  EXPECT_EQ(results->currentRow(), 0) << "none is open";
  QTest::keyClick(text, Qt::Key_Return);
  QTest::keyClick(text, Qt::Key_Down);
  EXPECT_EQ(results->currentRow(), 1) << "the first one is open";
}

TEST_F(FrmHelpTest, SearchReportsNoResult) {
  ShowTab(2);
  QTest::keyClicks(Find<QLineEdit>("txtHelpSearch"), Wide("zither"));
  QTest::keyClick(Find<QLineEdit>("txtHelpSearch"), Qt::Key_Return);
  auto* const found = Find<QLabel>("lblFound");
  EXPECT_EQ(found->text(), Wide("No page has all of these words."));
  EXPECT_GT(found->heightForWidth(80), found->fontMetrics().lineSpacing()) << "breaks its lines in a narrow panel";
  EXPECT_EQ(Place(), "/welcome.html");
}

TEST_F(FrmHelpTest, EscapeClosesTheFindBarThenTheWindow) {
  Press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(Find<QLineEdit>("txtFind"), Wide("strings"));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Find<QWidget>("FindBar")->isVisible());
  EXPECT_THAT(Highlighted(), IsEmpty());
  EXPECT_TRUE(form_->isVisible());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmHelpTest, ControlWCloses) {
  Press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(form_->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(form_.isNull());
}

TEST_F(FrmHelpTest, ZoomWorksByKeysButtonsAndWheel) {
  const auto heightNow = [this] { return Page()->document()->defaultFont().pixelSize(); };
  const int height = heightNow();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(heightNow(), height);
  EXPECT_EQ(Find<QLabel>("lblZoom")->text(), Wide("110 %"));
  Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(heightNow(), height);
  Click("cmdLarger");
  Click("cmdLarger");
  EXPECT_EQ(Find<QLabel>("lblZoom")->text(), Wide("121 %"));
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(heightNow(), height);
  const QPointF middle(100, 100);
  QWheelEvent wheel(middle, Page()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::ControlModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(Page()->viewport(), &wheel);
  EXPECT_LT(heightNow(), height);
}

TEST_F(FrmHelpTest, ZoomIsLimitedAndKeepsTheScrollPosition) {
  Follow("chords/open.html#minor");
  for (int i = 0; i < 60; ++i) Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_LE(Page()->Zoom(), 4.0);
  EXPECT_GT(Page()->Scroll(), Page()->verticalScrollBar()->maximum() / 4);
  for (int i = 0; i < 90; ++i) Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_GE(Page()->Zoom(), 0.6);
}

}  // namespace
}  // namespace tonalith::help
