// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window during an install: progress, disabled controls, and actions of the user.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <thread>

#include "app/main_window_fixture.h"
#include "data/schema.h"
#include "editor/frm_scales.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

class PackInstallTest : public MainWindowTest {
 protected:
  PackInstallTest() {
    MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
    fs::create_directory(temp_.Path() / "DataPacks");
    fs::current_path(temp_.Path());
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      if (duringInstall_) duringInstall_();
    });
  }
  ~PackInstallTest() override {
    window_.reset();
    fs::current_path(before_);
  }

  std::string MakePack(const std::string& name, int scales) {
    const std::string path = Path("DataPacks/" + name);
    data::CreateScaleDatabase(path);
    SQLite::Database(path, SQLite::OPEN_READWRITE)
        .exec("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(scales) +
              ") INSERT INTO Scales (ScaleName, ScaleTypeID, ScaleIntervals) SELECT 'New ' || i, 1, '2212221' FROM n");
    return path;
  }
  std::string CopyJetPack() {
    const std::string path = Path("DataPacks/DataPack_Jet2003.mdb");
    fs::copy_file(fs::path(TONALITH_SOURCE_DIR) / "tests" / "jet" / "fixtures" / "DataPack_Jet2003.mdb", path);
    return path;
  }
  /// Installs, and calls `step` whenever events are processed during the install.
  void Install(std::function<void()> step) {
    duringInstall_ = std::move(step);
    timer_.start(0);
    QTest::mouseClick(C().cmdInstall, Qt::LeftButton);
    timer_.stop();
  }
  [[nodiscard]] int Scales() {
    return SQLite::Database(Path("TonalithDB97.mdb")).execAndGet("SELECT count(*) FROM Scales").getInt();
  }
  [[nodiscard]] std::string InstallLabel() { return Text(C().lblInstall); }

 private:
  QTimer timer_;
  std::function<void()> duringInstall_;
  fs::path before_ = fs::current_path();
};

TEST_F(PackInstallTest, ShowsProgressAfterHalfASecondAndThenTheResult) {
  MakePack("DataPack_Long.mdb", 256 * 40);
  Start();
  QElapsedTimer clock;
  clock.start();
  std::string first;
  qint64 firstAt = 0;
  std::vector<std::string> seen;
  Install([&] {
    // Slows the import down: its progress appears after half a second of real time.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    if (InstallLabel().empty() || (!seen.empty() && seen.back() == InstallLabel())) return;
    if (seen.empty()) firstAt = clock.elapsed();
    seen.push_back(InstallLabel());
  });
  ASSERT_THAT(seen, SizeIs(testing::Gt(1U)));
  EXPECT_GE(firstAt, 500);
  EXPECT_LT(firstAt, 1500);
  EXPECT_THAT(seen, Each(testing::MatchesRegex("Importing DataPack_Long\\.mdb: [0-9,.]+ rows")));
  EXPECT_EQ(InstallLabel(), "10240 scales added from 1 pack");
  EXPECT_EQ(Text(C().lblStatus), "Stopped") << "that label belongs to the playback";
  EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
}

TEST_F(PackInstallTest, ShowsTheNumberOfAddedScalesAndOfPacks) {
  MakePack("DataPack_A.mdb", 3);
  CopyJetPack();
  SQLite::Database(Path("DataPacks/DataPack_Bad.mdb"), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("VACUUM");
  Start();
  EXPECT_EQ(InstallLabel(), "");
  Install({});
  EXPECT_EQ(InstallLabel(), std::to_string(Scales() - 2) + " scales added from 2 packs")
      << "a failed pack is not counted";
  Install({});
  EXPECT_EQ(InstallLabel(), "No new scales in 2 packs");
  fs::remove_all(temp_.Path() / "DataPacks");
  Install({});
  EXPECT_EQ(InstallLabel(), "");
}

TEST_F(PackInstallTest, DisablesControlsThatUseTheLibraryAndEnablesThemAgain) {
  MakePack("DataPack_A.mdb", 1000);
  Start();
  Window().cmdEdit_Click();
  auto* const editor = Window().findChild<editor::frmScales*>();
  ASSERT_NE(editor, nullptr);
  C().cmdInstall->setFocus();
  QWidget* const inEditor = editor->focusWidget();
  const MainMenu& m = Window().Menu();
  const std::vector<QWidget*> controls = {C().cmdEdit,    C().cmdUpdate, C().cmdListen,    C().cmdPrint,
                                          C().cmdInstall, C().Data1,     C().cmbTranspose, editor};
  std::vector<QAction*> entries;
  for (QAction* const entry : Window().menuBar()->actions().constFirst()->menu()->actions()) {
    if (!entry->isSeparator()) entries.push_back(entry);
  }
  ASSERT_GT(entries.size(), 5U);
  int steps = 0;
  Install([&] {
    ++steps;
    for (QWidget* const control : controls) EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    for (QAction* const entry : entries) EXPECT_FALSE(entry->isEnabled()) << entry->objectName().toStdString();
    Window().cmdInstall_Click();
    Window().EditUpdates();
    QFocusEvent gain(QEvent::FocusIn, Qt::OtherFocusReason);
    QApplication::sendEvent(&Window(), &gain);
    QFocusEvent loss(QEvent::FocusOut, Qt::OtherFocusReason);
    QApplication::sendEvent(&Window(), &loss);
    EXPECT_TRUE(m.Entry("mHelpFile")->isEnabled());
  });
  EXPECT_GT(steps, 0);
  for (QWidget* const control : controls) EXPECT_TRUE(control->isEnabled()) << control->objectName().toStdString();
  for (QAction* const entry : entries) EXPECT_TRUE(entry->isEnabled()) << entry->objectName().toStdString();
  EXPECT_TRUE(editor->isVisible());
  EXPECT_EQ(Window().focusWidget(), C().cmdInstall);
  EXPECT_EQ(editor->focusWidget(), inEditor);
  EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(Scales(), 1002);
}

TEST_F(PackInstallTest, ProcessesEventsWhileAJetPackIsRead) {
  CopyJetPack();
  Start();
  int steps = 0;
  Install([&] { ++steps; });
  EXPECT_GT(steps, 0);
  EXPECT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
}

TEST_F(PackInstallTest, ClosingTheWindowDiscardsTheUnfinishedPack) {
  MakePack("DataPack_A.mdb", 5000);
  MakePack("DataPack_B.mdb", 5000);
  Start();
  int steps = 0;
  Install([&] {
    if (++steps == 3) Window().close();
  });
  EXPECT_EQ(steps, 3) << "it stopped immediately";
  EXPECT_FALSE(Window().isVisible());
  EXPECT_EQ(Scales(), 2);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  EXPECT_FALSE(fs::exists(Path("TonalithDB97.mdb-journal")));
}

TEST_F(PackInstallTest, ClosingTheWindowStopsReadingAJetPack) {
  CopyJetPack();
  Start();
  Install([&] { Window().close(); });
  EXPECT_EQ(Scales(), 2);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(PackInstallTest, WindowMayBeDestroyedDuringTheInstall) {
  MakePack("DataPack_A.mdb", 5000);
  Start();
  // Not by a click: its button would be used after it is destroyed with the window.
  QTimer::singleShot(0, &Window(), [this] { Window().cmdInstall_Click(); });
  bool isDestroyed = false;
  QTimer destroyer;
  QObject::connect(&destroyer, &QTimer::timeout, [&] {
    if (isDestroyed || C().cmdInstall->isEnabled()) return;
    isDestroyed = true;
    window_.reset();
  });
  destroyer.start(0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return isDestroyed; }));
  EXPECT_EQ(Scales(), 2);
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(PackInstallTest, StopsAPlayback) {
  MakePack("DataPack_A.mdb", 5);
  fs::create_directory_symlink(fs::path(TONALITH_BINARY_DIR) / "stage" / "Audio", temp_.Path() / "Audio");
  Start();
  QTimer installer;
  QObject::connect(&installer, &QTimer::timeout, [&] {
    if (!Text(C().lblStatus).starts_with("Playing")) return;
    installer.stop();
    Window().cmdInstall_Click();
    EXPECT_EQ(Text(C().lblStatus), "Standby");
    EXPECT_FALSE(C().fretboard->Picture1().isVisible());
  });
  installer.start(0);
  QElapsedTimer clock;
  clock.start();
  Window().cmdListen_Click();
  EXPECT_LT(clock.elapsed(), 3000) << "the scale was played to its end";
  EXPECT_FALSE(Window().Playback().IsRunning());
  EXPECT_EQ(Text(C().lblStatus), "Standby");
  EXPECT_TRUE(C().cmdListen->isEnabled());
  EXPECT_EQ(Scales(), 7);
}

}  // namespace
}  // namespace tonalith::app
