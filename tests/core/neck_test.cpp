// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "core/neck.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(Pitch, CountsSemitonesFromC0) {
  EXPECT_EQ(Pitch::Of(0, 0).semitones, 0);
  EXPECT_EQ(Pitch::Of(4, 4).semitones, 52);
}

}  // namespace
}  // namespace tonalith::core
