// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The form after opening, its two modes, and its buttons.

#include <QTest>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kCancel = core::MsgBoxAnswer::kCancel;
constexpr auto kYes = core::MsgBoxAnswer::kYes;

using FrmScales = ScaleEditorTest;

/// A window that runs an action when the pointer enters or moves.
class PointerWatch : public QWidget {
 public:
  explicit PointerWatch(std::function<void()> act) : act_(std::move(act)) { setMouseTracking(true); }

 protected:
  void enterEvent(QEnterEvent* /*event*/) override { act_(); }
  void mouseMoveEvent(QMouseEvent* /*event*/) override { act_(); }

 private:
  std::function<void()> act_;
};

TEST_F(FrmScales, OpensOnTheGivenRecord) {
  Open(2);
  EXPECT_EQ(Form().windowTitle(), QStringLiteral("Scales"));
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(Messages(), "");
}

TEST_F(FrmScales, OpensOnTheFirstRecordByDefault) {
  Open();
  EXPECT_EQ(Field(1), "Major");
  delete form_.data();
  Open(99);
  EXPECT_EQ(Field(1), "Major");
}

TEST_F(FrmScales, ShowsEveryFieldByItsIndex) {
  Open(2);
  EXPECT_EQ(Field(0), "2");
  EXPECT_EQ(Field(2), "The dark one.");
  EXPECT_EQ(Field(3), "1");
  EXPECT_EQ(Field(4), "2122122");
  EXPECT_EQ(Field(5), "A");
  EXPECT_EQ(Field(7), "2");
  EXPECT_EQ(C().txtFields[6].box, nullptr);
  EXPECT_EQ(C().txtScaleType->text(), QStringLiteral("Scales"));
  EXPECT_FALSE(C().chkFields->isChecked());
  PressArrow("Next record");
  EXPECT_TRUE(C().chkFields->isChecked());
  EXPECT_EQ(C().txtScaleType->text(), QStringLiteral("Chords"));
}

TEST_F(FrmScales, CaptionsItsLabelsAndButtons) {
  Open();
  std::string captions;
  for (const QLabel* const label : C().lblLabels) captions += label->text().toStdString() + "\n";
  EXPECT_EQ(captions,
            "Scale ID:\nScale Name:\nScale Description:\nScale Type ID:\nScale Intervals:\nStart Note:\nChord:\n"
            "Sort Order Number:\n");
  std::string buttons;
  for (const char* const name :
       {"cmdAdd", "cmdUpdate", "cmdDelete", "cmdRefresh", "cmdClose", "cmdModify", "cmdApply"}) {
    buttons += Form().findChild<QAbstractButton*>(QLatin1String(name))->text().toStdString() + " ";
  }
  EXPECT_EQ(buttons, "&Add &Update &Delete &Refresh &Close Modify Apply ");
}

TEST_F(FrmScales, OpensReadOnlyWithItsRecordButtonsHidden) {
  Open();
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_FALSE(C().picButtons->isVisible());
  EXPECT_FALSE(C().picButtons->isEnabled());
  for (const TextField& field : C().txtFields) {
    EXPECT_FALSE(field.box != nullptr && field.box->isEnabled());
  }
  for (const NoteButton* const note : C().keyboard->Notes()) EXPECT_FALSE(note->isEnabled());
  EXPECT_EQ(VisibleNotes(), "C C# D D# E F F# G G# A A# B");
}

TEST_F(FrmScales, ShowsThePatternAsButtonsAndStepWords) {
  Open();
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(C().Note(1)->Colours(), kUnselectedColours);
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212221"));
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T T S T T T S"));
}

TEST_F(FrmScales, ColoursTheButtonsFromCForEveryStartNote) {
  Open(2);
  EXPECT_EQ(SelectedNotes(), "C D D# F G G# A#");
}

TEST_F(FrmScales, MovesAllFieldsTogether) {
  Open();
  PressArrow("Last record");
  EXPECT_EQ(Field(1), "Minor Triad");
  EXPECT_EQ(SelectedNotes(), "C D# G");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T1.5 T2 T2.5"));
}

TEST_F(FrmScales, ModifyOpensAllFieldsButTheKey) {
  Open();
  Press(C().cmdModify);
  EXPECT_TRUE(Form().IsInModifyMode());
  EXPECT_TRUE(C().picButtons->isVisible());
  EXPECT_TRUE(C().picButtons->isEnabled());
  for (const int i : {1, 2, 3, 4, 5, 7}) EXPECT_TRUE(C().txtFields.at(i).box->isEnabled()) << i;
  EXPECT_FALSE(C().txtFields[0].box->isEnabled());
  EXPECT_FALSE(C().txtFields[4].box->isVisible());
  EXPECT_FALSE(C().chkFields->isVisible());
  for (const NoteButton* const note : C().keyboard->Notes()) EXPECT_TRUE(note->isEnabled());
}

TEST_F(FrmScales, ModifyPressedTwiceStaysInTheMode) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdModify);
  EXPECT_TRUE(Form().IsInModifyMode());
  EXPECT_TRUE(C().picButtons->isVisible());
}

TEST_F(FrmScales, ANoteClickTogglesItsColoursAndNothingElse) {
  Open();
  Press(C().cmdModify);
  ClickNotes("C# E");
  EXPECT_EQ(SelectedNotes(), "C C# D F G A B");
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("2212221"));
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T T S T T T S"));
  EXPECT_EQ(Field(4), "2212221");
  EXPECT_EQ(Notice(), "Apply saves 1132221: S S T1.5 T T T S");
  ClickNotes("C# E");
  EXPECT_EQ(Notice(), kEditHint);
}

TEST_F(FrmScales, AClickOnAnUnknownNoteTogglesNothing) {
  Open();
  Form().ScaleLabelClick("note12");
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
}

TEST_F(FrmScales, ApplyWritesTheSelectedNotesAndGoesToTheFirstRecord) {
  Open(3);
  Press(C().cmdModify);
  ClickNotes("D D# E F A B");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Saved("Minor Triad"), "Minor Triad|2212221|2|-|C|1|7");
  EXPECT_EQ(Field(1), "Major");
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(host_.Calls(), "EditUpdates ");
  EXPECT_EQ(Notice(), std::string("Saved: Minor Triad. ") + kViewHint);
  PressArrow("Next record");
  EXPECT_EQ(Notice(), kViewHint);
}

TEST_F(FrmScales, AfterApplyOnlyTheNotesOfThePatternAreVisible) {
  Open();
  Press(C().cmdModify);
  ClickNotes("D F A B");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(VisibleNotes(), "C E G");
  PressArrow("Next record");
  EXPECT_EQ(VisibleNotes(), "C D D# F G G# A#");
  Press(C().cmdModify);
  EXPECT_EQ(VisibleNotes(), "C C# D D# E F F# G G# A A# B");
}

TEST_F(FrmScales, ApplyWithCancelLeavesTheModeAndWritesNothing) {
  Open();
  Press(C().cmdModify);
  ClickNotes("D F A B");
  box_.AnswerNext(kCancel);
  Press(C().cmdApply);
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(VisibleNotes(), "C E G");
  EXPECT_EQ(Saved("Major"), "Major|2212221|1|The bright one.|C|0|1");
  EXPECT_EQ(Notice(), "Not kept. The scale still is 2212221. Modify (F2) brings your changes back.");
}

TEST_F(FrmScales, InputAtTheEndOfApplyWaitsUntilTheModeIsLeft) {
  Open();
  Press(C().cmdModify);
  std::string modes;
  PointerWatch other([&] { modes += Form().IsInModifyMode() ? "modify " : "left "; });
  other.move(Form().frameGeometry().bottomRight() + QPoint(50, 50));
  other.resize(100, 100);
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
  // The offscreen platform queues mouse events like a window system.
  box_.WhileShown([&] { QCursor::setPos(other.geometry().center()); });
  box_.AnswerNext(kCancel);
  Press(C().cmdApply);
  ProcessEvents();
  EXPECT_THAT(modes, testing::StartsWith("left "));
  EXPECT_THAT(modes, testing::Not(testing::HasSubstr("modify")));
}

TEST_F(FrmScales, ApplyWithCancelDropsTypedTexts) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  box_.AnswerNext(kCancel);
  Press(C().cmdApply);
  EXPECT_EQ(Field(1), "Major");
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales WHERE ScaleName = 'MajorX'"), "0");
}

TEST_F(FrmScales, ApplyTestsTheLengthOfTheStoredPattern) {
  Execute("UPDATE Scales SET ScaleIntervals = '5' WHERE ScaleID = 1");
  Open();
  Press(C().cmdModify);
  ClickNotes("D E");
  Type(1, "X");
  ClickNotes("D E");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  ASSERT_EQ(box_.Messages().size(), 2U);
  EXPECT_EQ(box_.Messages()[1].text, "A scale or chord requires more than one note.");
  EXPECT_EQ(static_cast<int>(box_.Messages()[1].style), 64);
  EXPECT_FALSE(Form().IsInModifyMode());
  EXPECT_EQ(Rows("SELECT ScaleName, ScaleIntervals FROM Scales WHERE ScaleID = 1"), "Major|5");
  EXPECT_EQ(Notice(), "Not saved. Modify (F2) brings your changes back.");
  Press(C().cmdModify);
  EXPECT_EQ(Field(1), "MajorX") << "not written, and not lost";
}

TEST_F(FrmScales, ALoneNoteIsTwoDigitsAndPassesTheTest) {
  Open();
  Press(C().cmdModify);
  ClickNotes("D E F G A B");
  EXPECT_EQ(Notice(), "Apply saves 12: S T. One note is not a scale.");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "12");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" S T"));
  EXPECT_EQ(SelectedNotes(), "C C# D#");
}

TEST_F(FrmScales, NoNoteAtAllIsRefused) {
  Open();
  Press(C().cmdModify);
  ClickNotes("C D E F G A B");
  EXPECT_EQ(Notice(), "No note is selected.");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Messages(), std::string(kKeep) + "A scale or chord requires more than one note.\n");
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "2212221");
}

TEST_F(FrmScales, ChangingAnyBoundTextRecoloursTheButtons) {
  Open();
  Press(C().cmdModify);
  ClickNotes("C# D");
  Type(5, "#");
  EXPECT_EQ(SelectedNotes(), "C D E F G A B");
  EXPECT_EQ(Notice(), "Back to the saved notes. Ctrl+Z on a note brings yours back.");
}

TEST_F(FrmScales, ChangingTheIntervalFieldAlsoRewritesTheStepWords) {
  Open();
  Press(C().cmdModify);
  C().txtFields[4].SetText(QStringLiteral("3 4 5"));
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T1.5 T2 T2.5"));
  C().txtFields[4].SetText(QStringLiteral("435"));
  EXPECT_EQ(SelectedNotes(), "C E G");
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("435"));
}

TEST_F(FrmScales, ATypedPatternImmediatelyChangesButtonsAndStepWords) {
  Open();
  Press(C().cmdModify);
  C().txtIntervals->setFocus();
  C().txtIntervals->selectAll();
  QTest::keyClicks(C().txtIntervals, QStringLiteral("4x35"));
  EXPECT_EQ(C().txtIntervals->text(), QStringLiteral("435"));
  EXPECT_EQ(SelectedNotes(), "C E G");
  EXPECT_EQ(C().txtScaleIntervalTones->text(), QStringLiteral(" T2 T1.5 T2.5"));
  EXPECT_EQ(Notice(), "Apply saves 435: T2 T1.5 T2.5");
  box_.AnswerNext(kOk);
  Press(C().cmdApply);
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "435");
}

TEST_F(FrmScales, UpdateWritesTypedTexts) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Ionian");
  Type(2, " And how.");
  Replace(5, "D");
  Replace(7, "12");
  EXPECT_EQ(Notice(), "Not saved yet.");
  EXPECT_EQ(host_.Calls(), "");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Ionian"), "Ionian|2212221|1|The bright one. And how.|D|0|12");
  EXPECT_EQ(Notice(), kEditHint);
  EXPECT_EQ(host_.Calls(), "EditUpdates ");
  EXPECT_TRUE(Form().IsInModifyMode());
}

TEST_F(FrmScales, UpdateKeepsUnsavedNotes) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Mine");
  ClickNotes("D F A B");
  Press(C().cmdUpdate);
  EXPECT_EQ(SelectedNotes(), "C E G");
  EXPECT_EQ(Notice(), "Apply saves 435: T2 T1.5 T2.5");
  EXPECT_EQ(Saved("Mine"), "Mine|2212221|1|-|C|0|3");
}

TEST_F(FrmScales, AMoveWritesTypedTexts) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Ionian");
  PressArrow("Next record");
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "Ionian");
  EXPECT_EQ(host_.Calls(), "EditUpdates ");
}

TEST_F(FrmScales, DeleteAsksWithTheFixedTextAndNoAsDefault) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdDelete);
  ASSERT_EQ(box_.Messages().size(), 1U);
  EXPECT_EQ(box_.Messages()[0].text,
            "Are you sure you want to delete this record? You will not be able to undo the deletion!");
  EXPECT_EQ(box_.Messages()[0].title, "Confirm Deletion");
  EXPECT_EQ(static_cast<int>(box_.Messages()[0].style), 276);
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
}

TEST_F(FrmScales, DeleteRemovesTheRecordAndShowsTheNextOne) {
  Open();
  Press(C().cmdModify);
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(Rows("SELECT ScaleID FROM Scales ORDER BY ScaleID"), "2\n3");
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(host_.Calls(), "EditUpdates ");
}

TEST_F(FrmScales, DeletingTheLastRecordShowsTheNewLastOne) {
  Open(3);
  Press(C().cmdModify);
  box_.AnswerNext(kYes);
  Press(C().cmdDelete);
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(box_.Messages().size(), 1U);
}

TEST_F(FrmScales, ATypeIsChosenByItsName) {
  Open();
  Press(C().cmdModify);
  EXPECT_TRUE(C().Combo1->isVisible());
  EXPECT_FALSE(C().txtScaleType->isVisible());
  EXPECT_EQ(C().Combo1->currentText(), QStringLiteral("Scales"));
  C().Combo1->setFocus();
  QTest::keyClick(C().Combo1, Qt::Key_Down);
  EXPECT_EQ(Field(3), "2");
  Press(C().cmdUpdate);
  EXPECT_EQ(Saved("Major"), "Major|2212221|2|The bright one.|C|0|1");
  EXPECT_EQ(C().txtScaleType->text(), QStringLiteral("Chords"));
}

TEST_F(FrmScales, ATypedTypeNumberShowsItsName) {
  Open();
  Press(C().cmdModify);
  Replace(3, "2");
  EXPECT_EQ(C().Combo1->currentText(), QStringLiteral("Chords"));
  Replace(3, "77");
  EXPECT_EQ(C().Combo1->currentIndex(), -1);
}

}  // namespace
}  // namespace tonalith::editor
