// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "views/staff_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/failure.h"
#include "core/scale_construction.h"

namespace tonalith::views {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The notes of a scale with their steps, as text.
std::string Steps(std::int16_t key, std::string_view pattern) {
  std::string text;
  const core::Scale scale = core::BuildScale(StaffKey(key), core::IntervalsOf(pattern));
  for (const core::ScaleNote& note : StaffNotes(scale)) {
    text += std::string(NameOf(note)) + std::to_string(StepOf(kTreble, note)) + " ";
  }
  return text;
}

/// The pitch classes on the staff.
std::vector<core::NoteNumber> Keys(core::NoteNumber start, std::string_view pattern) {
  std::vector<core::NoteNumber> keys;
  const core::Scale scale = core::BuildScale(start, core::IntervalsOf(pattern));
  for (const core::ScaleNote& note : StaffNotes(scale)) keys.push_back(note.pitchClass);
  return keys;
}

TEST(StaffLayout, ListsOneKeyPerIntervalWithoutTheClosingOctave) {
  EXPECT_THAT(Keys(0, "2212221"), ElementsAre(0, 2, 4, 5, 7, 9, 11));
  EXPECT_THAT(Keys(11, "2212221"), ElementsAre(11, 1, 3, 4, 6, 8, 10));
  EXPECT_THAT(Keys(5, "7"), ElementsAre(5));
}

TEST(StaffLayout, FailsOnAnEmptyIntervalList) {
  try {
    StaffNotes(core::BuildScale(0, {}));
    FAIL() << "no failure";
  } catch (const core::Failure& failure) {
    EXPECT_EQ(failure.Number(), core::failure_number::kSubscriptOutOfRange);
  }
}

TEST(StaffLayout, StartsAScaleOnCTwoStepsBelowTheBottomLine) {
  EXPECT_EQ(Steps(0, "2212221"), "C-2 D-1 E0 F1 G2 A3 B4 ");
}

TEST(StaffLayout, RisesAnOctaveFromBToC) {
  EXPECT_EQ(Steps(9, "2212221"), "A3 B4 C#5 D6 E7 F#8 G#9 ");
  EXPECT_EQ(Steps(2, "2122212"), "D-1 E0 F1 G2 A3 B4 C5 ");
}

TEST(StaffLayout, WritesASharpOnTheStepOfItsNatural) {
  EXPECT_EQ(Steps(0, "111111111111"), "C-2 C#-2 D-1 D#-1 E0 F1 F#1 G2 G#2 A3 A#3 B4 ");
}

TEST(StaffLayout, RisesWithEveryOctaveOfALongPattern) { EXPECT_EQ(Steps(11, "777"), "B4 F#8 C#12 "); }

TEST(StaffLayout, ReadsAnUnknownKeyAsTheNoteBelowC) { EXPECT_EQ(Steps(-1, "21"), "B4 C#5 "); }

TEST(StaffLayout, FailsOnAnInvalidNoteNumber) {
  EXPECT_THROW(StaffKey(-13), core::Failure);
  EXPECT_THROW(StepOf(kTreble, {-1, 1, {}}), core::Failure);
}

TEST(StaffLayout, DrawsLedgerLinesAtEvenStepsOnly) {
  EXPECT_THAT(LedgerSteps(-1), IsEmpty());
  EXPECT_THAT(LedgerSteps(-2), ElementsAre(-2));
  EXPECT_THAT(LedgerSteps(-5), ElementsAre(-2, -4));
  EXPECT_THAT(LedgerSteps(0), IsEmpty());
  EXPECT_THAT(LedgerSteps(9), IsEmpty());
  EXPECT_THAT(LedgerSteps(10), ElementsAre(10));
  EXPECT_THAT(LedgerSteps(13), ElementsAre(10, 12));
}

TEST(StaffLayout, PutsLinesColumnsAndStepsOnTheirPixels) {
  EXPECT_EQ(kTrebleStaff.LineY(0), 123);
  EXPECT_EQ(kTrebleStaff.LineY(4), 163);
  EXPECT_EQ(ColumnX(0), 796);
  EXPECT_EQ(ColumnX(1), 815);
  EXPECT_EQ(ColumnX(2), 833);
  EXPECT_EQ(kTrebleStaff.StepY(0), 163);
  EXPECT_EQ(kTrebleStaff.StepY(-2), 173);
  EXPECT_EQ(kTrebleStaff.StepY(10), 113);
}

TEST(StaffLayout, PrintsTheClefAroundTheLineOfTheG) {
  EXPECT_EQ(kTrebleStaff.ClefY(), 103) << "(2300 - 750) / 15";
  EXPECT_EQ(kTrebleStaff.StepY(kTreble.line), 153) << "the second line from below";
}

/// A bass staff: an octave and a sixth lower, the clef defines the line of the F.
constexpr Staff kBassStaff{{"Bass clef", 63, 6, 3}, paint::Twips{2900}};

TEST(StaffLayout, SupportsAnotherClefAndPosition) {
  EXPECT_EQ(kBassStaff.LineY(0), 193);
  EXPECT_EQ(kBassStaff.LineY(4), 233);
  EXPECT_EQ(kBassStaff.StepY(0), kBassStaff.LineY(4));
  EXPECT_EQ(kBassStaff.ClefY(), 153) << "(3050 - 750) / 15";
  EXPECT_EQ(StepOf(kBassStaff.clef, core::BuildScale(0, {}).front()), 3) << "C is in the second space";
}

TEST(StaffLayout, TakesHalfTheGlyphsHeightAsTwips) {
  EXPECT_EQ(kTrebleStaff.GlyphY(0, 200), 113) << "(2450 - 650 - 100) / 15";
  EXPECT_EQ(kTrebleStaff.GlyphY(-2, 200), 123);
  EXPECT_EQ(kTrebleStaff.GlyphY(0, 45), 118) << "half of 45 is 22";
}

}  // namespace
}  // namespace tonalith::views
