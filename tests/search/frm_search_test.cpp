// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "search/frm_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <thread>

#include "paint/theme.h"
#include "search/fake_scales.h"
#include "support/recording_msg_box.h"

namespace tonalith::search {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString Wide(const char* text) { return QString::fromUtf8(text); }

class FrmSearchTest : public testing::Test {
 protected:
  FrmSearchTest() {
    auto scales = std::make_unique<FakeScales>("Major,Dorian,Melodic Minor");
    scales_ = scales.get();
    form_ = std::make_unique<frmSearch>(std::move(scales), box_, nullptr);
  }
  template <class Control>
  [[nodiscard]] Control* Find(const char* name) const {
    auto* const control = form_->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  [[nodiscard]] QLineEdit* Text() const { return Find<QLineEdit>("txtSearch"); }
  [[nodiscard]] std::string Message() const { return Find<QLabel>("lblMessage")->text().toStdString(); }
  void Type(const char* text) const {
    Text()->selectAll();
    QTest::keyClicks(Text(), Wide(text));
  }
  void Show() const {
    form_->show();
    form_->activateWindow();
    Text()->setFocus();
  }
  void Click(const char* name) const { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }
  /// Runs `step` as soon as events are handled.
  template <class Step>
  void Soon(Step step) const {
    QTimer::singleShot(0, form_.get(), step);
  }
  /// Adds so many records and such a delay that a search would take minutes.
  void MakeSlow() {
    for (std::int64_t key = 4; key < 100000; ++key) scales_->rows_[key] = "Major";
    scales_->onTest_ = [this] {
      ++tested_;
      // A slow comparison: the search must show its progress in real time.
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    };
  }

  tests::RecordingMsgBox box_;
  FakeScales* scales_ = nullptr;
  std::unique_ptr<frmSearch> form_;
  int tested_ = 0;
};

TEST_F(FrmSearchTest, HasItsControlsWithTheirCaptions) {
  EXPECT_EQ(form_->objectName(), Wide("frmSearch"));
  EXPECT_EQ(form_->windowTitle(), Wide("Search"));
  EXPECT_EQ(Find<QLabel>("lblSearch")->text(), Wide("Search"));
  EXPECT_EQ(Find<QLabel>("lblHelp")->text(), Wide("Use terms that use wildcards like *Melodic in the text search"));
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(Find<QAbstractButton>("cmdSearch")->text(), Wide("Search"));
  EXPECT_EQ(Find<QAbstractButton>("cmdCancel")->text(), Wide("Cancel"));
  EXPECT_EQ(Text()->text(), Wide(""));
}

TEST_F(FrmSearchTest, SearchButtonMakesTheMatchCurrentAndStaysOpen) {
  Show();
  Type("dor");
  Click("cmdSearch");
  EXPECT_EQ(scales_->current_, 2);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_FALSE(form_->SearchCancelled());
}

TEST_F(FrmSearchTest, EnterSearchesAndEnterAgainFindsTheNext) {
  Show();
  Type("m");
  QTest::keyClick(Text(), Qt::Key_Return);
  EXPECT_EQ(scales_->current_, 3);
  QTest::keyClick(Text(), Qt::Key_Enter);
  EXPECT_EQ(scales_->current_, 1);
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(FrmSearchTest, SearchedTextStaysAndIsSelected) {
  Show();
  Type("  dor ");
  QTest::keyClick(Text(), Qt::Key_Return);
  EXPECT_EQ(Text()->text(), Wide("  dor "));
  EXPECT_EQ(Text()->selectedText(), Wide("  dor "));
  QTest::keyClicks(Text(), Wide("maj"));
  EXPECT_EQ(Text()->text(), Wide("maj"));
}

TEST_F(FrmSearchTest, WrapMessageStaysUntilTheNextSearchBegins) {
  Show();
  Type("major");
  Click("cmdSearch");
  EXPECT_EQ(Message(), "You have searched all the records once");
  Type("dorian");
  EXPECT_EQ(Message(), "You have searched all the records once");
  Click("cmdSearch");
  EXPECT_EQ(Message(), "");
}

TEST_F(FrmSearchTest, BlankTextOnlyClearsTheStatusLine) {
  Show();
  Type("major");
  Click("cmdSearch");
  scales_->TakeLog();
  Type("   ");
  Click("cmdSearch");
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(scales_->TakeLog(), "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmSearchTest, NoMatchIsReportedInAnInformationBox) {
  Type("nothing");
  form_->cmdSearch_Click();
  const tests::RecordingMsgBox::Message expected{"No matches found.", core::MsgBoxStyle::kInformation, ""};
  EXPECT_THAT(box_.Messages(), ElementsAre(expected));
}

TEST_F(FrmSearchTest, MalformedListIsReportedInAPlainBox) {
  Show();
  Type("[abc");
  Click("cmdSearch");
  const tests::RecordingMsgBox::Message expected{"Invalid pattern string", core::MsgBoxStyle::kOkOnly, ""};
  EXPECT_THAT(box_.Messages(), ElementsAre(expected));
  EXPECT_EQ(scales_->TakeLog(), "");
  EXPECT_EQ(Text()->selectedText(), Wide("[abc"));
}

TEST_F(FrmSearchTest, MissingDatabaseIsReportedAndTheDialogStaysUsable) {
  scales_->isOpen_ = false;
  Type("a");
  form_->cmdSearch_Click();
  form_->cmdSearch_Click();
  EXPECT_EQ(box_.Texts(),
            "There are no scales to search: the scale database is not open.\n"
            "There are no scales to search: the scale database is not open.\n");
}

TEST_F(FrmSearchTest, CancelSetsTheFlagAndHides) {
  Show();
  Click("cmdCancel");
  EXPECT_TRUE(form_->SearchCancelled());
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmSearchTest, EscapeCancels) {
  Show();
  QTest::keyClick(Text(), Qt::Key_Escape);
  EXPECT_TRUE(form_->SearchCancelled());
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmSearchTest, CloseBoxSetsTheFlagAndHidesAndTheFormSurvives) {
  Show();
  EXPECT_FALSE(form_->close());
  EXPECT_FALSE(form_->isVisible());
  EXPECT_TRUE(form_->SearchCancelled());
}

TEST_F(FrmSearchTest, FlagCanBeReadAndWrittenFromOutside) {
  form_->setProperty("SearchCancelled", true);
  EXPECT_TRUE(form_->SearchCancelled());
  form_->SetSearchCancelled(false);
  EXPECT_FALSE(form_->property("SearchCancelled").toBool());
}

TEST_F(FrmSearchTest, TabOrderIsTextSearchCancel) {
  Show();
  QTest::keyClick(Text(), Qt::Key_Tab);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("cmdSearch"));
  QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(form_->focusWidget(), Find<QWidget>("cmdCancel"));
  QTest::keyClick(form_->focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(form_->SearchCancelled());
}

TEST_F(FrmSearchTest, ClickOnSearchKeepsTheFocusInTheText) {
  Show();
  Type("dor");
  Click("cmdSearch");
  EXPECT_EQ(form_->focusWidget(), Text());
}

TEST_F(FrmSearchTest, FoundNameIsDescribedToAssistiveTechnology) {
  Show();
  EXPECT_EQ(Text()->accessibleName(), Wide("Search"));
  Type("melodic");
  Click("cmdSearch");
  EXPECT_EQ(Text()->accessibleDescription(), Wide("Found: Melodic Minor"));
  Type("nothing");
  Click("cmdSearch");
  EXPECT_EQ(Text()->accessibleDescription(), Find<QLabel>("lblHelp")->text());
}

TEST_F(FrmSearchTest, ShowModalReturnsWhenCancelled) {
  Soon([this] {
    EXPECT_TRUE(form_->isModal());
    EXPECT_EQ(form_->focusWidget(), Text());
    QTest::keyClick(form_.get(), Qt::Key_Escape);
  });
  form_->ShowModal();
  EXPECT_TRUE(form_->SearchCancelled());
}

TEST_F(FrmSearchTest, SecondSearchIsIgnoredWhileOneRuns) {
  MakeSlow();
  Show();
  Type("nothing");
  std::string messageInside = "none";
  Soon([this, &messageInside] {
    const int testedBefore = tested_;
    form_->cmdSearch_Click();
    QTest::keyClick(Text(), Qt::Key_Return);
    EXPECT_EQ(tested_, testedBefore);
    EXPECT_GT(testedBefore, 0);
    messageInside = Message();
    form_->cmdCancel_Click();
  });
  form_->cmdSearch_Click();
  EXPECT_EQ(messageInside, "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmSearchTest, LongSearchShowsABusyPointerAndStopsWhenCancelled) {
  MakeSlow();
  Show();
  Type("nothing");
  Soon([this] {
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    QTest::keyClick(Text(), Qt::Key_Escape);
  });
  Click("cmdSearch");
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(form_->SearchCancelled());
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(scales_->current_, 1);
  EXPECT_LT(tested_, 1000);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmSearchTest, DialogMayBeDestroyedDuringASearch) {
  MakeSlow();
  Type("nothing");
  Soon([this] { form_.reset(); });
  form_->cmdSearch_Click();
  EXPECT_EQ(form_, nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(FrmSearchTest, SearchAfterACancelledOneCompletes) {
  MakeSlow();
  Type("nothing");
  Soon([this] { form_->cmdCancel_Click(); });
  form_->cmdSearch_Click();
  Type("dor");
  form_->cmdSearch_Click();
  EXPECT_EQ(scales_->current_, 2);
}

TEST_F(FrmSearchTest, FindNextScaleMatchKeepsItsTextInTheTagOfTheActiveForm) {
  Show();
  QWidget* const active = QApplication::activeWindow() != nullptr ? QApplication::activeWindow() : form_.get();
  form_->FindNextScaleMatch("m");
  EXPECT_EQ(scales_->current_, 1);
  EXPECT_EQ(active->property("Tag").toString(), Wide("m"));
  form_->FindNextScaleMatch("m");
  EXPECT_EQ(scales_->current_, 3);
  form_->FindNextScaleMatch(" x");
  EXPECT_EQ(scales_->current_, 1);
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(box_.Texts(), "No matches found for ' x'\n");
}

/// Every control that shows text must be at least as large as its size hint.
TEST_F(FrmSearchTest, NothingIsClippedInAnyFontSize) {
  for (const int points : {6, 9, 14, 24, 40}) {
    QFont font = form_->font();
    font.setPointSize(points);
    form_->setFont(font);
    Show();
    Find<QLabel>("lblMessage")->setText(Wide("You have searched all the records once"));
    QCoreApplication::processEvents();
    for (const char* const name : {"lblSearch", "lblHelp", "lblMessage", "cmdSearch", "cmdCancel", "txtSearch"}) {
      const QWidget* const control = Find<QWidget>(name);
      EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name << " at " << points;
      EXPECT_GE(control->height(), control->fontMetrics().height()) << name << " at " << points;
      EXPECT_TRUE(form_->rect().contains(QRect(control->mapTo(form_.get(), QPoint()), control->size()))) << name;
    }
    form_->hide();
  }
}

TEST_F(FrmSearchTest, EmptyStatusLineKeepsItsHeight) {
  Show();
  const QSize before = form_->size();
  const int height = Find<QLabel>("lblMessage")->height();
  Find<QLabel>("lblMessage")->setText(Wide("You have searched all the records once"));
  QCoreApplication::processEvents();
  EXPECT_EQ(form_->size(), before);
  EXPECT_EQ(Find<QLabel>("lblMessage")->height(), height);
  EXPECT_GT(height, 0);
}

TEST_F(FrmSearchTest, HelpIsInTheSecondaryColour) {
  const QLabel& help = *Find<QLabel>("lblHelp");
  EXPECT_EQ(help.palette().color(help.foregroundRole()), paint::SecondaryText(form_->palette()));
}

TEST_F(FrmSearchTest, OverlapsTheLowerEdgeOfTheMainWindow) {
  QWidget window;
  const QRect screen = window.screen()->availableGeometry();
  window.setGeometry(screen.left() + 40, screen.top() + 30, 600, 300);
  window.show();
  form_ = std::make_unique<frmSearch>(std::make_unique<FakeScales>("Major"), box_, &window);
  Soon([&] {
    EXPECT_EQ(form_->y(), window.frameGeometry().bottom() - 96);
    EXPECT_EQ(form_->x(), window.frameGeometry().center().x() - form_->width() / 2);
    form_->cmdCancel_Click();
  });
  form_->ShowModal();
  form_.reset();
}

}  // namespace
}  // namespace tonalith::search
