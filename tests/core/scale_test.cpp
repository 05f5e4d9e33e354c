// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/scale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "core/failure.h"
#include "core/latest_scale.h"
#include "support/recording_msg_box.h"

namespace tonalith::core {
namespace {

using testing::IsEmpty;

/// The notes of a scale, each as degree, name and octave: "1C4 2D4".
std::string InText(const Scale& scale) {
  std::string text;
  for (const ScaleNote& note : scale) {
    if (!text.empty()) text += ' ';
    text += std::to_string(note.degree) + std::string(NameOf(note)) + std::to_string(note.pitch.Octave());
  }
  return text;
}

std::string Built(NoteNumber start, std::string_view pattern) {
  return InText(BuildScale(start, IntervalsOf(pattern)));
}

TEST(Scale, HasTheStartNoteAndOneNotePerInterval) {
  EXPECT_EQ(Built(0, "2212221"), "1C4 2D4 3E4 4F4 5G4 6A4 7B4 1C5");
  EXPECT_EQ(Built(9, ""), "1A4");
}

TEST(Scale, PitchesRiseBeyondTheOctave) {
  EXPECT_EQ(Built(11, "777"), "1B4 2F#5 3C#6 4G#6");
  for (const ScaleNote& note : BuildScale(11, IntervalsOf("777"))) EXPECT_EQ(note.pitchClass, note.pitch.PitchClass());
}

TEST(Scale, RepeatedPitchClassHasTheDegreeOfItsFirstNote) {
  EXPECT_EQ(Built(4, "00"), "1E4 1E4 1E4");
  EXPECT_EQ(Built(0, "7575"), "1C4 2G4 1C5 2G5 1C6");
}

TEST(Scale, RejectsANegativeStartAndAPitchTooHigh) {
  EXPECT_THROW(BuildScale(-1, {}), Failure);
  EXPECT_THROW(BuildScale(0, std::vector<std::int16_t>(31, 32767)), Failure);
}

TEST(LatestScale, BuildsOncePerStartAndIntervals) {
  tests::RecordingMsgBox box;
  LatestScale latest;
  const ScaleNote* const first = latest.Of(0, IntervalsOf("2212221")).data();
  EXPECT_EQ(latest.Of(0, "2212221", box).data(), first) << "the neck gets the list of the staff";
  EXPECT_EQ(InText(latest.Of(2, "2212221", box)), "1D4 2E4 3F#4 4G4 5A4 6B4 7C#5 1D5");
  EXPECT_EQ(InText(latest.Of(2, IntervalsOf("75"))), "1D4 2A4 1D5");
  EXPECT_THAT(box.Messages(), IsEmpty());
}

TEST(LatestScale, ReportsABadPatternAndKeepsItsList) {
  tests::RecordingMsgBox box;
  LatestScale latest;
  latest.Of(0, IntervalsOf("75"));
  EXPECT_THAT(latest.Of(0, "7x", box), IsEmpty());
  EXPECT_EQ(box.Texts(), "13 Type mismatch\n");
  EXPECT_EQ(InText(latest.Of(0, "75", box)), "1C4 2G4 1C5");
}

}  // namespace
}  // namespace tonalith::core
