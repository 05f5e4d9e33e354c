// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The main window, tested through its real widgets.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include "app/main_window_fixture.h"

namespace tonalith::app {
namespace {

using testing::IsEmpty;

const std::vector<TestScale> kThree = {{"Major", "2212221"}, {"Dorian", "2122212"}, {"Minor triad", "345"}};

TEST_F(MainWindowTest, AfterStartUpTheFirstRowIsDrawnInTheKeyOfC) {
  MakeDatabase(kThree);
  Start();
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(Text(C().lblScaleType), "Test scales");
  EXPECT_EQ(Text(C().lblScaleDescription), "A scale for tests.");
  EXPECT_EQ(C().cmbTranspose->currentText().toStdString(), "C");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T  T  S  T  T  T  S");
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B");
  EXPECT_EQ(StringNotes(1), "E F G A B C D E F G");
  EXPECT_EQ(C().fretboard->Image(8).Picture(), views::NotePicture::kKeyNote);
  EXPECT_EQ(C().fretboard->Image(0).Picture(), views::NotePicture::kScaleNote);
  EXPECT_TRUE(C().fretboard->Image(0).NameDrawn());
  EXPECT_TRUE(Window().isVisible());
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(MainWindowTest, FirstScaleThatShipsIsMajor) {
  CopyShippedDatabase();
  Start();
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(C().txtScaleID->text().toStdString(), "1");
  EXPECT_EQ(Text(C().lblScaleNotes), " C D E F G A B");
}

TEST_F(MainWindowTest, ChoosingAKeyRedrawsTheScaleAndLeavesTheDatabaseAlone) {
  MakeDatabase(kThree);
  Start();
  C().cmbTranspose->Choose(2);
  EXPECT_EQ(Text(C().lblScaleNotes), " D E F# G A B C#");
  EXPECT_EQ(StringNotes(1), "E F# G A B C# D E F# G");
  EXPECT_EQ(C().Data1->FieldValue(4).AsText(), "C");
  EXPECT_EQ(C().Data1->FieldValue(5).AsText(), "2212221");
  Press("Next record");
  EXPECT_EQ(Text(C().lblScaleNotes), " D E F G A B C");
}

TEST_F(MainWindowTest, ArrowButtonsMoveThroughTheRecordsAndStopAtTheEnds) {
  MakeDatabase(kThree);
  Start();
  Press("Next record");
  EXPECT_EQ(Text(C().Label1), "Dorian");
  Press("Last record");
  EXPECT_EQ(Text(C().Label1), "Minor triad");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T1.5  T2  T2.5");
  Press("Next record");
  EXPECT_EQ(Text(C().Label1), "Minor triad");
  Press("Previous record");
  EXPECT_EQ(Text(C().Label1), "Dorian");
  Press("First record");
  Press("Previous record");
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(MainWindowTest, PageAndControlKeysMoveAlsoFromTheKeyBox) {
  MakeDatabase(kThree);
  Start();
  QApplication::setActiveWindow(&Window());
  C().cmbTranspose->setFocus();
  QWidget* const typing = C().cmbTranspose;
  QTest::keyClick(typing, Qt::Key_PageDown);
  EXPECT_EQ(Text(C().Label1), "Dorian");
  QTest::keyClick(typing, Qt::Key_PageUp);
  EXPECT_EQ(Text(C().Label1), "Major");
  QTest::keyClick(typing, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Text(C().Label1), "Minor triad");
  QTest::keyClick(typing, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_EQ(C().cmbTranspose->currentText().toStdString(), "C");
}

TEST_F(MainWindowTest, EveryMoveRefreshesOnceAlsoBetweenNeighboursOfOneName) {
  MakeDatabase({{"Twin", "2212221"}, {"Twin", "345"}});
  Start();
  const QSignalSpy moved(C().Data1, &controls::DataControl::Moved);
  Press("Next record");
  EXPECT_EQ(moved.count(), 1);
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T1.5  T2  T2.5");
  Press("Next record");
  EXPECT_EQ(moved.count(), 1) << "there is no next record to move to";
}

TEST_F(MainWindowTest, NamesCommandTogglesTheNamesAndTheFlag) {
  MakeDatabase(kThree);
  Start();
  Window().Menu().Entry("mViewNotes")->trigger();
  EXPECT_FALSE(Window().NamesAreShown());
  for (int i = 0; i < 96; ++i) EXPECT_FALSE(C().fretboard->Image(i).NameDrawn() && C().fretboard->Image(i).isVisible());
  Window().Menu().Entry("mViewNotes")->trigger();
  EXPECT_TRUE(Window().NamesAreShown());
  EXPECT_TRUE(C().fretboard->Image(1).NameDrawn());
}

TEST_F(MainWindowTest, F1DoesNothingVisible) {
  MakeDatabase(kThree);
  Start();
  const auto windows = QApplication::topLevelWidgets().size();
  QTest::keyClick(&Window(), Qt::Key_F1);
  EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(MainWindowTest, UpdateReadsAgainAndReturnsToTheRecordThatWasCurrent) {
  MakeDatabase(kThree);
  Start();
  Press("Next record");
  Execute(
      "UPDATE Scales SET ScaleIntervals = '2122221' WHERE ScaleName = 'Dorian';"
      "INSERT INTO Scales(ScaleName, ScaleTypeID, ScaleIntervals) VALUES ('Added', 1, '75')");
  Window().Menu().Entry("mUpdate")->trigger();
  EXPECT_EQ(Text(C().Label1), "Dorian");
  EXPECT_EQ(Text(C().lblTranspose), "Scale Steps:   T  S  T  T  T  T  S");
  Press("Last record");
  EXPECT_EQ(Text(C().Label1), "Added");
}

TEST_F(MainWindowTest, UpdateRefreshesOnce) {
  MakeDatabase(kThree);
  Start();
  Press("Next record");
  const QSignalSpy moved(C().Data1, &controls::DataControl::Moved);
  Window().cmdUpdate_Click();
  EXPECT_EQ(moved.count(), 0) << "each signal would have caused another refresh";
  EXPECT_EQ(Text(C().Label1), "Dorian");
}

TEST_F(MainWindowTest, UpdateMovesToTheFirstRecordIfTheCurrentOneIsDeleted) {
  MakeDatabase(kThree);
  Start();
  Press("Next record");
  Execute("DELETE FROM Scales WHERE ScaleName = 'Dorian'");
  QTest::mouseClick(C().cmdUpdate, Qt::LeftButton);
  EXPECT_EQ(Text(C().Label1), "Major");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(MainWindowTest, ClickedNotePassesItsSoundFileToThePlayer) {
  MakeDatabase({{"Chromatic", "111111111111"}});
  Start();
  for (const int index : {16, 0, 95}) QTest::mousePress(&C().fretboard->Image(index), Qt::LeftButton);
  EXPECT_THAT(player_.played_,
              testing::ElementsAre(Path("Octaves/23.wav"), Path("Octaves/28.wav"), Path("Octaves/19.wav")));
}

TEST_F(MainWindowTest, OneRefreshIssuesAtMostTwoStatements) {
  MakeDatabase(kThree);
  Start();
  const auto before = data::Connection::StatementsIssued();
  Window().UpdateForm();
  EXPECT_LE(data::Connection::StatementsIssued() - before, 2U);
}

TEST_F(MainWindowTest, NoteTestFindsTheCurrentScaleById) {
  MakeDatabase(kThree);
  Start();
  EXPECT_TRUE(Window().NoteExistsInScoreScale(0, "F"));
  EXPECT_FALSE(Window().NoteExistsInScoreScale(0, "F#"));
  Press("Last record");
  EXPECT_FALSE(Window().NoteExistsInScoreScale(0, "F"));
}

TEST_F(MainWindowTest, EveryCommandCanBeChosen) {
  MakeDatabase(kThree);
  Start();
  const MainControls& c = C();
  for (const QWidget* const button : {c.cmdEdit, c.cmdUpdate, c.cmdListen, c.cmdPrint, c.cmdInstall}) {
    EXPECT_TRUE(button->isVisible() && button->isEnabled()) << button->objectName().toStdString();
  }
  for (const QAction* const top : Window().menuBar()->actions()) {
    for (const QAction* const entry : top->menu()->actions()) {
      EXPECT_TRUE(entry->isEnabled()) << entry->objectName().toStdString();
    }
  }
}

TEST_F(MainWindowTest, MenuHasItsEntriesInOrder) {
  MakeDatabase(kThree);
  Start();
  std::string menu;
  for (const QAction* const top : Window().menuBar()->actions()) {
    menu += top->objectName().toStdString() + " " + top->text().remove(QLatin1Char('&')).toStdString() + "\n";
    for (const QAction* const entry : top->menu()->actions()) {
      menu += "  " + entry->objectName().toStdString();
      if (!entry->isSeparator()) menu += " " + entry->text().toStdString();
      menu += "\n";
    }
  }
  EXPECT_EQ(menu,
            "mFile Tools\n  mEditor &Editor\n  mUpdate &Update\n  mSearch &Search\n  seperator1\n  mListen &Listen\n"
            "  mPrint &Print\n  seperator2\n  mInstall &Install\n  separator3\n  mViewNotes Hide/View &Names\n"
            "mHelp Help\n  mHelpFile &Help\n  mAbout &About Tonalith\n");
}

TEST_F(MainWindowTest, EveryControlIsFoundByItsName) {
  MakeDatabase(kThree);
  Start();
  for (const char* const name : {"Data1",         "Label1",        "lblScaleDescription",
                                 "lblScaleType",  "txtScaleID",    "txtInterval",
                                 "lblScaleNotes", "lblTranspose",  "cmbTranspose",
                                 "lblStatus",     "printPic",      "img0",
                                 "img95",         "imgE6",         "imgE9",
                                 "imgE13",        "imgE15",        "imgLabel",
                                 "fret1",         "fret15",        "Line1",
                                 "Line7",         "fretPosition3", "fretPosition12",
                                 "cmdEdit",       "cmdUpdate",     "cmdListen",
                                 "cmdPrint",      "cmdInstall",    "Label3",
                                 "picText",       "Picture1",      "ImageList1",
                                 "ImageList2",    "CommonDialog1", "lblBlank"}) {
    EXPECT_NE(Window().findChild<QObject*>(QLatin1String(name)), nullptr) << name;
  }
}

TEST_F(MainWindowTest, AccessibleDescriptionsAreTheTooltips) {
  MakeDatabase(kThree);
  Start();
  const std::vector<std::pair<const QWidget*, const char*>> tooltips = {
      {C().Label1, "The name of the scale"},
      {C().lblScaleDescription, "The scale description"},
      {C().lblScaleType, "The type of scale"},
      {C().lblScaleNotes, "The notes for the scale"},
      {C().lblTranspose, "The step pattern for the scale in Tones and Semi tones"},
      {C().cmbTranspose, "Select Starting Note To Transpose Scale. It is the Key of the scale."}};
  for (const auto& [control, tooltip] : tooltips) {
    EXPECT_EQ(control->toolTip().toStdString(), tooltip);
    EXPECT_EQ(control->accessibleDescription().toStdString(), tooltip);
  }
}

TEST_F(MainWindowTest, EveryControlInTheTabOrderHasAnAccessibleName) {
  MakeDatabase(kThree);
  Start();
  for (QWidget* const widget : Window().findChildren<QWidget*>()) {
    if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr)
      continue;
    auto* const accessible = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(accessible, nullptr);
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(C().cmbTranspose->accessibleName(), QStringLiteral("Key"));
}

TEST_F(MainWindowTest, StartsWithTheFocusOnTheNextRecordButton) {
  MakeDatabase(kThree);
  Start();
  ASSERT_NE(Window().focusWidget(), nullptr);
  EXPECT_EQ(Window().focusWidget()->accessibleName().toStdString(), "Next record");
  QTest::keyClick(Window().focusWidget(), Qt::Key_Space);
  EXPECT_EQ(Text(C().Label1), "Dorian");
}

TEST_F(MainWindowTest, ClientAreaIsFixed) {
  MakeDatabase(kThree);
  Start();
  EXPECT_EQ(Window().centralWidget()->size(), QSize(1080, 594));
  EXPECT_EQ(Window().minimumSize(), Window().maximumSize());
}

TEST_F(MainWindowTest, LabelsReduceTheirFontUntilTheTextFits) {
  MakeDatabase({{"Major", "2212221"}});
  Start();
  const std::vector<std::tuple<windows::FittingLabel*, int, int>> labels{
      {C().Label1, 30, 15},       {C().lblScaleType, 14, 11},  {C().lblScaleDescription, 12, 10},
      {C().lblTranspose, 14, 10}, {C().lblScaleNotes, 14, 10}, {C().lblStatus, 14, 10},
      {C().Label3, 12, 10},       {C().lblInstall, 12, 10}};
  for (const auto& [label, largest, smallest] : labels) {
    label->setText(QStringLiteral("x"));
    EXPECT_EQ(label->FittedPixelSize(), largest) << label->objectName().toStdString();
    label->setText(QString(2000, QLatin1Char('x')));
    EXPECT_EQ(label->FittedPixelSize(), smallest) << label->objectName().toStdString();
    EXPECT_TRUE(label->IsElided());
  }
}

}  // namespace
}  // namespace tonalith::app
