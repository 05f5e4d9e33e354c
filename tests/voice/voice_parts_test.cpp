// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// The parts that a note is made of: curves, sound sets, filters, loudness, and the samples of one fixed guitar.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include "voice/filters.h"
#include "voice/guitar_note.h"
#include "voice/loudness.h"
#include "voice/recipe.h"
#include "voice/wav_file.h"

namespace tonalith::voice {
namespace {

using ::testing::ElementsAre;

std::vector<double> Sine(double hertz, double seconds, double level = 1.0) {
  std::vector<double> samples(static_cast<std::size_t>(seconds * kSampleRate));
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = level * std::sin(Omega(hertz) * static_cast<double>(i));
  return samples;
}

/// Amplitude of a sine of amplitude 1 after a filter, when the filter has settled.
template <class Filter>
double GainAt(double hertz, Filter filter) {
  double highest = 0.0;
  const std::vector<double> samples = Sine(hertz, 1.0);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double out = filter.Next(samples[i]);
    if (i > samples.size() / 2) highest = std::max(highest, std::abs(out));
  }
  return highest;
}

TEST(Curve, RunsStraightBetweenItsPointsAndKeepsTheEndValues) {
  const Curve curve({{40, 2.0}, {50, 4.0}, {60, 1.0}});
  std::vector<double> values;
  for (const Pitch pitch : {30, 40, 45, 50, 52, 60, 70}) values.push_back(curve.At(pitch));
  EXPECT_THAT(values, ElementsAre(2.0, 2.0, 3.0, 4.0, 3.4, 1.0, 1.0));
  EXPECT_EQ(Curve({{40, 2.5}}).At(41), 2.5);
}

TEST(SoundSet, CountsSemitonesOrTheStepsOfAMajorScale) {
  SoundSet set{.folder = "Octaves", .steps = Steps::kChromatic, .first = 36};
  EXPECT_EQ(set.PitchOf(0), 36);
  EXPECT_EQ(set.PitchOf(13), 49);
  set.steps = Steps::kMajor;
  std::vector<Pitch> pitches;
  for (int number = 0; number < 16; ++number) pitches.push_back(set.PitchOf(number) - 36);
  EXPECT_THAT(pitches, ElementsAre(0, 2, 4, 5, 7, 9, 11, 12, 14, 16, 17, 19, 21, 23, 24, 26));
}

TEST(SoundSet, LengthsLieOnALineFromTheFirstFileToTheLast) {
  SoundSet set{
      .folder = {}, .count = 5, .firstSeconds = 3.0, .lastSeconds = 2.0, .fadeSeconds = 0.5, .silenceSeconds = 0.25};
  EXPECT_EQ(set.SecondsOf(0), 3.0);
  EXPECT_EQ(set.SecondsOf(1), 2.75);
  EXPECT_EQ(set.SecondsOf(4), 2.0);
  EXPECT_EQ(LengthOf(set, 2).seconds, 2.5);
  EXPECT_EQ(LengthOf(set, 2).fadeSeconds, 0.5);
  EXPECT_EQ(LengthOf(set, 2).silenceSeconds, 0.25);
  set.count = 2;
  EXPECT_EQ(set.SecondsOf(1), 2.0);
  set.count = 1;
  EXPECT_EQ(set.SecondsOf(0), 3.0);
}

TEST(SoundSet, ScalePositionsAreTheFolderAudio) {
  EXPECT_TRUE(SoundSet{.folder = "Audio"}.IsScale());
  EXPECT_FALSE(SoundSet{.folder = "Octaves"}.IsScale());
}

TEST(Recipe, StartsEmpty) {
  const Recipe recipe;
  EXPECT_TRUE(recipe.sets.empty());
  EXPECT_TRUE(recipe.guitar.modes.empty());
  EXPECT_EQ(recipe.guitar.seed, 0U);
  EXPECT_EQ(SoundSet().count, 0);
  EXPECT_EQ(SoundSet().first, 0);
  EXPECT_EQ(Curve::Point().pitch, 0);
}

TEST(Units, AnOctaveDoublesHertzAndTwentyDecibelsAreAFactorOfTen) {
  EXPECT_EQ(HertzOf(69), 440.0);
  EXPECT_EQ(HertzOf(81), 880.0);
  EXPECT_NEAR(HertzOf(60), 261.6256, 0.0001);
  EXPECT_NEAR(FromDecibels(20.0), 10.0, 1e-12);
  EXPECT_NEAR(FromDecibels(-6.0), 0.501187, 1e-6);
  EXPECT_NEAR(PeakDecibels({0.1, -0.5, 0.2}), -6.0206, 1e-4);
}

TEST(Filters, OnePoleFiltersShareTheSignalAtTheirCorner) {
  EXPECT_NEAR(GainAt(10.0, OnePoleLowPass(1000.0)), 1.0, 0.001);
  EXPECT_NEAR(GainAt(1000.0, OnePoleLowPass(1000.0)), std::numbers::sqrt2 / 2, 0.002);
  EXPECT_NEAR(GainAt(4000.0, OnePoleLowPass(1000.0)), 0.25, 0.02);
  EXPECT_NEAR(GainAt(10.0, OnePoleHighPass(1000.0)), 0.01, 0.001);
  OnePoleHighPass high(1000.0);
  const OnePoleLowPass low(1000.0);
  OnePoleLowPass same = low;
  for (const double in : {1.0, 0.5, -2.0}) EXPECT_NEAR(high.Next(in) + same.Next(in), in, 1e-12);
}

TEST(Filters, AResonanceHasGainOneAtItsCentreAndHalfThePowerAtItsEdges) {
  EXPECT_NEAR(GainAt(1000.0, Biquad::Resonance(1000.0, 10.0)), 1.0, 0.001);
  EXPECT_NEAR(GainAt(951.2, Biquad::Resonance(1000.0, 10.0)), std::numbers::sqrt2 / 2, 0.01);
  EXPECT_NEAR(GainAt(1051.2, Biquad::Resonance(1000.0, 10.0)), std::numbers::sqrt2 / 2, 0.01);
  EXPECT_LT(GainAt(10.0, Biquad::Resonance(1000.0, 10.0)), 0.002);
}

TEST(Loudness, WeighsASineAsTheStandardDoes) {
  // A full-scale sine has 3.01 dB less than a square wave. The weighting adds 0.69 dB at 997 Hz, 4 dB far above.
  EXPECT_NEAR(MeasureLoudness(Sine(997.0, 1.0)).plain, -3.01, 0.01);
  EXPECT_NEAR(MeasureLoudness(Sine(997.0, 1.0)).weighted, -3.01 + 0.69, 0.01);
  EXPECT_NEAR(MeasureLoudness(Sine(12000.0, 1.0)).weighted, -3.01 + 4.0, 0.06);
  EXPECT_NEAR(MeasureLoudness(Sine(38.0, 1.0)).weighted, -3.01 - 6.0, 0.2);
  EXPECT_NEAR(MeasureLoudness(Sine(997.0, 1.0)).Level(), -3.01 + 0.345, 0.01);
}

TEST(Loudness, IsThatOfTheLoudestFifthOfASecond) {
  std::vector<double> samples(44100, 0.0);
  std::fill(samples.begin() + 20000, samples.begin() + 20000 + 8820, 0.5);
  EXPECT_NEAR(MeasureLoudness(samples).plain, -6.02, 0.01);
  std::fill(samples.begin() + 20000 + 4410, samples.begin() + 20000 + 8820, 0.0);
  EXPECT_NEAR(MeasureLoudness(samples).plain, -9.03, 0.01) << "half of the window";
  EXPECT_NEAR(MeasureLoudness(std::vector<double>(100, 0.5)).plain, -6.02, 0.01) << "shorter than the window";
}

TEST(WavFile, StatesItsFormatAndLengthsInTheHeader) {
  const std::string bytes = WavFile(std::vector<double>(3, 0.0));
  EXPECT_EQ(bytes.substr(0, 44),
            std::string_view("RIFF\x2A\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x44\xAC\0\0\x88\x58\1\0\2\0\x10\0"
                             "data\6\0\0\0",
                             44));
}

/// A guitar that no recipe changes.
Guitar FixedGuitar() {
  Guitar guitar;
  guitar.seed = 7;
  guitar.levelDecibels = -14.0;
  guitar.decay = Curve({{40, 2.5}, {88, 2.0}});
  guitar.trebleDecay = Curve({{40, 0.4}, {88, 0.5}});
  guitar.pluckPosition = Curve({{40, 0.17}, {88, 0.22}});
  guitar.fingerHertz = Curve({{40, 2300.0}, {88, 5000.0}});
  guitar.nail = Curve({{40, -24.0}});
  guitar.touch = Curve({{40, -30.0}});
  guitar.sideLevel = Curve({{40, -8.0}});
  guitar.sideCents = Curve({{40, 1.5}});
  guitar.sideDecay = Curve({{40, 1.3}});
  guitar.body = Curve({{40, 12.0}});
  guitar.modes = {{98.0, 12.0, 0.8}, {188.0, 16.0, -1.2}, {520.0, 15.0, 1.0}, {1850.0, 14.0, -0.9}};
  return guitar;
}

constexpr std::array<std::size_t, 10> kSampled = {20, 60, 200, 700, 1500, 3000, 6000, 12000, 17000, 20000};

std::vector<double> SampledNote(Pitch pitch) {
  const std::vector<double> note = PlayNote(FixedGuitar(), pitch, {0.5, 0.1, 0.01});
  EXPECT_EQ(note.size(), 22050U);
  std::vector<double> sampled;
  for (const std::size_t at : kSampled) sampled.push_back(note.at(at));
  return sampled;
}

// Recorded from this renderer. A change of a filter, of the noise or of an order shows here. A change that is wanted
// needs new numbers.
TEST(GuitarNote, SamplesOfAFixedGuitarStayAsTheyAre) {
  using testing::DoubleNear;
  using testing::Pointwise;
  constexpr double kHalfAStep = 0.5 / 32767.0;
  EXPECT_THAT(SampledNote(40),
              Pointwise(DoubleNear(kHalfAStep), {0.198275590, 0.081626454, -0.160891915, -0.095039288, 0.022785017,
                                                 0.210215206, -0.220928875, -0.148082046, 0.061395083, -0.028192624}));
  EXPECT_THAT(SampledNote(64),
              Pointwise(DoubleNear(kHalfAStep), {0.269787507, -0.303690689, 0.018432411, -0.224297824, 0.070410433,
                                                 -0.199854947, 0.049676109, 0.006376786, 0.107166259, -0.016906414}));
  EXPECT_THAT(SampledNote(88),
              Pointwise(DoubleNear(kHalfAStep), {0.045495744, -0.857337513, 0.471247815, 0.099126981, -0.208041913,
                                                 -0.229162950, -0.010965774, -0.058745161, 0.019906458, -0.002226815}));
}

TEST(GuitarNote, StartsFromSilenceFadesAndEndsInSilence) {
  const std::vector<double> note = PlayNote(FixedGuitar(), 52, {0.5, 0.1, 0.01});
  const std::size_t end = note.size() - 441;
  EXPECT_EQ(note.front(), 0.0);
  EXPECT_TRUE(
      std::all_of(note.begin() + static_cast<std::ptrdiff_t>(end), note.end(), [](double s) { return s == 0; }));
  EXPECT_NE(note.at(end - 1), 0.0);
  // Half of the fade is half of the level: the same note without a fade has twice the sample there.
  const std::vector<double> longer = PlayNote(FixedGuitar(), 52, {0.5, 0.0001, 0.01});
  EXPECT_NEAR(note.at(end - 2205) / longer.at(end - 2205), 0.5, 0.001);
}

}  // namespace
}  // namespace tonalith::voice
