// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/stereo_sound.h"

#include <gtest/gtest.h>

#include <limits>

#include "audio/wave_bytes.h"

namespace tonalith::platform {
namespace {

using testing::Bytes;
using testing::Number;

WaveFormat FormatOf(const testing::Format& format) {
  const auto align = static_cast<std::uint16_t>(format.channels * format.bits / 8);
  return {{.wFormatTag = format.tag,
           .nChannels = format.channels,
           .nSamplesPerSec = format.rate,
           .nAvgBytesPerSec = format.rate * align,
           .nBlockAlign = align,
           .wBitsPerSample = format.bits,
           .cbSize = 0x6164},
          std::nullopt};
}

StereoSound Decode(const testing::Format& format, const Bytes& bytes) {
  return DecodeSound(LayoutOf(FormatOf(format)).value(), bytes);
}

/// The samples without the final silence, which is checked here.
template <class Sample>
std::vector<Sample> SamplesOf(const StereoSound& sound) {
  std::vector<Sample> samples = std::get<std::vector<Sample>>(sound.samples);
  EXPECT_EQ(samples.size(), 2 * sound.Frames() + 2);
  for (int side = 0; side < 2 && !samples.empty(); ++side) {
    EXPECT_EQ(samples.back(), 0);
    samples.pop_back();
  }
  return samples;
}
std::vector<std::int16_t> Shorts(const StereoSound& sound) { return SamplesOf<std::int16_t>(sound); }
std::vector<float> Floats(const StereoSound& sound) { return SamplesOf<float>(sound); }

TEST(SoundLayout, AcceptsEveryPlainFormat) {
  for (const std::uint16_t channels : std::initializer_list<std::uint16_t>{1, 2}) {
    for (const std::uint16_t bits : std::initializer_list<std::uint16_t>{8, 16, 24, 32}) {
      for (const std::uint32_t rate : {8000U, 11025U, 22050U, 44100U, 48000U, 96000U, 192000U}) {
        const auto layout = LayoutOf(FormatOf({1, channels, rate, bits}));
        ASSERT_TRUE(layout) << channels << " " << bits << " " << rate;
        EXPECT_EQ(layout->channels, channels);
        EXPECT_EQ(layout->rate, rate);
      }
    }
    EXPECT_EQ(LayoutOf(FormatOf({3, channels, 44100, 32}))->kind, SampleKind::kFloat32);
  }
}

TEST(SoundLayout, UsesTheFormatTagOfAnExtensibleRecord) {
  WaveFormat format = FormatOf({0xFFFE, 2, 44100, 32});
  EXPECT_EQ(LayoutOf(format)->kind, SampleKind::kSigned32) << "plain samples if the record has no tag";
  format.subFormat = wave_format_tag::kFloat;
  EXPECT_EQ(LayoutOf(format)->kind, SampleKind::kFloat32);
  format.subFormat = wave_format_tag::kPcm;
  EXPECT_EQ(LayoutOf(format)->kind, SampleKind::kSigned32);
  format.subFormat = 2;
  EXPECT_FALSE(LayoutOf(format));
}

TEST(SoundLayout, AcceptsRatesFrom1To384Kilohertz) {
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 999, 16})));
  EXPECT_TRUE(LayoutOf(FormatOf({1, 1, 1000, 16})));
  EXPECT_TRUE(LayoutOf(FormatOf({1, 1, 384000, 16})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 384001, 16})));
}

TEST(SoundLayout, RefusesUnsupportedFormats) {
  EXPECT_FALSE(LayoutOf(FormatOf({2, 1, 44100, 16}))) << "compressed";
  EXPECT_FALSE(LayoutOf(FormatOf({3, 1, 44100, 16}))) << "no such floating-point number";
  EXPECT_FALSE(LayoutOf(FormatOf({3, 1, 44100, 64})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 0, 44100, 16})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 3, 44100, 16})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 44100, 12})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 44100, 0})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 0, 16})));
  EXPECT_FALSE(LayoutOf(FormatOf({1, 1, 0xFFFFFFFF, 16})));
  WaveFormat contradiction = FormatOf({1, 2, 44100, 16});
  contradiction.record.nBlockAlign = 2;
  EXPECT_FALSE(LayoutOf(contradiction));
}

TEST(StereoSound, CopiesAMonoSoundToBothChannels) {
  EXPECT_EQ(Shorts(Decode({}, Number(0x7FFF8000, 4))), (std::vector<std::int16_t>{-32768, -32768, 32767, 32767}));
}

TEST(StereoSound, KeepsTheChannelsOfAStereoSound) {
  EXPECT_EQ(Shorts(Decode({1, 2, 44100, 16}, Number(0x7FFF8000, 4))), (std::vector<std::int16_t>{-32768, 32767}));
}

TEST(StereoSound, CentresEightBitSamples) {
  EXPECT_EQ(Shorts(Decode({1, 1, 44100, 8}, Number(0xFF8000, 3))),
            (std::vector<std::int16_t>{-32768, -32768, 0, 0, 32512, 32512}));
}

TEST(StereoSound, ReadsWiderSamplesAsFractionsOfFullScale) {
  EXPECT_EQ(Floats(Decode({1, 2, 44100, 24}, Number(0x400000800000, 6))), (std::vector<float>{-1.0F, 0.5F}));
  EXPECT_EQ(Floats(Decode({1, 2, 44100, 32}, Number(0xC000000040000000, 8))), (std::vector<float>{0.5F, -0.5F}));
  EXPECT_EQ(Floats(Decode({3, 2, 44100, 32}, Number(0x3F000000BF800000, 8))), (std::vector<float>{-1.0F, 0.5F}));
}

TEST(StereoSound, ReadsNanAndInfinityAsSilence) {
  EXPECT_EQ(Floats(Decode({3, 2, 44100, 32}, Number(0x7FC000007F800000, 8))), (std::vector<float>{0.0F, 0.0F}));
}

TEST(StereoSound, DropsAnIncompleteFrame) {
  EXPECT_EQ(Decode({1, 2, 44100, 24}, Number(0, 11)).Frames(), 1U);
  EXPECT_EQ(Decode({1, 2, 44100, 24}, {}).Frames(), 0U);
}

TEST(StereoSound, LastsAsLongAsItsFrames) {
  EXPECT_EQ(Decode({1, 2, 8000, 16}, Number(0, 4 * 800)).Duration(), std::chrono::milliseconds(100));
  EXPECT_EQ(Decode({1, 1, 44100, 8}, Number(0, 44100)).Duration(), std::chrono::seconds(1));
}

}  // namespace
}  // namespace tonalith::platform
