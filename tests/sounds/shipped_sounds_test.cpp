// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Measures every sound file of the stage.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <numeric>
#include <string>
#include <vector>

#include "sounds/sound_measures.h"

namespace tonalith::sounds {
namespace {

constexpr double kRate = 44100.0;

struct Shipped {
  std::string name;
  double hertz = 0.0;
  Sound sound;
};

Shipped Read(const std::string& folder, int number, double hertz) {
  const std::string name = folder + "/" + std::to_string(number) + ".wav";
  return {name, hertz, ReadSound(std::filesystem::path(TONALITH_STAGE) / name)};
}

/// The pitch `semitones` above the C two octaves below middle C.
double AboveLowC(int semitones) { return 440.0 * std::exp2((semitones - 33) / 12.0); }

std::vector<Shipped> Octaves() {
  std::vector<Shipped> sounds;
  sounds.reserve(48);
  for (int number = 0; number < 48; ++number) {
    sounds.push_back(Read("Octaves", number, AboveLowC(number)));
  }
  return sounds;
}

std::vector<Shipped> Audio() {
  constexpr int kSteps[] = {0, 2, 4, 5, 7, 9, 11, 12, 14, 16, 17, 19, 21, 23, 24, 26};
  std::vector<Shipped> sounds;
  sounds.reserve(16);
  for (int number = 0; number < 16; ++number) {
    sounds.push_back(Read("Audio", number, AboveLowC(24 + kSteps[number])));
  }
  return sounds;
}

std::vector<Shipped> All() {
  std::vector<Shipped> sounds = Octaves();
  std::vector<Shipped> audio = Audio();
  std::move(audio.begin(), audio.end(), std::back_inserter(sounds));
  return sounds;
}

double Seconds(const Shipped& shipped) { return static_cast<double>(shipped.sound.samples.size()) / kRate; }

int CountFiles(const std::string& folder) {
  const auto files = std::filesystem::directory_iterator(std::filesystem::path(TONALITH_STAGE) / folder);
  return static_cast<int>(std::distance(begin(files), end(files)));
}

void ExpectEvenLevels(double (*level)(const std::vector<double>&)) {
  const std::vector<Shipped> sounds = All();
  std::vector<double> levels;
  levels.reserve(sounds.size());
  for (const Shipped& shipped : sounds) {
    levels.push_back(level(shipped.sound.samples));
  }
  const double mean = std::accumulate(levels.begin(), levels.end(), 0.0) / static_cast<double>(levels.size());
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    EXPECT_NEAR(levels[i], mean, 1.5) << sounds[i].name;
  }
}

TEST(ShippedSounds, Are48OctaveNotesAnd16ScaleNotes) {
  EXPECT_EQ(CountFiles("Octaves"), 48);
  EXPECT_EQ(CountFiles("Audio"), 16);
}

TEST(ShippedSounds, AreMono16BitFilesAt44100Hertz) {
  for (const Shipped& shipped : All()) {
    const Sound& sound = shipped.sound;
    EXPECT_EQ(sound.riffSize, sound.bytes.size() - 8) << shipped.name;
    EXPECT_EQ(sound.formatSize, 16U) << shipped.name;
    EXPECT_EQ(sound.formatTag, 1U) << shipped.name;
    EXPECT_EQ(sound.channels, 1U) << shipped.name;
    EXPECT_EQ(sound.samplesPerSecond, 44100U) << shipped.name;
    EXPECT_EQ(sound.bytesPerSecond, 88200U) << shipped.name;
    EXPECT_EQ(sound.blockAlign, 2U) << shipped.name;
    EXPECT_EQ(sound.bitsPerSample, 16U) << shipped.name;
    const std::size_t mark = shipped.name.starts_with("Audio") ? 16 : 0;
    EXPECT_EQ(sound.dataSize, sound.bytes.size() - 44 - mark) << shipped.name;
    EXPECT_EQ(sound.dataSize, 2 * sound.samples.size()) << shipped.name;
  }
}

TEST(ShippedSounds, AreInTuneWithinTwoCents) {
  for (const Shipped& shipped : All()) {
    const PitchReading pitch = MeasurePitch(shipped.sound.samples, shipped.hertz);
    EXPECT_NEAR(pitch.fundamentalCents, 0.0, 2.0) << shipped.name;
    EXPECT_NEAR(pitch.toneCents, 0.0, 2.0) << shipped.name;
  }
}

TEST(ShippedSounds, HaveTheOpenStringsAtTheFileNumbersOfTheNeck) {
  constexpr double kOpenStrings[][2] = {{4, 82.407},   {9, 110.0},    {14, 146.832},
                                        {19, 195.998}, {23, 246.942}, {28, 329.628}};
  for (const auto& [number, hertz] : kOpenStrings) {
    const Shipped shipped = Read("Octaves", static_cast<int>(number), hertz);
    EXPECT_NEAR(MeasurePitch(shipped.sound.samples, hertz).fundamentalCents, 0.0, 2.0) << shipped.name;
  }
}

TEST(ShippedSounds, HaveTheSamePlainLevelWithin1Point5Decibels) { ExpectEvenLevels(PlainLevel); }

TEST(ShippedSounds, HaveTheSameWeightedLevelWithin1Point5Decibels) { ExpectEvenLevels(WeightedLevel); }

TEST(ShippedSounds, Peak1DecibelBelowFullScaleAndUseTheRange) {
  double loudest = 0.0;
  for (const Shipped& shipped : All()) {
    for (const double sample : shipped.sound.samples) {
      loudest = std::max(loudest, std::abs(sample));
    }
  }
  EXPECT_LE(20.0 * std::log10(loudest / 32768.0), -1.0);
  EXPECT_GE(20.0 * std::log10(loudest / 32768.0), -6.0);
}

TEST(ShippedSounds, StartAndEndAtZero) {
  for (const Shipped& shipped : All()) {
    EXPECT_EQ(shipped.sound.samples.front(), 0.0) << shipped.name;
    EXPECT_EQ(shipped.sound.samples.back(), 0.0) << shipped.name;
    // The onset is not a step either: after 0.2 milliseconds the level is still close to zero.
    for (std::size_t i = 0; i < 9; ++i) {
      EXPECT_LE(std::abs(shipped.sound.samples[i]), 1000.0) << shipped.name << " at " << i;
    }
  }
}

TEST(ShippedSounds, StartWithin10Milliseconds) {
  for (const Shipped& shipped : All()) {
    const auto& samples = shipped.sound.samples;
    const auto first = std::find_if(samples.begin(), samples.end(), [](double s) { return std::abs(s) > 3000.0; });
    EXPECT_LE(static_cast<double>(std::distance(samples.begin(), first)) / kRate, 0.010) << shipped.name;
  }
}

TEST(ShippedSounds, HaveNoDcOffset) {
  for (const Shipped& shipped : All()) {
    const auto& samples = shipped.sound.samples;
    const double mean = std::accumulate(samples.begin(), samples.end(), 0.0) / static_cast<double>(samples.size());
    EXPECT_LE(std::abs(mean), 0.5) << shipped.name;
  }
}

TEST(ShippedSounds, HaveNoClickAfterTheAttack) {
  for (const Shipped& shipped : All()) {
    EXPECT_LE(WorstClick(shipped.sound.samples, 0.02), 2.0) << shipped.name;
  }
}

TEST(ShippedSounds, OfOctavesLast2To3Seconds) {
  for (const Shipped& shipped : Octaves()) {
    EXPECT_GE(Seconds(shipped), 2.0) << shipped.name;
    EXPECT_LE(Seconds(shipped), 3.0) << shipped.name;
    EXPECT_GE(DecaySeconds(shipped.sound.samples), 2.0) << shipped.name;
    EXPECT_LE(DecaySeconds(shipped.sound.samples), 3.0) << shipped.name;
  }
}

TEST(ShippedSounds, OfAudioLast600MillisecondsAndEndInSilence) {
  for (const Shipped& shipped : Audio()) {
    const auto& samples = shipped.sound.samples;
    EXPECT_EQ(samples.size(), 26460U) << shipped.name;
    EXPECT_TRUE(std::all_of(samples.end() - 441, samples.end(), [](double s) { return s == 0.0; })) << shipped.name;
    // The note is audible until it is damped: there is no gap between two notes of a scale.
    const std::vector<double> late(samples.begin() + 17640, samples.begin() + 26460);
    EXPECT_GE(PlainLevel(late), -36.0) << shipped.name;
  }
}

TEST(ShippedSounds, GetDarkerWhileTheyDecay) {
  for (const Shipped& shipped : Octaves()) {
    const double early = Brightness(shipped.sound.samples, 0.0, 0.15);
    const double late = Brightness(shipped.sound.samples, 0.8, 0.4);
    EXPECT_GE(early / late, 1.15) << shipped.name;
  }
}

TEST(ShippedSounds, HaveABalancedBrightnessInAllRegisters) {
  for (const Shipped& shipped : All()) {
    const double early = Brightness(shipped.sound.samples, 0.0, 0.15);
    EXPECT_GE(early, std::max(600.0, 1.5 * shipped.hertz)) << shipped.name;
    EXPECT_LE(early, std::max(1400.0, 3.0 * shipped.hertz)) << shipped.name;
  }
}

}  // namespace
}  // namespace tonalith::sounds
