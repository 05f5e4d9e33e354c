// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The measurements, checked with signals of known values.

#include "sounds/sound_measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>

namespace tonalith::sounds {
namespace {

constexpr double kRate = 44100.0;

/// A tone with eight partials that decays by 60 dB in `decay` seconds.
std::vector<double> Tone(double hertz, double seconds, double decay) {
  std::vector<double> samples(static_cast<std::size_t>(seconds * kRate));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double time = static_cast<double>(i) / kRate;
    for (int partial = 1; partial <= 8; ++partial) {
      samples[i] += 6000.0 / partial * std::sin(2.0 * std::numbers::pi * partial * hertz * time);
    }
    samples[i] = std::round(samples[i] * std::pow(10.0, -3.0 * time / decay));
  }
  return samples;
}

TEST(SoundMeasures, MeasureADetuningToATenthOfACent) {
  for (const double hertz : {65.406, 329.628, 987.767}) {
    for (const double cents : {-7.0, -2.0, 0.0, 0.5, 3.0}) {
      const PitchReading pitch = MeasurePitch(Tone(hertz * std::exp2(cents / 1200.0), 2.2, 2.5), hertz);
      EXPECT_NEAR(pitch.fundamentalCents, cents, 0.1) << hertz;
      EXPECT_NEAR(pitch.toneCents, cents, 0.1) << hertz;
    }
  }
}

TEST(SoundMeasures, MeasureADetuningOfAShortNoteToATenthOfACent) {
  const PitchReading pitch = MeasurePitch(Tone(261.626 * std::exp2(2.5 / 1200.0), 0.6, 2.5), 261.626);
  EXPECT_NEAR(pitch.fundamentalCents, 2.5, 0.1);
}

TEST(SoundMeasures, MeasureTheLevelsOfASine) {
  std::vector<double> samples(44100);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = 16384.0 * std::sin(2.0 * std::numbers::pi * 997.0 * static_cast<double>(i) / kRate);
  }
  EXPECT_NEAR(PlainLevel(samples), -9.03, 0.02);
  // At 997 Hz the weighting adds 0.691 dB; the loudness scale of BS.1770 subtracts the same value.
  EXPECT_NEAR(WeightedLevel(samples), -9.03 + 0.691, 0.03);
}

TEST(SoundMeasures, MeasureTheDecay) { EXPECT_NEAR(DecaySeconds(Tone(220.0, 3.0, 2.4)), 2.4, 0.05); }

TEST(SoundMeasures, FindAStepOfTwoPercentInARingingNote) {
  std::vector<double> samples = Tone(220.0, 2.0, 2.5);
  EXPECT_LE(WorstClick(samples, 0.02), 1.2);
  for (std::size_t i = 22050; i < samples.size(); ++i) {
    samples[i] += 600.0;
  }
  EXPECT_GE(WorstClick(samples, 0.02), 2.0);
}

TEST(SoundMeasures, FindATruncatedNote) {
  std::vector<double> samples = Tone(220.0, 1.0, 2.5);
  samples.resize(22000);
  EXPECT_GE(WorstClick(samples, 0.02), 2.0);
}

TEST(SoundMeasures, MeasureBrightness) {
  EXPECT_GT(Brightness(Tone(440.0, 1.0, 2.0), 0.0, 0.2), 2.0 * Brightness(Tone(110.0, 1.0, 2.0), 0.0, 0.2));
}

TEST(SoundMeasures, RefuseAMissingFile) { EXPECT_THROW(ReadSound("no-such-folder/0.wav"), std::runtime_error); }

}  // namespace
}  // namespace tonalith::sounds
