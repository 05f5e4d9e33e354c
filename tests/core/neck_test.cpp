// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/neck.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/octave_sounds.h"

namespace tonalith::core {
namespace {

/// The open strings in scientific pitch notation, the highest first.
std::string Tuning(const Neck& neck) {
  std::string tuning;
  for (const Pitch pitch : neck.openStrings) {
    if (!tuning.empty()) tuning += ' ';
    tuning += kSharpNotes.at(static_cast<std::size_t>(pitch.semitones % 12));
    tuning += std::to_string(pitch.semitones / 12);
  }
  return tuning;
}

TEST(Neck, IsTunedAsAGuitar) { EXPECT_EQ(Tuning(Neck::Standard()), "E4 B3 G3 D3 A2 E2"); }

TEST(Neck, HasSixteenPositionsOnEachOfSixStrings) {
  EXPECT_EQ(Neck::Standard().Strings(), 6);
  EXPECT_EQ(Neck::Standard().positions, 16);
  EXPECT_EQ(Neck::Standard().Notes(), 96);
}

TEST(Neck, NumbersNotesStringByStringFromTheOpenString) {
  const Neck neck{{Pitch::Of(4, 4), Pitch::Of(11, 3)}, 13};
  EXPECT_EQ(neck.PitchAt(0), Pitch::Of(4, 4));
  EXPECT_EQ(neck.PitchAt(12), Pitch::Of(4, 5));
  EXPECT_EQ(neck.PitchAt(13), Pitch::Of(11, 3));
  EXPECT_EQ(neck.PitchAt(25), Pitch::Of(11, 4));
  EXPECT_THROW(static_cast<void>(neck.PitchAt(26)), std::out_of_range);
}

TEST(OctaveFileNumber, CoversThePitchesOfTheStandardNeck) {
  const Neck neck = Neck::Standard();
  for (int note = 0; note < neck.Notes(); ++note) {
    EXPECT_GE(neck.PitchAt(note).semitones, kLowestRecorded.semitones) << note;
    EXPECT_LE(neck.PitchAt(note).semitones, kHighestRecorded.semitones) << note;
  }
  EXPECT_EQ(OctaveFileNumber(kLowestRecorded), 0);
  EXPECT_EQ(OctaveFileNumber(kHighestRecorded), 47);
}

TEST(OctaveFileNumber, TakesThePitchClassOutsideItsRange) {
  EXPECT_EQ(OctaveFileNumber(Pitch::Of(11, 1)), 11) << "one below the lowest";
  EXPECT_EQ(OctaveFileNumber(Pitch::Of(0, 6)), 0) << "one above the highest";
}

TEST(Pitch, HasAPitchClassAndAnOctave) {
  EXPECT_EQ(Pitch::Of(11, 3).PitchClass(), 11);
  EXPECT_EQ(Pitch::Of(11, 3).Octave(), 3);
  EXPECT_EQ(Pitch{-1}.PitchClass(), 11);
  EXPECT_EQ(Pitch{-1}.Octave(), -1);
}

TEST(Pitch, CountsSemitonesFromC0) {
  EXPECT_EQ(Pitch::Of(0, 0).semitones, 0);
  EXPECT_EQ(Pitch::Of(4, 4).semitones, 52);
}

}  // namespace
}  // namespace tonalith::core
