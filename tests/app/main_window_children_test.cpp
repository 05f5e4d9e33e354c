// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window with the editor, with packs, with a Jet file as its database, and during a playback.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QCloseEvent>
#include <QTest>
#include <filesystem>

#include "app/main_window_fixture.h"
#include "editor/frm_scales.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Message = tests::RecordingMsgBox::Message;

const fs::path kFixtures = fs::path(TONALITH_SOURCE_DIR) / "tests" / "jet" / "fixtures";

class ChildWindows : public MainWindowTest {
 protected:
  ~ChildWindows() override { fs::current_path(before_); }

  /// Starts with the program's folder as the working directory, as the program does.
  void StartInFolder() {
    fs::current_path(temp_.Path());
    Start();
  }
  QList<editor::frmScales*> Editors() {
    QList<editor::frmScales*> found;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const form = qobject_cast<editor::frmScales*>(widget); form != nullptr && form->isVisible())
        found << form;
    }
    return found;
  }

 private:
  fs::path before_ = fs::current_path();
};

TEST_F(ChildWindows, EditorOpensOnceAndClosesWithTheMainWindow) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  StartInFolder();
  Press("Next record");
  QTest::mouseClick(C().cmdEdit, Qt::LeftButton);
  Window().Menu().Entry("mEditor")->trigger();
  ASSERT_THAT(Editors(), SizeIs(1));
  EXPECT_TRUE(Window().close());
  EXPECT_THAT(Editors(), IsEmpty());
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(ChildWindows, ClosingTheEditorRestoresAMinimizedMainWindow) {
  MakeDatabase({{"Major", "2212221"}});
  StartInFolder();
  Window().cmdEdit_Click();
  ASSERT_THAT(Editors(), SizeIs(1));
  Window().showMinimized();
  ASSERT_TRUE(Window().isMinimized());
  Editors().first()->close();
  EXPECT_FALSE(Window().isMinimized());
}

TEST_F(ChildWindows, EditorStaysWhenOnlyAnotherWindowComesToTheFront) {
  MakeDatabase({{"Major", "2212221"}});
  StartInFolder();
  Window().cmdEdit_Click();
  const auto lose = [this](Qt::FocusReason reason) {
    QFocusEvent loss(QEvent::FocusOut, reason);
    QApplication::sendEvent(&Window(), &loss);
    return Editors().size();
  };
  EXPECT_EQ(lose(Qt::ActiveWindowFocusReason), 1);
  EXPECT_EQ(lose(Qt::OtherFocusReason), 0);
}

TEST_F(ChildWindows, InstallImportsThePacksAndMovesToTheFirstRecord) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  fs::create_directory(temp_.Path() / "DataPacks");
  fs::copy_file(kFixtures / "DataPack_Jet2003.mdb", temp_.Path() / "DataPacks" / "DataPack_Jet2003.mdb");
  StartInFolder();
  Press("Last record");
  QTest::mouseClick(C().cmdInstall, Qt::LeftButton);
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Imported data pack: \n" + Path("DataPacks/DataPack_Jet2003.mdb"),
                                                   core::MsgBoxStyle::kInformation, ""}));
  EXPECT_TRUE(Window().PacksWereImported());
  EXPECT_EQ(Text(C().Label1), "Major");
  Press("Last record");
  EXPECT_EQ(Text(C().Label1), "Fixture Row 299");
  EXPECT_TRUE(C().cmdInstall->isEnabled());
}

TEST_F(ChildWindows, InstallWithoutPacksChangesNothingAndShowsNoMessage) {
  MakeDatabase({{"Major", "2212221"}});
  StartInFolder();
  Window().Menu().Entry("mInstall")->trigger();
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  EXPECT_EQ(Text(C().Label1), "Major");
}

TEST_F(ChildWindows, JetDatabaseIsConvertedAndItsFilePreserved) {
  fs::copy_file(kFixtures / "DataPack_Jet2003.mdb", temp_.Path() / "TonalithDB97.mdb");
  const auto size = fs::file_size(temp_.Path() / "TonalithDB97.mdb");
  StartInFolder();
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
  EXPECT_EQ(Text(C().Label1), "Fixture Row 000");
  bool isPreserved = false;
  for (const auto& entry : fs::directory_iterator(temp_.Path())) {
    isPreserved = isPreserved || (entry.path().filename() != "TonalithDB97.mdb" && entry.file_size() == size);
  }
  EXPECT_TRUE(isPreserved);
}

TEST_F(ChildWindows, ListenReportsEachMissingRecordingAndEndsInStandby) {
  MakeDatabase({{"Minor triad", "345"}});
  StartInFolder();
  QTest::mouseClick(C().cmdListen, Qt::LeftButton);
  ASSERT_THAT(box_.Messages(), SizeIs(4)) << "three notes and the key again";
  EXPECT_THAT(box_.Messages(), Each(Message{"Cannot open file", core::MsgBoxStyle::kOkOnly, ""}));
  EXPECT_FALSE(Window().Playback().IsRunning());
  EXPECT_FALSE(C().fretboard->Picture1().isVisible());
}

TEST_F(ChildWindows, ListenIsDisabledWithoutARecord) {
  MakeDatabase({});
  StartInFolder();
  EXPECT_FALSE(C().cmdListen->isEnabled());
  EXPECT_FALSE(Window().Menu().Entry("mListen")->isEnabled());
  EXPECT_THAT(box_.Messages(), IsEmpty()) << box_.Texts();
}

TEST_F(ChildWindows, MissingSoundDeviceIsShownInTheTooltipOnly) {
  MakeDatabase({{"Major", "2212221"}});
  StartInFolder();
  EXPECT_EQ(C().lblStatus->toolTip(), QString());
  Window().ShowSoundDevice(false);
  EXPECT_EQ(C().lblStatus->toolTip().toStdString(), "There is no sound device: scales play silently.");
  Window().ShowSoundDevice(true);
  EXPECT_EQ(C().lblStatus->toolTip(), QString());
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

}  // namespace
}  // namespace tonalith::app
