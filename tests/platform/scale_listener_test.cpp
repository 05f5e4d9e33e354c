// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Scales and chords at the output of the sound device, from shipped and from user recordings. bench/listening tests
// twenty of them in all keys.

#include "platform/scale_listener.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "core/note_model.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

constexpr const char* kShipped = TONALITH_STAGE "/Audio/";
constexpr double kClear = 5;
constexpr double kLongestGap = 0.030;
/// A third of the smallest step of 16 bits.
constexpr double kSame = 0.00001;

/// One of the first four scales in three keys: together they cover all twelve keys.
class ListenedPitches : public ::testing::TestWithParam<int> {};

TEST_P(ListenedPitches, AreThoseOfTheScaleInItsKey) {
  const ListenedScale& scale = ListenedScales().at(static_cast<std::size_t>(GetParam()));
  for (int number = GetParam(); number < 12; number += 4) {
    const std::string key(core::kSharpNotes[static_cast<std::size_t>(number)]);
    const AnalysedScale heard = ListenToScale(kShipped, key, scale.pattern);
    std::vector<int> pitches;
    for (const AnalysedNote& note : heard.notes) {
      pitches.push_back(note.pitch);
      EXPECT_LT(note.cents, kClear) << scale.name << " in " << key;
      EXPECT_LT(note.difference, kSame) << scale.name << " in " << key;
    }
    EXPECT_EQ(pitches, PitchesOfScale(key, scale.pattern)) << scale.name << " in " << key;
    EXPECT_EQ(heard.messages, "");
    ASSERT_FALSE(heard.gaps.empty());
    EXPECT_GE(*std::min_element(heard.gaps.begin(), heard.gaps.end()), 0) << "notes do not overlap";
    EXPECT_LT(Median(heard.gaps), tests::Timely(kLongestGap));
  }
}

INSTANTIATE_TEST_SUITE_P(Four, ListenedPitches, ::testing::Range(0, 4));

TEST(ListenedRecordings, OfTheUserArePlayedBitExactly) {
  const std::string folder = RecordingFolder() + "_own/";
  std::filesystem::create_directories(folder);
  const std::vector<double> sizes = {0.30, 0.25, 0.20, 0.35};
  std::vector<std::vector<double>> files;
  for (std::size_t number = 0; number < sizes.size(); ++number) {
    const Bytes bytes = Sine({}, 333.0 + 50.0 * static_cast<double>(number), sizes[number], 0.7);
    std::vector<double> steps;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
      steps.push_back(static_cast<std::int16_t>(std::to_integer<unsigned>(bytes[i]) |
                                                std::to_integer<unsigned>(bytes[i + 1]) << 8U));
    }
    files.push_back(steps);
    const Bytes wave = Wave({}, bytes);
    std::ofstream(folder + std::to_string(number) + ".wav", std::ios::binary)
        .write(reinterpret_cast<const char*>(wave.data()), std::ssize(wave));
  }
  std::string messages;
  const Recording recording = RecordScale(folder, "A", "345", messages);
  EXPECT_EQ(messages, "");
  const std::vector<Stretch> stretches = Stretches(recording, 0.0002, 0.001);
  ASSERT_EQ(stretches.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    // The first sample of a sine is zero.
    EXPECT_LT(DifferenceFrom(recording, stretches[i].from - 1, files[i]), kSame) << i;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tonalith::testing
