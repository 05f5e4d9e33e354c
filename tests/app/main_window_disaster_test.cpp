// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window while its data change: an install with an open editor, deletion of all records by the editor, packs
// that fail, a full disk.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <fstream>

#include "app/main_window_fixture.h"
#include "data/pack_disk.h"
#include "data/schema.h"
#include "editor/frm_scales.h"

namespace tonalith::app {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto kYes = core::MsgBoxAnswer::kYes;

class Disaster : public MainWindowTest {
 protected:
  ~Disaster() override {
    window_.reset();
    fs::current_path(before_);
  }

  /// Starts with the program's folder as the working directory, as the program does, and opens the editor.
  editor::frmScales& StartWithEditor() {
    fs::current_path(temp_.Path());
    Start();
    QTest::mouseClick(C().cmdEdit, Qt::LeftButton);
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const form = qobject_cast<editor::frmScales*>(widget); form != nullptr && form->isVisible()) {
        editor_ = form;
      }
    }
    EXPECT_TRUE(QTest::qWaitForWindowActive(editor_));
    return *editor_;
  }
  const editor::ScalesControls& E() { return editor_->Controls(); }
  std::string EditorName() { return E().txtFields[1].Text().toStdString(); }
  void Click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }
  void EditorArrow(const char* name) { Click(E().datPrimaryRS->findChild<QAbstractButton*>(QLatin1String(name))); }
  void Retype(int field, const char* text) {
    QWidget* const box = E().txtFields[static_cast<std::size_t>(field)].box;
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, QLatin1String(text));
  }
  void DeleteInEditor() {
    box_.AnswerNext(kYes);
    Click(E().cmdDelete);
    EXPECT_THAT(box_.Messages(), SizeIs(1)) << "only the confirmation:\n" << box_.Texts();
    box_.Forget();
  }

  std::string MakePack(const std::string& name, const std::string& rows) {
    fs::create_directory(temp_.Path() / "DataPacks");
    const std::string path = Path("DataPacks/" + name);
    data::CreateScaleDatabase(path);
    SQLite::Database(path, SQLite::OPEN_READWRITE).exec(rows);
    return path;
  }
  std::string MakePackOfTwo() {
    return MakePack("DataPack_A.mdb",
                    "INSERT INTO Scales (ScaleName, ScaleTypeID, ScaleIntervals) VALUES ('Hora', 1, '2131221'), "
                    "('Taken', 1, '2131221')");
  }
  std::string TakeMessages() {
    const std::string texts = box_.Texts();
    box_.Forget();
    return texts;
  }
  std::string Query(const std::string& query) {
    return SQLite::Database(Path("TonalithDB97.mdb")).execAndGet(query).getString();
  }
  void ExpectEmptyAndUsable() {
    EXPECT_EQ(Text(C().Label1), "");
    EXPECT_EQ(Text(C().lblScaleDescription), "");
    EXPECT_EQ(StringNotes(1), "");
    EXPECT_FALSE(C().cmdListen->isEnabled());
    for (const char* arrow : {"First record", "Previous record", "Next record", "Last record"}) Press(arrow);
    C().cmbTranspose->Choose(4);
    Window().Menu().Entry("mViewNotes")->trigger();
    Window().Menu().Entry("mUpdate")->trigger();
    EXPECT_EQ(TakeMessages(), "");
  }

  editor::frmScales* editor_ = nullptr;

 private:
  fs::path before_ = fs::current_path();
};

TEST_F(Disaster, OpenEditorKeepsItsEditAndShowsNewScalesAfterAnInstall) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  const std::string pack = MakePackOfTwo();
  StartWithEditor();
  Click(E().cmdModify);
  Retype(1, "Ionian");
  Click(C().cmdInstall);
  EXPECT_EQ(TakeMessages(), "Imported data pack: \n" + pack + "\n");
  EXPECT_EQ(EditorName(), "Ionian");
  EXPECT_EQ(Text(C().Label1), "Major") << "nothing was saved by the install";
  Click(E().cmdUpdate);
  EXPECT_EQ(TakeMessages(), "");
  EXPECT_EQ(Text(C().Label1), "Ionian");
  EditorArrow("Last record");
  EXPECT_EQ(EditorName(), "Taken");
  Press("Last record");
  EXPECT_EQ(Text(C().Label1), "Taken");
}

TEST_F(Disaster, EditWithANameFromThePackIsRefusedOnceAndKept) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  MakePackOfTwo();
  StartWithEditor();
  Click(E().cmdModify);
  Click(E().cmdAdd);
  Retype(1, "taken");
  Click(C().cmdInstall);
  TakeMessages();
  Click(E().cmdUpdate);
  EXPECT_EQ(TakeMessages(), "There is a scale of this name already.\n");
  Click(E().cmdModify);
  EXPECT_EQ(TakeMessages(), "") << "reported once";
  EXPECT_EQ(EditorName(), "taken");
  Retype(1, "Not taken");
  Click(E().cmdUpdate);
  EXPECT_EQ(TakeMessages(), "");
  EXPECT_EQ(Query("SELECT group_concat(ScaleName) FROM (SELECT ScaleName FROM Scales ORDER BY ScaleID)"),
            "Major,Dorian,Hora,Taken,Not taken");
}

TEST_F(Disaster, RecordDeletedByTheEditorIsNoLongerShown) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}, {"Lydian", "2221221"}});
  fs::current_path(temp_.Path());
  StartWithEditor();
  Press("Next record");
  EditorArrow("Next record");
  ASSERT_EQ(Text(C().Label1), "Dorian");
  Click(E().cmdModify);
  DeleteInEditor();
  EXPECT_EQ(EditorName(), "Lydian");
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(StringNotes(1), "E F G A B C D E F G");
  Press("Next record");
  EXPECT_EQ(Text(C().Label1), "Lydian");
  Press("Next record");
  EXPECT_EQ(Text(C().Label1), "Lydian");
  EXPECT_EQ(TakeMessages(), "");
}

TEST_F(Disaster, RecordDeletedByAnotherProgramDisappearsAtUpdate) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  fs::current_path(temp_.Path());
  Start();
  Press("Last record");
  Execute("DELETE FROM Scales WHERE ScaleName = 'Dorian'");
  C().cmbTranspose->Choose(2);
  EXPECT_EQ(Text(C().Label1), "Dorian") << "as it was read";
  Window().Menu().Entry("mUpdate")->trigger();
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(TakeMessages(), "");
}

TEST_F(Disaster, DeletingTheLastRecordLeavesBothWindowsUsable) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  StartWithEditor();
  Click(E().cmdModify);
  DeleteInEditor();
  EXPECT_EQ(Text(C().Label1), "Dorian");
  DeleteInEditor();
  ExpectEmptyAndUsable();
  EXPECT_EQ(EditorName(), "");
  EXPECT_FALSE(E().cmdDelete->isEnabled());
  Click(E().cmdAdd);
  Retype(1, "Phoenix");
  Click(E().cmdUpdate);
  EXPECT_EQ(TakeMessages(), "");
  EXPECT_EQ(Text(C().Label1), "Phoenix");
  EXPECT_TRUE(C().cmdListen->isEnabled());
}

TEST_F(Disaster, InstallFillsAnEmptyDatabaseWithTheEditorOpen) {
  MakeDatabase({});
  const std::string pack = MakePackOfTwo();
  StartWithEditor();
  EXPECT_EQ(TakeMessages(), "");
  ExpectEmptyAndUsable();
  Click(C().cmdInstall);
  EXPECT_EQ(TakeMessages(), "Imported data pack: \n" + pack + "\n");
  EXPECT_EQ(Text(C().Label1), "Hora");
  EXPECT_TRUE(C().cmdListen->isEnabled());
  Click(E().cmdModify);
  Click(E().cmdRefresh);
  EXPECT_EQ(EditorName(), "Hora");
}

TEST_F(Disaster, InstallOnAFullDiskIsReportedOnceAndChangesNothing) {
  MakeDatabase({{"Major", "2212221"}, {"Dorian", "2122212"}});
  const std::string pack = MakePackOfTwo();
  fs::current_path(temp_.Path());
  Start();
  data::PackDisk disk;
  disk.FillUpAfter(0);
  Click(C().cmdInstall);
  disk.MakeRoom();
  ASSERT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  EXPECT_EQ(box_.Messages()[0].style, core::MsgBoxStyle::kCritical);
  EXPECT_EQ(TakeMessages(), "Error importing " + pack + "\nThe disk that holds '" + Path("TonalithDB97.mdb") +
                                "' is full. Nothing was saved.\n");
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(Query("SELECT count(*) FROM Scales"), "2");
  Click(C().cmdInstall);
  EXPECT_EQ(TakeMessages(), "Imported data pack: \n" + pack + "\n");
  EXPECT_EQ(Query("SELECT count(*) FROM Scales"), "4");
}

TEST_F(Disaster, SecondInstallShowsTheSameMessages) {
  MakeDatabase({{"Major", "2212221"}});
  const std::string pack = MakePackOfTwo();
  const std::string bad = Path("DataPacks/DataPack_B.mdb");
  std::ofstream(bad) << "noise";
  fs::current_path(temp_.Path());
  Start();
  for (int times = 0; times < 2; ++times) {
    Click(C().cmdInstall);
    EXPECT_THAT(box_.Messages(), SizeIs(2));
    EXPECT_THAT(TakeMessages(), testing::AllOf(testing::HasSubstr("Imported data pack: \n" + pack + "\n"),
                                               testing::HasSubstr("Error importing " + bad +
                                                                  "\nUnrecognized database format '" + bad + "'.\n")));
    EXPECT_EQ(Query("SELECT count(*) FROM Scales"), "3");
    EXPECT_EQ(Text(C().Label1), "Major");
  }
}

TEST_F(Disaster, UnconvertibleJetFileIsReportedAndUnchanged) {
  const fs::path fixture = fs::path(TONALITH_SOURCE_DIR) / "tests" / "jet" / "fixtures" / "DataPack_Jet2000.mdb";
  fs::copy_file(fixture, Path("TonalithDB97.mdb"));
  fs::resize_file(Path("TonalithDB97.mdb"), fs::file_size(fixture) - 4096);
  fs::current_path(temp_.Path());
  Start();
  ASSERT_THAT(box_.Messages(), SizeIs(1)) << box_.Texts();
  EXPECT_EQ(box_.Messages()[0].style, core::MsgBoxStyle::kCritical);
  EXPECT_THAT(TakeMessages(), testing::HasSubstr("The Jet database '" + Path("TonalithDB97.mdb") +
                                                 "' cannot be converted, and nothing was changed. The file '"));
  EXPECT_EQ(fs::file_size(Path("TonalithDB97.mdb")), fs::file_size(fixture) - 4096);
  EXPECT_EQ(std::distance(fs::directory_iterator(temp_.Path()), {}), 1);
  EXPECT_EQ(Text(C().Label1), "");
  Window().Menu().Entry("mUpdate")->trigger();
  EXPECT_THAT(box_.Messages(), SizeIs(1)) << "reported again after another attempt";
}

}  // namespace
}  // namespace tonalith::app
