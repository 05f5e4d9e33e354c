// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The string, the guitar note, the WAV file, and scale notes at every pitch.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sounds/sound_measures.h"
#include "voice/checksum.h"
#include "voice/guitar_note.h"
#include "voice/plucked_string.h"
#include "voice/recipe.h"
#include "voice/scale_note.h"
#include "voice/wav_file.h"

namespace tonalith::voice {
namespace {

constexpr std::size_t kHeaderSize = 44;

/// The 16-bit samples of a rendered file.
std::vector<double> SamplesOf(const std::string& file) {
  std::vector<double> samples((file.size() - kHeaderSize - 8 - kChecksumSize) / 2);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    std::int16_t step = 0;
    std::memcpy(&step, file.data() + kHeaderSize + 2 * i, sizeof step);
    samples[i] = step;
  }
  return samples;
}

TEST(GuitarNote, IsReproducibleAndChangesWithTheSeed) {
  Guitar guitar = BuiltInRecipe().guitar;
  const NoteLength length{0.3, 0.05, 0.01};
  const auto first = PlayNote(guitar, 60, length);
  EXPECT_EQ(first, PlayNote(guitar, 60, length));
  guitar.seed += 1;
  EXPECT_NE(first, PlayNote(guitar, 60, length));
}

TEST(PluckedString, LosesSixtyDecibelsInTheGivenDecayTime) {
  PluckedString string(220.0, 2.0, kTrebleHertz, 0.5);
  double early = 0.0;
  double late = 0.0;
  for (int i = 0; i < 2 * 44100; ++i) {
    const double out = string.Next(i == 0 ? 1.0 : 0.0);
    const double second = i / 44100.0;
    early += second >= 0.5 && second < 0.6 ? out * out : 0.0;
    late += second >= 1.5 && second < 1.6 ? out * out : 0.0;
  }
  // One second of decay: the upper partials lose a little more than the fundamental's 30 dB.
  EXPECT_NEAR(10.0 * std::log10(early / late), 33.0, 3.0);
}

TEST(WavFile, HasAHeaderOf44BytesBeforeTheSamples) {
  const std::vector<double> samples = {0.0, 1.0, -1.0, 2.0, 0.5};
  const std::string bytes = WavFile(samples);
  ASSERT_EQ(bytes.size(), 54U);
  EXPECT_EQ(bytes.substr(0, 4), "RIFF");
  EXPECT_EQ(bytes.substr(36, 4), "data");
  EXPECT_EQ(bytes.substr(44), std::string_view("\x00\x00\xFF\x7F\x01\x80\xFF\x7F\x00\x40", 10));
}

TEST(WavFile, HasTheChecksumChunkAfterTheSamples) {
  const std::vector<double> samples = {0.0, 0.5};
  const std::string bytes = WavFile(samples, ChecksumChunk::kInclude);
  const std::string plain = WavFile(samples);
  ASSERT_EQ(bytes.size(), plain.size() + 16);
  EXPECT_EQ(bytes[4], static_cast<char>(bytes.size() - 8));
  EXPECT_EQ(bytes.substr(8, plain.size() - 8), plain.substr(8));
  EXPECT_EQ(bytes.substr(plain.size(), 8), std::string_view("tlth\x08\0\0\0", 8));
  std::uint64_t checksum = 0;
  std::memcpy(&checksum, bytes.data() + plain.size() + 8, sizeof checksum);
  EXPECT_EQ(checksum, Checksum(std::as_bytes(std::span(plain).subspan(kHeaderSize))));
}

TEST(Checksum, IsFnv1aOf64Bits) {
  EXPECT_EQ(Checksum({}), 0xCBF29CE484222325U);
  EXPECT_EQ(Checksum(std::as_bytes(std::span("foobar", 6))), 0x85944171F73967E8U);
}

TEST(ScaleNote, IsInTuneAndHasTheSameLengthAtEveryPitch) {
  for (Pitch pitch = kLowestPitch; pitch <= kHighestPitch; ++pitch) {
    const std::vector<double> samples = SamplesOf(RenderScaleNote(pitch));
    EXPECT_EQ(samples.size(), 26460U) << pitch;
    // Below the guitar's range, the lowest partials are too weak and too close to be measured in half a second.
    if (pitch < 40) continue;
    const sounds::PitchReading reading = sounds::MeasurePitch(samples, HertzOf(pitch));
    EXPECT_NEAR(reading.fundamentalCents, 0.0, 2.0) << pitch;
    EXPECT_NEAR(reading.toneCents, 0.0, 2.0) << pitch;
  }
}

TEST(ScaleNote, HasTheSameLevelAtEveryPitchOfAScale) {
  for (Pitch pitch = 60; pitch <= 95; ++pitch) {
    const std::vector<double> samples = SamplesOf(RenderScaleNote(pitch));
    EXPECT_NEAR((sounds::PlainLevel(samples) + sounds::WeightedLevel(samples)) / 2, -14.0, 0.1) << pitch;
  }
}

TEST(ScaleNote, StaysBelowFullScale) {
  for (Pitch pitch = kLowestPitch; pitch <= kHighestPitch; ++pitch) {
    double peak = 0.0;
    for (const double sample : SamplesOf(RenderScaleNote(pitch))) peak = std::max(peak, std::abs(sample));
    EXPECT_LE(20.0 * std::log10(peak / 32767.0), kPeakDecibels + 0.001) << pitch;
    EXPECT_GE(20.0 * std::log10(peak / 32767.0), -12.0) << pitch;
  }
}

TEST(ScaleNote, OutsideTheRangeEqualsTheNearestPitchInside) {
  EXPECT_EQ(RenderScaleNote(kLowestPitch - 1), RenderScaleNote(kLowestPitch));
  EXPECT_EQ(RenderScaleNote(kHighestPitch + 100), RenderScaleNote(kHighestPitch));
}

}  // namespace
}  // namespace tonalith::voice
