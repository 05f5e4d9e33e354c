// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "platform/sound/stereo_sound.h"

#include <bit>
#include <cmath>

namespace tonalith::platform {
namespace {

constexpr std::uint32_t kLowestRate = 1000;
constexpr std::uint32_t kHighestRate = 384000;

std::size_t BytesOf(SampleKind kind) {
  switch (kind) {
    case SampleKind::kUnsigned8:
      return 1;
    case SampleKind::kSigned16:
      return 2;
    case SampleKind::kSigned24:
      return 3;
    case SampleKind::kSigned32:
    case SampleKind::kFloat32:
      break;
  }
  return 4;
}

std::optional<SampleKind> PcmKind(std::uint16_t bits) {
  switch (bits) {
    case 8:
      return SampleKind::kUnsigned8;
    case 16:
      return SampleKind::kSigned16;
    case 24:
      return SampleKind::kSigned24;
    case 32:
      return SampleKind::kSigned32;
    default:
      return std::nullopt;
  }
}

std::optional<SampleKind> KindOf(const WaveFormat& format) {
  std::uint16_t tag = format.record.wFormatTag;
  if (tag == wave_format_tag::kExtensible) tag = format.subFormat.value_or(wave_format_tag::kPcm);
  const std::uint16_t bits = format.record.wBitsPerSample;
  if (tag == wave_format_tag::kPcm) return PcmKind(bits);
  if (tag == wave_format_tag::kFloat && bits == 32) return SampleKind::kFloat32;
  return std::nullopt;
}

/// Reads `size` little-endian bytes into the upper bytes of the result, so that the sign bit is correct.
std::int32_t SignedAtTop(const std::byte* at, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value |= std::to_integer<std::uint32_t>(at[i]) << (8 * (4 - size + i));
  return static_cast<std::int32_t>(value);
}

std::int16_t Short(SampleKind kind, const std::byte* at) {
  if (kind == SampleKind::kUnsigned8) return static_cast<std::int16_t>((std::to_integer<int>(*at) - 128) * 256);
  return static_cast<std::int16_t>(SignedAtTop(at, 2) >> 16);
}

float Float(SampleKind kind, const std::byte* at) {
  constexpr float kFullScale = 2147483648.0F;
  if (kind != SampleKind::kFloat32) return static_cast<float>(SignedAtTop(at, BytesOf(kind))) / kFullScale;
  const float value = std::bit_cast<float>(SignedAtTop(at, 4));
  return std::isfinite(value) ? value : 0.0F;
}

template <class Sample, class Convert>
std::vector<Sample> Interleave(const SoundLayout& layout, std::span<const std::byte> bytes, Convert convert) {
  const std::size_t sampleSize = BytesOf(layout.kind);
  const std::size_t frameSize = sampleSize * layout.channels;
  const std::size_t frames = bytes.size() / frameSize;
  const std::size_t toRight = layout.channels == 2 ? sampleSize : 0;
  std::vector<Sample> samples((frames + 1) * 2);
  for (std::size_t frame = 0; frame < frames; ++frame) {
    const std::byte* at = bytes.data() + frame * frameSize;
    samples[2 * frame] = convert(layout.kind, at);
    samples[2 * frame + 1] = convert(layout.kind, at + toRight);
  }
  return samples;
}

}  // namespace

std::optional<SoundLayout> LayoutOf(const WaveFormat& format) {
  const WAVEFORMATEX& record = format.record;
  const std::optional<SampleKind> kind = KindOf(format);
  if (!kind || record.nChannels < 1 || record.nChannels > 2) return std::nullopt;
  if (record.nSamplesPerSec < kLowestRate || record.nSamplesPerSec > kHighestRate) return std::nullopt;
  if (record.nBlockAlign != BytesOf(*kind) * record.nChannels) return std::nullopt;
  return SoundLayout{*kind, record.nChannels, record.nSamplesPerSec};
}

std::size_t StereoSound::Frames() const {
  return std::visit([](const auto& all) { return all.size() / 2 - 1; }, samples);
}

std::chrono::nanoseconds StereoSound::Duration() const {
  const std::chrono::duration<double> seconds(static_cast<double>(Frames()) / rate);
  return std::chrono::duration_cast<std::chrono::nanoseconds>(seconds);
}

StereoSound DecodeSound(const SoundLayout& layout, std::span<const std::byte> bytes) {
  StereoSound sound;
  sound.rate = layout.rate;
  if (layout.kind == SampleKind::kUnsigned8 || layout.kind == SampleKind::kSigned16) {
    sound.samples = Interleave<std::int16_t>(layout, bytes, Short);
  } else {
    sound.samples = Interleave<float>(layout, bytes, Float);
  }
  return sound;
}

}  // namespace tonalith::platform
