// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The commands of the main window that open another window, and the system's theme in all of them.

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "app/main_window_fixture.h"
#include "editor/frm_scales.h"
#include "paint/theme.h"
#include "print/frm_print.h"
#include "search/frm_search.h"

namespace tonalith::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = tests::RecordingMsgBox::Message;

class Commands : public MainWindowTest {
 protected:
  ~Commands() override { QApplication::setPalette(QPalette()); }

  /// Calls `open`, which shows a modal Form, calls `act` when the form is visible, and closes the form.
  template <class Form, class Open, class Act>
  void OpenAnd(Open open, Act act) {
    QTimer wait;
    QObject::connect(&wait, &QTimer::timeout, [&] {
      const QPointer<Form> form = Window().findChild<Form*>();
      if (form.isNull() || !form->isVisible()) return;
      wait.stop();
      act(*form);
      if (!form.isNull()) form->close();
    });
    wait.start(1);
    open();
    EXPECT_FALSE(wait.isActive()) << "the window was never shown";
  }
};

TEST_F(Commands, PrintShowsThePreviewAndPrintsOnTheChosenPrinter) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  OpenAnd<print::frmPrint>([&] { QTest::mouseClick(C().cmdPrint, Qt::LeftButton); },
                           [](print::frmPrint& form) { form.cmdPrint_Click(); });
  EXPECT_EQ(printed_.pages, 1);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Commands, MenuEntryPrintDoesTheSameAsTheButton) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  bool isShown = false;
  OpenAnd<print::frmPrint>([&] { Window().Menu().Entry("mPrint")->trigger(); },
                           [&](print::frmPrint&) { isShown = true; });
  EXPECT_TRUE(isShown);
  EXPECT_EQ(printed_.pages, 0) << "closing means cancelling";
}

TEST_F(Commands, ClosingTheWindowClosesThePreview) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  bool isClosed = false;
  QTimer wait;
  QObject::connect(&wait, &QTimer::timeout, [&] {
    if (Window().findChild<print::frmPrint*>() == nullptr) return;
    wait.stop();
    Window().close();
    isClosed = Window().findChild<print::frmPrint*>() == nullptr;
  });
  wait.start(1);
  Window().cmdPrint_Click();
  EXPECT_TRUE(isClosed);
  EXPECT_EQ(printed_.pages, 0);
}

TEST_F(Commands, PrintIsDisabledWithoutARecord) {
  MakeDatabase({});
  Start();
  EXPECT_FALSE(C().cmdPrint->isEnabled());
  EXPECT_FALSE(Window().Menu().Entry("mPrint")->isEnabled());
}

TEST_F(Commands, HelpPassesTheFileInTheProgramsFolderToTheEngine) {
  MakeDatabase({{"Major", "2212221"}});
  std::ofstream(Path("TLHELP.chm")) << "help";
  Start();
  Window().Menu().Entry("mHelpFile")->trigger();
  EXPECT_EQ(help_.Record(),
            "HtmlHelpA " + std::to_string(Window().winId()) + " " + Path("TLHELP.chm") + " 0 0\nLastError\n");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(Commands, MissingHelpIsReportedAndF1OpensNothing) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  QTest::keyClick(&Window(), Qt::Key_F1);
  EXPECT_THAT(box_.Messages(), IsEmpty());
  Window().Menu().Entry("mHelpFile")->trigger();
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Cannot find help file:\n" + Path("TLHELP.chm"),
                                                   core::MsgBoxStyle::kCritical, "File Missing"}));
  EXPECT_EQ(help_.Record(), "");
}

TEST_F(Commands, ThemeOfTheSystemReachesEveryOpenWindow) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  // Qt notifies windows of a new palette only while the application's own loop runs.
  const auto expectTheme = [](QWidget& form, const QPalette& system, bool isDark) {
    QApplication::setPalette(system);
    QEvent change(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(&form, &change);
    EXPECT_EQ(paint::IsDark(form.palette()), isDark) << form.objectName().toStdString();
    EXPECT_EQ(form.palette().color(QPalette::Window), paint::WarmPalette(system).color(QPalette::Window));
  };
  const auto expectBoth = [&](QWidget& form) {
    expectTheme(form, QPalette(QColor(0x30, 0x30, 0x30)), true);
    expectTheme(form, QPalette(QColor(0xe8, 0xe8, 0xe8)), false);
  };
  expectBoth(Window());
  Window().cmdEdit_Click();
  expectBoth(*Window().findChild<editor::frmScales*>());
  OpenAnd<search::frmSearch>([&] { Window().mSearch_Click(); }, [&](search::frmSearch& form) { expectBoth(form); });
}

TEST_F(Commands, F3MovesToTheNextMatchOfTheLastSearch) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}, {"Minor", "2122122"}});
  Start();
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  bool isShown = false;
  OpenAnd<search::frmSearch>([&] { QTest::keyClick(&Window(), Qt::Key_F3); },
                             [&](search::frmSearch& form) {
                               isShown = true;
                               form.SetSearchText(" m");
                               form.cmdSearch_Click();
                             });
  EXPECT_TRUE(isShown) << "there was no search before";
  EXPECT_EQ(Text(C().Label1), "Minor");
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  QTest::keyClick(&Window(), Qt::Key_F3);
  EXPECT_EQ(Text(C().Label1), "Major");
  C().cmbTranspose->setFocus();
  QTest::keyClick(C().cmbTranspose, Qt::Key_F3);
  EXPECT_EQ(Text(C().Label1), "Minor");
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  EXPECT_EQ(Window().findChild<search::frmSearch*>(), nullptr);
}

TEST_F(Commands, ClosingTheWindowClosesTheSearch) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  OpenAnd<search::frmSearch>([&] { Window().mSearch_Click(); },
                             [&](search::frmSearch&) {
                               Window().close();
                               EXPECT_EQ(Window().findChild<search::frmSearch*>(), nullptr);
                             });
  EXPECT_FALSE(Window().isVisible());
}

TEST_F(Commands, SearchOpensWithTheTextOfTheLastSearch) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  OpenAnd<search::frmSearch>([&] { Window().mSearch_Click(); },
                             [](search::frmSearch& form) { form.SetSearchText("blues"); });
  std::string text;
  OpenAnd<search::frmSearch>([&] { Window().mSearch_Click(); },
                             [&](search::frmSearch& form) { text = form.SearchText(); });
  EXPECT_EQ(text, "blues");
}

TEST_F(Commands, ControlQClosesTheWindow) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  QTest::keyClick(&Window(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(Window().isVisible());
}

}  // namespace
}  // namespace tonalith::app
