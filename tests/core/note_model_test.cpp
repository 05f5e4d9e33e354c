// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/note_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "core/current_scale.h"
#include "core/failure.h"
#include "support/recording_msg_box.h"

namespace tonalith::core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::RecordingMsgBox;
using Message = RecordingMsgBox::Message;

constexpr MsgBoxStyle kPlain = MsgBoxStyle::kOkOnly;

class NoteModel : public testing::Test {
 protected:
  tests::RecordingMsgBox box_;
};

TEST_F(NoteModel, EveryNameHasItsNumberAndEveryNumberItsName) {
  const char* const names[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  for (std::int16_t number = 0; number < 12; ++number) {
    EXPECT_EQ(CNoteToNumber(names[number]), number);
    EXPECT_EQ(CNumberToNote(number, box_), names[number]);
    EXPECT_EQ(CNumberToScore(number), names[number]);
  }
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(NoteModel, FlatLowerCaseBlankPaddedAndEmptyNamesReadAsC) {
  for (const char* const name : {"Db", "c", "", " C#", "C# ", "H", "e", "E#", "C##"}) {
    EXPECT_EQ(CNoteToNumber(name), 0) << name;
  }
}

TEST_F(NoteModel, ConversionWithMsgBoxShowsOneMessageAndReturnsEmpty) {
  EXPECT_EQ(CNumberToNote(12, box_), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Subscript out of range", kPlain, ""}));
  box_.Forget();
  EXPECT_EQ(CNumberToNote(-1, box_), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Subscript out of range", kPlain, ""}));
}

TEST_F(NoteModel, ConversionWithoutMsgBoxReturnsEmpty) {
  for (const int number : {12, -1, 32767, -32768}) EXPECT_EQ(CNumberToScore(static_cast<std::int16_t>(number)), "");
}

TEST_F(NoteModel, ScoreNoteIsTheEntryOneAboveItsNumber) {
  EXPECT_EQ(CNumberToScoreNote(-1, box_), "E");
  EXPECT_EQ(CNumberToScoreNote(0, box_), "F");
  EXPECT_EQ(CNumberToScoreNote(5, box_), "A#");
  EXPECT_EQ(CNumberToScoreNote(12, box_), "F");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(NoteModel, ScoreNotePastTheTableIsAnIndexErrorWithAMessage) {
  for (const int number : {13, -2, -32768}) {
    box_.Forget();
    EXPECT_EQ(CNumberToScoreNote(static_cast<std::int16_t>(number), box_), "");
    EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Subscript out of range", kPlain, ""})) << number;
  }
}

TEST_F(NoteModel, ScoreNoteOfTheLargestNumberOverflows) {
  EXPECT_EQ(CNumberToScoreNote(32767, box_), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"Overflow", kPlain, ""}));
}

TEST_F(NoteModel, NoteToScoreNumberTakesTheLastEntryOfTheName) {
  const std::map<std::string, int> expected = {{"E", 12}, {"F", 13}, {"F#", 2}, {"G", 3},  {"G#", 4}, {"A", 5},
                                               {"A#", 6}, {"B", 7},  {"C", 8},  {"C#", 9}, {"D", 10}, {"D#", 11}};
  for (const auto& [name, number] : expected) EXPECT_EQ(CNoteToScoreNumber(name), number) << name;
  for (const char* const name : {"", "e", "Db", "x"}) EXPECT_EQ(CNoteToScoreNumber(name), 0) << name;
}

TEST_F(NoteModel, RoundTripGivesTheNextStaffEntryAndForFAnIndexError) {
  EXPECT_EQ(CNumberToScoreNote(CNoteToScoreNumber("C"), box_), "C#");
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(CNumberToScoreNote(CNoteToScoreNumber("F"), box_), "");
  EXPECT_EQ(box_.Messages().size(), 1U);
}

TEST_F(NoteModel, SharpsShareTheLetterOfTheNaturalBelow) {
  const int expected[] = {0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
  for (std::int16_t number = 0; number < 12; ++number) EXPECT_EQ(NaturalIndex(number), expected[number]);
}

TEST_F(NoteModel, NaturalIndexOutsideTheTableThrows) {
  for (const int number : {-1, 12, 32767}) {
    try {
      NaturalIndex(static_cast<std::int16_t>(number));
      FAIL() << number;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), failure_number::kSubscriptOutOfRange);
    }
  }
}

class OneScale : public CurrentScaleSource {
 public:
  explicit OneScale(std::string pattern) : pattern_(std::move(pattern)) {}
  [[nodiscard]] std::int32_t CurrentScaleId() const override { return 7; }
  std::string GetScaleIntervalsByID(std::int32_t scaleId) override {
    asked_.push_back(scaleId);
    return pattern_;
  }
  std::vector<std::int32_t> asked_;

 private:
  std::string pattern_;
};

TEST_F(NoteModel, NoteIsInTheScaleIfOneOfItsNotesHasTheName) {
  OneScale major("2212221");
  EXPECT_TRUE(NoteExistsInScoreScale(0, "B", major, box_));
  EXPECT_FALSE(NoteExistsInScoreScale(0, "C#", major, box_));
  EXPECT_TRUE(NoteExistsInScoreScale(2, "C#", major, box_));
  EXPECT_FALSE(NoteExistsInScoreScale(0, "Db", major, box_));
  EXPECT_THAT(major.asked_, ElementsAre(7, 7, 7, 7));
}

TEST_F(NoteModel, EmptyNameIsNotInAScale) {
  // The major scale has eight notes, so the positions from 8 to 12 are past its end.
  OneScale major("2212221");
  EXPECT_FALSE(NoteExistsInScoreScale(0, "", major, box_));
  OneScale full("111111111111");
  EXPECT_FALSE(NoteExistsInScoreScale(0, "", full, box_));
}

TEST_F(NoteModel, FourteenthNoteOfALongPatternIsNotFound) {
  // Thirteen steps: twelve times the start note; only the fourteenth note differs.
  OneScale late("0000000000001");
  EXPECT_FALSE(NoteExistsInScoreScale(0, "C#", late, box_));
  OneScale justInTime("000000000001");
  EXPECT_TRUE(NoteExistsInScoreScale(0, "C#", justInTime, box_));
}

TEST_F(NoteModel, FirstLookupReportsABadPatternToo) {
  OneScale bad("2x");
  EXPECT_FALSE(NoteExistsInScoreScale(0, "C", bad, box_));
  // One for the unused lookup, and one for each position up to the last one that the pattern reaches.
  EXPECT_EQ(box_.Texts(), "13 Type mismatch\n13 Type mismatch\n13 Type mismatch\n13 Type mismatch\n13 Type mismatch\n");
}

}  // namespace
}  // namespace tonalith::core
