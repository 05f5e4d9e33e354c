// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help/window_help_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <filesystem>

#include "help/book_fixture.h"
#include "help/help_browser.h"
#include "help/mod_html_help.h"
#include "support/recording_msg_box.h"
#include "support/temp_folder.h"

namespace tonalith::help {
namespace {

using testing::IsEmpty;

class WindowHelpEngineTest : public testing::Test {
 protected:
  platform::HelpWindowHandle Open(const std::string& path) {
    return engine_.HtmlHelpA(caller_.winId(), path, platform::kDisplayTopic, 0);
  }
  /// Runs the help command on a folder with the small book.
  void OpenCommand() {
    std::filesystem::copy_file(BookPath(), folder_ / "TLHELP.chm", std::filesystem::copy_options::overwrite_existing);
    OpenHelpFile(folder_.Path().string(), box_, engine_, caller_.winId());
  }

  tests::TempFolder folder_;
  tests::RecordingMsgBox box_;
  QWidget caller_;
  WindowHelpEngine engine_{box_, [](const QUrl&) { return true; }};
};

TEST_F(WindowHelpEngineTest, ShowsTheFileAndReturnsTheWindowsHandle) {
  const platform::HelpWindowHandle handle = Open(BookPath());
  ASSERT_NE(engine_.Window(), nullptr);
  EXPECT_EQ(handle, engine_.Window()->winId());
  EXPECT_NE(handle, platform::kNoHelpWindow);
  EXPECT_EQ(engine_.LastError(), help_error::kNone);
  EXPECT_TRUE(engine_.Window()->isVisible());
  EXPECT_TRUE(engine_.Window()->isWindow());
  EXPECT_FALSE(engine_.Window()->isModal());
  EXPECT_EQ(engine_.Window()->CurrentTarget().page, "/welcome.html");
  EXPECT_EQ(engine_.Window()->windowTitle(), QStringLiteral("A small book"));
}

TEST_F(WindowHelpEngineTest, CommandOnAValidFileShowsNoMessage) {
  OpenCommand();
  EXPECT_THAT(box_.Messages(), IsEmpty());
  ASSERT_NE(engine_.Window(), nullptr);
}

TEST_F(WindowHelpEngineTest, OpeningAgainShowsTheDefaultPageInTheSameWindow) {
  OpenCommand();
  frmHelp* const window = engine_.Window();
  QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
  window->Page()->LinkChosen("strings.html");
  ASSERT_EQ(window->CurrentTarget().page, "/strings.html");
  window->showMinimized();
  OpenCommand();
  EXPECT_EQ(engine_.Window(), window);
  EXPECT_FALSE(window->isMinimized());
  EXPECT_EQ(window->CurrentTarget().page, "/welcome.html");
  EXPECT_FALSE(window->findChild<QWidget*>(QStringLiteral("cmdBack"))->isEnabled());
}

TEST_F(WindowHelpEngineTest, NewWindowAfterClosingHasTheInitialState) {
  OpenCommand();
  engine_.Window()->Page()->ZoomBy(4);
  engine_.Window()->close();
  // Even before the closed window is deleted.
  OpenCommand();
  EXPECT_TRUE(engine_.Window()->isVisible());
  EXPECT_DOUBLE_EQ(engine_.Window()->Page()->Zoom(), 1);
  engine_.Window()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(engine_.Window(), nullptr);
}

TEST_F(WindowHelpEngineTest, WindowIsDestroyedWithItsCaller) {
  auto caller = std::make_unique<QWidget>();
  engine_.HtmlHelpA(caller->winId(), BookPath(), platform::kDisplayTopic, 0);
  ASSERT_NE(engine_.Window(), nullptr);
  caller.reset();
  EXPECT_EQ(engine_.Window(), nullptr);
}

TEST_F(WindowHelpEngineTest, UnknownCallerIsAccepted) {
  EXPECT_NE(engine_.HtmlHelpA(0, BookPath(), platform::kDisplayTopic, 0), platform::kNoHelpWindow);
  delete engine_.Window();
}

TEST_F(WindowHelpEngineTest, OtherCommandsAreRefused) {
  EXPECT_EQ(engine_.HtmlHelpA(0, BookPath(), 1, 0), platform::kNoHelpWindow);
  EXPECT_EQ(engine_.LastError(), help_error::kInvalidParameter);
  EXPECT_EQ(engine_.Window(), nullptr);
}

TEST_F(WindowHelpEngineTest, DamagedFilesGiveAnApiErrorAndNoWindow) {
  const std::string whole = BytesOf(BookPath());
  int files = 0;
  for (const std::string& bytes : {std::string(), std::string("no help"), std::string(100'000, 'x'),
                                   whole.substr(0, 100), whole.substr(0, whole.size() / 2)}) {
    static_cast<void>(folder_.Write("TLHELP.chm", bytes));
    OpenHelpFile(folder_.Path().string(), box_, engine_, caller_.winId());
    EXPECT_EQ(engine_.Window(), nullptr);
    EXPECT_EQ(engine_.LastError(), help_error::kInvalidData);
    ASSERT_EQ(box_.Messages().size(), static_cast<std::size_t>(++files));
    EXPECT_EQ(box_.Messages().back().title, "API Error");
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(WindowHelpEngineTest, FileDamagedLaterLeavesTheOpenWindowUnchanged) {
  OpenCommand();
  engine_.Window()->Page()->LinkChosen("strings.html");
  static_cast<void>(folder_.Write("TLHELP.chm", "no help any more"));
  OpenHelpFile(folder_.Path().string(), box_, engine_, caller_.winId());
  EXPECT_EQ(box_.Messages().size(), 1U);
  EXPECT_EQ(engine_.Window()->CurrentTarget().page, "/strings.html");
}

}  // namespace
}  // namespace tonalith::help
