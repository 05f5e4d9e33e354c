// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "editor/edit_session.h"

#include <gtest/gtest.h>

#include "core/failure.h"
#include "editor/edit_session_fixture.h"

namespace tonalith::editor {
namespace {

using Mode = EditSessionTest;

TEST_F(Mode, StartsAsViewingAndEndsWithLeaveModify) {
  EXPECT_FALSE(session_.IsModifying());
  EXPECT_EQ(Notice(), "viewing");
  session_.EnterModify();
  EXPECT_TRUE(session_.IsModifying());
  EXPECT_EQ(Notice(), "modify");
  session_.LeaveModify();
  EXPECT_FALSE(session_.IsModifying());
}

TEST_F(Mode, EnteringAgainStaysInModify) {
  session_.EnterModify();
  session_.EnterModify();
  EXPECT_TRUE(session_.IsModifying());
}

TEST_F(Mode, EnteringRemovesTheOutcomeOfTheLastCommand) {
  SetSaved();
  EXPECT_EQ(Notice(), "saved");
  session_.EnterModify();
  EXPECT_EQ(Notice(), "modify");
}

TEST_F(Mode, ViewingHasNoUnsavedNotes) {
  session_.EnterModify();
  scale_.Toggle("B");
  EXPECT_TRUE(session_.HasUnsavedNotes());
  session_.LeaveModify();
  EXPECT_FALSE(session_.HasUnsavedNotes());
  EXPECT_EQ(Notice(), "pattern not kept 2212221");
}

using NotesState = ModifyingSessionTest;

TEST_F(NotesState, AToggledNoteIsUnsaved) {
  EXPECT_FALSE(session_.HasUnsavedChanges());
  scale_.Toggle("D F A B");
  EXPECT_TRUE(session_.HasUnsavedNotes());
  EXPECT_TRUE(session_.HasUnsavedChanges());
  EXPECT_FALSE(scale_.IsEditPending());
  EXPECT_EQ(Notice(), "apply saves 435");
}

TEST_F(NotesState, AreSavedIfTheRecordHasTheirPattern) {
  scale_.Toggle("B");
  scale_.Toggle("B");
  EXPECT_FALSE(session_.HasUnsavedNotes());
  EXPECT_EQ(Notice(), "modify");
}

TEST_F(NotesState, TheSameSelectionIsNoChange) {
  SetSaved();
  EXPECT_FALSE(session_.NotesToggled(scale_.SelectedNotes()));
  EXPECT_FALSE(session_.CanUndo());
  EXPECT_EQ(Notice(), "saved");
}

TEST_F(NotesState, ASelectionOfOneNoteOrNoneIsReported) {
  scale_.Toggle("D E F G A B");
  EXPECT_EQ(Notice(), "apply saves one note 12");
  scale_.Toggle("C");
  EXPECT_EQ(Notice(), "no note");
}

TEST_F(NotesState, OneNoteIsReportedAlsoIfTheRecordHasIt) {
  scale_.SetField(field::kIntervals, QStringLiteral("12"));
  scale_.Toggle("C#");
  scale_.Toggle("D#");
  EXPECT_EQ(scale_.Selected(), "C");
  EXPECT_FALSE(session_.HasUnsavedNotes());
  EXPECT_EQ(Notice(), "apply saves one note 12");
}

TEST_F(NotesState, AToggleRemovesTheOutcomeOfTheLastCommand) {
  SetSaved();
  scale_.Toggle("B");
  EXPECT_EQ(Notice(), "apply saves 221223");
}

TEST_F(NotesState, AnOutcomePrecedesThePatternOfTheNotes) {
  scale_.Toggle("B");
  SetSaved();
  EXPECT_EQ(Notice(), "saved");
}

TEST_F(NotesState, TypingRevertsThem) {
  scale_.Toggle("B");
  scale_.Calls();
  scale_.Type(field::kName, "Majority");
  EXPECT_EQ(scale_.Selected(), "C D E F G A B");
  EXPECT_EQ(Notice(), "notes reverted");
  EXPECT_EQ(scale_.Calls(), "ShowPattern ");
  EXPECT_FALSE(session_.HasUnsavedNotes());
  scale_.Toggle("A");
  EXPECT_EQ(Notice(), "apply saves 221241");
}

TEST_F(NotesState, EnteringModifyRemovesTheNoticeOfRevertedNotes) {
  scale_.Toggle("B");
  scale_.Type(field::kName, "Majority");
  session_.EnterModify();
  EXPECT_EQ(Notice(), "not saved yet");
}

TEST_F(NotesState, UndoRestoresNotesThatTypingReverted) {
  scale_.Toggle("B");
  scale_.Type(field::kName, "Majority");
  session_.Undo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
  EXPECT_EQ(scale_.Text(field::kName), "Majority");
  EXPECT_TRUE(session_.HasUnsavedNotes());
}

TEST_F(NotesState, TypingAfterAnUndoneToggleRevertsNothing) {
  scale_.Toggle("B");
  scale_.Toggle("B");
  scale_.Calls();
  scale_.Type(field::kName, "Majority");
  EXPECT_EQ(Notice(), "not saved yet");
  EXPECT_EQ(scale_.Calls(), "");
}

TEST_F(NotesState, ATypedPatternSelectsItsNotes) {
  session_.SetLimit({MessageId::kPatternIsFull});
  SetSaved();
  session_.PatternTyped(QStringLiteral("435"));
  EXPECT_EQ(scale_.Selected(), "C E G");
  EXPECT_EQ(Notice(), "apply saves 435");
  session_.Undo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A B");
  EXPECT_FALSE(session_.CanUndo());
}

TEST_F(NotesState, ATypedPatternOfTheSameNotesIsNoStep) {
  session_.PatternTyped(QStringLiteral("2212221"));
  EXPECT_FALSE(session_.CanUndo());
}

using Steps = ModifyingSessionTest;

TEST_F(Steps, UndoAndRedoAField) {
  scale_.Type(field::kName, "Majo");
  scale_.Type(field::kName, "Maj");
  scale_.Type(field::kStartNote, "D");
  session_.Undo();
  EXPECT_EQ(scale_.Text(field::kStartNote), "");
  EXPECT_EQ(scale_.Text(field::kName), "Maj");
  session_.Undo();
  EXPECT_EQ(scale_.Text(field::kName), "Major");
  EXPECT_FALSE(session_.CanUndo());
  session_.Redo();
  EXPECT_EQ(scale_.Text(field::kName), "Maj");
  EXPECT_TRUE(session_.CanRedo());
}

TEST_F(Steps, UndoAndRedoNotes) {
  scale_.Toggle("B");
  scale_.Calls();
  session_.Undo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A B");
  EXPECT_EQ(scale_.Calls(), "ShowPattern ");
  EXPECT_EQ(Notice(), "modify");
  session_.Redo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
  EXPECT_EQ(scale_.Calls(), "");
  EXPECT_EQ(Notice(), "apply saves 221223");
}

TEST_F(Steps, UndoingAFieldRevertsNotesWithoutANewStep) {
  scale_.Toggle("B");
  scale_.Type(field::kName, "Maj");
  session_.Undo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
  session_.Undo();
  EXPECT_EQ(scale_.Text(field::kName), "Major");
  EXPECT_EQ(Notice(), "notes reverted");
  session_.Redo();
  session_.Redo();
  EXPECT_EQ(scale_.Text(field::kName), "Maj");
  EXPECT_FALSE(session_.CanRedo());
}

TEST_F(Steps, UndoingRemovesTheOutcomeOfTheLastCommand) {
  scale_.Type(field::kName, "Maj");
  SetSaved();
  session_.Undo();
  EXPECT_EQ(Notice(), "modify");
  scale_.Toggle("B");
  SetSaved();
  session_.Undo();
  EXPECT_EQ(Notice(), "modify");
}

TEST_F(Steps, WithoutAnyUndoAndRedoDoNothing) {
  session_.Undo();
  session_.Redo();
  EXPECT_EQ(scale_.Calls(), "");
}

TEST_F(Steps, NotesThatTypingRevertsAreAStepAfterAFailedUndo) {
  scale_.Type(field::kName, "Maj");
  scale_.FailNext("refused");
  EXPECT_THROW(session_.Undo(), core::Failure);
  scale_.Toggle("B");
  scale_.Type(field::kStartNote, "D");
  session_.Undo();
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
}

TEST_F(Steps, TheStepOfATypeIsTheTypeAndItsSortNumber) {
  session_.Add();
  session_.TypeChosen(QStringLiteral("2"));
  EXPECT_EQ(scale_.Text(field::kSort), "20");
  session_.Undo();
  EXPECT_EQ(scale_.Text(field::kScaleTypeId), "1");
  EXPECT_EQ(scale_.Text(field::kSort), "10");
}

TEST_F(Steps, TheSameTypeIsNoStep) {
  SetSaved();
  session_.TypeChosen(QStringLiteral("1"));
  EXPECT_FALSE(session_.CanUndo());
  EXPECT_EQ(Notice(), "modify");
}

using Records = ModifyingSessionTest;

TEST_F(Records, AnotherRecordEndsStepsAndNotices) {
  scale_.Toggle("B");
  SetSaved();
  session_.SetLimit({MessageId::kPatternIsFull});
  scale_.MoveToRecord(1);
  EXPECT_EQ(scale_.Selected(), "C E G");
  EXPECT_FALSE(session_.CanUndo());
  EXPECT_EQ(Notice(), "modify");
}

TEST_F(Records, TheSameRecordReadAgainKeepsStepsAndOutcome) {
  scale_.Type(field::kName, "Maj");
  SetSaved();
  session_.SetLimit({MessageId::kPatternIsFull});
  session_.RecordMoved();
  EXPECT_TRUE(session_.CanUndo());
  EXPECT_EQ(Notice(), "saved");
}

TEST_F(Records, ALimitIsReportedFirstUntilTheNextTyping) {
  scale_.Toggle("B");
  SetSaved();
  session_.SetLimit({MessageId::kPatternIsFull});
  EXPECT_EQ(Notice(), "full");
  scale_.Type(field::kName, "Maj");
  EXPECT_EQ(Notice(), "notes reverted");
  session_.SetLimit({MessageId::kPatternIsFull});
  session_.ClearLimit();
  EXPECT_EQ(Notice(), "notes reverted");
}

TEST_F(Records, TypingRemovesTheOutcomeOfTheLastCommand) {
  SetSaved();
  scale_.Type(field::kName, "Maj");
  EXPECT_EQ(Notice(), "not saved yet");
}

using Saving = ModifyingSessionTest;

TEST_F(Saving, UpdateKeepsTheChosenNotesOfANewRecord) {
  session_.Add();
  scale_.Toggle("B");
  session_.Update();
  EXPECT_FALSE(scale_.IsEditPending());
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
  EXPECT_TRUE(session_.HasUnsavedNotes());
}

TEST_F(Saving, UpdateWithoutChosenNotesSelectsTheRecords) {
  scale_.Type(field::kIntervals, "435435");
  session_.Update();
  EXPECT_EQ(scale_.Selected(), "C E G");
  EXPECT_FALSE(session_.HasUnsavedChanges());
}

TEST_F(Saving, NotesCanBeSavedIfPatternAndSelectionAreLongEnough) {
  EXPECT_TRUE(session_.CanKeepNotes());
  scale_.Toggle("C D E F G A B");
  EXPECT_FALSE(session_.CanKeepNotes());
  scale_.Type(field::kIntervals, "5");
  scale_.Toggle("C E G");
  EXPECT_FALSE(session_.CanKeepNotes());
  scale_.Type(field::kIntervals, "55");
  EXPECT_TRUE(session_.CanKeepNotes());
}

TEST_F(Saving, SavingNotesWritesThem) {
  scale_.Toggle("D F A B");
  scale_.Calls();
  session_.KeepNotes();
  EXPECT_EQ(scale_.Calls(), "KeepPattern UpdateBatch ");
  EXPECT_EQ(scale_.Text(field::kIntervals), "435");
  EXPECT_FALSE(session_.HasUnsavedChanges());
  EXPECT_EQ(Notice(), "modify") << "the notes were not reverted";
}

TEST_F(Saving, ASavedPatternWithOtherNotesRevertsNone) {
  scale_.Toggle("D E F G A B");
  session_.KeepNotes();
  EXPECT_EQ(scale_.Text(field::kIntervals), "12");
  EXPECT_EQ(scale_.Selected(), "C C# D#");
  EXPECT_EQ(Notice(), "modify");
}

TEST_F(Saving, DroppingChosenNotesLeavesNothingUnsaved) {
  scale_.Toggle("B");
  session_.DropChanges();
  EXPECT_FALSE(session_.HasUnsavedChanges());
}

TEST_F(Saving, DroppingChangesLeavesNothingUnsaved) {
  scale_.Type(field::kName, "Maj");
  scale_.Toggle("B");
  session_.DropChanges();
  EXPECT_FALSE(session_.HasUnsavedChanges());
  EXPECT_EQ(scale_.Text(field::kName), "Major");
  EXPECT_EQ(Notice(), "modify");
  EXPECT_EQ(session_.Rejected().Latest(), nullptr);
}

}  // namespace
}  // namespace tonalith::editor
