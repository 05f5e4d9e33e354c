// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Opening the form twice, closing it, and pending edits at that time.

#include <QAbstractItemView>
#include <QTest>

#include "editor/editor_fixture.h"

namespace tonalith::editor {
namespace {

constexpr auto kOk = core::MsgBoxAnswer::kOk;
constexpr auto kCancel = core::MsgBoxAnswer::kCancel;

using Closing = ScaleEditorTest;

TEST_F(Closing, NotifiesTheMainWindowAndClearsItsPointer) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdClose);
  EXPECT_EQ(host_.Calls(), "EditUpdates BringToFront ");
  ProcessEvents();
  EXPECT_TRUE(form_.isNull());
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(host_.Calls(), "") << "once";
}

TEST_F(Closing, ASecondOpeningShowsTheOpenForm) {
  const frmScales* const first = &Open();
  Press(C().cmdModify);
  Type(1, "X");
  EXPECT_EQ(&Open(3), first);
  EXPECT_EQ(Field(1), "MajorX");
  C().datPrimaryRS->CancelUpdate();
}

TEST_F(Closing, AClosingFormIsNotShownAgain) {
  Open();
  Form().close();
  Open(3);
  EXPECT_EQ(Field(1), "Minor Triad");
  ProcessEvents();
  EXPECT_FALSE(form_.isNull());
}

TEST_F(Closing, EscapeCloses) {
  Open();
  QTest::keyClick(form_.data(), Qt::Key_Escape);
  ProcessEvents();
  EXPECT_TRUE(form_.isNull());
}

TEST_F(Closing, EscapeInTheOpenListOfTypesClosesOnlyTheList) {
  Open();
  Press(C().cmdModify);
  C().Combo1->showPopup();
  ASSERT_TRUE(C().Combo1->view()->isVisible());
  QTest::keyClick(C().Combo1->view(), Qt::Key_Escape);
  EXPECT_FALSE(C().Combo1->view()->isVisible());
  ProcessEvents();
  EXPECT_FALSE(form_.isNull());
}

TEST_F(Closing, PendingChangesAreSavedWithOk) {
  Open();
  Press(C().cmdModify);
  Type(1, "X");
  box_.AnswerNext(kOk);
  EXPECT_TRUE(Form().close());
  ASSERT_EQ(box_.Messages().size(), 1U);
  EXPECT_EQ(box_.Messages()[0].text + "\n", kKeep);
  EXPECT_EQ(static_cast<int>(box_.Messages()[0].style), 1);
  EXPECT_EQ(box_.Messages()[0].title, "");
  EXPECT_EQ(Rows("SELECT ScaleName FROM Scales WHERE ScaleID = 1"), "MajorX");
}

TEST_F(Closing, PendingChangesAreDroppedWithCancel) {
  Open();
  Press(C().cmdModify);
  Press(C().cmdAdd);
  Type(1, "Mine");
  box_.AnswerNext(kCancel);
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT count(*) FROM Scales"), "3");
}

TEST_F(Closing, RefusedChangesKeepTheFormOpen) {
  Open();
  Press(C().cmdModify);
  Replace(1, "Natural Minor");
  box_.AnswerNext(kOk);
  EXPECT_FALSE(Form().close());
  EXPECT_EQ(Messages(), std::string(kKeep) + "There is a scale of this name already.\n");
  EXPECT_EQ(Field(1), "Natural Minor");
  EXPECT_EQ(host_.Calls(), "");
  box_.AnswerNext(kOk);
  EXPECT_FALSE(editor_.Close());
}

TEST_F(Closing, SelectedNotesArePendingToo) {
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  box_.AnswerNext(kOk);
  EXPECT_TRUE(Form().close());
  EXPECT_EQ(Messages(), kKeep);
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "2212212");
}

TEST_F(Closing, SelectedNotesAreDroppedWithCancel) {
  Open();
  Press(C().cmdModify);
  ClickNotes("B A#");
  box_.AnswerNext(kCancel);
  EXPECT_TRUE(editor_.Close());
  EXPECT_EQ(Rows("SELECT ScaleIntervals FROM Scales WHERE ScaleID = 1"), "2212221");
}

TEST_F(Closing, UnloadingWithoutAFormReturnsImmediately) {
  EXPECT_TRUE(editor_.Close());
  Open();
  EXPECT_TRUE(editor_.Close());
  EXPECT_TRUE(editor_.Close()) << "closed, not gone yet";
}

}  // namespace
}  // namespace tonalith::editor
