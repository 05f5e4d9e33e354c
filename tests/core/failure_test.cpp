// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "core/deferred_failure.h"
#include "core/deferred_messages.h"
#include "support/recording_msg_box.h"
#include "support/text_message.h"

namespace tonalith::core {
namespace {

using tests::RecordingMsgBox;
using Message = RecordingMsgBox::Message;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FailureTest, NumbersAreFixed) {
  EXPECT_EQ(Failure::Overflow().Number(), 6);
  EXPECT_EQ(Failure::SubscriptOutOfRange().Number(), 9);
  EXPECT_EQ(Failure::TypeMismatch().Number(), 13);
  EXPECT_EQ(Failure::InvalidUseOfNull().Number(), 94);
}

TEST(FailureTest, NumberAndDescriptionAreJoinedByColonAndBlank) {
  EXPECT_EQ(Failure(-2147467259, tests::TextMessage("Could not find it.")).NumberAndDescription(),
            "-2147467259: Could not find it.");
}

TEST(FailureTest, WhatReturnsTheDescription) {
  const Failure failure(7, tests::TextMessage("Out of memory"));
  const std::exception& known = failure;
  EXPECT_STREQ(known.what(), "Out of memory");
}

TEST(FailureTest, OtherExceptionsBecomeFailuresWithTheirText) {
  DeferredFailure deferred;
  deferred.Try([] { throw std::runtime_error("the disk is full"); });
  ASSERT_TRUE(deferred.Pending().has_value());
  EXPECT_EQ(deferred.Pending()->NumberAndDescription(), "51: the disk is full");
  deferred.Try([] { throw std::bad_alloc(); });
  EXPECT_EQ(deferred.Pending()->NumberAndDescription(), "7: Out of memory");
}

TEST(DeferredFailureTest, RunsTheNextStepAfterAFailureAndReportsTheLatest) {
  tests::RecordingMsgBox box;
  DeferredFailure deferred;
  int ran = 0;
  EXPECT_FALSE(deferred.Try([] { throw Failure::Overflow(); }));
  EXPECT_FALSE(deferred.Try([&] {
    ++ran;
    throw Failure::TypeMismatch();
  }));
  EXPECT_TRUE(deferred.Try([&] { ++ran; }));
  EXPECT_EQ(ran, 2);
  deferred.ReportDescription(box);
  deferred.ReportDescription(box);
  EXPECT_THAT(box.Messages(), ElementsAre(Message{"Type mismatch", MsgBoxStyle::kOkOnly, ""}));
}

TEST(DeferredFailureTest, ReportsNumberAndDescriptionInTheGivenStyle) {
  RecordingMsgBox box;
  DeferredFailure deferred;
  deferred.Try([] { throw Failure::SubscriptOutOfRange(); });
  deferred.ReportNumberAndDescription(box, MsgBoxStyle::kCritical);
  EXPECT_THAT(box.Messages(), ElementsAre(Message{"9: Subscript out of range", MsgBoxStyle::kCritical, ""}));
}

TEST(DeferredFailureTest, ReportsAFailureWithNumberOnce) {
  RecordingMsgBox box;
  DeferredFailure deferred;
  deferred.Try([] { throw Failure::Overflow(); });
  deferred.ReportNumberAndDescription(box);
  EXPECT_FALSE(deferred.Pending().has_value());
  deferred.ReportNumberAndDescription(box);
  deferred.ReportDescription(box);
  EXPECT_THAT(box.Messages(), ElementsAre(Message{"6: Overflow", MsgBoxStyle::kOkOnly, ""}));
}

TEST(DeferredFailureTest, ReportsNothingWithoutAFailureOrAfterClear) {
  RecordingMsgBox box;
  DeferredFailure deferred;
  deferred.ReportDescription(box);
  deferred.Try([] { throw Failure::Overflow(); });
  deferred.Clear();
  deferred.ReportNumberAndDescription(box);
  EXPECT_THAT(box.Messages(), IsEmpty());
}

TEST(DeferredMessagesTest, ShowsItsMessagesOnceAndInOrder) {
  DeferredMessages deferred;
  EXPECT_EQ(deferred.Show(tests::TextMessage("first"), MsgBoxStyle::kYesNo, tests::TextMessage("title")),
            MsgBoxAnswer::kOk);
  deferred.Show(tests::TextMessage("second"));
  RecordingMsgBox box;
  deferred.ShowAll(box);
  deferred.ShowAll(box);
  EXPECT_THAT(box.Messages(),
              ElementsAre(Message{"first", MsgBoxStyle::kYesNo, "title"}, Message{"second", MsgBoxStyle::kOkOnly, ""}));
}

TEST(MsgBoxTest, RecordedBoxAnswersFromItsScriptThenWithTheDefaultButton) {
  RecordingMsgBox box;
  box.AnswerNext(MsgBoxAnswer::kYes);
  const MsgBoxStyle askNo = MsgBoxStyle::kYesNo | MsgBoxStyle::kQuestion | MsgBoxStyle::kDefaultButton2;
  EXPECT_EQ(box.Show(tests::TextMessage("?"), askNo, tests::TextMessage("t")), MsgBoxAnswer::kYes);
  EXPECT_EQ(box.Show(tests::TextMessage("?"), askNo, tests::TextMessage("t")), MsgBoxAnswer::kNo);
  EXPECT_EQ(box.Show(tests::TextMessage("?"), MsgBoxStyle::kOkCancel), MsgBoxAnswer::kOk);
}

}  // namespace
}  // namespace tonalith::core
