// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/scale_construction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/failure.h"
#include "support/recording_msg_box.h"

namespace tonalith::core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::RecordingMsgBox;
using Message = RecordingMsgBox::Message;

constexpr const char* kMajor = "2212221";

class ScaleConstruction : public testing::Test {
 protected:
  std::string At(int start, IntervalPattern pattern, int position) {
    return ScaleArray(static_cast<NoteNumber>(start), "1", pattern, static_cast<std::int16_t>(position), box_);
  }
  tests::RecordingMsgBox box_;
};

TEST_F(ScaleConstruction, MajorOnCGoesFromCToCAndThenIsEmpty) {
  const char* const expected[] = {"C", "D", "E", "F", "G", "A", "B", "C", "", ""};
  for (int k = 0; k < 10; ++k) EXPECT_EQ(At(0, kMajor, k), expected[k]) << k;
  EXPECT_EQ(At(0, kMajor, 32767), "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleConstruction, MajorOnBEndsOnBInTheSecondOctaveOfTheTable) {
  EXPECT_EQ(At(11, kMajor, 7), "B");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleConstruction, SumsUpTo24FitEveryStartNoteAnd25DoesNotFitB) {
  EXPECT_EQ(At(11, "996", 3), "B");
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(At(11, "997", 3), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"9 Subscript out of range", MsgBoxStyle::kOkOnly, ""}));
}

TEST_F(ScaleConstruction, TableHasThirtySixEntries) {
  EXPECT_EQ(At(0, "9998", 4), "B");
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(At(0, "9999", 4), "");
  EXPECT_EQ(box_.Texts(), "9 Subscript out of range\n");
}

TEST_F(ScaleConstruction, EmptyPatternIsOneNoteAndNoError) {
  EXPECT_EQ(At(4, "", 0), "E");
  EXPECT_EQ(At(4, "", 1), "");
  EXPECT_EQ(At(4, "", 2), "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleConstruction, NullPatternIsAnErrorWithNumberAndDescription) {
  EXPECT_EQ(At(0, std::nullopt, 0), "");
  EXPECT_THAT(box_.Messages(), ElementsAre(Message{"9 Subscript out of range", MsgBoxStyle::kOkOnly, ""}));
}

TEST_F(ScaleConstruction, CharacterThatIsNoDigitIsReportedWithAnEmptyResult) {
  for (const char* const pattern : {"2x2", "2 2", "-2", "2\xC2\xBD", "\xFF", "2.5"}) {
    box_.Forget();
    EXPECT_EQ(At(0, pattern, 0), "") << pattern;
    EXPECT_THAT(box_.Messages(), ElementsAre(Message{"13 Type mismatch", MsgBoxStyle::kOkOnly, ""})) << pattern;
  }
}

TEST_F(ScaleConstruction, PositionPastTheStepListIsEmptyEvenForABadPattern) {
  EXPECT_EQ(At(0, "2x", 4), "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
  // A multi-byte character counts once.
  EXPECT_EQ(At(0, "2\xC2\xBD", 4), "");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleConstruction, NegativePositionAndStartAreIndexErrors) {
  EXPECT_EQ(At(0, kMajor, -1), "");
  EXPECT_EQ(At(-1, kMajor, 0), "");
  EXPECT_EQ(box_.Texts(), "9 Subscript out of range\n9 Subscript out of range\n");
}

TEST_F(ScaleConstruction, StepTypeHasNoEffect) {
  EXPECT_EQ(ScaleArray(0, "Blues", kMajor, 4, box_), ScaleArray(0, "1", kMajor, 4, box_));
}

TEST_F(ScaleConstruction, CompleteScaleEqualsItsSinglePositions) {
  for (const char* const pattern : {"", "3", kMajor, "111111111111", "12"}) {
    const Scale scale = ReportedScale(5, pattern, box_);
    ASSERT_EQ(scale.size(), std::string_view(pattern).size() + 1);
    for (int k = 0; k < std::ssize(scale); ++k) {
      EXPECT_EQ(NameOf(scale[static_cast<std::size_t>(k)]), At(5, pattern, k)) << pattern << k;
    }
  }
}

TEST_F(ScaleConstruction, CompleteScaleReportsABadPatternOnceAndIsEmpty) {
  EXPECT_THAT(ReportedScale(0, "2x", box_), IsEmpty());
  EXPECT_EQ(box_.Texts(), "13 Type mismatch\n");
}

TEST_F(ScaleConstruction, MakerJoinsTheNamesWithSingleBlanks) {
  EXPECT_EQ(ScaleMaker(0, "1", kMajor, box_), "C D E F G A B C");
  EXPECT_EQ(ScaleMaker(9, "1", "", box_), "A");
  EXPECT_THAT(box_.Messages(), IsEmpty());
}

TEST_F(ScaleConstruction, MakerHasTwoOctavesAndReportsTheDescriptionAlone) {
  EXPECT_EQ(ScaleMaker(11, "1", "93", box_), "B G# B");
  EXPECT_THAT(box_.Messages(), IsEmpty());
  EXPECT_EQ(ScaleMaker(11, "1", "94", box_), "B G# ");
  EXPECT_EQ(box_.Texts(), "Subscript out of range\n");
}

TEST_F(ScaleConstruction, MakerContinuesAfterACharacterThatIsNoDigit) {
  EXPECT_EQ(ScaleMaker(0, "1", "2x2", box_), "C D D E");
  EXPECT_EQ(box_.Texts(), "Type mismatch\n");
  box_.Forget();
  EXPECT_EQ(ScaleMaker(0, "1", std::nullopt, box_), "");
  EXPECT_EQ(box_.Texts(), "Subscript out of range\n");
}

TEST_F(ScaleConstruction, WrappedNotesStartAtTheRootAndDoNotRepeatIt) {
  EXPECT_THAT(WrappedScaleNotes(14, kMajor), ElementsAre("D", "E", "F#", "G", "A", "B", "C#"));
  EXPECT_THAT(WrappedScaleNotes(0, ""), IsEmpty());
  EXPECT_THAT(WrappedScaleNotes(11, "9999"), ElementsAre("B", "G#", "F", "D"));
}

TEST_F(ScaleConstruction, WrappedNotesThrowForBadRootsAndBadCharacters) {
  EXPECT_THROW(WrappedScaleNotes(-1, "2"), Failure);
  EXPECT_THROW(WrappedScaleNotes(0, "2a"), Failure);
}

TEST_F(ScaleConstruction, IntervalsAreTheDigits) {
  EXPECT_THAT(IntervalsOf("2190"), ElementsAre(2, 1, 9, 0));
  EXPECT_THAT(IntervalsOf(""), IsEmpty());
  EXPECT_THROW(IntervalsOf("2 1"), Failure);
}

TEST(IsOverlongPattern, CountsDigitsWithoutBlanks) {
  EXPECT_FALSE(IsOverlongPattern(""));
  EXPECT_FALSE(IsOverlongPattern(std::string(36, '1')));
  EXPECT_TRUE(IsOverlongPattern(std::string(37, '1')));
  EXPECT_FALSE(IsOverlongPattern(std::string(36, '1') + std::string(10, ' ')));
  EXPECT_FALSE(IsOverlongPattern(std::string(36, '1') + std::string(72, ' '))) << "a blank on each side of each digit";
  EXPECT_TRUE(IsOverlongPattern(std::string(36, '1') + std::string(73, ' ')));
  EXPECT_TRUE(IsOverlongPattern("1" + std::string(1000, ' ')));
  EXPECT_TRUE(IsOverlongPattern(std::string(1000000, '1')));
}

}  // namespace
}  // namespace tonalith::core
