// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Rejecting and restoring edits, and new scales.

#include <gtest/gtest.h>

#include "editor/edit_session.h"
#include "editor/edit_session_fixture.h"

namespace tonalith::editor {
namespace {

using Decision = RejectedEdit::Decision;

using Rejecting = ModifyingSessionTest;

TEST_F(Rejecting, WithoutAnEditNothingIsRejected) {
  EXPECT_FALSE(session_.Reject(Decision::kOpen));
  EXPECT_TRUE(session_.Rejected().IsEmpty());
  EXPECT_EQ(scale_.Calls(), "");
}

TEST_F(Rejecting, RemovesFieldsNotesAndStepsFromTheSession) {
  scale_.Type(field::kName, "Maj");
  scale_.Toggle("B");
  EXPECT_TRUE(session_.Reject(Decision::kOpen));
  EXPECT_EQ(scale_.Text(field::kName), "Major");
  EXPECT_FALSE(session_.HasUnsavedChanges());
  EXPECT_FALSE(session_.CanUndo());
  const RejectedEdit edit = TakeRejected();
  EXPECT_EQ(edit.record, data::Bookmark{0});
  EXPECT_EQ(edit.place, data::Bookmark{0});
  EXPECT_EQ(edit.fields[field::kName].text, QStringLiteral("Maj"));
  EXPECT_EQ(edit.notes, Notes("C D E F G A"));
  EXPECT_EQ(edit.decision, Decision::kOpen);
}

TEST_F(Rejecting, ANewRecordIsRestoredFromTheNextRecord) {
  session_.Add();
  EXPECT_TRUE(session_.Reject(Decision::kByUser));
  const RejectedEdit edit = TakeRejected();
  EXPECT_EQ(edit.record, std::nullopt);
  EXPECT_EQ(edit.place, data::Bookmark{0});
  EXPECT_EQ(edit.decision, Decision::kByUser);
}

TEST_F(Rejecting, TheOtherVersionIsShownAndTheEditStored) {
  scale_.Type(field::kName, "Maj");
  scale_.Toggle("B");
  session_.RejectForOtherVersion();
  EXPECT_EQ(scale_.Calls(), "") << "the caller drops the edit";
  EXPECT_FALSE(session_.HasUnsavedNotes());
  EXPECT_FALSE(session_.CanUndo());
  EXPECT_EQ(session_.Rejected().Latest()->fields[field::kName].text, QStringLiteral("Maj"));
  EXPECT_EQ(session_.Rejected().Latest()->decision, Decision::kByUser);
  scale_.CancelUpdate();
  scale_.SelectNotes(scale_.RecordNotes());
  EXPECT_EQ(Notice(), "other version");
}

using Restoring = ModifyingSessionTest;

TEST_F(Restoring, MakesFieldsNotesAndStepsPendingAgain) {
  scale_.Type(field::kName, "Maj");
  scale_.Toggle("B");
  session_.Reject(Decision::kOpen);
  scale_.Calls();
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Calls(), "SetField(1:Maj) ") << "changed fields only; the record is not read again";
  EXPECT_TRUE(session_.HasUnsavedNotes());
  EXPECT_EQ(scale_.Selected(), "C D E F G A");
  session_.Undo();
  session_.Undo();
  EXPECT_EQ(scale_.Text(field::kName), "Major");
  EXPECT_FALSE(session_.CanUndo());
}

TEST_F(Restoring, ReturnsToItsRecord) {
  scale_.Type(field::kName, "Maj");
  session_.Reject(Decision::kOpen);
  scale_.MoveToRecord(1);
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Bookmark(), data::Bookmark{0});
  EXPECT_EQ(scale_.Text(field::kName), "Maj");
}

TEST_F(Restoring, MakesADeletedRecordANewOne) {
  scale_.Type(field::kName, "Maj");
  session_.Reject(Decision::kOpen);
  scale_.MoveToRecord(1);
  scale_.Delete(0);
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Bookmark(), std::nullopt);
  EXPECT_EQ(scale_.Text(field::kName), "Maj");
  EXPECT_EQ(scale_.Text(field::kIntervals), "2212221");
  EXPECT_EQ(scale_.Text(field::kSort), "0") << "the sort number of the deleted record";
}

TEST_F(Restoring, GivesANewRecordTheNextSortNumberOfItsType) {
  session_.Add();
  session_.TypeChosen(QStringLiteral("2"));
  session_.Reject(Decision::kOpen);
  scale_.SetSortUnit(30);
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Text(field::kScaleTypeId), "2");
  EXPECT_EQ(scale_.Text(field::kSort), "60");
}

TEST_F(Restoring, KeepsTheSortNumberThatTheUserTyped) {
  session_.Add();
  scale_.Type(field::kSort, "7");
  session_.Reject(Decision::kOpen);
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Text(field::kSort), "7");
}

TEST_F(Restoring, RestoresTheChordFlag) {
  session_.Add();
  scale_.SetContent("Chord", core::Value::YesNo(true));
  session_.Reject(Decision::kOpen);
  scale_.SetContent("Chord", core::Value::YesNo(false));
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Content("Chord"), core::Value::YesNo(true));
}

TEST_F(Restoring, KeepsTheSortNumberOfADeletedRecord) {
  session_.Add();
  session_.Update();
  scale_.Type(field::kName, "Mine");
  session_.Reject(Decision::kOpen);
  scale_.MoveToRecord(1);
  scale_.Delete(2);
  scale_.SetSortUnit(30);
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Bookmark(), std::nullopt);
  EXPECT_EQ(scale_.Text(field::kSort), "10");
}

TEST_F(Restoring, NotesThatTheRecordAlreadyHasAreNotUnsaved) {
  scale_.Toggle("D F A B");
  session_.Reject(Decision::kOpen);
  scale_.SetField(field::kIntervals, QStringLiteral("435435"));
  session_.Update();
  for (int toggle = 0; toggle < 2; ++toggle) scale_.Toggle("C");
  session_.BringBack(TakeRejected());
  EXPECT_EQ(scale_.Selected(), "C E G");
  EXPECT_FALSE(session_.HasUnsavedNotes());
  EXPECT_EQ(Notice(), "modify");
}

using NewScales = ModifyingSessionTest;

TEST_F(NewScales, StartAsMajorOfTheShownType) {
  session_.Add();
  EXPECT_EQ(scale_.Text(field::kIntervals), "2212221");
  EXPECT_EQ(scale_.Text(field::kStartNote), "C");
  EXPECT_EQ(scale_.Text(field::kScaleTypeId), "1");
  EXPECT_EQ(scale_.Text(field::kSort), "10");
}

TEST_F(NewScales, HaveTheFirstTypeIfNoneIsShown) {
  scale_.SetField(field::kScaleTypeId, QString());
  session_.Add();
  EXPECT_EQ(scale_.Text(field::kScaleTypeId), "1");
}

TEST_F(NewScales, ATypedSortNumberStaysWhenTheTypeChanges) {
  session_.Add();
  scale_.Type(field::kSort, "7");
  session_.TypeChosen(QStringLiteral("2"));
  EXPECT_EQ(scale_.Text(field::kSort), "7");
}

TEST_F(NewScales, ASavedRecordKeepsItsSortNumber) {
  session_.Add();
  session_.Update();
  session_.TypeChosen(QStringLiteral("2"));
  EXPECT_EQ(scale_.Text(field::kSort), "10");
}

}  // namespace
}  // namespace tonalith::editor
