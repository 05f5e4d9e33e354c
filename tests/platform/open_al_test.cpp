// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "audio/octave_note_player.h"
#include "platform/recorded_sound.h"
#include "platform/wave_output_conformance.h"
#include "support/timed.h"

namespace tonalith::testing {
namespace {

struct OpenAlHost : RealTimeHost {
  platform::WaveOutput& Output() { return *output; }
  bool recording = !RecordingPath().empty();
  std::unique_ptr<platform::WaveOutput> output = platform::MakeOpenAlWaveOutput(queue, nullptr);
};

INSTANTIATE_TYPED_TEST_SUITE_P(OpenAl, WaveOutputConformance, OpenAlHost);

std::string NameOf(const Format& format) {
  return "tag " + std::to_string(format.tag) + ", " + std::to_string(format.channels) + " channels, " +
         std::to_string(format.rate) + " Hz, " + std::to_string(format.bits) + " bit";
}

TEST(OpenAlWaveOutput, PlaysEveryFormatAtItsPitchAndAtUnityGain) {
  std::vector<Format> formats;
  for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{8, 16, 24, 32}) {
    formats.push_back({1, 1, 44100, bits});
    formats.push_back({1, 2, 44100, bits});
  }
  for (const std::uint32_t rate : {8000U, 22050U, 48000U, 96000U, 192000U}) formats.push_back({1, 1, rate, 16});
  formats.push_back({3, 1, 44100, 32});
  formats.push_back({3, 2, 48000, 32});
  RecordingOutput output;
  for (const Format& format : formats) {
    output.Play(format, Sine(format, 440, 0.15, 0.9));
    output.Pass(0.05);
  }
  const Recording recording = output.Finish();
  const std::vector<Stretch> sounds = Stretches(recording, 0.02, 0.02);
  ASSERT_EQ(sounds.size(), formats.size());
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    EXPECT_NEAR(Pitch(recording, sounds[i]), 440, 0.25) << NameOf(formats[i]) << " (a cent)";
    EXPECT_NEAR(Decibels(Peak(recording.left, sounds[i]) / 0.9), 0, 0.1) << NameOf(formats[i]);
    EXPECT_NEAR(Decibels(Peak(recording.right, sounds[i]) / 0.9), 0, 0.1) << NameOf(formats[i]);
    const double seconds = static_cast<double>(sounds[i].to - sounds[i].from) / recording.rate;
    EXPECT_NEAR(seconds, 0.15, 0.002) << NameOf(formats[i]);
  }
}

TEST(OpenAlWaveOutput, PlaysMonoAtFullScaleOnBothChannels) {
  RecordingOutput output;
  output.Play({}, Sine({}, 441, 0.3, 1.0));
  const Recording recording = output.Finish();
  const std::vector<Stretch> sounds = Stretches(recording, 0.001, 0.05);
  ASSERT_EQ(sounds.size(), 1U);
  EXPECT_NEAR(Decibels(Peak(recording.left, sounds[0])), 0, 0.1);
  EXPECT_NEAR(Decibels(Peak(recording.right, sounds[0])), 0, 0.1);
  EXPECT_EQ(recording.left, recording.right);
}

TEST(OpenAlWaveOutput, KeepsTheChannelsApart) {
  const Format format{1, 2, 44100, 16};
  Bytes samples = Sine(format, 441, 0.2, 0.5);
  for (std::size_t at = 0; at < samples.size(); at += 4) samples[at + 2] = samples[at + 3] = std::byte{0};
  RecordingOutput output;
  output.Play(format, samples);
  const Recording recording = output.Finish();
  const Stretch whole{0, recording.left.size()};
  EXPECT_NEAR(Peak(recording.left, whole), 0.5, 0.005);
  EXPECT_LT(Peak(recording.right, whole), 0.0001);
}

TEST(OpenAlWaveOutput, PlaysASoundBitExactlyAtTheDevicesRate) {
  const Bytes samples = Sine({}, 441, 0.1, 0.7);
  RecordingOutput output;
  output.Play({}, samples);
  const Recording recording = output.Finish();
  const auto first = std::find_if(recording.left.begin(), recording.left.end(), [](float s) { return s != 0; });
  ASSERT_GE(recording.left.end() - first, std::ssize(samples) / 2 - 2);
  double worst = 0;
  for (std::size_t frame = 1; frame < samples.size() / 2; ++frame) {
    const int low = std::to_integer<int>(samples[2 * frame]);
    const int high = std::to_integer<int>(samples[2 * frame + 1]);
    const double expected = static_cast<std::int16_t>(low | (high << 8)) / 32768.0;
    worst = std::max(worst, std::abs(expected - double{first[static_cast<std::ptrdiff_t>(frame) - 1]}));
  }
  EXPECT_LT(worst, 0.0001);
}

TEST(OpenAlWaveOutput, PlaysSoundsInSequenceWithoutOverlapAndWithShortGaps) {
  RecordingOutput output;
  const double pitches[] = {330, 440, 550, 660, 770, 880, 990, 1100};
  std::vector<Bytes> samples;
  for (const double pitch : pitches) samples.push_back(Sine({}, pitch, 0.1, 0.8));
  for (const Bytes& sound : samples) output.Play({}, sound);
  const Recording recording = output.Finish();
  const std::vector<Stretch> sounds = Stretches(recording, 0.001, 0.001);
  ASSERT_EQ(sounds.size(), std::size(pitches)) << "one stretch for each: none overlap, none is missing";
  std::vector<double> gaps;
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    EXPECT_NEAR(Pitch(recording, sounds[i]), pitches[i], pitches[i] / 500);
    if (i > 0) gaps.push_back(static_cast<double>(sounds[i].from - sounds[i - 1].to) / recording.rate);
  }
  RecordProperty("MedianGapMicroseconds", static_cast<int>(Median(gaps) * 1e6));
  EXPECT_LT(Median(gaps), tests::Timely(0.030));
}

TEST(OpenAlWaveOutput, PostsTheMessageWithin15MillisecondsOfTheLastSample) {
  RecordingOutput output;
  const Bytes samples = Sine({}, 441, 0.1, 0.5);
  output.Play({}, samples);
  std::vector<double> late;
  late.reserve(15);
  for (int i = 0; i < 15; ++i) late.push_back(output.Play({}, samples) - 0.1);
  RecordProperty("MedianLateMicroseconds", static_cast<int>(Median(late) * 1e6));
  EXPECT_GT(Median(late), -0.015);
  EXPECT_LT(Median(late), tests::Timely(0.015));
}

TEST(OpenAlWaveOutput, PostsTheMessageOfAResetImmediately) {
  RecordingOutput output;
  const Bytes samples = Sine({}, 441, 2, 0.5);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
  const auto device = output.Output().Open(RecordOf({}), output.Window());
  output.Output().PrepareHeader(device, header);
  std::vector<double> took;
  took.reserve(9);
  for (int i = 1; i <= 9; ++i) {
    output.Output().Write(device, header);
    output.Pass(0.03);
    const auto start = std::chrono::steady_clock::now();
    output.Output().Reset(device);
    output.WaitFor(i);
    took.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  EXPECT_LT(Median(took), tests::Timely(0.015));
}

TEST(OpenAlWaveOutput, FadesOutAResetSoundWithoutAClick) {
  RecordingOutput output;
  const Bytes samples = Sine({}, 441, 2, 1.0);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
  for (int i = 0; i < 6; ++i) {
    const auto device = output.Output().Open(RecordOf({}), output.Window());
    output.Output().PrepareHeader(device, header);
    output.Output().Write(device, header);
    output.Pass(0.1 + i * 0.0004);
    output.Output().Reset(device);
    output.Output().Close(device);
    output.Pass(0.15);
  }
  const Recording recording = output.Finish();
  const std::vector<Stretch> sounds = Stretches(recording, 0.0001, 0.03);
  ASSERT_EQ(sounds.size(), 6U);
  for (const Stretch& sound : sounds) {
    const Stretch end{sound.to - 400, std::min(sound.to + 200, recording.left.size())};
    EXPECT_LT(LargestStep(recording.left, end), 0.07) << "no steeper than the sine itself (0.063)";
    EXPECT_LT(static_cast<double>(sound.to - sound.from) / recording.rate, tests::Timely(0.16));
  }
}

TEST(OpenAlWaveOutput, MixesDevicesOfDifferentFormats) {
  RecordingOutput output;
  const Format formats[] = {{}, {1, 2, 22050, 8}, {3, 1, 48000, 32}};
  std::vector<Bytes> samples;
  std::vector<platform::WAVEHDR> headers;
  for (const Format& format : formats) samples.push_back(Sine(format, 441, 0.3, 0.25));
  for (std::size_t i = 0; i < 3; ++i) {
    platform::WAVEHDR header{.lpData = samples[i].data(),
                             .dwBufferLength = static_cast<std::uint32_t>(samples[i].size())};
    const auto device = output.Output().Open(RecordOf(formats[i]), output.Window());
    output.Output().PrepareHeader(device, header);
    output.Output().Write(device, header);
  }
  output.WaitFor(3);
  const Recording recording = output.Finish();
  EXPECT_EQ(Stretches(recording, 0.001, 0.01).size(), 1U);
  EXPECT_GT(Peak(recording.left, {0, recording.left.size()}), 0.3) << "they are mixed";
}

TEST(OpenAlWaveOutput, OpensNoDeviceBeforeTheFirstSound) {
  std::filesystem::remove(RecordingPath());
  RecordingOutput output;
  const Bytes samples(8);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = 8};
  const auto device = output.Output().Open(RecordOf({}), output.Window());
  output.Output().PrepareHeader(device, header);
  output.Pass(0.05);
  EXPECT_FALSE(std::filesystem::exists(RecordingPath()));
  output.Output().Write(device, header);
  output.WaitFor(1);
  EXPECT_TRUE(std::filesystem::exists(RecordingPath()));
}

TEST(OpenAlWaveOutput, EndsPromptlyWhileASoundPlays) {
  std::filesystem::remove(RecordingPath());
  RecordingOutput output;
  const Bytes samples = Sine({}, 441, 20, 0.5);
  platform::WAVEHDR header{.lpData = samples.data(), .dwBufferLength = static_cast<std::uint32_t>(samples.size())};
  const auto device = output.Output().Open(RecordOf({}), output.Window());
  output.Output().PrepareHeader(device, header);
  output.Output().Write(device, header);
  // More than a tenth of a second of two 32-bit channels. A busy computer records late.
  constexpr std::uintmax_t kRecorded = 40'000;
  const auto recorded = [] {
    std::error_code none;
    const std::uintmax_t size = std::filesystem::file_size(RecordingPath(), none);
    return none ? 0 : size;
  };
  for (int i = 0; i < 500 && recorded() < kRecorded; ++i) output.Pass(0.02);
  const auto start = std::chrono::steady_clock::now();
  const Recording recording = output.Finish();
  EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::milliseconds(500)));
  EXPECT_GT(recording.Seconds(), 0.1);
}

}  // namespace
}  // namespace tonalith::testing
